# SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
# SPDX-License-Identifier: MIT
#
# cmake -DCHECK=includes|headers|lengths -DFOLDERS=<folder;...> -P check_sources.cmake
#
# Looks through the sources of the folders, prints a line for everything that breaks the rule, and
# fails when there is any. The folder of `includes` is src/, whose subfolders are the rooms.
cmake_minimum_required(VERSION 3.25)

# What each room may include beside itself. The order goes from the ground up.
set(may_include_store "")
set(may_include_spreadsheet "")
set(may_include_toolkit store)
set(may_include_app toolkit store)
set(may_include_datasheets app toolkit store spreadsheet)
set(may_include_pid datasheets app toolkit store spreadsheet)
set(may_include_viewing datasheets app toolkit store)
set(may_include_documents viewing datasheets app toolkit store)
set(may_include_index documents viewing pid datasheets app toolkit store spreadsheet)
# The start of the program stands in the folder app, but above all rooms.
set(top_files app/main.cpp app/modMain.cpp app/modMain.h)
# These stand in app too, but below it: the state and the interface that all windows share.
set(ground_files app/state.h app/main_window.h)
set(without_ground store spreadsheet)

set(longest_file 500)
set(header_lines
    "// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors"
    "// SPDX-License-Identifier: MIT")

set(faults 0)
function(report text)
    message("${text}")
    math(EXPR count "${faults} + 1")
    set(faults ${count} PARENT_SCOPE)
endfunction()

# Sets `reason` to what is wrong with an include in a file, or to nothing.
function(judge_include file include)
    set(reason "" PARENT_SCOPE)
    if(file IN_LIST top_files)
        return()
    endif()
    string(REGEX MATCH "^[^/]+" room "${file}")
    string(REGEX MATCH "^[^/]+" from "${include}")
    if(NOT DEFINED may_include_${room})
        set(reason "is in a folder that is no room" PARENT_SCOPE)
    elseif(include MATCHES "(^|/)\\.\\.?/" OR NOT include MATCHES "/")
        set(reason "includes ${include}, which names no room" PARENT_SCOPE)
    elseif(include IN_LIST top_files)
        set(reason "includes ${include} from above" PARENT_SCOPE)
    elseif(from STREQUAL room OR from IN_LIST may_include_${room})
        return()
    elseif(NOT include IN_LIST ground_files OR room IN_LIST without_ground)
        set(reason "includes ${include}" PARENT_SCOPE)
    endif()
endfunction()

function(check_includes folder file)
    file(STRINGS ${folder}/${file} lines REGEX "^[ \t]*#[ \t]*include[ \t]*\"")
    foreach(line IN LISTS lines)
        string(REGEX REPLACE "^[^\"]*\"([^\"]*)\".*" "\\1" include "${line}")
        judge_include(${file} ${include})
        if(reason)
            report("${file} ${reason}")
        endif()
    endforeach()
    set(faults ${faults} PARENT_SCOPE)
endfunction()

function(check_headers folder file)
    file(STRINGS ${folder}/${file} lines LIMIT_COUNT 2)
    if(NOT lines STREQUAL header_lines)
        report("${file} does not begin with the licence lines")
    endif()
    set(faults ${faults} PARENT_SCOPE)
endfunction()

function(check_lengths folder file)
    file(READ ${folder}/${file} text)
    string(REGEX MATCHALL "\n" breaks "${text}")
    list(LENGTH breaks length)
    if(length GREATER longest_file)
        report("${file} has ${length} lines, ${longest_file} are the limit")
    endif()
    set(faults ${faults} PARENT_SCOPE)
endfunction()

set(seen 0)
foreach(folder IN LISTS FOLDERS)
    file(GLOB_RECURSE files RELATIVE ${folder} ${folder}/*.h ${folder}/*.cpp)
    foreach(file IN LISTS files)
        math(EXPR seen "${seen} + 1")
        cmake_language(CALL check_${CHECK} ${folder} ${file})
    endforeach()
endforeach()
if(seen EQUAL 0)
    message(FATAL_ERROR "There are no sources in ${FOLDERS}.")
elseif(faults GREATER 0)
    message(FATAL_ERROR "${faults} faults in ${seen} files.")
endif()
message("${seen} files are in order.")
