// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "toolkit/grid_selection.h"

#include <QPersistentModelIndex>
#include <QScopedValueRollback>

namespace ostrand::toolkit {

void GridSelection::setCurrentIndex(const QModelIndex& index, SelectionFlags command)
{
    if (m_placing || index == currentIndex()) {
        QItemSelectionModel::setCurrentIndex(index, command);
        return;
    }
    // Writing the row may insert or remove rows.
    const QPersistentModelIndex target(index);
    if (m_mayLeave(index) && target.isValid())
        QItemSelectionModel::setCurrentIndex(target, command);
}

void GridSelection::place(const QModelIndex& index)
{
    const QScopedValueRollback guard(m_placing, true);
    QItemSelectionModel::setCurrentIndex(index, NoUpdate);
}

} // namespace ostrand::toolkit
