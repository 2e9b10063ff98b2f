// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#pragma once

#include "app/help_search.h"

#include <QTimer>
#include <QWidget>

#include <functional>
#include <optional>

class QLabel;
class QLineEdit;
class QListWidget;

namespace ostrand::app {

/// Where the user looks for words in all pages, and picks one of the pages found.
class HelpSearchPane final : public QWidget
{
    Q_OBJECT

public:
    /// `collect` gives the text of all pages; it is called once, when the first search needs it.
    HelpSearchPane(std::function<HelpSearch()> collect, QWidget* parent);

    /// Puts the field in hand.
    void start();
    /// The pages are others.
    void forget();

Q_SIGNALS:
    /// The user picked a page; its hits are the words.
    void picked(const QString& page, const QStringList& words);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void search();
    void pick(int row);

    std::function<HelpSearch()> m_collect;
    std::optional<HelpSearch> m_search;
    QLineEdit* m_txtSearch;
    QLabel* m_lblFound;
    QListWidget* m_lstHits;
    QTimer m_typing;
};

} // namespace ostrand::app
