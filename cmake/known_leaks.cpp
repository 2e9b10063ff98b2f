// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
//
// Linked into every program that is built with the leak detector: what LibreOffice's runtime and
// the ODBC drivers keep until the process ends is no leak of ours.
extern "C" const char* __lsan_default_suppressions();
extern "C" int dlclose(void* library) noexcept;

extern "C" const char* __lsan_default_suppressions()
{
    return "leak:libuno_cppu.so\n"
           "leak:libuno_sal.so\n"
           "leak:libgcc3_uno.so\n"
           "leak:com::sun::star::uno::Type::operator new\n"
           "leak:libodbc.so\n"
           "leak:libsqlite3odbc.so\n"
           "leak:psqlodbc\n";
}

/// Closes nothing: the detector knows the names of loaded libraries only, and drivers are unloaded
/// with their last connection.
extern "C" int dlclose(void* /*library*/) noexcept
{
    return 0;
}
