// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "app/help_find_bar.h"

#include "app/help_browser.h"
#include "toolkit/named.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

using namespace Qt::StringLiterals;
using ostrand::toolkit::named;

namespace ostrand::app {

HelpFindBar::HelpFindBar(HelpBrowser& browser, QWidget* parent)
    : QWidget(parent),
      m_browser(browser),
      m_txtFind(named(new QLineEdit(this), u"txtFind"_s)),
      m_lblFind(named(new QLabel(this), u"lblFind"_s))
{
    setObjectName(u"findBar"_s);
    m_txtFind->setPlaceholderText(tr("Find on this page"));
    m_txtFind->setAccessibleName(tr("Find on this page"));
    m_txtFind->setClearButtonEnabled(true);
    auto* next = named(new QPushButton(tr("&Next"), this), u"cmdFindNext"_s);
    auto* previous = named(new QPushButton(tr("&Previous"), this), u"cmdFindPrevious"_s);

    auto* layout = new QHBoxLayout(this);
    layout->addWidget(m_txtFind, 1);
    layout->addWidget(next);
    layout->addWidget(previous);
    layout->addWidget(m_lblFind, 1);
    connect(next, &QPushButton::clicked, this, [this] { find(false); });
    connect(previous, &QPushButton::clicked, this, [this] { find(true); });
    connect(m_txtFind, &QLineEdit::textChanged, m_lblFind, &QLabel::clear);
    hide();
}

void HelpFindBar::start()
{
    show();
    m_txtFind->setFocus(Qt::ShortcutFocusReason);
    m_txtFind->selectAll();
}

void HelpFindBar::find(bool backwards)
{
    if (isHidden() || m_txtFind->text().isEmpty()) {
        start();
        return;
    }
    const bool found = m_browser.goToText(m_txtFind->text(), backwards);
    m_lblFind->setText(found ? QString() : tr("Not found on this page"));
}

/// Esc closes the bar and leaves the window.
void HelpFindBar::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)
        find(event->modifiers().testFlag(Qt::ShiftModifier));
    else
        QWidget::keyPressEvent(event);
}

} // namespace ostrand::app
