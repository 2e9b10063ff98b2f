// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "index/frmIndexRev.h"

#include "app/help.h"
#include "app/modFormFieldNaming.h"
#include "app/state.h"
#include "store/moment.h"
#include "toolkit/prompts.h"

#include <QPushButton>

using namespace Qt::StringLiterals;
using ostrand::store::Error;

namespace ostrand::index {
namespace {

constexpr int columnRevNo = 0;
constexpr int columnDate = 1;

toolkit::GridColumn column(const QString& field, const QString& caption, int width)
{
    return {.name = field, .field = field, .caption = caption, .width = width};
}

} // namespace

frmIndexRev::frmIndexRev(QWidget* parent)
    : GridWindow(
        {.name = u"frmIndexRev"_s,
         .caption = tr("Index Revisions"),
         .grid = u"gridIndexRev"_s,
         .gridCaption = tr("Index Revisions"),
         .dataControl = u"dbIndexRev"_s,
         .query = u"qryIndexRev"_s,
         .columns = {column(u"RevNo"_s, tr("Rev. No."), 1000),
                     column(u"Date"_s, tr("Date"), 1500),
                     column(u"Description"_s, tr("Description"), 4800),
                     column(u"createdBy"_s, tr("Created By"), 1700),
                     column(u"checkedBy"_s, tr("Checked By"), 1700),
                     column(u"approvedBy"_s, tr("Approved By"), 1700)},
         .size = {13200, 4800},
         .texts = {.loading = tr("Error while loading index revision. "),
                   .showing = tr("Error while loading Instrument Index Revision Window"),
                   .sorting = tr("Error while sorting revision spreadsheet. "),
                   .saving = tr("Error while saving revision data ."),
                   .deleting = tr("Error while deleting revision data ."),
                   .writing = tr("Error while working in instrument index revision spreadsheet. "),
                   .checking =
                       tr("Error while validating data in instrument index revision spreadsheet. "),
                   .emptyKey = tr("Key field cannot be null"),
                   .sameKey = tr("Record cannot be saved due to duplicate revision number")}},
        parent)
{
    addButton(u"cmdSave"_s, tr("&Save"), [this] { cmdSave(); });
    addButton(u"cmdDelete"_s, tr("&Delete"), [this] { cmdDelete(); });
    addButton(u"cmdRefresh"_s, tr("&Refresh"), [this] { cmdRefresh(); });
    addButton(u"cmdExit"_s, tr("&Exit"), [this] { close(); });
    addButton(u"cmdHelp"_s, tr("&Help"), [this] {
        app::ShowHelpTopic(this, app::helpTopicManual(), true);
    });
    layOut();
    connect(&grid(), &toolkit::DataGrid::beforeColumnUpdate, this, &frmIndexRev::acceptColumn);
}

void frmIndexRev::load()
{
    records().setDatabaseName(app::g_strIndexFile);
    records().Refresh();
    app::SetColumnNames(grid(), objectName());
}

void frmIndexRev::loadFailed(const Error& error)
{
    if (error.number() == store::errors::refreshWhileEditing)
        toolkit::showFailure(tr("You need to save record first"));
    else
        GridWindow::loadFailed(error);
}

void frmIndexRev::cmdRefresh()
{
    if (keyIsEmpty())
        toolkit::showFailure(tr("Please enter the Revision Number"));
    else
        RefreshData();
}

void frmIndexRev::cmdSave()
{
    if (keyIsEmpty())
        toolkit::showFailure(tr("Please enter the Revision Number"));
    else
        saveRecord();
}

void frmIndexRev::cmdDelete()
{
    if (keyIsEmpty())
        toolkit::showFailure(tr("Please enter the revision number and save the data"));
    else
        deleteRecord();
}

QString frmIndexRev::deleteQuestion() const
{
    return tr("Are you sure you want to delete revision ") + textInHand(columnRevNo) + u"?"_s;
}

/// A day that was typed in another form is stored in the one that all days have.
void frmIndexRev::acceptColumn(int column)
{
    if (column != columnDate)
        return;
    const auto moment = store::momentOfText(cell(columnDate).text());
    if (moment && moment->time() == QTime(0, 0))
        grid().Columns(columnDate).setValue(moment->date().toString(Qt::ISODate));
}

/// A row without a number stays in edit, which no other window's rows do.
void frmIndexRev::beforeUpdate(bool& cancel)
{
    try {
        cancel = cell(columnRevNo).isNullOrEmpty();
        if (cancel)
            toolkit::showFailure(tr("Please enter the Revision Number"));
        else
            GridWindow::beforeUpdate(cancel);
    } catch (const Error& error) {
        toolkit::showFailure(toolkit::formA(texts().writing, error));
    }
}

} // namespace ostrand::index
