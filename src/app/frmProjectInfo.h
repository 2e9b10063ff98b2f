// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#pragma once

#include "store/error.h"

#include <QDialog>

#include <optional>

class QPushButton;

namespace ostrand::toolkit {
class DataControl;
class DataGrid;
} // namespace ostrand::toolkit

namespace ostrand::app {

/// The project's attributes, pairs of a name and a value. Attributes that the program itself uses
/// keep their names; those that hold paths get their values by the browse command alone.
class frmProjectInfo final : public QDialog
{
    Q_OBJECT

public:
    explicit frmProjectInfo(QWidget* parent = nullptr);

    /// Fills the window and shows it until it is closed.
    void ShowInfo();
    /// True when the program uses the current attribute, and where there is none. A row that is
    /// being added is not used yet.
    bool IsAttributeStatic();
    /// False, with a notice, when the name of an attribute that the program uses was changed.
    bool ValidateAttribute();

public Q_SLOTS:
    /// Escape drops the row under edit first, and then closes as the frame does.
    void reject() override;

protected:
    void closeEvent(QCloseEvent* event) override;

private:
    void build();
    void layOut();
    void connectControls();

    void cmdLocateDir();
    void locate(const QString& attribute);
    void locateFolder(const QString& title);
    void locatePidDatabase();
    void locateLogo();

    void cmdSave();
    void cmdDelete();
    void deleteAttribute();
    void cmdRefresh();
    void cmdExit();

    void afterUpdate(bool& failed);
    void refuseKey(int& code);
    void refuseDelete(bool& handled);
    bool mayClose();
    bool writeRow();
    void writePendingRow();

    QString cell(int column);
    bool isAdding() const;

    toolkit::DataGrid* m_GridInfo;
    toolkit::DataControl* m_dbProjInfo;
    QPushButton* m_cmdLocateDir;
    QPushButton* m_cmdSave;
    QPushButton* m_cmdDelete;
    QPushButton* m_cmdRefresh;
    QPushButton* m_cmdExit;
    std::optional<store::Error> m_untold; ///< why the row was not written, where nothing told it
};

} // namespace ostrand::app
