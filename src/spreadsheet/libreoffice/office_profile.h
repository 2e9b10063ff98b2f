// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QTemporaryDir>

namespace ostrand::spreadsheet::libreoffice {

/// The application's private folder, which nobody else can read: its settings for this program, and
/// what it writes while it runs. It goes with the object.
class OfficeProfile
{
public:
    /// Raises 429 when the folder can't be made.
    OfficeProfile();

    QString folder() const { return m_folder.path(); }

    /// True for a folder of this kind, of this run of the program or of another.
    static bool isOurs(const QString& folder);

private:
    QTemporaryDir m_folder;
};

} // namespace ostrand::spreadsheet::libreoffice
