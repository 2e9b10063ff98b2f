// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
//
// The main window: its controls, their states and its events.
#include "index/frmIndex.h"

#include "app/frmAbout.h"
#include "app/help.h"
#include "app/program.h"
#include "app/state.h"
#include "datasheets/cXlHndlr.h"
#include "datasheets/datasheet_commands.h"
#include "datasheets/logo_run.h"
#include "index/document_columns.h"
#include "index/frmNotes.h"
#include "index/index_buttons.h"
#include "index/index_columns.h"
#include "index/index_menus.h"
#include "index/row_clipboard.h"
#include "index/tag_editing.h"
#include "pid/export.h"
#include "pid/import.h"
#include "pid/populating.h"
#include "pid/relocation.h"
#include "toolkit/data_grid.h"
#include "toolkit/prompts.h"
#include "toolkit/record_failure.h"

#include <QCloseEvent>
#include <QLabel>
#include <QMenuBar>
#include <QProgressBar>
#include <QPushButton>
#include <QStatusBar>

using namespace Qt::StringLiterals;
using ostrand::store::Error;

namespace ostrand::index {

frmIndex::frmIndex()
    : m_dbIndex(new toolkit::DataControl(this))
{
    setObjectName(u"frmIndex"_s);
    setWindowTitle(app::productTitle());
    buildControls();
    connectGrid();
    connectCommands();
    load();
    restoreKeptGeometry();
}

frmIndex::~frmIndex() = default;

void frmIndex::buildControls()
{
    m_dbIndex->setObjectName(u"dbIndex"_s);
    m_dbIndex->setRecordSource(u"qryIndex"_s);

    auto* client = new QWidget(this);
    setCentralWidget(client);
    m_GridIndex = new toolkit::DataGrid(client);
    m_GridIndex->setObjectName(u"GridIndex"_s);
    m_GridIndex->setAccessibleName(tr("Instrument index"));
    for (const toolkit::GridColumn& column : indexColumns())
        m_GridIndex->addColumn(column);
    m_GridIndex->setAllowAddNew(true);
    m_GridIndex->setAllowDelete(true);
    m_GridIndex->setDataControl(m_dbIndex);
    m_GridIndex->keepLayoutAs(u"GridIndex"_s);
    m_buttons = new IndexButtons(client);
    m_menus = new IndexMenus(this);

    auto* bar = statusBar();
    bar->setObjectName(u"stsStatusBar"_s);
    bar->setAccessibleName(tr("Status bar"));
    for (QLabel*& panel : m_panels) {
        panel = new QLabel(bar);
        panel->setTextFormat(Qt::PlainText);
        panel->setFrameStyle(QFrame::Panel | QFrame::Sunken);
        bar->addWidget(panel);
    }
    m_progress = new QProgressBar(bar);
    m_progress->setObjectName(u"Progress"_s);
    m_progress->setAccessibleName(tr("Progress"));
    m_progress->setFormat(u"%v / %m"_s);
    m_progress->hide();
    m_panels[0]->setObjectName(u"Panel1"_s);
    m_panels[1]->setObjectName(u"Panel2"_s);

    m_documents = new DocumentColumns(*m_GridIndex, *m_dbIndex, this);
    m_tags = new TagEditing(*m_GridIndex,
                            *m_dbIndex,
                            {.UpdateDocCrossRefs = [this] { m_documents->UpdateDocCrossRefs(); },
                             .FolderDatasheets = [this] { return FolderDatasheets(); }},
                            this);
    m_rows = new RowClipboard(*m_GridIndex, *m_dbIndex, this);
    m_datasheets = std::make_unique<datasheets::DatasheetCommands>(
        *this,
        datasheets::DatasheetCommands::Links{
            .GridTag = [this] { return m_GridIndex->Columns(column::tag).Value().text(); },
            .SaveTag = [this] { m_tags->SaveTag(); }});
}

void frmIndex::load()
{
    m_documents->attachDropDowns();
    AbleForm(false);
    ableButton(app::g_blnPidLinked);
}

void frmIndex::connectGrid()
{
    using toolkit::DataControl;
    using toolkit::DataGrid;

    connect(m_dbIndex, &DataControl::reposition, this, &frmIndex::showRecordCounter);
    connect(m_dbIndex, &DataControl::validate, this, &frmIndex::validateRecord);
    connect(m_GridIndex, &DataGrid::headerClicked, this, &frmIndex::Sort);
    connect(m_GridIndex, &DataGrid::rowLoaded, m_documents, &DocumentColumns::loadRow);
    connect(m_GridIndex, &DataGrid::keyTyped, m_documents, &DocumentColumns::keyPress);
    connect(m_GridIndex, &DataGrid::beforeUpdate, m_tags, &TagEditing::beforeUpdate);
    connect(m_GridIndex, &DataGrid::afterUpdate, m_tags, &TagEditing::afterUpdate);
    connect(m_GridIndex, &DataGrid::beforeDelete, m_tags, &TagEditing::DeleteDatasheetFile);
    connect(m_GridIndex, &DataGrid::cellButtonClicked, this, &frmIndex::cellButtonClicked);
    connect(m_GridIndex,
            &DataGrid::mouseReleased,
            this,
            [this](Qt::MouseButton button, Qt::KeyboardModifiers, QPoint position) {
                if (button == Qt::RightButton)
                    showPopup(position);
            });
}

void frmIndex::connectCommands()
{
    const auto onAction = [this](const QString& name, auto handler) {
        connect(m_menus->action(name), &QAction::triggered, this, handler);
    };
    onAction(u"mnuFileNew"_s, [this] { CreateIndex(); });
    onAction(u"mnuFileOpen"_s, [this] { OpenIndex(QString()); });
    onAction(u"mnuFileExit"_s, [this] { close(); });
    onAction(u"mnuEditProjectInfo"_s, [this] {
        ShowProjectInfo();
        if (app::g_blnFolderChanged)
            pid::changedDatasheetPath();
    });
    const auto showProjectInfo = [this] { ShowProjectInfo(); };
    onAction(u"mnuSetupDatasheets"_s,
             [showProjectInfo] { datasheets::mnuSetupDatasheets(showProjectInfo); });
    onAction(u"mnuSetupTemplates"_s,
             [showProjectInfo] { datasheets::mnuSetupTemplates(showProjectInfo); });
    onAction(u"mnuEditIndexRev"_s, [this] { mnuEditIndexRev(); });
    onAction(u"mnuReportIndex"_s, [this] { mnuReportIndex(); });
    onAction(u"mnuReportAlarmSum"_s, [this] { mnuReportAlarmSum(); });
    onAction(u"mnuReportInstallationDetails"_s, [this] { mnuReportInstallationDetails(); });
    onAction(u"mnuReportMaintenance"_s, [this] { mnuReportMaintenance(); });
    onAction(u"mnuDocAll"_s, [this] { mnuDocAll(); });
    onAction(u"mnuDocRef"_s, [this] { mnuDocRef(); });
    onAction(u"mnuDocDtSht"_s, [this] { m_datasheets->OpenTagDatasheet(); });
    onAction(u"mnuOnlineHelp"_s,
             [this] { app::ShowHelpTopic(this, app::helpTopicManual(), true); });
    onAction(u"mnuCheckForUpdates"_s, [] { app::LaunchAutoUpdate(); });
    onAction(u"muHelpAbout"_s, [this] { showAbout(); });
    // Their shortcuts reach them also while the grid is disabled.
    const auto onRows = [this, &onAction](const QString& name, auto handler) {
        onAction(name, [this, handler] {
            if (m_GridIndex->isEnabled())
                handler();
        });
    };
    onRows(u"mnuPopUpCopy1"_s, [this] { copyRows(); });
    onRows(u"mnuPopUpCopy2"_s, [this] { copyRows(); });
    onRows(u"mnuPopUpPaste1"_s, [this] { m_rows->PasteRows(); });
    onRows(u"mnuPopUpPaste3"_s, [this] { m_rows->PasteRows(); });
    onRows(u"mnuPopUpDelete1"_s, [this] { m_rows->DeleteRows(); });
    onRows(u"mnuPopUpDelete2"_s, [this] { m_tags->cmdDelete(); });

    const auto onButton = [this](const QString& name, auto handler) {
        connect(m_buttons->button(name), &QPushButton::clicked, this, handler);
    };
    onButton(u"cmdDatasheet"_s, [this] { m_datasheets->cmdDatasheet(); });
    onButton(u"cmdHelp"_s, [this] { app::ShowHelpTopic(this, app::helpTopicManual(), true); });
    onButton(u"cmdSave"_s, [this] { m_tags->cmdSave(); });
    onButton(u"cmdDelete"_s, [this] { m_tags->cmdDelete(); });
    onButton(u"cmdRefresh"_s, [this] { LoadIndex(); });
    onButton(u"cmdExit"_s, [this] { close(); });
    onButton(u"cmdTag"_s, [] { pid::cmdTag(); });
    onButton(u"cmdImport"_s, [] { pid::cmdImport(); });
    onButton(u"cmdExport"_s, [] { pid::cmdExport(); });
}

/// There is one about window: where it is open already, it comes to the front.
void frmIndex::showAbout()
{
    if (!m_about) {
        m_about = new app::frmAbout(this);
        m_about->setAttribute(Qt::WA_DeleteOnClose);
    }
    m_about->show();
    m_about->raise();
    m_about->activateWindow();
}

void frmIndex::AbleForm(bool blnEnable)
{
    static const QStringList names{u"cmdDatasheet"_s,
                                   u"cmdDelete"_s,
                                   u"cmdSave"_s,
                                   u"cmdRefresh"_s,
                                   u"GridIndex"_s,
                                   u"cmdTag"_s,
                                   u"mnuEdit"_s,
                                   u"mnuReport"_s,
                                   u"mnuDoc"_s};
    try {
        // A control that is disabled gives the focus to whatever comes next.
        if (!blnEnable)
            m_focusBefore = focusWidget();
        for (const QString& name : names) {
            auto* control = findChild<QWidget*>(name);
            if (!control)
                throw Error(store::errors::objectNotSet, u"Object variable not set"_s);
            control->setEnabled(blnEnable);
            if (auto* menu = qobject_cast<QMenu*>(control))
                menu->menuAction()->setEnabled(blnEnable);
        }
        if (blnEnable && m_focusBefore)
            m_focusBefore->setFocus();
    } catch (const Error& error) {
        toolkit::showFailure(toolkit::formA(tr("Error while abling window."), error));
    }
}

void frmIndex::ableButton(bool blnEnable)
{
    m_buttons->button(u"cmdImport"_s)->setEnabled(blnEnable);
    m_buttons->button(u"cmdExport"_s)->setEnabled(blnEnable);
}

void frmIndex::ableFileMenu(bool blnEnable)
{
    m_menus->action(u"mnuFileNew"_s)->setEnabled(blnEnable);
    m_menus->action(u"mnuFileOpen"_s)->setEnabled(blnEnable);
}

void frmIndex::cellButtonClicked(int columnNumber)
{
    try {
        if (columnNumber == column::datasheetFileName)
            LocateDatasheetFile();
        else if (columnNumber == column::remarks)
            ShowNotes();
    } catch (const Error& error) {
        if (error.number() != toolkit::cancelledDialog)
            toolkit::showFailure(toolkit::formB(tr("Error while showing notes. "), error));
    }
}

/// The main window takes the window along when it closes first.
void frmIndex::ShowNotes()
{
    const QString tag = ActiveTag();
    const QPointer<frmNotes> notes = new frmNotes(*m_GridIndex, this);
    notes->ShowInfo(tag);
    delete notes;
}

void frmIndex::showRecordCounter()
{
    const store::Recordset& tags = m_dbIndex->Recordset();
    setPanelText(1,
                 tr("Record: ") + QString::number(tags.AbsolutePosition() + 1) + tr(" of ")
                     + QString::number(tags.RecordCount()));
}

void frmIndex::validateRecord(toolkit::DataControl::Action action,
                              bool& save,
                              const std::optional<Error>& pending)
{
    using Action = toolkit::DataControl::Action;
    if (action == Action::Add && m_GridIndex->Columns(column::tag).Value().isNullOrEmpty()) {
        save = false;
        return;
    }
    toolkit::tellRecordFailure(action, pending);
}

/// Where no row is selected, the text of the current cell goes to the system's clipboard beside.
void frmIndex::copyRows()
{
    if (m_GridIndex->SelBookmarks().empty())
        m_GridIndex->copyCurrentCell();
    m_rows->CopyRows();
}

void frmIndex::showPopup(QPoint position)
{
    const bool rowsSelected = !m_GridIndex->SelBookmarks().empty();
    if (QMenu* popup = m_menus->popupFor(rowsSelected, m_rows->hasRows()))
        popup->popup(m_GridIndex->viewport()->mapToGlobal(position));
}

void frmIndex::setPanelText(int panel, const QString& text)
{
    m_panels[panel - 1]->setText(text);
}

/// It stands in the panel of the project file, whose width it takes a part of.
void frmIndex::setProgress(int done, int total)
{
    if (total <= 0) {
        m_progress->hide();
        return;
    }
    constexpr int inset = 3;
    const QRect panel = m_panels[1]->geometry();
    const int width = panel.width() / 3;
    m_progress->setGeometry(
        panel.right() - width, panel.top() + inset, width - inset, panel.height() - 2 * inset);
    m_progress->setRange(0, total);
    m_progress->setValue(done);
    m_progress->show();
    m_progress->raise();
}

void frmIndex::refreshDocuments(const QString& docType)
{
    m_documents->refreshKind(docType);
}

void frmIndex::closeEvent(QCloseEvent* event)
{
    // A datasheet has its own questions. Where the user goes on working in it, the program does
    // too: without it nothing of the datasheet would reach the index.
    if (datasheets::g_objXlHndlr && !datasheets::g_objXlHndlr->CloseOpenDatasheet()) {
        event->ignore();
        return;
    }
    // The grid's own validation has the last word on a row that is still being edited.
    m_GridIndex->writeRow();
    keepGeometry();
    event->accept();
    Q_EMIT unloaded();
}

} // namespace ostrand::index
