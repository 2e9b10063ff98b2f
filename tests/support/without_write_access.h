// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QFileInfo>
#include <QString>

#include <sys/stat.h>
#include <unistd.h>

namespace ostrand::tests {

/// While one stands, nobody may write to the file: its mode forbids it, and the rights of the
/// superuser, whom no mode refuses, are laid down. Everybody may write to its folder.
class WithoutWriteAccess
{
public:
    explicit WithoutWriteAccess(const QString& file)
        : m_wasRoot(::geteuid() == 0)
    {
        ::chmod(QFileInfo(file).path().toUtf8().constData(), 0777);
        ::chmod(file.toUtf8().constData(), 0444);
        if (m_wasRoot && ::seteuid(nobody) != 0)
            qFatal("cannot change user");
    }
    ~WithoutWriteAccess()
    {
        if (m_wasRoot && ::seteuid(0) != 0)
            qFatal("cannot change user back");
    }
    WithoutWriteAccess(const WithoutWriteAccess&) = delete;
    WithoutWriteAccess& operator=(const WithoutWriteAccess&) = delete;

private:
    static constexpr uid_t nobody = 65534;
    bool m_wasRoot;
};

} // namespace ostrand::tests
