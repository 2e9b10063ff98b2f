# SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
# SPDX-License-Identifier: MIT
#
# One INTERFACE target carries the compile settings of every target of ours.
find_program(CCACHE ccache)
if(CCACHE)
    set(CMAKE_CXX_COMPILER_LAUNCHER ${CCACHE})
endif()

add_library(ostrand_compile INTERFACE)
target_compile_features(ostrand_compile INTERFACE cxx_std_20)
target_compile_definitions(ostrand_compile INTERFACE
    QT_NO_CAST_FROM_ASCII QT_NO_CAST_TO_ASCII QT_NO_CAST_FROM_BYTEARRAY QT_NO_FOREACH
    QT_USE_QSTRINGBUILDER)
target_compile_options(ostrand_compile INTERFACE
    -Wall -Wextra -Wpedantic -Werror -Wshadow -Wconversion -Wsign-conversion -Wold-style-cast
    -Wnon-virtual-dtor -Woverloaded-virtual -Wnull-dereference -Wextra-semi -Wduplicated-cond
    -Wduplicated-branches -Wlogical-op -Wsuggest-override)
# g++ 12 takes the empty state of std::optional<QString> for an uninitialized one.
target_compile_options(ostrand_compile INTERFACE -Wno-maybe-uninitialized)

# The sanitizers look into the programs and not into what they load.
if(CMAKE_CXX_FLAGS MATCHES "-fsanitize=address")
    target_sources(ostrand_compile INTERFACE
        $<$<STREQUAL:$<TARGET_PROPERTY:TYPE>,EXECUTABLE>:${CMAKE_CURRENT_LIST_DIR}/known_leaks.cpp>)
endif()
