# SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
# SPDX-License-Identifier: MIT

# ostrand_room(name [EXCEPT files...] [EXCEPT_FOLDER name] USES libs...): the static library
# ostrand_<name> of the room src/<name>, made of all its sources but those excepted. USES names what the room may link to; the test
# `permitted_includes` checks the same directions for the headers.
function(ostrand_room name)
    cmake_parse_arguments(ROOM "" "EXCEPT_FOLDER" "USES;EXCEPT" ${ARGN})
    file(GLOB_RECURSE sources CONFIGURE_DEPENDS
        ${CMAKE_SOURCE_DIR}/src/${name}/*.cpp ${CMAKE_SOURCE_DIR}/src/${name}/*.h)
    foreach(file IN LISTS ROOM_EXCEPT)
        list(REMOVE_ITEM sources ${CMAKE_SOURCE_DIR}/src/${name}/${file})
    endforeach()
    if(ROOM_EXCEPT_FOLDER)
        list(FILTER sources EXCLUDE REGEX "/src/${name}/${ROOM_EXCEPT_FOLDER}/")
    endif()
    add_library(ostrand_${name} STATIC ${sources})
    target_include_directories(ostrand_${name} PUBLIC ${CMAKE_SOURCE_DIR}/src)
    target_link_libraries(ostrand_${name} PUBLIC ${ROOM_USES} PRIVATE ostrand_compile)
    target_compile_features(ostrand_${name} PUBLIC cxx_std_20)
endfunction()

# ostrand_test(name SOURCES files... USES libs... [TIMEOUT seconds]): one QtTest executable and its
# CTest entry, run without a display, in a fixed locale and time zone.
function(ostrand_test name)
    cmake_parse_arguments(TEST "" "TIMEOUT" "SOURCES;USES;LABELS" ${ARGN})
    if(NOT TEST_TIMEOUT)
        set(TEST_TIMEOUT 120)
    endif()
    add_executable(${name} ${TEST_SOURCES})
    set_target_properties(${name} PROPERTIES
        RUNTIME_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/tests)
    target_include_directories(${name} PRIVATE ${CMAKE_SOURCE_DIR}/tests)
    target_link_libraries(${name} PRIVATE ${TEST_USES} ostrand_compile Qt6::Test)
    add_test(NAME ${name} COMMAND ${name})
    set_tests_properties(${name} PROPERTIES
        TIMEOUT ${TEST_TIMEOUT}
        LABELS "${TEST_LABELS}"
        ENVIRONMENT "QT_QPA_PLATFORM=offscreen;LC_ALL=C.UTF-8;TZ=UTC")
endfunction()
