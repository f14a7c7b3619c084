# Warnings, sanitizers and the one way in which a floor of the house is declared.

option(ORVANTA_SANITIZE "Build with AddressSanitizer and UndefinedBehaviorSanitizer" OFF)

add_library(orvanta_flags INTERFACE)
target_include_directories(orvanta_flags INTERFACE ${PROJECT_SOURCE_DIR})
target_compile_definitions(orvanta_flags INTERFACE QT_NO_CAST_FROM_ASCII QT_NO_CAST_TO_ASCII
                                                   QT_NO_KEYWORDS QT_NO_FOREACH)
target_compile_options(orvanta_flags INTERFACE
    -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wold-style-cast -Woverloaded-virtual -Werror)
target_link_options(orvanta_flags INTERFACE -Wl,--as-needed -Wl,-z,relro -Wl,-z,now)
if(ORVANTA_SANITIZE)
    target_compile_options(orvanta_flags INTERFACE
        -fsanitize=address,undefined -fno-sanitize-recover=undefined -fno-omit-frame-pointer)
    target_link_options(orvanta_flags INTERFACE -fsanitize=address,undefined)
endif()

# orvanta_floor(NAME SOURCES ... LINKS ...): a static library that may use only what it links.
function(orvanta_floor name)
    cmake_parse_arguments(FLOOR "" "" "SOURCES;LINKS" ${ARGN})
    add_library(${name} STATIC ${FLOOR_SOURCES})
    target_link_libraries(${name} PUBLIC orvanta_flags ${FLOOR_LINKS})
endfunction()
