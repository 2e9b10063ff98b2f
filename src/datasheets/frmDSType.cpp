// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "datasheets/frmDSType.h"

#include "app/help.h"
#include "app/main_window.h"
#include "app/modFormFieldNaming.h"
#include "app/state.h"
#include "datasheets/cXlHndlr.h"
#include "datasheets/failure.h"
#include "datasheets/file_name.h"
#include "toolkit/data_control.h"
#include "toolkit/data_grid.h"
#include "toolkit/named.h"
#include "toolkit/paths.h"
#include "toolkit/prompts.h"
#include "toolkit/twips.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QMouseEvent>
#include <QPushButton>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;
using ostrand::app::mainWindow;
using ostrand::toolkit::named;
using ostrand::toolkit::px;

namespace ostrand::datasheets {
namespace {

const QString fieldFileName = u"filename"_s;

// Twips; all columns and the rows of a usual project are seen at once.
constexpr int designWidth = 9500;
constexpr int designHeight = 6800;

} // namespace

frmDSType::frmDSType(QWidget* parent)
    : QDialog(parent),
      m_lblInstructions(named(new QLabel, u"lblInstructions"_s)),
      m_gridDsType(named(new toolkit::DataGrid, u"gridDsType"_s)),
      m_dbDsType(named(new toolkit::DataControl(this), u"dbDsType"_s)),
      m_cmdSelect(named(new QPushButton(tr("&Select")), u"cmdSelect"_s)),
      m_cmdCancel(named(new QPushButton(tr("&Cancel")), u"cmdCancel"_s)),
      m_cmdHelp(named(new QPushButton(tr("&Help")), u"cmdHelp"_s))
{
    setObjectName(u"frmDSType"_s);
    setWindowTitle(tr("Select Datasheet Type"));
    setModal(true);
    build();
    connectControls();
    load();
}

void frmDSType::build()
{
    m_lblInstructions->setTextFormat(Qt::PlainText);
    m_lblInstructions->setWordWrap(true);
    m_lblInstructions->setBuddy(m_gridDsType);

    m_dbDsType->setRecordSource(u"qryDsType"_s);
    m_dbDsType->setReadOnly(true);
    m_gridDsType->setAccessibleName(tr("Datasheet types"));
    // Their shares of the width of a row: a number, a name, a file name.
    for (const auto& [field, width] : {std::pair{u"ReportNum"_s, 1400},
                                       std::pair{u"DatasheetType"_s, 4600},
                                       std::pair{u"FileName"_s, 2600}})
        m_gridDsType->addColumn({.name = field, .field = field, .caption = field, .width = width});
    m_gridDsType->setAllowAddNew(false);
    m_gridDsType->setAllowDelete(false);
    m_gridDsType->setDataControl(m_dbDsType);
    m_gridDsType->keepLayoutAs(u"gridDsType"_s);
    m_gridDsType->installEventFilter(this);
    m_gridDsType->viewport()->installEventFilter(this);
    m_cmdSelect->setDefault(true);

    auto* buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(m_cmdSelect);
    buttons->addWidget(m_cmdCancel);
    buttons->addWidget(m_cmdHelp);

    auto* layout = new QVBoxLayout(this);
    layout->addWidget(m_lblInstructions);
    layout->addWidget(m_gridDsType, 1);
    layout->addLayout(buttons);
    resize(px(designWidth, this), px(designHeight, this));
    m_gridDsType->setFocus();
}

void frmDSType::connectControls()
{
    connect(m_cmdSelect, &QPushButton::clicked, this, &frmDSType::CreateDatasheet);
    connect(m_cmdCancel, &QPushButton::clicked, this, &QDialog::reject);
    connect(m_cmdHelp, &QPushButton::clicked, this, [this] {
        app::ShowHelpTopic(this, app::helpTopicManual(), true);
    });
    connect(m_gridDsType, &toolkit::DataGrid::headerClicked, this, &frmDSType::Sort);
}

void frmDSType::load()
{
    try {
        m_dbDsType->setDatabaseName(app::g_strIndexFile);
        m_dbDsType->Refresh();
        m_lblInstructions->setText(tr("Select Datasheet type you want to use for tag ") + u"\r\n"_s
                                   + mainWindow().ActiveTag());
        app::SetColumnNames(*m_gridDsType, objectName());
    } catch (...) {
        toolkit::showFailure(
            toolkit::formA(tr("Error when loading Datasheet Template Window."), currentFailure()));
    }
}

void frmDSType::Sort(int intColumn)
{
    try {
        m_dbDsType->setRecordSource(u"select * from qryDsType order by "_s
                                    + m_gridDsType->Columns(intColumn).Name());
        m_dbDsType->Refresh();
        m_gridDsType->setSortMark(intColumn);
    } catch (...) {
        toolkit::showFailure(toolkit::formB(tr("Error while sorting datasheet types spreadsheet. "),
                                            currentFailure()));
    }
}

void frmDSType::CreateDatasheet()
{
    try {
        copyTemplate();
        accept();
    } catch (...) {
        const store::Error error = currentFailure();
        if (error.number() == toolkit::cancelledDialog)
            reject();
        else
            toolkit::showFailure(toolkit::formA(tr("Error while saving datasheet."), error));
    }
}

void frmDSType::copyTemplate()
{
    app::MainWindow& window = mainWindow();
    const store::Recordset& types = m_dbDsType->Recordset();
    if (!xlHndlr().CkTemplateExists(types.Field(fieldFileName).text()))
        return;
    const QString folder = window.FolderDatasheets();
    const QString name = datasheetNameOf(window.ActiveTag());
    const bool made =
        xlHndlr().CopySprSht(types.Field(fieldFileName).text(), toolkit::joinPath(folder, name));
    window.setDatasheetFolder(made ? folder : QString());
    window.setDatasheetFileName(made ? name : QString());
}

// ---- the grid as a list to choose from: it takes nothing that would edit a cell

bool frmDSType::eventFilter(QObject* watched, QEvent* event)
{
    return gridEvent(event) || QDialog::eventFilter(watched, event);
}

bool frmDSType::gridEvent(QEvent* event)
{
    if (event->type() == QEvent::InputMethod)
        return true;
    if (event->type() == QEvent::KeyPress) {
        const auto* key = static_cast<QKeyEvent*>(event);
        return gridKey(key->key(), key->text());
    }
    if (event->type() != QEvent::MouseButtonDblClick)
        return false;
    const auto* click = static_cast<QMouseEvent*>(event);
    if (click->button() == Qt::LeftButton
        && m_gridDsType->indexAt(click->position().toPoint()).isValid())
        CreateDatasheet();
    return true;
}

bool frmDSType::gridKey(int key, const QString& text)
{
    if (key == Qt::Key_Return || key == Qt::Key_Enter) {
        m_cmdSelect->click();
        return true;
    }
    if (key == Qt::Key_Escape || key == Qt::Key_Tab || key == Qt::Key_Backtab)
        return false;
    const bool edits = key == Qt::Key_F2 || key == Qt::Key_Backspace || key == Qt::Key_Delete;
    return edits || (!text.isEmpty() && text.at(0).isPrint());
}

} // namespace ostrand::datasheets
