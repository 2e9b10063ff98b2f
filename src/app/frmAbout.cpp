// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "app/frmAbout.h"

#include "app/help.h"
#include "app/program.h"

#include <QCoreApplication>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace ostrand::app {
namespace {

QLabel* makeLabel(const QString& name, const QString& text)
{
    auto* label = new QLabel(text);
    label->setObjectName(name);
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
    return label;
}

} // namespace

frmAbout::frmAbout(QWidget* parent)
    : QDialog(parent),
      m_lblVersion(makeLabel(u"lblVersion"_s, shortTitle() + tr(" Build Date: ") + buildDate())),
      m_lblInstallPath(
          makeLabel(u"lblInstallPath"_s, tr("Installation path: ") + installationFolder())),
      m_CmdOk(new QPushButton(tr("OK"))),
      m_cmdCheckForUpdate(new QPushButton(tr("Check For Updates")))
{
    setObjectName(u"frmAbout"_s);
    setWindowTitle(shortTitle());
    m_CmdOk->setObjectName(u"CmdOk"_s);
    m_CmdOk->setDefault(true);
    m_cmdCheckForUpdate->setObjectName(u"cmdCheckForUpdate"_s);
    m_cmdCheckForUpdate->setAutoDefault(false);
    m_cmdCheckForUpdate->hide();

    auto* title = makeLabel(u"lblTitle"_s, productTitle());
    QFont large = title->font();
    large.setPointSizeF(large.pointSizeF() * 1.5);
    large.setBold(true);
    title->setFont(large);

    auto* frame = new QGroupBox(tr("Installation Information"));
    frame->setObjectName(u"Frame2"_s);
    auto* information = new QVBoxLayout(frame);
    information->addWidget(m_lblVersion);
    information->addWidget(m_lblInstallPath);

    auto* buttons = new QHBoxLayout;
    buttons->addWidget(m_cmdCheckForUpdate);
    buttons->addStretch();
    buttons->addWidget(m_CmdOk);

    auto* layout = new QVBoxLayout(this);
    layout->addWidget(title);
    layout->addWidget(frame);
    layout->addLayout(buttons);
    setMinimumWidth(fontMetrics().averageCharWidth() * 64);

    connect(m_CmdOk, &QPushButton::clicked, this, &QDialog::close);
    connect(m_cmdCheckForUpdate, &QPushButton::clicked, this, &LaunchAutoUpdate);
}

void frmAbout::showAsStartScreen()
{
    show();
    m_CmdOk->hide();
    m_cmdCheckForUpdate->hide();
    repaint();
    QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
}

} // namespace ostrand::app
