// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#pragma once

#include "support/index_fixture.h"
#include "support/memory_workbook.h"

#include <QStringList>

#include <vector>

namespace ostrand::tests {

/// The program with a project that knows the logos of one type of datasheets, workbooks of the
/// application in memory, and its user at the two menu entries that replace logos.
class LogoDesk : public IndexFixture
{
public:
    static inline const QString type = QStringLiteral("LOGO SHEET");
    static inline const QString front = QStringLiteral("DATASHEET");
    static inline const QString notes = QStringLiteral("NOTES");
    static inline const QString datasheets = QStringLiteral("mnuSetupDatasheets");
    static inline const QString templates = QStringLiteral("mnuSetupTemplates");

    /// A new project with the folders "sheets" and "templates" and the logo "new.png". The type has
    /// the sheets DATASHEET (A1, 2, 3, D11), which is the default, and NOTES (B2, 4.5, 5, B14).
    LogoDesk();

    QString sheetFile(const QString& name) const { return path(QStringLiteral("sheets/") + name); }
    QString templateFile(const QString& name) const
    {
        return path(QStringLiteral("templates/") + name);
    }
    /// A picture in the scratch folder; gives its path.
    QString picture(const QString& name) const;
    void setAttribute(const QString& name, const QString& value) const;
    void setLogo(const QString& file) const { setAttribute(QStringLiteral("Logo file"), file); }
    /// Values as they stand in a statement.
    void addRow(const QString& values) const;
    void dropRows() const;

    /// Both sheets, each with the old logo, protected, and NOTES in front.
    static WorkbookContent usual(const QString& bookType = type);
    /// The same in files of these names.
    void giveSheets(const QStringList& names) const;

    /// Chooses a menu entry, and verifies that the program is at rest afterwards. The texts shown.
    QStringList run(const QString& entry = datasheets);
    static WorkbookContent book(const QString& file);
    /// The pictures of a sheet as "name file at left, top".
    static QStringList pictures(const QString& file, int sheet = 0);
    /// The file has the new logo on its first sheet.
    bool hasNewLogo(const QString& name) const;

    MemoryOffice office;
};

} // namespace ostrand::tests
