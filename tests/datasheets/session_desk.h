// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#pragma once

#include "spreadsheet/cell_value.h"
#include "support/index_fixture.h"
#include "support/unsaved_answer.h"

#include <QString>
#include <QStringList>

#include <memory>

namespace ostrand::tests {

/// A user's desk: the program's main window with a small project, and a spreadsheet application
/// beside it. What the application's user does and sees differs from one application to another;
/// the rest is the same. His actions may take effect some time after the call: whoever looks for
/// an effect has to wait for it, and `settle` where there should be none.
class SessionDesk
{
public:
    /// Of the datasheets and the template that the desk makes. Its Map rows:
    ///   DATASHEET D11 Tag, D12 ServiceDescription, D13 Manufacturer, H5 contract,
    ///             H6 REQUISITION, H7 PURCHASE ORDER;  NOTES D11 Tag, B14 Remarks, B15 Location.
    static inline const QString type = QStringLiteral("TEST SHEET");
    static inline const QString front = QStringLiteral("DATASHEET");
    static inline const QString notes = QStringLiteral("NOTES");
    static inline const QString tag = QStringLiteral("PT-1");

    SessionDesk() = default;
    virtual ~SessionDesk() = default;
    SessionDesk(const SessionDesk&) = delete;
    SessionDesk& operator=(const SessionDesk&) = delete;

    /// Sets the desk up: the tags PT-1 (all fields set, with requisition RQ-1) and PT-2 (empty),
    /// the title value contract "C-7", the folders "sheets" and "templates", and the template
    /// TEST.xlt of the type. To be called once, when the application can be started.
    void prepare();
    /// Ends an open session whatever state it is in, and closes the program.
    void clear();

    IndexFixture& program() { return *m_program; }
    QString project() const { return m_program->project; }
    /// A path in the scratch folder.
    QString path(const QString& name) const { return m_program->path(name); }

    /// Makes a workbook with the two sheets; a Null type leaves the property out.
    static void makeWorkbook(const QString& path, const QString& bookType = type);
    /// Makes a datasheet file of the tag's name in "sheets" and names it in the tag's record.
    QString giveDatasheet(const QString& forTag = tag, const QString& bookType = type);
    /// The value of a cell in a file, read by a link of its own.
    static spreadsheet::CellValue
    storedValue(const QString& path, const QString& sheet, const QString& cell);

    /// Gives the tag a datasheet, opens it with the main window's button, and waits for it.
    void openDatasheet(const QString& forTag = tag);
    /// What a session takes away from the main window is there.
    bool isMainWindowFree();

    // ---- the application's user
    /// Selects the sheet and a cell, and types there as on a keyboard: "12" becomes a number,
    /// "TRUE" a truth value, "2026-03-01" a date, "=6*2" a formula. "" empties the cell.
    virtual void typeIn(const QString& sheet, const QString& cell, const QString& text) = 0;
    /// The same, and leaves the entry open.
    virtual void beginTyping(const QString& sheet, const QString& cell, const QString& text) = 0;
    /// Brings a sheet to the front and selects a cell there.
    virtual void selectSheet(const QString& sheet) = 0;
    virtual void undo() = 0;
    virtual void save() = 0;
    /// Saves under another name, in the datasheet's format.
    virtual void saveAs(const QString& path) = 0;
    virtual void closeWindow() = 0;
    /// Ends the application by its menu.
    virtual void quitApplication() = 0;
    /// How the application's own question about unsaved changes is answered next time.
    virtual void answerUnsaved(UnsavedAnswer answer) = 0;
    /// How often it has been asked.
    virtual int unsavedQuestions() const = 0;
    /// A cell of the open datasheet as the user sees it.
    virtual QString cellText(const QString& sheet, const QString& cell) = 0;
    /// The datasheet's window is on the screen; also to be asked while a prompt is up.
    virtual bool isWindowVisible() = 0;
    /// Ends the application's process without warning.
    virtual void kill() = 0;
    /// Returns when nothing is under way any more.
    virtual void settle() = 0;

private:
    void fillProject() const;

    std::unique_ptr<IndexFixture> m_program;
};

} // namespace ostrand::tests
