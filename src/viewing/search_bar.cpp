// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "viewing/search_bar.h"

#include "toolkit/named.h"
#include "viewing/report_search.h"
#include "viewing/spoken_label.h"
#include "viewing/viewer_actions.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QToolButton>

using namespace Qt::StringLiterals;
using ostrand::toolkit::named;

namespace ostrand::viewing {
namespace {

constexpr int typingMs = 200;
constexpr int fieldCharacters = 26;

} // namespace

SearchBar::SearchBar(ReportSearch& search, std::function<int()> currentPage, QWidget* parent)
    : QWidget(parent),
      m_search(search),
      m_currentPage(std::move(currentPage)),
      m_txtFind(named(new QLineEdit(this), u"txtFind"_s)),
      m_lblFound(named(new QLabel(this), u"lblFound"_s))
{
    m_txtFind->setPlaceholderText(tr("Find in the report"));
    m_txtFind->setAccessibleName(tr("Find in the report"));
    m_txtFind->setToolTip(tr("Find in the report (Ctrl+F)"));
    m_txtFind->setClearButtonEnabled(true);
    m_txtFind->setFixedWidth(fontMetrics().averageCharWidth() * fieldCharacters);
    m_txtFind->installEventFilter(this);
    m_lblFound->setTextFormat(Qt::PlainText);

    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(2);
    layout->addWidget(m_txtFind);
    layout->addWidget(makeButton(this,
                                 {.name = u"cmdFindPrevious"_s,
                                  .text = tr("Find previous"),
                                  .glyph = Glyph::Up,
                                  .keys = {QKeySequence(u"Shift+F3"_s)}},
                                 [this] { goPrevious(); }));
    layout->addWidget(makeButton(this,
                                 {.name = u"cmdFindNext"_s,
                                  .text = tr("Find next"),
                                  .glyph = Glyph::Down,
                                  .keys = {QKeySequence(u"F3"_s)}},
                                 [this] { goNext(); }));
    layout->addSpacing(6);
    layout->addWidget(m_lblFound);

    m_typing.setSingleShot(true);
    m_typing.setInterval(typingMs);
    connect(&m_typing, &QTimer::timeout, this, &SearchBar::lookForTyped);
    connect(m_txtFind, &QLineEdit::textChanged, &m_typing, qOverload<>(&QTimer::start));
    connect(&m_search, &ReportSearch::changed, this, &SearchBar::showState);
    showState();
}

void SearchBar::start()
{
    m_txtFind->setFocus(Qt::ShortcutFocusReason);
    m_txtFind->selectAll();
}

/// False where the typed text is the one that is looked for already.
bool SearchBar::lookForTyped()
{
    m_typing.stop();
    if (m_txtFind->text() == m_search.text())
        return false;
    m_search.setText(m_txtFind->text(), m_currentPage());
    return true;
}

void SearchBar::goNext()
{
    if (m_txtFind->text().isEmpty())
        start();
    else if (!lookForTyped())
        m_search.goNext();
}

void SearchBar::goPrevious()
{
    if (m_txtFind->text().isEmpty())
        start();
    else if (!lookForTyped())
        m_search.goPrevious();
}

bool SearchBar::clear()
{
    if (m_txtFind->text().isEmpty())
        return false;
    m_txtFind->clear();
    lookForTyped();
    return true;
}

void SearchBar::showState()
{
    QString state;
    if (m_search.current() && m_search.complete())
        state = tr("%1 of %2 hits").arg(m_search.number()).arg(m_search.count());
    else if (m_search.current())
        state = tr("%1 of %2 hits so far").arg(m_search.number()).arg(m_search.count());
    else if (m_search.complete() && !m_search.text().isEmpty())
        state = tr("Not found");
    else if (m_search.hasPages() && !m_search.text().isEmpty())
        state = tr("Searching...");
    showLabel(*m_lblFound, tr("Result of the search"), state);
}

/// In the field, Enter goes to the next place, and Esc ends the search before it closes anything.
bool SearchBar::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() != QEvent::KeyPress)
        return QWidget::eventFilter(watched, event);
    const auto* key = static_cast<QKeyEvent*>(event);
    switch (key->key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
        if (key->modifiers().testFlag(Qt::ShiftModifier))
            goPrevious();
        else
            goNext();
        return true;
    case Qt::Key_Escape:
        if (!clear())
            return false;
        Q_EMIT left();
        return true;
    default:
        return false;
    }
}

} // namespace ostrand::viewing
