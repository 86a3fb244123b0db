# Defaults for every target of the project, so that a folder's CMakeLists.txt only says what differs.

set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_AUTOMOC ON)
set(CMAKE_AUTORCC ON)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)
set(CMAKE_RUNTIME_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/bin)

option(QUORVANTIS_SANITIZE "Build with the address and undefined-behaviour sanitizers" OFF)
option(QUORVANTIS_WARNINGS_AS_ERRORS "Treat compiler warnings as errors" ON)

add_library(project_options INTERFACE)
target_compile_options(project_options INTERFACE
    -Wall -Wextra -Wpedantic -Wshadow -Wnon-virtual-dtor -Woverloaded-virtual -Wold-style-cast
    -Wcast-qual -Wformat=2 -Wsuggest-override $<$<BOOL:${QUORVANTIS_WARNINGS_AS_ERRORS}>:-Werror>)
target_compile_definitions(project_options INTERFACE
    QT_NO_CAST_TO_ASCII QT_NO_URL_CAST_FROM_STRING QT_NO_FOREACH QT_NO_KEYWORDS
    QT_DISABLE_DEPRECATED_BEFORE=0x060400)
if(QUORVANTIS_SANITIZE)
    target_compile_options(project_options INTERFACE
        -fsanitize=address,undefined,float-cast-overflow -fno-sanitize-recover=all
        -fno-omit-frame-pointer)
    target_link_options(project_options INTERFACE -fsanitize=address,undefined,float-cast-overflow)
endif()
find_program(LLD_LINKER ld.lld)
if(LLD_LINKER)
    target_link_options(project_options INTERFACE -fuse-ld=lld)
endif()

# precompile(<target> <core|widgets|tests|tests_gui>): parses the common headers once for all targets.
function(precompile target kind)
    if(NOT CMAKE_DISABLE_PRECOMPILE_HEADERS)
        target_precompile_headers(${target} REUSE_FROM precompiled_${kind})
    elseif(kind MATCHES "^tests")
        target_compile_options(${target} PRIVATE "SHELL:-include support/PrintText.h")
    endif()
endfunction()

# add_project_library(<name> SOURCES <files> [LINK <targets>] [PRIVATE_LINK <targets>] [RESOURCES <qrc>])
# Includes are written from src/: #include "platform/base/Error.h".
function(add_project_library name)
    cmake_parse_arguments(ARG "" "" "SOURCES;LINK;PRIVATE_LINK;RESOURCES" ${ARGN})
    add_library(${name} STATIC ${ARG_SOURCES} ${ARG_RESOURCES})
    target_include_directories(${name} PUBLIC ${PROJECT_SOURCE_DIR}/src)
    target_link_libraries(${name} PUBLIC ${ARG_LINK} PRIVATE project_options ${ARG_PRIVATE_LINK})
    if(name MATCHES "^platform_")
        target_compile_options(${name} PRIVATE -Wconversion -Wno-sign-conversion)
    endif()
    if(name MATCHES "^platform_system")
        precompile(${name} core)
    elseif(name MATCHES "_ui$|^platform_(input|grid|help)$|^app$")
        precompile(${name} widgets)
    else()
        precompile(${name} core)
    endif()
endfunction()

# add_project_program(<name> SOURCES <files> LINK <targets>)
function(add_project_program name)
    cmake_parse_arguments(ARG "" "" "SOURCES;LINK" ${ARGN})
    add_executable(${name} ${ARG_SOURCES})
    target_link_libraries(${name} PRIVATE project_options ${ARG_LINK})
    precompile(${name} core)
endfunction()

# add_project_test(<name> SOURCES <files> LINK <targets> LABELS <unit|db|report|gui> [TIMEOUT <seconds>])
# Every case runs as a ctest test of its own, alone or beside others. The test's main() makes a
# QApplication on the offscreen platform when the label is gui, otherwise a QCoreApplication.
function(add_project_test name)
    cmake_parse_arguments(ARG "" "TIMEOUT" "SOURCES;LINK;LABELS" ${ARGN})
    if(NOT ARG_TIMEOUT)
        set(ARG_TIMEOUT 60)
    endif()
    add_executable(${name} ${ARG_SOURCES})
    if("gui" IN_LIST ARG_LABELS)
        set(support test_support_gui)
        precompile(${name} tests_gui)
    else()
        set(support test_support)
        precompile(${name} tests)
    endif()
    target_link_libraries(${name} PRIVATE project_options ${ARG_LINK} ${support} GTest::gmock GTest::gtest)
    target_include_directories(${name} PRIVATE ${PROJECT_SOURCE_DIR}/tests)
    set_target_properties(${name} PROPERTIES RUNTIME_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/tests)
    include(GoogleTest)
    gtest_discover_tests(${name} DISCOVERY_MODE PRE_TEST DISCOVERY_TIMEOUT 60 TEST_PREFIX "${name}."
        PROPERTIES LABELS "${ARG_LABELS}" TIMEOUT ${ARG_TIMEOUT})
endfunction()
