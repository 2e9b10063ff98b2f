// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "viewing/frmViewDatasheets.h"

#include "app/help.h"
#include "app/state.h"
#include "datasheets/cXlHndlr.h"
#include "datasheets/failure.h"
#include "store/database.h"
#include "store/recordset.h"
#include "toolkit/named.h"
#include "toolkit/paths.h"
#include "toolkit/prompts.h"
#include "toolkit/twips.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QListWidget>
#include <QPointer>
#include <QPushButton>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;
using ostrand::datasheets::currentFailure;
using ostrand::toolkit::named;
using ostrand::toolkit::px;

namespace ostrand::viewing {
namespace {

constexpr int designWidth = 5400;
constexpr int designHeight = 4800;
constexpr int alreadyShown = 400;

} // namespace

frmViewDatasheets::frmViewDatasheets(QWidget* parent)
    : QDialog(parent),
      m_Label1(named(new QLabel(tr("Select file you wish to view.")), u"Label1"_s)),
      m_lstFromItems(named(new QListWidget, u"lstFromItems"_s)),
      m_cmdView(named(new QPushButton(tr("&View")), u"cmdView"_s)),
      m_cmdExit(named(new QPushButton(tr("&Exit")), u"cmdExit"_s)),
      m_cmdHelp(named(new QPushButton(tr("&Help")), u"cmdHelp"_s))
{
    setObjectName(u"frmViewDatasheets"_s);
    setModal(true);
    build();
    connectControls();
}

void frmViewDatasheets::build()
{
    m_Label1->setBuddy(m_lstFromItems);
    m_lstFromItems->setAccessibleName(tr("Tags"));
    m_lstFromItems->setUniformItemSizes(true);
    m_lstFromItems->installEventFilter(this);
    m_cmdView->setDefault(true);

    auto* buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(m_cmdView);
    buttons->addWidget(m_cmdExit);
    buttons->addWidget(m_cmdHelp);

    auto* layout = new QVBoxLayout(this);
    layout->addWidget(m_Label1);
    layout->addWidget(m_lstFromItems, 1);
    layout->addLayout(buttons);
    resize(px(designWidth, this), px(designHeight, this));
    m_lstFromItems->setFocus();
}

void frmViewDatasheets::connectControls()
{
    connect(
        m_lstFromItems, &QListWidget::itemDoubleClicked, this, &frmViewDatasheets::OpenDatasheet);
    connect(m_cmdView, &QPushButton::clicked, this, &frmViewDatasheets::OpenDatasheet);
    connect(m_cmdExit, &QPushButton::clicked, this, &QDialog::reject);
    connect(m_cmdHelp, &QPushButton::clicked, this, [this] {
        app::ShowHelpTopic(this, app::helpTopicManual(), true);
    });
}

bool frmViewDatasheets::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::KeyPress && selectByKey(static_cast<QKeyEvent*>(event)->key()))
        return true;
    return QDialog::eventFilter(watched, event);
}

/// The list has a current entry from the moment that it has the focus, though none is selected yet:
/// the first key that moves would leave that one out.
bool frmViewDatasheets::selectByKey(int key)
{
    if (m_lstFromItems->count() == 0 || !m_lstFromItems->selectedItems().isEmpty())
        return false;
    switch (key) {
    case Qt::Key_Up:
    case Qt::Key_Down:
    case Qt::Key_Home:
    case Qt::Key_PageUp:
    case Qt::Key_PageDown:
        m_lstFromItems->setCurrentRow(0, QItemSelectionModel::ClearAndSelect);
        return true;
    case Qt::Key_End:
        m_lstFromItems->setCurrentRow(m_lstFromItems->count() - 1,
                                      QItemSelectionModel::ClearAndSelect);
        return true;
    default:
        return false;
    }
}

void frmViewDatasheets::ShowInfo(const QString& docNo)
{
    try {
        if (isVisible())
            throw store::Error(alreadyShown, tr("The window is open already."));
        m_docNo = docNo;
        setWindowTitle(tr("Datasheet ") + docNo);
        LoadFiles();
        exec();
    } catch (...) {
        toolkit::showFailure(
            toolkit::formA(tr("Error while loading datasheet view Window"), currentFailure()));
    }
}

void frmViewDatasheets::LoadFiles()
{
    try {
        const auto project = store::DBEngine::OpenDatabase(app::g_strIndexFile);
        const auto tags = project.OpenSnapshot(
            u"select index.PlantItemNo as Tag from index, itemDocXRef where itemDocXRef.DocNo = '"_s
            + m_docNo
            + u"'   and itemDocXRef.PlantItemNo = index.PlantItemNo   "_s
              u"and index.TagFileName is not null order by index.PlantItemNo;"_s);
        m_lstFromItems->clear();
        for (; !tags->Eof(); tags->MoveNext())
            m_lstFromItems->addItem(tags->Field(u"Tag"_s).text());
    } catch (...) {
        toolkit::showFailure(toolkit::formB(tr("Error while loading file names into file list. "),
                                            currentFailure()));
    }
}

void frmViewDatasheets::OpenDatasheet()
{
    try {
        const QListWidgetItem* selected = m_lstFromItems->currentItem();
        if (!selected || !selected->isSelected())
            return;
        const auto project = store::DBEngine::OpenDatabase(app::g_strIndexFile);
        const auto places = project.OpenSnapshot(
            u"select DatasheetPath, DataSheetFileName from qryIndex where Tag = '"_s
            + selected->text() + u"';"_s);
        if (places->Eof())
            return;
        const store::Value folder = places->Field(u"DatasheetPath"_s);
        const store::Value name = places->Field(u"DataSheetFileName"_s);
        if (folder.isNull() || name.isNull())
            return;
        // Opening waits for another program: the main window may go meanwhile, and this one with
        // it.
        const QPointer<frmViewDatasheets> self(this);
        datasheets::xlHndlr().OpenXl(toolkit::joinPath(folder.text(), name.text()));
        if (self)
            accept();
    } catch (...) {
        toolkit::showFailure(
            toolkit::formB(tr("Error while loading datasheet. "), currentFailure()));
    }
}

} // namespace ostrand::viewing
