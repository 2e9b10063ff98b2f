# SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
# SPDX-License-Identifier: MIT
#
# The target ostrand_uno carries what a client of LibreOffice's UNO interfaces needs. The headers of
# the interfaces are made in the build tree from the type library of the installed application.
set(OSTRAND_LIBREOFFICE /usr/lib/libreoffice CACHE PATH "Folder of the installed LibreOffice")

set(uno_headers ${CMAKE_BINARY_DIR}/uno-headers)
set(uno_types ${OSTRAND_LIBREOFFICE}/program/types.rdb ${OSTRAND_LIBREOFFICE}/program/types/offapi.rdb)
add_custom_command(OUTPUT ${uno_headers}.made
    COMMAND ${CMAKE_COMMAND} -E rm -rf ${uno_headers}
    COMMAND ${CMAKE_COMMAND} -E make_directory ${uno_headers}
    COMMAND ${OSTRAND_LIBREOFFICE}/sdk/bin/cppumaker -O${uno_headers} ${uno_types}
    COMMAND ${CMAKE_COMMAND} -E touch ${uno_headers}.made
    DEPENDS ${uno_types}
    COMMENT "Making the headers of the UNO interfaces"
    VERBATIM)
add_custom_target(uno_headers DEPENDS ${uno_headers}.made)

add_library(ostrand_uno INTERFACE)
add_dependencies(ostrand_uno uno_headers)
target_compile_definitions(ostrand_uno INTERFACE UNX LINUX)
target_include_directories(ostrand_uno SYSTEM INTERFACE ${uno_headers} /usr/include/libreoffice)
target_link_directories(ostrand_uno INTERFACE ${OSTRAND_LIBREOFFICE}/sdk/lib)
target_link_libraries(ostrand_uno INTERFACE
    uno_sal uno_cppu uno_cppuhelpergcc3 uno_salhelpergcc3)
target_link_options(ostrand_uno INTERFACE LINKER:-rpath,${OSTRAND_LIBREOFFICE}/program
    LINKER:-rpath-link,${OSTRAND_LIBREOFFICE}/program)
