// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
//
// The window of the project's attributes: its controls, and how it opens and closes.
#include "app/frmProjectInfo.h"

#include "app/modFormFieldNaming.h"
#include "app/project_attributes.h"
#include "app/state.h"
#include "toolkit/data_control.h"
#include "toolkit/data_grid.h"
#include "toolkit/named.h"
#include "toolkit/prompts.h"
#include "toolkit/record_failure.h"
#include "toolkit/twips.h"

#include <QCloseEvent>
#include <QHBoxLayout>
#include <QPushButton>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;
using ostrand::store::Error;
using ostrand::toolkit::named;
using ostrand::toolkit::px;

namespace ostrand::app {
namespace {

// Twips; the attributes of a usual project and a path of some length are seen at once.
constexpr int designWidth = 10800;
constexpr int designHeight = 5400;
constexpr int nameWidth = 3000;
constexpr int valueWidth = 6900;

} // namespace

frmProjectInfo::frmProjectInfo(QWidget* parent)
    : QDialog(parent),
      m_GridInfo(named(new toolkit::DataGrid, u"GridInfo"_s)),
      m_dbProjInfo(named(new toolkit::DataControl(this), u"dbProjInfo"_s)),
      m_cmdLocateDir(named(new QPushButton(tr("&Browse")), u"cmdLocateDir"_s)),
      m_cmdSave(named(new QPushButton(tr("&Save")), u"cmdSave"_s)),
      m_cmdDelete(named(new QPushButton(tr("&Delete")), u"cmdDelete"_s)),
      m_cmdRefresh(named(new QPushButton(tr("&Refresh")), u"cmdRefresh"_s)),
      m_cmdExit(named(new QPushButton(tr("&Exit")), u"cmdExit"_s))
{
    setObjectName(u"frmProjectInfo"_s);
    setModal(true);
    build();
    layOut();
    connectControls();
}

void frmProjectInfo::build()
{
    m_dbProjInfo->setRecordSource(u"qryProjectInfo"_s);
    m_GridInfo->setAccessibleName(tr("Project attributes"));
    for (const auto& [field, width] :
         {std::pair{u"attributeName"_s, nameWidth}, std::pair{u"attributeValue"_s, valueWidth}})
        m_GridInfo->addColumn({.name = field, .field = field, .caption = field, .width = width});
    m_GridInfo->setAllowAddNew(true);
    // Rows are deleted by the command alone, which knows those that the program uses.
    m_GridInfo->setAllowDelete(false);
    m_GridInfo->setDataControl(m_dbProjInfo);
    m_GridInfo->keepLayoutAs(u"GridInfo"_s);
    // Enter is the grid's while it has the keyboard.
    m_cmdExit->setDefault(true);
    m_cmdLocateDir->setToolTip(tr("Locate Default Folders"));
}

void frmProjectInfo::layOut()
{
    auto* buttons = new QHBoxLayout;
    buttons->addWidget(m_cmdLocateDir);
    buttons->addStretch();
    for (QPushButton* button : {m_cmdSave, m_cmdDelete, m_cmdRefresh, m_cmdExit})
        buttons->addWidget(button);

    auto* layout = new QVBoxLayout(this);
    layout->addWidget(m_GridInfo, 1);
    layout->addLayout(buttons);
    resize(px(designWidth, this), px(designHeight, this));
    m_GridInfo->setFocus();
}

void frmProjectInfo::connectControls()
{
    using toolkit::DataControl;
    using toolkit::DataGrid;

    connect(m_cmdLocateDir, &QPushButton::clicked, this, &frmProjectInfo::cmdLocateDir);
    connect(m_cmdSave, &QPushButton::clicked, this, &frmProjectInfo::cmdSave);
    connect(m_cmdDelete, &QPushButton::clicked, this, &frmProjectInfo::cmdDelete);
    connect(m_cmdRefresh, &QPushButton::clicked, this, &frmProjectInfo::cmdRefresh);
    connect(m_cmdExit, &QPushButton::clicked, this, &frmProjectInfo::cmdExit);
    connect(m_GridInfo, &DataGrid::beforeColumnUpdate, this, [this](int, bool& cancel) {
        cancel = !ValidateAttribute();
    });
    connect(m_GridInfo, &DataGrid::afterUpdate, this, &frmProjectInfo::afterUpdate);
    connect(m_GridInfo, &DataGrid::keyTyped, this, &frmProjectInfo::refuseKey);
    connect(m_GridInfo, &DataGrid::deletePressed, this, &frmProjectInfo::refuseDelete);
    connect(m_dbProjInfo,
            &DataControl::validate,
            this,
            [](DataControl::Action action, bool&, const std::optional<Error>& pending) {
                toolkit::tellRecordFailure(action, pending);
            });
}

void frmProjectInfo::ShowInfo()
{
    try {
        setWindowTitle(tr("Project Information"));
        m_dbProjInfo->setDatabaseName(g_strIndexFile);
        m_dbProjInfo->Refresh();
        SetColumnNames(*m_GridInfo, objectName());
        if (m_dbProjInfo->Recordset().RecordCount() > 0)
            m_dbProjInfo->Recordset().MoveFirst();
    } catch (const Error& error) {
        toolkit::showFailure(toolkit::formA(tr("Error while loading Project Information."), error));
        return;
    }
    exec();
}

QString frmProjectInfo::cell(int column)
{
    return m_GridInfo->Columns(column).Value().text();
}

bool frmProjectInfo::isAdding() const
{
    return m_dbProjInfo->EditMode() == store::EditMode::Add;
}

void frmProjectInfo::refuseKey(int& code)
{
    if (const auto text = typingRefusal(cell(infoColumn::name))) {
        code = 0;
        toolkit::showNotice(*text);
    }
}

void frmProjectInfo::refuseDelete(bool& handled)
{
    if (const auto text = deletingRefusal(cell(infoColumn::name))) {
        handled = true;
        toolkit::showNotice(*text);
    }
}

// ---- closing

void frmProjectInfo::reject()
{
    if (m_GridInfo->rowPending()) {
        m_GridInfo->cancelRow();
        m_GridInfo->setFocus();
    } else {
        close();
    }
}

void frmProjectInfo::closeEvent(QCloseEvent* event)
{
    event->setAccepted(mayClose());
}

/// A row that cannot be written keeps the window open: Escape drops it.
bool frmProjectInfo::mayClose()
{
    try {
        if (m_dbProjInfo->Recordset().RecordCount() == 0) {
            toolkit::showNotice(
                tr("Save Instrument Index Title information before closing window!"));
            return false;
        }
    } catch (const Error& error) {
        toolkit::showFailure(toolkit::formA(
            tr("Error while checking for Instrument Index Title Information."), error));
    }
    return writeRow();
}

} // namespace ostrand::app
