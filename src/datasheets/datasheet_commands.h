// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QCoreApplication>
#include <QString>

#include <functional>

namespace ostrand::app {
class MainWindow;
} // namespace ostrand::app

namespace ostrand::store {
class Recordset;
} // namespace ostrand::store

namespace ostrand::datasheets {

/// The main window's commands that bring up the current tag's datasheet: made from a template the
/// first time, opened the times after, found again when its file has moved. Each shows its own
/// failures.
class DatasheetCommands
{
    Q_DECLARE_TR_FUNCTIONS(DatasheetCommands)

public:
    /// What the commands need of the grid.
    struct Links
    {
        /// The text of the tag cell in the current row, or in the row under edit.
        std::function<QString()> GridTag;
        /// Writes a pending row, and tells what goes wrong with it.
        std::function<void()> SaveTag;
    };

    DatasheetCommands(app::MainWindow& window, Links links);

    /// The Datasheet button: asks before a file is replaced of which the record knows nothing.
    void cmdDatasheet();
    /// Opens the current tag's datasheet; makes it first where the record names none.
    void OpenTagDatasheet();
    /// Has the user pick the datasheet's file, and stores where it is in the record. False when
    /// nothing was stored.
    bool LocateDatasheetFile();
    /// Opens the datasheet that the user has located.
    void FindDatasheet();
    /// The current record holds both fields, empty texts included.
    bool HasDatasheetFields() const;
    /// A datasheet file for the tag lies in the default folder, and the record does not tell so.
    bool connectDB() const;

    /// By these a new datasheet's place comes back from the window that made it.
    void setDatasheetFolder(const QString& folder) { m_strDatasheetFolder = folder; }
    void setDatasheetFileName(const QString& name) { m_strDatasheetFileName = name; }

private:
    store::Recordset& tags() const;
    bool settleRow() const;
    void makeDatasheet();
    void storePlace(const QString& folder, const QString& name);
    QString locatedFile() const;

    app::MainWindow& m_window;
    Links m_links;
    QString m_strDatasheetFolder;
    QString m_strDatasheetFileName;
};

} // namespace ostrand::datasheets
