// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#pragma once

#include "support/index_fixture.h"
#include "support/memory_workbook.h"

#include <QStringList>

#include <map>
#include <optional>
#include <vector>

namespace ostrand::tests {

/// A row of a datasheet's map sheet, columns A to E.
using MapLine = std::vector<spreadsheet::CellValue>;
using Cells = std::map<QString, spreadsheet::CellValue>;

/// The program with a project tied to a P&ID database, and its user at the Import and Export
/// buttons. Workbooks are those of the application in memory.
class RunDesk : public IndexFixture
{
public:
    /// Of the datasheets; they have the sheets "DATASHEET", "NOTES" and the map.
    static inline const QString type = QStringLiteral("TEST SHEET");
    static inline const QString front = QStringLiteral("DATASHEET");
    static inline const QString mapSheet = QStringLiteral("P&ID Database Map");

    /// A new project that names the P&ID database and the folder "sheets".
    explicit RunDesk(const QString& pidDatabase);
    ~RunDesk();

    QString folder() const { return path(QStringLiteral("sheets")); }
    QString sheetFile(const QString& name) const { return folder() + QLatin1Char('/') + name; }
    QString logFile(const QString& name) const { return path(QStringLiteral("bin/") + name); }

    void setAttribute(const QString& name, const std::optional<QString>& value) const;
    void mapCell(const QString& cell, const QString& table, const QString& field) const;
    /// Adds a tag whose record names a datasheet.
    void addSheetTag(const QString& tag) const;
    /// Adds a tag and makes its datasheet. Rows of the map have the columns A to E.
    void giveSheet(const QString& tag, const std::vector<MapLine>& map, const Cells& cells = {});
    /// Makes a datasheet of that file name alone.
    void makeSheet(const QString& name, const std::vector<MapLine>& map, const Cells& cells = {});
    /// A row of the map that leads to the sheet in front.
    static MapLine toFront(const QString& table, const QString& field, const QString& cell);

    /// Shows the project as it is now, and presses the button. What the run logged between its
    /// first and its last line, both of which have to be there.
    QStringList import() { return runLogged(QStringLiteral("cmdImport"), true); }
    QStringList exportAll() { return runLogged(QStringLiteral("cmdExport"), true); }
    /// The same for a run that ends without its last line.
    QStringList brokenImport() { return runLogged(QStringLiteral("cmdImport"), false); }
    QStringList brokenExport() { return runLogged(QStringLiteral("cmdExport"), false); }
    /// Presses the button, and verifies that the program is at rest afterwards.
    void run(const QString& button);
    /// The lines of a log, each end of it verified and left out.
    QStringList logged(const QString& name, bool ended) const;

    /// The value of a cell in a datasheet's file.
    spreadsheet::CellValue fileCell(const QString& name, const QString& cell) const;
    QString fileText(const QString& name, const QString& cell) const;

    MemoryOffice office;

private:
    QStringList runLogged(const QString& button, bool ended);
};

} // namespace ostrand::tests
