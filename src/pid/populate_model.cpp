// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "pid/populate_model.h"

namespace ostrand::pid {

void PopulateModel::setLines(const QStringList& lines)
{
    beginResetModel();
    m_lines = lines;
    endResetModel();
}

int PopulateModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_lines.size());
}

QVariant PopulateModel::data(const QModelIndex& index, int role) const
{
    if (!index.isValid() || role != Qt::DisplayRole)
        return {};
    return m_lines.at(index.row());
}

} // namespace ostrand::pid
