// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QTimer>
#include <QWidget>

#include <functional>

class QLabel;
class QLineEdit;

namespace ostrand::viewing {

class ReportSearch;

/// Where the user types the text that he looks for, and sees how often it is there.
class SearchBar final : public QWidget
{
    Q_OBJECT

public:
    /// The search may start at any page, which `currentPage` tells.
    SearchBar(ReportSearch& search, std::function<int()> currentPage, QWidget* parent);

    /// Puts the text field in hand.
    void start();
    void goNext();
    void goPrevious();
    /// Drops the text. False where there is none.
    bool clear();

Q_SIGNALS:
    /// The user is done with the text field.
    void left();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    bool lookForTyped();
    void showState();

    ReportSearch& m_search;
    std::function<int()> m_currentPage;
    QLineEdit* m_txtFind;
    QLabel* m_lblFound;
    QTimer m_typing;
};

} // namespace ostrand::viewing
