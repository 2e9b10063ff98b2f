// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#pragma once

#include "toolkit/grid_window.h"

namespace ostrand::index {

/// The revisions of the instrument index: who created, checked and approved which one, and when.
class frmIndexRev final : public toolkit::GridWindow
{
    Q_OBJECT

public:
    explicit frmIndexRev(QWidget* parent = nullptr);

    /// Fills the window and shows it until it is closed.
    void ShowInfo() { showWindow(); }

protected:
    void load() override;
    void loadFailed(const store::Error& error) override;
    QString deleteQuestion() const override;
    void beforeUpdate(bool& cancel) override;

private:
    void cmdRefresh();
    void cmdSave();
    void cmdDelete();
    void acceptColumn(int column);
};

} // namespace ostrand::index
