// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QDialog>
#include <QPointer>

class QComboBox;
class QLabel;
class QPushButton;

namespace ostrand::toolkit {
class DataGrid;
} // namespace ostrand::toolkit

namespace ostrand::app {

class FolderList;

/// The program's own folder picker for the default folders of a project. What is picked goes to
/// the current row of the grid of attributes.
class frmLocateFolder final : public QDialog
{
    Q_OBJECT

public:
    enum class Mode { DatasheetFolder = 1, TemplateFolder = 2 };

    explicit frmLocateFolder(QWidget* parent = nullptr);

    /// Shows the window until it is closed.
    void ShowInfo(toolkit::DataGrid& grid, Mode mode);

    void done(int result) override;

private:
    void layOut();
    void connectControls();
    void load();

    void changeDrive(int index);
    void showFolder(const QString& path);
    void openPlace(const QString& path);
    void showPath();
    void cmdNetwork();
    void cmdNewFld();
    void makeFolder(const QString& name);
    void OKButton();
    void storeFolder();

    QComboBox* m_Drive1;
    QLabel* m_lblPath;
    FolderList* m_Dir1;
    QPushButton* m_OKButton;
    QPushButton* m_cmdCancel;
    QPushButton* m_cmdNetwork;
    QPushButton* m_cmdNewFld;
    QPointer<toolkit::DataGrid> m_grid;
    Mode m_mode = Mode::DatasheetFolder;
};

} // namespace ostrand::app
