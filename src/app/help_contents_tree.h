// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#pragma once

#include "app/help_contents.h"

#include <QTreeWidget>

namespace ostrand::app {

/// The contents of a help file.
class HelpContentsTree final : public QTreeWidget
{
    Q_OBJECT

public:
    explicit HelpContentsTree(QWidget* parent = nullptr);

    void setTopics(const std::vector<HelpTopic>& topics);
    /// Makes the entry of a page the current one; none where no entry names the page.
    void showCurrent(const QString& page);

Q_SIGNALS:
    /// The user picked an entry.
    void picked(const QString& page);

private:
    void pick(const QTreeWidgetItem* item);
};

} // namespace ostrand::app
