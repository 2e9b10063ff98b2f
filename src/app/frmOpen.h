// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QDialog>

class QListWidget;
class QPushButton;
class QRadioButton;

namespace ostrand::app {

/// The start window: a new project, one of the recent ones, or one picked in the file dialog.
class frmOpen final : public QDialog
{
    Q_OBJECT

public:
    explicit frmOpen(QWidget* parent = nullptr);

    /// Opens the entry selected in the list; none, or "More files...", brings the file dialog.
    void OpenIndex();

private:
    void build();
    void connectControls();
    void fillList();
    void accepted();
    void CreateIndex();

    QRadioButton* m_optNew;
    QRadioButton* m_optOpen;
    QListWidget* m_lstFiles;
    QPushButton* m_CmdOk;
    QPushButton* m_cmdCancel;
    QPushButton* m_cmdHelp;
};

} // namespace ostrand::app
