// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QItemSelectionModel>

#include <functional>
#include <utility>

namespace ostrand::toolkit {

/// Current cell and selected rows of a grid. Every way by which the current cell can change leads
/// through here, so that a row is written before it is left, and not left when that fails.
class GridSelection final : public QItemSelectionModel
{
    Q_OBJECT

public:
    using MayLeave = std::function<bool(const QModelIndex& target)>;

    GridSelection(QAbstractItemModel* model, QObject* parent, MayLeave mayLeave)
        : QItemSelectionModel(model, parent),
          m_mayLeave(std::move(mayLeave))
    {
    }

    void setCurrentIndex(const QModelIndex& index, SelectionFlags command) override;
    /// Follows the recordset: nothing is written.
    void place(const QModelIndex& index);

private:
    MayLeave m_mayLeave;
    bool m_placing = false;
};

} // namespace ostrand::toolkit
