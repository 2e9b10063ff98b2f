// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#pragma once

#include "spreadsheet/application.h"
#include "store/error.h"
#include "store/value.h"

#include <QCoreApplication>
#include <QString>

#include <functional>
#include <memory>
#include <optional>

namespace ostrand::store {
class Recordset;
} // namespace ostrand::store

namespace ostrand::datasheets {

class Sheets;
struct MapRow;

/// The datasheet session: the one live link to the spreadsheet application. A datasheet is open
/// exactly while the session holds an application; the main window is disabled meanwhile, so that
/// its current record stays the datasheet's tag. Every operation shows its own failures.
class cXlHndlr
{
    Q_DECLARE_TR_FUNCTIONS(cXlHndlr)

public:
    cXlHndlr() = default;
    /// Closes a datasheet that is still open, with its prompts.
    ~cXlHndlr();
    cXlHndlr(const cXlHndlr&) = delete;
    cXlHndlr& operator=(const cXlHndlr&) = delete;

    /// True when a template of that name, without folder, opens and closes.
    bool CkTemplateExists(const QString& templateName);
    /// Copies a template to the full path of a datasheet, over what is there. True when it was.
    bool CopySprSht(const QString& templateName, const QString& datasheet);
    /// A datasheet is open.
    bool XlAlreadyOpen() const { return m_xlApp != nullptr; }
    /// Opens a datasheet by its full path, fills it from the database and shows it; nothing while
    /// one is open. Always false: callers look at `XlAlreadyOpen`.
    bool OpenXl(const QString& path);
    /// Closes the open datasheet with its prompts. False when the user keeps it open.
    bool CloseOpenDatasheet();
    /// Reads the index anew and comes back to the current tag.
    void RefreshIndexDb();

    /// File name of the open datasheet, without folder; "" for none.
    QString filename() const;
    /// The datasheet type that the open workbook carries; "" for none.
    QString DatasheetType() const;
    /// Name of the current sheet; raises 91 for none.
    QString WorksheetName() const;

    /// Fills the mapped cells from the database: title values, index fields, document numbers.
    void PopulateXl();
    void PopulateXlProjInfo();
    void PopulateXlIndex();
    void PopulateXlDocument();
    /// The first cell of a reference, which is text; "" after a failure.
    QString StartCell(const store::Value& reference);

    /// True when an index field on any sheet differs from the record. A changed tag is put back,
    /// and told, and is no difference.
    bool DataDifIndexInfo();
    /// True when a document number on the current sheet differs.
    bool DataDifXdocRef();
    /// Writes the index fields of the current sheet into the record.
    void UpdateDbIndex();
    /// Writes the document numbers of the current sheet into the register and the cross references.
    void StoreData();
    void DeleteXdocRef(const QString& docType);
    /// `docNo` has its quotes doubled, here and below.
    void CreateDocument(const QString& docNo, const QString& docType);
    void CreateXdocRef(const QString& docNo);

private:
    // ---- the session (cXlHndlr.cpp)
    void openSession(const QString& path);
    void openFailed(const QString& path, const store::Error& error);
    void useTemplate(const QString& templateName,
                     const std::function<void(spreadsheet::Workbook&)>& action);
    std::shared_ptr<spreadsheet::Workbook> openWorkbook() const;
    void setVisible(bool visible);
    void followSheet(std::shared_ptr<spreadsheet::Worksheet> sheet);
    static void takeMainWindow();
    void giveBackMainWindow();
    void forgetWorkbook();
    void endSession();
    void Class_Terminate();

    // ---- its events (session_events.cpp)
    struct Differences
    {
        bool index = false;
        bool documents = false;
        bool any() const { return index || documents; }
    };
    spreadsheet::WorkbookEvents events();
    void m_wrkBook_BeforeSave(bool& Cancel);
    void m_wrkBook_BeforeClose(bool& Cancel);
    void m_wrkBook_SheetSelectionChange();
    void m_wrkBook_Lost();
    bool hasEnded();
    void m_wrkSht_Change();
    Differences findDifferences();
    void updateDatabase(const Differences& found);
    bool settleDifferences();
    bool saveWorkbook();
    void closeUnsaved();
    bool confirmClose();

    // ---- filling (population.cpp)
    void restoreTag(spreadsheet::Worksheet& sheet, const MapRow& row, const QString& tag);

    std::shared_ptr<spreadsheet::Application> m_xlApp;
    std::shared_ptr<spreadsheet::Workbook> m_wrkBook;
    std::shared_ptr<spreadsheet::Worksheet> m_wrkSht;
    /// The handler closes the workbook itself: the close event that this raises checks nothing.
    bool m_skipCloseCheck = false;
    /// No cell of the current sheet has changed since the last check.
    bool m_cleanSinceCheck = true;

    QString m_openedName; ///< file name at opening, for when no call reaches the workbook any more
    std::optional<store::Error> m_standingError; ///< of an event that has no message of its own
    int m_handling = 0;                          ///< events being handled that may ask the user
};

/// The one session of the program.
extern std::unique_ptr<cXlHndlr> g_objXlHndlr;
/// The session for callers that cannot do without; raises 91 while there is none.
cXlHndlr& xlHndlr();

} // namespace ostrand::datasheets
