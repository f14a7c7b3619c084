# The target "tidy": clang-tidy over the program's own sources, two at a time. Each source has a
# stamp in the build folder, so that only what changed is checked again.

set(ORVANTA_CHECKED_FOLDERS core platform model playback window editors system app companions)

# Appends to the list every .cpp of the targets in this folder and below it, as paths below the
# project's root.
function(orvanta_collect_sources folder list)
    get_property(targets DIRECTORY ${folder} PROPERTY BUILDSYSTEM_TARGETS)
    foreach(target IN LISTS targets)
        get_target_property(own ${target} SOURCES)
        list(FILTER own INCLUDE REGEX "^[^<$]*\\.cpp$")
        foreach(source IN LISTS own)
            cmake_path(ABSOLUTE_PATH source BASE_DIRECTORY ${folder} NORMALIZE)
            cmake_path(RELATIVE_PATH source BASE_DIRECTORY ${PROJECT_SOURCE_DIR})
            list(APPEND ${list} ${source})
        endforeach()
    endforeach()
    get_property(below DIRECTORY ${folder} PROPERTY SUBDIRECTORIES)
    foreach(subfolder IN LISTS below)
        orvanta_collect_sources(${subfolder} ${list})
    endforeach()
    set(${list} ${${list}} PARENT_SCOPE)
endfunction()

function(orvanta_add_tidy)
    list(JOIN ORVANTA_CHECKED_FOLDERS "|" folders)
    set(sources)
    orvanta_collect_sources(${PROJECT_SOURCE_DIR} sources)
    list(FILTER sources INCLUDE REGEX "^(${folders})/")
    list(REMOVE_DUPLICATES sources)

    list(TRANSFORM ORVANTA_CHECKED_FOLDERS PREPEND "${PROJECT_SOURCE_DIR}/" OUTPUT_VARIABLE roots)
    list(TRANSFORM roots APPEND "/*.h")
    file(GLOB_RECURSE headers CONFIGURE_DEPENDS ${roots})

    set_property(GLOBAL APPEND PROPERTY JOB_POOLS tidy=2)
    set(stamps)
    foreach(name IN LISTS sources)
        set(source ${PROJECT_SOURCE_DIR}/${name})
        set(stamp ${CMAKE_BINARY_DIR}/tidy/${name}.stamp)
        add_custom_command(
            OUTPUT ${stamp}
            COMMAND ${PROJECT_SOURCE_DIR}/scripts/tidy_file ${CMAKE_BINARY_DIR} ${source} ${stamp}
            DEPENDS ${source} ${headers} ${PROJECT_SOURCE_DIR}/.clang-tidy
                    ${PROJECT_SOURCE_DIR}/scripts/tidy_file
            JOB_POOL tidy
            COMMENT "clang-tidy ${name}"
            VERBATIM)
        list(APPEND stamps ${stamp})
    endforeach()
    add_custom_target(tidy DEPENDS ${stamps})
    # Generated headers must be there before a source that includes one can be read.
    add_dependencies(tidy orvanta)
endfunction()
