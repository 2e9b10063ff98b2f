// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "documents/frmDoc.h"

#include "app/modFormFieldNaming.h"
#include "app/state.h"
#include "documents/document_file.h"
#include "toolkit/data_drop_down.h"
#include "toolkit/file_system.h"
#include "toolkit/named.h"
#include "toolkit/paths.h"
#include "toolkit/prompts.h"
#include "toolkit/twips.h"
#include "viewing/CViewer.h"
#include "viewing/frmViewDatasheets.h"

#include <QPointer>
#include <QPushButton>

#include <array>

using namespace Qt::StringLiterals;
using ostrand::store::Error;
using ostrand::toolkit::named;
using ostrand::toolkit::px;

namespace ostrand::documents {
namespace {

namespace column {
constexpr int docNo = 0;
constexpr int docType = 2;
constexpr int path = 3;
constexpr int filename = 4;
} // namespace column

const QString fieldDocNo = u"docNo"_s;
const QString fieldDocType = u"docType"_s;
const QString fieldPath = u"Path"_s;
const QString fieldFilename = u"filename"_s;

// Twips. The rules count the whole window, of which its caption and borders took the sums below.
constexpr int bordersWidth = 120;
constexpr int captionHeight = 510;
constexpr int buttonWidth = 1215;
constexpr int buttonHeight = 375;
constexpr QSize leastSize(9000, 3600);
/// The places of the buttons' centres, as shares of the window's width.
constexpr std::array buttonShares{0.143, 0.286, 0.429, 0.572, 0.715, 0.858};

} // namespace

frmDoc::frmDoc(QWidget* parent)
    : GridWindow(
        {.name = u"frmDoc"_s,
         .caption = tr("Documents"),
         .grid = u"gridDoc"_s,
         .gridCaption = tr("Documents"),
         .dataControl = u"dbDoc"_s,
         .query = u"qryDoc"_s,
         .columns =
             {{.name = u"docNo"_s,
               .field = u"docNo"_s,
               .caption = tr("Document No."),
               .width = 2700},
              {.name = u"Title"_s, .field = u"Title"_s, .caption = tr("Title"), .width = 5200},
              {.name = u"docType"_s, .field = u"docType"_s, .caption = u"docType"_s, .width = 1950},
              {.name = u"Path"_s, .field = u"Path"_s, .caption = tr("Path"), .width = 1900},
              {.name = u"Filename"_s,
               .field = u"Filename"_s,
               .caption = tr("Filename"),
               .width = 1850}},
         .size = {14400, 8100},
         .texts = {.loading = tr("Error while loading documents. "),
                   .showing = tr("Error while loading document Window"),
                   .sorting = tr("Error while loading sorting documents spreadsheet. "),
                   .saving = tr("Error while saving data ."),
                   .deleting = tr("Error while deleting data ."),
                   .writing = tr("Error while working in spreadsheet. "),
                   .checking = tr("Error while validating data in spreadsheet. "),
                   .emptyKey = tr("Document number cannot be null"),
                   .sameKey = tr("Record cannot be saved due to duplicate document number")}},
        parent),
      m_dbDocType(named(new toolkit::DataControl(this), u"dbDocType"_s)),
      m_cmbDocType(named(new toolkit::DataDropDown(this), u"cmbDocType"_s))
{
    m_dbDocType->setRecordSource(u"plDocType"_s);
    m_cmbDocType->setDataControl(m_dbDocType);
    addButton(u"cmdSave"_s, tr("&Save"), [this] { saveRecord(); });
    addButton(u"cmdDelete"_s, tr("&Delete"), [this] { deleteRecord(); });
    addButton(u"cmdRefresh"_s, tr("&Refresh"), [this] { RefreshData(); });
    addButton(u"cmdView"_s, tr("&View"), [this] { cmdView(); });
    addButton(u"cmdMap"_s, tr("&Map"), [this] { cmdMap(); });
    addButton(u"cmdExit"_s, tr("&Exit"), [this] { close(); });
    setMinimumSize(px(leastSize.width(), this), px(leastSize.height(), this));
    placeControls();
}

void frmDoc::load()
{
    records().setDatabaseName(app::g_strIndexFile);
    m_dbDocType->setDatabaseName(app::g_strIndexFile);
    records().Refresh();
    m_dbDocType->Refresh();
    grid().Columns(column::docType).setDropDown(m_cmbDocType);
    app::SetColumnNames(grid(), objectName());
}

// ---- files

void frmDoc::cmdMap()
{
    mapDocument([this] {
        pickDocumentFile([this](const QString& folder, const QString& name) {
            grid().Columns(column::path).setValue(folder);
            grid().Columns(column::filename).setValue(name);
        });
        saveRecord();
    });
}

void frmDoc::cmdView()
{
    try {
        if (!hasRecord())
            return;
        const store::Recordset& documents = records().Recordset();
        if (isDatasheetKind(documents.Field(fieldDocType).text())) {
            viewDatasheets();
        } else {
            viewing::viewer().ViewFile(documents.Field(fieldPath).text(),
                                       documents.Field(fieldFilename).text());
        }
    } catch (const Error& error) {
        toolkit::showFailure(toolkit::formB(tr("Error while viewing document. "), error));
    }
}

void frmDoc::viewDatasheets()
{
    try {
        const store::Value number = records().Recordset().Field(fieldDocNo);
        if (number.isNull())
            return;
        // The main window takes all its windows along when it goes first.
        const QPointer<viewing::frmViewDatasheets> window = new viewing::frmViewDatasheets(this);
        window->ShowInfo(number.text());
        delete window;
    } catch (const Error& error) {
        toolkit::showFailure(toolkit::formB(tr("Error while viewing datasheets. "), error));
    }
}

// ---- deleting

QString frmDoc::deleteQuestion() const
{
    return tr("Are you sure you want to delete document ") + textInHand(column::docNo) + u"?"_s;
}

void frmDoc::aboutToDelete()
{
    const store::Value name = records().Recordset().Field(fieldFilename);
    if (!name.isNull()
        && toolkit::askYesNo(tr("Do you want to delete document file") + name.text() + u"?"_s))
        DeleteDocumentFile();
}

void frmDoc::DeleteDocumentFile()
{
    QString path;
    try {
        const store::Value folder = records().Recordset().Field(fieldPath);
        const store::Value name = records().Recordset().Field(fieldFilename);
        if (folder.isNullOrEmpty() || name.isNullOrEmpty())
            return;
        path = toolkit::joinPath(folder.text(), name.text());
        toolkit::deleteFile(path);
    } catch (const Error& error) {
        toolkit::showFailure(
            toolkit::formA(tr("Error while deleting file ") + path + u"."_s, error));
    }
}

// ---- the layout

void frmDoc::resizeEvent(QResizeEvent* event)
{
    GridWindow::resizeEvent(event);
    placeControls();
}

void frmDoc::placeControls()
{
    const auto twips = [this](int pixels) { return pixels * 1000 / px(1000, this); };
    const int width = twips(this->width()) + bordersWidth;
    const int height = twips(this->height()) + captionHeight;
    if (width - 350 <= 10 || height - buttonHeight - 1000 <= 10
        || buttons().size() != buttonShares.size())
        return;

    const int gridWidth = px(width - 150, this);
    grid().setGeometry(
        (this->width() - gridWidth) / 2, 0, gridWidth, px(height - buttonHeight - 750, this));
    const int top = px(height - buttonHeight - 600, this);
    for (std::size_t i = 0; i < buttonShares.size(); ++i) {
        const int centre = qRound(width * buttonShares[i]);
        buttons()[i]->setGeometry(
            px(centre - buttonWidth / 2, this), top, px(buttonWidth, this), px(buttonHeight, this));
    }
}

} // namespace ostrand::documents
