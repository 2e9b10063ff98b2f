// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "pid/frmDuplicate.h"

#include "pid/populate_report.h"
#include "pid/short_stamp.h"
#include "toolkit/file_system.h"
#include "toolkit/named.h"
#include "toolkit/prompts.h"
#include "toolkit/twips.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QStyle>
#include <QTextDocument>

using namespace Qt::StringLiterals;
using ostrand::toolkit::named;
using ostrand::toolkit::px;

namespace ostrand::pid {
namespace {

constexpr int designWidth = 7800;
constexpr int designHeight = 5400;
constexpr double headingScale = 1.3;

const QString lineBreak = u"\r\n"_s;

} // namespace

frmDuplicate::frmDuplicate(QWidget* parent)
    : QDialog(parent),
      m_picture(named(new QLabel, u"picture"_s)),
      m_label1(named(new QLabel(tr("Warning")), u"Label1"_s)),
      m_label2(named(new QLabel(tr("The following items were found to be duplicates while "
                                   "importing from the P&&ID database and were renamed. These "
                                   "items are no longer linked to the  P&&ID database.")),
                     u"Label2"_s)),
      m_rtfDuplicate(named(new QPlainTextEdit, u"rtfDuplicate"_s)),
      m_cmdSave(named(new QPushButton(tr("&Save Report")), u"cmdSave"_s)),
      m_cmdCancel(named(new QPushButton(tr("&Cancel")), u"cmdCancel"_s))
{
    setObjectName(u"frmDuplicate"_s);
    setWindowTitle(tr("Duplicate Tags"));
    setModal(true);
    build();
    connect(m_cmdSave, &QPushButton::clicked, this, &frmDuplicate::saveReport);
    connect(m_cmdCancel, &QPushButton::clicked, this, &QDialog::reject);
    m_rtfDuplicate->setPlainText(populateReport());
}

void frmDuplicate::build()
{
    const int side = style()->pixelMetric(QStyle::PM_MessageBoxIconSize, nullptr, this);
    m_picture->setPixmap(
        style()->standardIcon(QStyle::SP_MessageBoxWarning, nullptr, this).pixmap(side));
    QFont heading = m_label1->font();
    heading.setBold(true);
    heading.setPointSizeF(heading.pointSizeF() * headingScale);
    m_label1->setFont(heading);
    m_label2->setTextFormat(Qt::PlainText);
    m_label2->setWordWrap(true);
    m_label2->setBuddy(m_rtfDuplicate); // which also makes one sign of its double ampersands
    m_rtfDuplicate->setTabChangesFocus(true);
    m_cmdSave->setDefault(true);

    auto* head = new QGridLayout;
    head->addWidget(m_picture, 0, 0, 2, 1, Qt::AlignTop);
    head->addWidget(m_label1, 0, 1);
    head->addWidget(m_label2, 1, 1);
    head->setColumnStretch(1, 1);

    auto* buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(m_cmdSave);
    buttons->addWidget(m_cmdCancel);

    auto* layout = new QVBoxLayout(this);
    layout->addLayout(head);
    layout->addWidget(m_rtfDuplicate, 1);
    layout->addLayout(buttons);
    resize(px(designWidth, this), px(designHeight, this));
    m_cmdSave->setFocus();
}

void frmDuplicate::saveReport()
{
    const auto path = toolkit::promptHost().fileDialog({.title = tr("Save File As"),
                                                        .filter = tr("Text files (*.txt)|*.txt"),
                                                        .save = true,
                                                        .suffix = u"txt"_s});
    if (path && !path->isEmpty() && trySave(*path))
        accept();
}

bool frmDuplicate::trySave(const QString& path)
{
    const QString lines = reportText();
    m_rtfDuplicate->setPlainText(tr("Report is created at ") + shortStamp() + lineBreak + lines
                                 + tr("Report is ended at ") + shortStamp());
    try {
        toolkit::writeText(path, reportText());
        return true;
    } catch (const store::Error& error) {
        m_rtfDuplicate->setPlainText(lines);
        toolkit::showFailure(toolkit::formB(tr("Error while saving report."), error));
        return false;
    }
}

/// What the text box holds, blanks that do not break included, with the line breaks of a file.
QString frmDuplicate::reportText() const
{
    return m_rtfDuplicate->document()->toRawText().replace(QChar::ParagraphSeparator, lineBreak);
}

} // namespace ostrand::pid
