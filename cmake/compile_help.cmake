# SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
# SPDX-License-Identifier: MIT
#
# cmake -DCHMCMD=program -DNAME=name -DLIST=file -DSCRATCH=folder -DOUTPUT=file -P compile_help.cmake
#
# Compiles one help file in a folder of its own, as the compiler writes to the current one, and puts
# it in place when it is whole. The list of inputs takes the place of the section [FILES].
cmake_minimum_required(VERSION 3.25)

file(STRINGS ${LIST} inputs)
file(REMOVE_RECURSE ${SCRATCH})
file(MAKE_DIRECTORY ${SCRATCH}/pictures)
set(pages "")
foreach(input IN LISTS inputs)
    get_filename_component(file ${input} NAME)
    get_filename_component(type ${input} LAST_EXT)
    if(type STREQUAL ".hhp")
        set(project ${input})
        continue()
    elseif(type STREQUAL ".png")
        string(PREPEND file pictures/)
    endif()
    configure_file(${input} ${SCRATCH}/${file} COPYONLY)
    if(NOT type STREQUAL ".hhc")
        string(APPEND pages "${file}\n")
    endif()
endforeach()

file(READ ${project} options)
string(REGEX REPLACE "\\[FILES\\].*" "" options "${options}")
file(WRITE ${SCRATCH}/${NAME}.hhp "${options}\n[FILES]\n${pages}")

execute_process(COMMAND ${CHMCMD} ${NAME}.hhp WORKING_DIRECTORY ${SCRATCH}
    RESULT_VARIABLE result OUTPUT_VARIABLE said ERROR_VARIABLE said)
# The compiler leaves an empty file behind when it fails.
set(size 0)
if(EXISTS ${SCRATCH}/${NAME}.chm)
    file(SIZE ${SCRATCH}/${NAME}.chm size)
endif()
if(NOT result EQUAL 0 OR size EQUAL 0)
    message(FATAL_ERROR "${NAME}.chm could not be compiled (${result}):\n${said}")
endif()
get_filename_component(folder ${OUTPUT} DIRECTORY)
file(MAKE_DIRECTORY ${folder})
file(COPY_FILE ${SCRATCH}/${NAME}.chm ${OUTPUT}.part)
file(RENAME ${OUTPUT}.part ${OUTPUT})
# The program shows a help file only with its digest beside it.
file(SHA256 ${OUTPUT} digest)
file(WRITE ${OUTPUT}.sha256 "${digest}\n")
