// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QStyledItemDelegate>

namespace ostrand::toolkit {

class DataGrid;

/// Draws the cells of a grid: one line each, the current one framed, with its button if it has one.
class GridDelegate final : public QStyledItemDelegate
{
    Q_OBJECT

public:
    explicit GridDelegate(DataGrid* grid);

    void paint(QPainter* painter,
               const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;
    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;
    bool helpEvent(QHelpEvent* event,
                   QAbstractItemView* view,
                   const QStyleOptionViewItem& option,
                   const QModelIndex& index) override;

    /// Where a cell's button is.
    static QRect buttonRect(const QRect& cell);
    /// Between the edge of a cell and its text.
    static int textMargin(const QWidget& grid);
    static constexpr int frameWidth = 2;

private:
    void paintButton(QPainter* painter, const QStyleOptionViewItem& option, int column) const;
    static void paintLines(QPainter* painter, const QStyleOptionViewItem& option);
    void paintFrame(QPainter* painter, const QStyleOptionViewItem& option) const;

    DataGrid* m_grid;
};

} // namespace ostrand::toolkit
