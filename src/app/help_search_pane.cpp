// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "app/help_search_pane.h"

#include "app/help_hit_delegate.h"
#include "toolkit/named.h"

#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;
using ostrand::toolkit::named;

namespace ostrand::app {
namespace {

constexpr int typingMs = 200;

} // namespace

HelpSearchPane::HelpSearchPane(std::function<HelpSearch()> collect, QWidget* parent)
    : QWidget(parent),
      m_collect(std::move(collect)),
      m_txtSearch(named(new QLineEdit(this), u"txtSearch"_s)),
      m_lblFound(named(new QLabel(this), u"lblFound"_s)),
      m_lstHits(named(new QListWidget(this), u"lstHits"_s))
{
    m_txtSearch->setPlaceholderText(tr("Words to look for"));
    m_txtSearch->setAccessibleName(tr("Words to look for"));
    m_txtSearch->setClearButtonEnabled(true);
    m_txtSearch->installEventFilter(this);
    m_lblFound->setTextFormat(Qt::PlainText);
    m_lblFound->setWordWrap(true);
    m_lblFound->hide();
    m_lstHits->setAccessibleName(tr("Pages found"));
    m_lstHits->setItemDelegate(new HelpHitDelegate(m_lstHits));
    m_lstHits->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    m_lstHits->setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
    m_lstHits->setResizeMode(QListView::Adjust);

    auto* layout = new QVBoxLayout(this);
    layout->addWidget(m_txtSearch);
    layout->addWidget(m_lblFound);
    layout->addWidget(m_lstHits, 1);

    m_typing.setSingleShot(true);
    m_typing.setInterval(typingMs);
    connect(&m_typing, &QTimer::timeout, this, &HelpSearchPane::search);
    connect(m_txtSearch, &QLineEdit::textChanged, &m_typing, qOverload<>(&QTimer::start));
    connect(m_lstHits, &QListWidget::currentRowChanged, this, &HelpSearchPane::pick);
    connect(m_lstHits, &QListWidget::itemClicked, this, [this](const QListWidgetItem* item) {
        pick(m_lstHits->row(item));
    });
}

void HelpSearchPane::start()
{
    m_txtSearch->setFocus(Qt::ShortcutFocusReason);
    m_txtSearch->selectAll();
}

void HelpSearchPane::forget()
{
    m_search.reset();
    search();
}

void HelpSearchPane::search()
{
    m_typing.stop();
    const QSignalBlocker quiet(m_lstHits);
    m_lstHits->clear();
    const QString query = m_txtSearch->text();
    m_lblFound->setVisible(!searchWords(query).isEmpty());
    if (m_lblFound->isHidden())
        return;
    if (!m_search)
        m_search = m_collect();
    const auto hits = m_search->find(query);
    for (const HelpHit& hit : hits) {
        auto* item = new QListWidgetItem(hit.title, m_lstHits);
        item->setData(helpHitRole::page, hit.page);
        item->setData(helpHitRole::excerpt, hit.excerpt);
    }
    m_lblFound->setText(hits.empty()       ? tr("No page holds all of these words.")
                        : hits.size() == 1 ? tr("1 page found")
                                           : tr("%1 pages found").arg(hits.size()));
}

void HelpSearchPane::pick(int row)
{
    if (const QListWidgetItem* item = m_lstHits->item(row))
        Q_EMIT picked(item->data(helpHitRole::page).toString(), searchWords(m_txtSearch->text()));
}

/// In the field, Enter shows the best page, and Down goes on to the list.
bool HelpSearchPane::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() != QEvent::KeyPress)
        return QWidget::eventFilter(watched, event);
    const int key = static_cast<QKeyEvent*>(event)->key();
    if (key != Qt::Key_Return && key != Qt::Key_Enter && key != Qt::Key_Down)
        return false;
    if (m_typing.isActive())
        search();
    if (m_lstHits->count() == 0)
        return true;
    m_lstHits->setFocus();
    if (m_lstHits->currentRow() == 0)
        pick(0);
    m_lstHits->setCurrentRow(0);
    return true;
}

} // namespace ostrand::app
