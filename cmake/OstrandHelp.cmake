# SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
# SPDX-License-Identifier: MIT
#
# ostrand_help(name INPUTS files...): bin/<name>.chm out of <name>.hhp, the contents, the pages, the
# style and the pictures among the inputs.
find_program(CHMCMD NAMES chmcmd chmcmd-3.2.2 REQUIRED)

function(ostrand_help name)
    cmake_parse_arguments(HELP "" "" "INPUTS" ${ARGN})
    set(output ${CMAKE_RUNTIME_OUTPUT_DIRECTORY}/${name}.chm)
    set(list ${CMAKE_CURRENT_BINARY_DIR}/${name}.inputs)
    # A page that is taken away changes the list, and with it the help file.
    list(JOIN HELP_INPUTS "\n" lines)
    file(CONFIGURE OUTPUT ${list} CONTENT "${lines}\n" @ONLY)
    add_custom_command(OUTPUT ${output}
        COMMAND ${CMAKE_COMMAND} -DCHMCMD=${CHMCMD} -DNAME=${name} -DLIST=${list}
            -DSCRATCH=${CMAKE_CURRENT_BINARY_DIR}/${name} -DOUTPUT=${output}
            -P ${CMAKE_SOURCE_DIR}/cmake/compile_help.cmake
        DEPENDS ${list} ${HELP_INPUTS} ${CMAKE_SOURCE_DIR}/cmake/compile_help.cmake
        COMMENT "Compiling ${name}.chm"
        VERBATIM)
    set(help_outputs ${help_outputs} ${output} PARENT_SCOPE)
endfunction()
