// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
//
// Linked into every program that is built with the leak detector: what LibreOffice's runtime keeps
// until the process ends, on purpose, is no leak of ours.
extern "C" const char* __lsan_default_suppressions();

extern "C" const char* __lsan_default_suppressions()
{
    return "leak:libuno_cppu.so\n"
           "leak:libuno_sal.so\n"
           "leak:libgcc3_uno.so\n"
           "leak:com::sun::star::uno::Type::operator new\n";
}
