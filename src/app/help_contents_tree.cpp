// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "app/help_contents_tree.h"

#include <QTreeWidgetItemIterator>

namespace ostrand::app {
namespace {

constexpr int pageRole = Qt::UserRole;
constexpr std::size_t mostOpenTopics = 100;

bool isOf(const QTreeWidgetItem& item, const QString& page)
{
    const QString own = item.data(0, pageRole).toString();
    return own.section(u'#', 0, 0).compare(page, Qt::CaseInsensitive) == 0;
}

} // namespace

HelpContentsTree::HelpContentsTree(QWidget* parent)
    : QTreeWidget(parent)
{
    setHeaderHidden(true);
    setAccessibleName(tr("Contents"));
    connect(this, &QTreeWidget::currentItemChanged, this, &HelpContentsTree::pick);
    connect(this, &QTreeWidget::itemClicked, this, &HelpContentsTree::pick);
}

void HelpContentsTree::setTopics(const std::vector<HelpTopic>& topics)
{
    const QSignalBlocker quiet(this);
    clear();
    std::vector<QTreeWidgetItem*> path{invisibleRootItem()};
    for (const HelpTopic& topic : topics) {
        path.resize(std::min(path.size(), static_cast<std::size_t>(topic.level) + 1));
        auto* item = new QTreeWidgetItem(path.back(), {topic.title});
        item->setData(0, pageRole, topic.page);
        path.push_back(item);
    }
    if (topics.size() <= mostOpenTopics)
        expandAll();
}

void HelpContentsTree::showCurrent(const QString& page)
{
    // Several entries may stand for places on one page.
    if (currentItem() && isOf(*currentItem(), page))
        return;
    const QSignalBlocker quiet(this);
    for (QTreeWidgetItemIterator it(this); *it; ++it) {
        if (isOf(**it, page)) {
            setCurrentItem(*it);
            scrollToItem(*it);
            return;
        }
    }
    setCurrentItem(nullptr);
}

void HelpContentsTree::pick(const QTreeWidgetItem* item)
{
    const QString page = item ? item->data(0, pageRole).toString() : QString();
    if (!page.isEmpty())
        Q_EMIT picked(page);
}

} // namespace ostrand::app
