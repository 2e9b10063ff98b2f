// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QAbstractListModel>
#include <QStringList>

namespace ostrand::pid {

/// Lines of text for a list view, however many.
class PopulateModel final : public QAbstractListModel
{
    Q_OBJECT

public:
    using QAbstractListModel::QAbstractListModel;

    void setLines(const QStringList& lines);
    const QStringList& lines() const { return m_lines; }

    int rowCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;

private:
    QStringList m_lines;
};

} // namespace ostrand::pid
