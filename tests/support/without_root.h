// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QtGlobal>

#include <unistd.h>

namespace ostrand::tests {

/// Lays down the rights of the superuser, whom no file mode refuses, as long as it stands.
class WithoutRoot
{
public:
    WithoutRoot()
        : m_wasRoot(::geteuid() == 0)
    {
        if (m_wasRoot && ::seteuid(nobody) != 0)
            qFatal("cannot change user");
    }
    ~WithoutRoot()
    {
        if (m_wasRoot && ::seteuid(0) != 0)
            qFatal("cannot change user back");
    }
    WithoutRoot(const WithoutRoot&) = delete;
    WithoutRoot& operator=(const WithoutRoot&) = delete;

private:
    static constexpr uid_t nobody = 65534;
    bool m_wasRoot;
};

} // namespace ostrand::tests
