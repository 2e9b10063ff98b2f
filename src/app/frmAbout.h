// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QDialog>

class QGroupBox;
class QLabel;
class QPushButton;

namespace ostrand::app {

/// The about window; at start-up it serves as start-up screen, without its buttons.
class frmAbout final : public QDialog
{
    Q_OBJECT

public:
    explicit frmAbout(QWidget* parent = nullptr);

    /// Shows the window as start-up screen, painted at once.
    void showAsStartScreen();

private:
    QLabel* m_lblVersion;
    QLabel* m_lblInstallPath;
    QPushButton* m_CmdOk;
    QPushButton* m_cmdCheckForUpdate;
};

} // namespace ostrand::app
