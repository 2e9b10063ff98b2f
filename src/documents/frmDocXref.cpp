// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
//
// The documents of a tag: the window, its lists and its commands.
#include "documents/frmDocXref.h"

#include "app/modFormFieldNaming.h"
#include "app/state.h"
#include "datasheets/cXlHndlr.h"
#include "documents/document_file.h"
#include "documents/frmDocNew.h"
#include "documents/xref_columns.h"
#include "store/database.h"
#include "store/recordset.h"
#include "toolkit/data_drop_down.h"
#include "toolkit/named.h"
#include "toolkit/paths.h"
#include "toolkit/prompts.h"
#include "viewing/CViewer.h"

#include <QScopedValueRollback>

using namespace Qt::StringLiterals;
using ostrand::store::Error;
using ostrand::toolkit::named;

namespace ostrand::documents {

QPointer<frmDocXref> g_frmDocXref;

frmDocXref::frmDocXref(QWidget* parent)
    : GridWindow(
        {.name = u"frmDocXref"_s,
         .caption = tr("Doc Reference"),
         .grid = u"GridXref"_s,
         .gridCaption = tr("Documents of the tag"),
         .dataControl = u"dbXref"_s,
         .query = u"qryDocXref"_s,
         .columns = xrefColumns(),
         .size = {14400, 6300},
         .texts = {.loading = tr("Error while loading file handler form. "),
                   .showing = tr("Error while loading documet reference window."),
                   .sorting = tr("Error while loading sorting reference documents spreadsheet. "),
                   .saving = tr("Error while saving cross reference data ."),
                   .deleting = tr("Error while deleting document cross reference."),
                   .writing = tr("Error while column insert in doc cross reference."),
                   .checking = tr("Error while column insert in doc cross reference."),
                   .emptyKey = tr("Document number cannot be null"),
                   .sameKey = tr("This document is tied to the tag already") + u"\r\n"_s
                              + tr("or press escape to cancel")}},
        parent),
      m_dbDoc(named(new toolkit::DataControl(this), u"dbDoc"_s)),
      m_dbDocType(named(new toolkit::DataControl(this), u"dbDocType"_s)),
      m_cmbDoc(named(new toolkit::DataDropDown(this), u"cmbDoc"_s)),
      m_cmbDocType(named(new toolkit::DataDropDown(this), u"cmbDocType"_s))
{
    m_dbDoc->setRecordSource(u"qryDoc"_s);
    m_dbDocType->setRecordSource(u"plDocType"_s);
    m_cmbDoc->setDataControl(m_dbDoc);
    m_cmbDocType->setDataControl(m_dbDocType);
    addButton(u"cmdReference"_s, tr("&Create Doc"), [this] { cmdReference(); });
    addButton(u"cmdMap"_s, tr("&Map"), [this] { cmdMap(); });
    addButton(u"cmdView"_s, tr("&View"), [this] { cmdView(); });
    addButton(u"cmdSave"_s, tr("&Save"), [this] { SaveDocRef(); });
    addButton(u"cmdDeleteRef"_s, tr("&Delete Ref."), [this] { deleteRecord(); });
    addButton(u"cmdRefresh"_s, tr("&Refresh"), [this] { RefreshData(); });
    addButton(u"cmdExit"_s, tr("&Exit"), [this] { close(); });
    layOut();
    connect(&grid(), &toolkit::DataGrid::beforeColumnUpdate, this, &frmDocXref::acceptColumn);
    connect(&grid(), &toolkit::DataGrid::dropDownPicked, this, [this](int number) {
        if (number == xref::docNo)
            takeTag();
    });
}

void frmDocXref::ShowInfo(const QString& tag)
{
    if (!isVisible()) {
        m_tag = tag;
        setWindowTitle(tr("Document Managment for Tag ") + tag);
    }
    showWindow();
}

void frmDocXref::load()
{
    // What does not depend on the tag comes first: one with an apostrophe in it ends the statements
    // that name it.
    m_dbDocType->setDatabaseName(app::g_strIndexFile);
    m_dbDocType->Refresh();
    grid().Columns(xref::docType).setDropDown(m_cmbDocType);
    app::SetColumnNames(grid(), objectName());
    const QString ofTag = u" where Tag = '"_s + m_tag + u"'"_s;
    records().setDatabaseName(app::g_strIndexFile);
    records().setRecordSource(u"select * from qryDocXref"_s + ofTag + u";"_s);
    records().Refresh();
    grid().setSortMark(-1);
    m_dbDoc->setDatabaseName(app::g_strIndexFile);
    m_dbDoc->setRecordSource(
        u"select docNo, docType from qryDoc where docNo not in (select docNo from qryDocXref"_s
        + ofTag + u") and docType <> 'NA';"_s);
    m_dbDoc->Refresh();
    grid().Columns(xref::docNo).setDropDown(m_cmbDoc);
}

QString frmDocXref::sortedSource(const QString& column) const
{
    return u"select * from qryDocXref where Tag = '"_s + m_tag + u"' order by "_s + column;
}

// ---- commands

void frmDocXref::cmdMap()
{
    mapDocument([this] {
        pickDocumentFile([this](const QString& folder, const QString& name) {
            grid().Columns(xref::path).setValue(folder);
            grid().Columns(xref::filename).setValue(name);
        });
        SaveDocRef();
    });
}

void frmDocXref::cmdView()
{
    try {
        if (!hasRecord())
            return;
        const store::Recordset& ties = records().Recordset();
        if (isDatasheetKind(ties.Field(u"docType"_s).text())) {
            OpenDatasheet();
        } else {
            viewing::viewer().ViewFile(ties.Field(u"Path"_s).text(),
                                       ties.Field(u"filename"_s).text());
        }
    } catch (const Error& error) {
        toolkit::showFailure(toolkit::formB(tr("Error while viewing document. "), error));
    }
}

void frmDocXref::OpenDatasheet()
{
    try {
        const auto database = store::DBEngine::OpenDatabase(app::g_strIndexFile);
        const auto rows = database.OpenRecordset(
            u"select DatasheetPath, DataSheetFileName from qryIndex where Tag = '"_s + m_tag
            + u"';"_s);
        if (rows->Eof() || rows->Field(0).isNull() || rows->Field(1).isNull())
            return;
        datasheets::xlHndlr().OpenXl(
            toolkit::joinPath(rows->Field(0).text(), rows->Field(1).text()));
    } catch (const Error& error) {
        toolkit::showFailure(toolkit::formB(tr("Error while loading datasheet. "), error));
    }
}

void frmDocXref::cmdReference()
{
    // A document that is stored there is shown here at once, which no row under edit would allow.
    if (!settleRow())
        return;
    // The main window takes all its windows along when it goes first.
    const QPointer<frmDocNew> window = new frmDocNew(this);
    window->ShowInfo(m_tag);
    delete window;
}

void frmDocXref::SaveDocRef()
{
    if (!grid().rowPending())
        return;
    const QScopedValueRollback guard(m_savingContext, true);
    saveRecord();
}

QString frmDocXref::deleteQuestion() const
{
    return tr("Are you sure you want to delete '") + textInHand(xref::tag)
           + tr("' reference to document '") + textInHand(xref::docNo) + u"'?"_s;
}

// ---- a window of its own for each opening

void showTagDocuments(QWidget* owner, const QString& tag)
{
    if (g_frmDocXref)
        return;
    g_frmDocXref = new frmDocXref(owner);
    g_frmDocXref->ShowInfo(tag);
    delete g_frmDocXref;
}

} // namespace ostrand::documents
