// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#pragma once

#include "toolkit/grid_window.h"

namespace ostrand::toolkit {
class DataDropDown;
} // namespace ostrand::toolkit

namespace ostrand::documents {

/// The register of all documents of the project.
class frmDoc final : public toolkit::GridWindow
{
    Q_OBJECT

public:
    explicit frmDoc(QWidget* parent = nullptr);

    /// Fills the window and shows it until it is closed.
    void ShowInfo() { showWindow(); }

protected:
    void resizeEvent(QResizeEvent* event) override;
    void load() override;
    QString deleteQuestion() const override;
    void aboutToDelete() override;

private:
    void cmdMap();
    void cmdView();
    void viewDatasheets();
    void DeleteDocumentFile();
    void placeControls();

    toolkit::DataControl* m_dbDocType;
    toolkit::DataDropDown* m_cmbDocType;
};

} // namespace ostrand::documents
