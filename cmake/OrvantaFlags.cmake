# Warnings, sanitizers and the one way in which a floor of the house is declared.

option(ORVANTA_SANITIZE "Build with AddressSanitizer and UndefinedBehaviorSanitizer" OFF)
option(ORVANTA_THREADS "Build with ThreadSanitizer" OFF)
option(ORVANTA_FUZZ "Build the fuzzed rules of tests/fuzz with the fuzzing engine of clang" OFF)

add_library(orvanta_flags INTERFACE)
target_include_directories(orvanta_flags INTERFACE ${PROJECT_SOURCE_DIR})
target_compile_definitions(orvanta_flags INTERFACE QT_NO_CAST_FROM_ASCII QT_NO_CAST_TO_ASCII
                                                   QT_NO_KEYWORDS QT_NO_FOREACH)
# Some libraries ask for it; headers that are compiled once want one answer everywhere.
target_compile_definitions(orvanta_flags INTERFACE _REENTRANT)
target_compile_options(orvanta_flags INTERFACE
    -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wold-style-cast -Woverloaded-virtual)
option(ORVANTA_WERROR "Warnings are errors" ON)
if(ORVANTA_WERROR)
    target_compile_options(orvanta_flags INTERFACE -Werror)
endif()
# What packages are built with anyway. The checks of buffers need the optimizer.
if(NOT ORVANTA_SANITIZE AND NOT ORVANTA_THREADS AND CMAKE_BUILD_TYPE MATCHES "Rel")
    target_compile_options(orvanta_flags INTERFACE
        -U_FORTIFY_SOURCE -D_FORTIFY_SOURCE=2 -fstack-protector-strong -fstack-clash-protection)
    # Tables of addresses in a few bits each: 4 % of what is installed. Glibc reads them from 2.36 on.
    target_link_options(orvanta_flags INTERFACE -Wl,-z,pack-relative-relocs)
endif()
target_link_options(orvanta_flags INTERFACE -Wl,--as-needed -Wl,-z,relro -Wl,-z,now)
option(ORVANTA_COVERAGE "Count the lines that are run" OFF)
if(ORVANTA_COVERAGE)
    target_compile_options(orvanta_flags INTERFACE --coverage -fprofile-update=atomic)
    # A test that leaves without clean-up writes its counts by this.
    target_link_options(orvanta_flags INTERFACE --coverage -Wl,--undefined=__gcov_dump)
endif()
if(ORVANTA_SANITIZE)
    target_compile_options(orvanta_flags INTERFACE
        -fsanitize=address,undefined -fno-sanitize-recover=undefined -fno-omit-frame-pointer)
    target_link_options(orvanta_flags INTERFACE -fsanitize=address,undefined)
endif()
if(ORVANTA_THREADS)
    target_compile_options(orvanta_flags INTERFACE -fsanitize=thread -fno-omit-frame-pointer)
    target_link_options(orvanta_flags INTERFACE -fsanitize=thread)
endif()
if(ORVANTA_FUZZ)
    target_compile_options(orvanta_flags INTERFACE -fsanitize=fuzzer-no-link)
    target_link_options(orvanta_flags INTERFACE -fsanitize=fuzzer-no-link)
endif()

# orvanta_prefix(NAME LINKS ... HEADERS ...): headers that are compiled once for many targets. A
# source still includes what it uses; -DCMAKE_DISABLE_PRECOMPILE_HEADERS=ON proves it.
function(orvanta_prefix name)
    cmake_parse_arguments(PREFIX "" "" "LINKS;HEADERS" ${ARGN})
    set(empty ${CMAKE_CURRENT_BINARY_DIR}/${name}.cpp)
    file(CONFIGURE OUTPUT ${empty} CONTENT "")
    add_library(${name} OBJECT ${empty})
    set_target_properties(${name} PROPERTIES AUTOMOC OFF AUTORCC OFF)
    target_link_libraries(${name} PRIVATE orvanta_flags ${PREFIX_LINKS})
    target_precompile_headers(${name} PRIVATE ${PREFIX_HEADERS})
endfunction()

set(ORVANTA_CORE_HEADERS
    <QByteArray> <QDir> <QFile> <QFileInfo> <QHash> <QObject> <QRegularExpression> <QString>
    <QStringList> <QTimer>
    <algorithm> <array> <functional> <map> <memory> <optional> <set> <span> <utility> <vector>)
set(ORVANTA_WINDOW_HEADERS
    <QAction> <QApplication> <QBoxLayout> <QGuiApplication> <QLabel> <QLineEdit> <QMenu>
    <QMouseEvent> <QPainter> <QWidget> <QWindow>)
orvanta_prefix(orvanta_core_prefix LINKS Qt6::Core HEADERS ${ORVANTA_CORE_HEADERS})
orvanta_prefix(orvanta_window_prefix
    LINKS Qt6::Widgets
    HEADERS ${ORVANTA_CORE_HEADERS} ${ORVANTA_WINDOW_HEADERS})

# orvanta_floor(NAME SOURCES ... LINKS ...): a static library that may use only what it links.
function(orvanta_floor name)
    cmake_parse_arguments(FLOOR "" "" "SOURCES;LINKS" ${ARGN})
    add_library(${name} STATIC ${FLOOR_SOURCES})
    target_link_libraries(${name} PUBLIC orvanta_flags ${FLOOR_LINKS})
    if("Qt6::Widgets" IN_LIST FLOOR_LINKS)
        target_precompile_headers(${name} REUSE_FROM orvanta_window_prefix)
    else()
        target_precompile_headers(${name} REUSE_FROM orvanta_core_prefix)
    endif()
endfunction()
