// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QDialog>

class QLabel;
class QPushButton;

namespace ostrand::toolkit {
class DataControl;
class DataGrid;
} // namespace ostrand::toolkit

namespace ostrand::datasheets {

/// The choice of a datasheet type for the current tag. Its result, the folder and the name of the
/// datasheet that was made, goes to the main window; cancelled, it makes nothing.
class frmDSType final : public QDialog
{
    Q_OBJECT

public:
    explicit frmDSType(QWidget* parent = nullptr);

    /// Copies the template of the chosen type to the tag's file, and closes.
    void CreateDatasheet();
    /// Orders the types by a column.
    void Sort(int intColumn);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void build();
    void connectControls();
    void load();
    void copyTemplate();
    bool gridEvent(QEvent* event);
    bool gridKey(int key, const QString& text);

    QLabel* m_lblInstructions;
    toolkit::DataGrid* m_gridDsType;
    toolkit::DataControl* m_dbDsType;
    QPushButton* m_cmdSelect;
    QPushButton* m_cmdCancel;
    QPushButton* m_cmdHelp;
};

} // namespace ostrand::datasheets
