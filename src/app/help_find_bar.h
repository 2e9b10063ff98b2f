// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QWidget>

class QLabel;
class QLineEdit;

namespace ostrand::app {

class HelpBrowser;

/// The bar under a page in which the user looks for a text on that page.
class HelpFindBar final : public QWidget
{
    Q_OBJECT

public:
    HelpFindBar(HelpBrowser& browser, QWidget* parent);

    /// Shows the bar, and puts the field in hand.
    void start();
    void find(bool backwards);

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    HelpBrowser& m_browser;
    QLineEdit* m_txtFind;
    QLabel* m_lblFind;
};

} // namespace ostrand::app
