# The target "tidy": clang-tidy over the program's own sources; only what changed is checked again.
add_custom_target(tidy
    COMMAND ${PROJECT_SOURCE_DIR}/scripts/tidy ${CMAKE_BINARY_DIR}
    USES_TERMINAL VERBATIM)
