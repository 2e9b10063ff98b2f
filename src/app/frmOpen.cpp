// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "app/frmOpen.h"

#include "app/CRegHndlr.h"
#include "app/help.h"
#include "app/main_window.h"
#include "app/state.h"
#include "store/error.h"
#include "toolkit/file_system.h"
#include "toolkit/named.h"
#include "toolkit/prompts.h"

#include <QButtonGroup>
#include <QFrame>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QRadioButton>
#include <QStyle>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;
using ostrand::toolkit::named;

namespace ostrand::app {
namespace {

constexpr int firstRecentEntry = 1; ///< row 0 is "More files..."

QLabel* makeImage(const QWidget& window, const QString& name, QStyle::StandardPixmap picture)
{
    const int size = window.style()->pixelMetric(QStyle::PM_LargeIconSize);
    auto* label = new QLabel;
    label->setObjectName(name);
    label->setPixmap(window.style()->standardIcon(picture).pixmap(size, size));
    return label;
}

} // namespace

frmOpen::frmOpen(QWidget* parent)
    : QDialog(parent),
      m_optNew(named(new QRadioButton(tr("New Index")), u"optNew"_s)),
      m_optOpen(named(new QRadioButton(tr("Open Existing Index")), u"optOpen"_s)),
      m_lstFiles(named(new QListWidget, u"lstFiles"_s)),
      m_CmdOk(named(new QPushButton(tr("&OK")), u"CmdOk"_s)),
      m_cmdCancel(named(new QPushButton(tr("&Cancel")), u"cmdCancel"_s)),
      m_cmdHelp(named(new QPushButton(tr("&Help")), u"cmdHelp"_s))
{
    setObjectName(u"frmOpen"_s);
    setWindowTitle(tr("Select Project Instrument Index"));
    setModal(true);
    build();
    connectControls();
    fillList();
}

void frmOpen::build()
{
    // Each option stands in a frame of its own, where it would not know the other one.
    auto* options = new QButtonGroup(this);
    options->addButton(m_optNew);
    options->addButton(m_optOpen);
    m_optNew->setChecked(true);
    m_lstFiles->setEnabled(false);
    m_CmdOk->setDefault(true);
    m_lstFiles->setAccessibleName(tr("Recent projects"));

    auto* frame1 = named(new QFrame, u"Frame1"_s);
    frame1->setFrameShape(QFrame::StyledPanel);
    auto* first = new QHBoxLayout(frame1);
    first->addWidget(makeImage(*this, u"Image1"_s, QStyle::SP_FileIcon));
    first->addWidget(m_optNew, 1);

    auto* frame2 = named(new QFrame, u"Frame2"_s);
    frame2->setFrameShape(QFrame::StyledPanel);
    auto* second = new QGridLayout(frame2);
    second->addWidget(makeImage(*this, u"Image2"_s, QStyle::SP_DirOpenIcon), 0, 0);
    second->addWidget(m_optOpen, 0, 1);
    second->addWidget(m_lstFiles, 1, 0, 1, 2);
    second->setColumnStretch(1, 1);

    auto* buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(m_CmdOk);
    buttons->addWidget(m_cmdCancel);
    buttons->addWidget(m_cmdHelp);

    auto* layout = new QVBoxLayout(this);
    layout->addWidget(frame1);
    layout->addWidget(frame2, 1);
    layout->addLayout(buttons);
    resize(fontMetrics().averageCharWidth() * 80, fontMetrics().height() * 22);
}

void frmOpen::connectControls()
{
    connect(m_optOpen, &QRadioButton::toggled, m_lstFiles, &QWidget::setEnabled);
    connect(m_CmdOk, &QPushButton::clicked, this, &frmOpen::accepted);
    connect(m_cmdCancel, &QPushButton::clicked, this, &QDialog::reject);
    connect(m_cmdHelp, &QPushButton::clicked, this, [this] {
        ShowHelpTopic(this, helpTopicManual(), true);
    });
    connect(m_lstFiles, &QListWidget::itemDoubleClicked, this, [this] {
        OpenIndex();
        accept();
    });
}

void frmOpen::fillList()
{
    m_lstFiles->clear();
    m_lstFiles->addItem(tr("More files..."));
    try {
        for (const QString& entry : regHndlr().GetIndexLocation()) {
            if (!entry.isEmpty() && toolkit::fileExists(entry))
                m_lstFiles->addItem(entry);
        }
    } catch (const store::Error& error) {
        toolkit::showFailure(toolkit::formB(tr("Error while loading file handler form. "), error));
    }
}

void frmOpen::accepted()
{
    if (m_optNew->isChecked())
        CreateIndex();
    else
        OpenIndex();
    accept();
}

void frmOpen::CreateIndex()
{
    try {
        mainWindow().CreateIndex();
    } catch (const store::Error& error) {
        toolkit::showFailure(toolkit::formB(tr("Error while creating index. "), error));
    }
}

void frmOpen::OpenIndex()
{
    try {
        const int row = m_lstFiles->currentRow();
        mainWindow().OpenIndex(row < firstRecentEntry ? QString() : m_lstFiles->item(row)->text());
    } catch (const store::Error& error) {
        toolkit::showFailure(toolkit::formB(tr("Error while opening index. "), error));
    }
}

} // namespace ostrand::app
