# SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
# SPDX-License-Identifier: MIT
#
# cmake -DSCRATCH=<folder> -P check_the_checks.cmake
#
# Proves that check_sources.cmake finds what it is for: writes sources that break its rules and
# some that only look so, and compares what it reports.
cmake_minimum_required(VERSION 3.25)

set(licence "// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors\n// SPDX-License-Identifier: MIT\n")

function(source file)
    list(JOIN ARGN "\n" text)
    file(WRITE ${SCRATCH}/${file} "${licence}${text}\n")
endfunction()

# expect(check lines...): runs the check and compares the faults that it names with the lines.
function(expect check)
    execute_process(
        COMMAND ${CMAKE_COMMAND} -DCHECK=${check} -DFOLDERS=${SCRATCH}
            -P ${CMAKE_CURRENT_LIST_DIR}/check_sources.cmake
        RESULT_VARIABLE result ERROR_VARIABLE output OUTPUT_QUIET)
    string(REGEX MATCHALL "(^|\n)[a-z]+/[^\n]+" found "${output}")
    list(TRANSFORM found STRIP)
    list(SORT found)
    set(expected ${ARGN})
    list(SORT expected)
    if(NOT "${found}" STREQUAL "${expected}")
        message(FATAL_ERROR "${check} found\n${found}\ninstead of\n${expected}\n\n${output}")
    elseif(expected AND result EQUAL 0)
        message(FATAL_ERROR "${check} named faults and passed all the same")
    elseif(NOT expected AND NOT result EQUAL 0)
        message(FATAL_ERROR "${check} failed without a fault:\n${output}")
    endif()
endfunction()

# Everything that is permitted.
file(REMOVE_RECURSE ${SCRATCH})
source(app/main.cpp [[#include "app/modMain.h"]] [[#include "index/frmIndex.h"]])
source(app/state.cpp [[#include "app/state.h"]] [[#include "toolkit/prompts.h"]])
source(index/frmIndex.cpp [[#include "documents/frmDoc.h"]] [[#include "store/sql/translate.h"]])
source(toolkit/grid.cpp [[#include "app/main_window.h"]] [[#include <app/modMain.h>]])
source(store/value.cpp [[#include "store/value.h"]] [[// #include "toolkit/grid.h"]])
expect(includes)
expect(headers)
expect(lengths)

# The same tree with one fault of every kind.
source(store/bad.cpp [[#include "toolkit/grid.h"]] [[#include "app/state.h"]])
source(toolkit/bad.h [[  #  include "app/modText.h"]])
source(app/bad.h [[#include "index/frmIndex.h"]])
source(documents/bad.cpp [[#include "app/modMain.h"]])
source(viewing/bad.cpp [[#include "documents/frmDoc.h"]])
source(spreadsheet/bad.cpp [[#include "store/value.h"]])
source(datasheets/bad.cpp [[#include "../pid/link.h"]] [[#include "link.h"]])
source(attic/bad.cpp [[#include "store/value.h"]])
expect(includes
    "app/bad.h includes index/frmIndex.h"
    "attic/bad.cpp is in a folder that is no room"
    "datasheets/bad.cpp includes ../pid/link.h, which names no room"
    "datasheets/bad.cpp includes link.h, which names no room"
    "documents/bad.cpp includes app/modMain.h from above"
    "spreadsheet/bad.cpp includes store/value.h"
    "store/bad.cpp includes app/state.h"
    "store/bad.cpp includes toolkit/grid.h"
    "toolkit/bad.h includes app/modText.h"
    "viewing/bad.cpp includes documents/frmDoc.h")

file(WRITE ${SCRATCH}/store/plain.h "#pragma once\n")
file(WRITE ${SCRATCH}/store/late.h "\n${licence}")
expect(headers
    "store/late.h does not begin with the licence lines"
    "store/plain.h does not begin with the licence lines")

string(REPEAT "// a [line]; of text\n" 498 fitting)
file(WRITE ${SCRATCH}/store/fitting.cpp "${licence}${fitting}")
file(WRITE ${SCRATCH}/store/long.cpp "${licence}${fitting}\n")
expect(lengths "store/long.cpp has 501 lines, 500 are the limit")
