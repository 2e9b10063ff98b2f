// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QDialog>

class QPlainTextEdit;
class QPushButton;

namespace ostrand::toolkit {
class DataGrid;
} // namespace ostrand::toolkit

namespace ostrand::index {

/// The long text of a tag, which a cell of the grid is too narrow for. It goes to the cell, and is
/// written with the cell's row.
class frmNotes final : public QDialog
{
    Q_OBJECT

public:
    explicit frmNotes(toolkit::DataGrid& grid, QWidget* parent = nullptr);

    /// Shows the text of the grid's current cell for a tag, modally.
    void ShowInfo(const QString& tag);

private:
    void build();
    void connectControls();
    void accept() override;
    QString typedText() const;

    toolkit::DataGrid& m_grid;
    QPlainTextEdit* m_txtNotes;
    QPushButton* m_CmdOk;
    QPushButton* m_cmdCancel;
    QPushButton* m_cmdHelp;
};

} // namespace ostrand::index
