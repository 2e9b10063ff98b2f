// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QHeaderView>

namespace ostrand::toolkit {

/// The captions of a grid. The mark of the sorted column is set by the window alone, as not every
/// click on a caption sorts.
class ColumnHeader final : public QHeaderView
{
    Q_OBJECT

public:
    explicit ColumnHeader(QWidget* parent);

    /// Marks a column as sorted, ascending; -1 marks none.
    void setSortMark(int column);
    int sortMark() const { return m_sortMark; }

    QSize sizeHint() const override;

protected:
    void initStyleOptionForIndex(QStyleOptionHeader* option, int column) const override;

private:
    int m_sortMark = -1;
};

} // namespace ostrand::toolkit
