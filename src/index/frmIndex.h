// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#pragma once

#include "app/main_window.h"
#include "toolkit/data_control.h"

#include <QMainWindow>
#include <QPointer>

#include <functional>
#include <memory>
#include <optional>

class QLabel;
class QProgressBar;
class QResizeEvent;

namespace ostrand::app {
class frmAbout;
} // namespace ostrand::app

namespace ostrand::datasheets {
class DatasheetCommands;
} // namespace ostrand::datasheets

namespace ostrand::toolkit {
class DataGrid;
} // namespace ostrand::toolkit

namespace ostrand::index {

class DocumentColumns;
class IndexButtons;
class IndexMenus;
class RowClipboard;
class TagEditing;

/// The main window: the grid of all tags of the open project over the buttons and the status bar.
/// It holds the controls and their states, and hands each command to the unit that owns it.
class frmIndex final : public QMainWindow, public app::MainWindow
{
    Q_OBJECT

public:
    /// Commands of other windows that the main window opens. One that is empty has no effect.
    struct Commands
    {
        std::function<void()> ShowProjectInfo = {};
    };

    frmIndex();
    ~frmIndex() override;

    QString ActiveTag() const override;
    QString FolderDatasheets() const override;
    QString FolderTemplates() const override;
    QString DatasheetLogoFile() const override;
    toolkit::DataControl& dbIndex() override { return *m_dbIndex; }
    void AbleForm(bool blnEnable) override;
    void ableButton(bool blnEnable) override;
    void ableFileMenu(bool blnEnable) override;
    void OpenIndex(const QString& path) override;
    void CreateIndex() override;
    void FindDatasheet() override;
    void setDatasheetFolder(const QString& folder) override;
    void setDatasheetFileName(const QString& name) override;
    void setPanelText(int panel, const QString& text) override;
    void showRecordCounter() override;
    void setProgress(int done, int total) override;
    void refreshDocuments(const QString& docType) override;
    QWidget* window() override { return this; }

    /// Orders the grid by a column.
    void Sort(int intColumn);
    /// Has the user pick the file of the current tag's datasheet; true when it was stored.
    bool LocateDatasheetFile();
    void setCommands(Commands commands) { m_commands = std::move(commands); }

Q_SIGNALS:
    /// The window has closed; the program ends with it.
    void unloaded();

protected:
    void closeEvent(QCloseEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void buildControls();
    void connectGrid();
    void connectCommands();
    void load();

    // Opening and making projects
    QString pickProject();
    QString pickNewProject();
    bool isReservedName(const QString& path) const;
    void showProjectFile();
    void LoadIndex();
    void bindProject();
    void loadFailed(const store::Error& error);
    bool copyTemplate();
    void storeNewProjectFolders();
    void ShowProjectInfo() const;

    // Windows of the documents, the revisions and the reports
    void mnuEditIndexRev();
    void mnuDocAll();
    void mnuDocRef();
    void mnuReportIndex();
    void mnuReportAlarmSum();
    void mnuReportInstallationDetails();
    void mnuReportMaintenance();
    void showReport(int number, const QString& failure);
    void showChangedDocuments();

    // Events
    void cellButtonClicked(int columnNumber);
    void validateRecord(toolkit::DataControl::Action action,
                        bool& save,
                        const std::optional<store::Error>& pending);
    void ShowNotes();
    void copyRows();
    void showPopup(QPoint position);
    void showAbout();
    QString projectAttribute(const QString& name, const QString& failure) const;
    void layoutControls();
    void keepGeometry() const;
    void restoreKeptGeometry();

    toolkit::DataControl* m_dbIndex;
    toolkit::DataGrid* m_GridIndex = nullptr;
    DocumentColumns* m_documents = nullptr;
    TagEditing* m_tags = nullptr;
    RowClipboard* m_rows = nullptr;
    std::unique_ptr<datasheets::DatasheetCommands> m_datasheets;
    IndexMenus* m_menus = nullptr;
    IndexButtons* m_buttons = nullptr;
    QLabel* m_panels[2]{};
    QProgressBar* m_progress = nullptr;
    QPointer<app::frmAbout> m_about;
    QPointer<QWidget> m_focusBefore; ///< before the controls were disabled
    Commands m_commands;

    QString m_projectFolder; ///< of the project file as last split, for a new project
    bool m_blnReadOnly = false;
};

} // namespace ostrand::index
