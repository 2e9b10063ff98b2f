// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "toolkit/grid_delegate.h"

#include "toolkit/data_grid.h"

#include <QApplication>
#include <QHelpEvent>
#include <QPainter>
#include <QToolTip>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace ostrand::toolkit {

namespace {

constexpr qsizetype longestToolTip = 2000;
constexpr float lineOpacity = 0.2F;

} // namespace

GridDelegate::GridDelegate(DataGrid* grid)
    : QStyledItemDelegate(grid),
      m_grid(grid)
{
}

QRect GridDelegate::buttonRect(const QRect& cell)
{
    const QRect inner = cell.adjusted(frameWidth, frameWidth, -frameWidth, -frameWidth);
    const int width = std::min(inner.height(), inner.width() / 2);
    return {inner.right() - width + 1, inner.top(), width, inner.height()};
}

void GridDelegate::paint(QPainter* painter,
                         const QStyleOptionViewItem& option,
                         const QModelIndex& index) const
{
    QStyleOptionViewItem cell = option;
    initStyleOption(&cell, index);
    const bool isCurrent = index == m_grid->currentIndex();
    const bool hasButton = isCurrent && m_grid->cellButton(index.column()) != CellButton::None;
    cell.state &= ~(QStyle::State_HasFocus | QStyle::State_MouseOver);
    cell.palette.setCurrentColorGroup(
        (cell.state & QStyle::State_Enabled) != 0 ? QPalette::Active : QPalette::Disabled);
    cell.state |= QStyle::State_Active;
    cell.textElideMode = Qt::ElideRight;
    const QString text = std::exchange(cell.text, QString());
    m_grid->style()->drawControl(QStyle::CE_ItemViewItem, &cell, painter, m_grid);

    const int margin = textMargin(*m_grid);
    QRect place = option.rect.adjusted(margin, 0, -margin, 0);
    if (hasButton)
        place.setRight(buttonRect(option.rect).left() - 2);
    const bool isSelected = (cell.state & QStyle::State_Selected) != 0;
    painter->setPen(cell.palette.color(isSelected ? QPalette::HighlightedText : QPalette::Text));
    painter->setFont(cell.font);
    painter->drawText(place,
                      Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine,
                      cell.fontMetrics.elidedText(text, Qt::ElideRight, place.width()));
    paintLines(painter, cell);
    if (hasButton)
        paintButton(painter, cell, index.column());
    if (isCurrent)
        paintFrame(painter, cell);
}

int GridDelegate::textMargin(const QWidget& grid)
{
    return grid.style()->pixelMetric(QStyle::PM_FocusFrameHMargin, nullptr, &grid) + frameWidth;
}

void GridDelegate::paintButton(QPainter* painter,
                               const QStyleOptionViewItem& option,
                               int column) const
{
    QStyleOptionButton button;
    button.rect = buttonRect(option.rect);
    button.palette = m_grid->palette();
    button.state = QStyle::State_Raised | (option.state & QStyle::State_Enabled);
    button.fontMetrics = option.fontMetrics;
    painter->fillRect(button.rect, button.palette.button());
    m_grid->style()->drawPrimitive(QStyle::PE_PanelButtonTool, &button, painter, m_grid);
    const QColor colour = button.palette.color(QPalette::ButtonText);
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    painter->translate(QRectF(button.rect).center());
    const double unit = button.rect.height() / 16.0;
    painter->scale(unit, unit);
    if (m_grid->cellButton(column) == CellButton::Arrow) {
        painter->setPen(QPen(colour, 1.7, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
        painter->drawPolyline(QPolygonF({{-3.5, -1.6}, {0.0, 1.9}, {3.5, -1.6}}));
    } else {
        painter->setPen(Qt::NoPen);
        painter->setBrush(colour);
        for (const double x : {-4.0, 0.0, 4.0})
            painter->drawEllipse(QPointF(x, 2.5), 1.15, 1.15);
    }
    painter->restore();
}

/// Styles take their grid lines from the window's colour, which leaves none in a dark palette. The
/// lines are filled as opaque rectangles: drawn as lines, or through a transparent colour, each of
/// them would go through the painter's threads, which costs more than all the texts together.
void GridDelegate::paintLines(QPainter* painter, const QStyleOptionViewItem& option)
{
    const QColor text = option.palette.color(QPalette::Text);
    const QColor base = option.palette.color(QPalette::Base);
    const auto mixed = [](float from, float to) { return from + (to - from) * lineOpacity; };
    const QColor colour = QColor::fromRgbF(mixed(base.redF(), text.redF()),
                                           mixed(base.greenF(), text.greenF()),
                                           mixed(base.blueF(), text.blueF()));
    const QRect& cell = option.rect;
    painter->fillRect(cell.right(), cell.top(), 1, cell.height(), colour);
    painter->fillRect(cell.left(), cell.bottom(), cell.width(), 1, colour);
}

void GridDelegate::paintFrame(QPainter* painter, const QStyleOptionViewItem& option) const
{
    const bool isSelected = (option.state & QStyle::State_Selected) != 0;
    QColor colour =
        option.palette.color(isSelected ? QPalette::HighlightedText : QPalette::Highlight);
    // Without the focus the current cell stays visible, only quieter.
    if (!m_grid->isEnabled())
        colour = option.palette.color(QPalette::Text);
    else if (!m_grid->isEditingHere() && !isSelected)
        colour = option.palette.color(QPalette::PlaceholderText);
    painter->save();
    painter->setPen(QPen(colour, frameWidth, Qt::SolidLine, Qt::SquareCap, Qt::MiterJoin));
    painter->setBrush(Qt::NoBrush);
    painter->drawRect(option.rect.adjusted(1, 1, -1, -1));
    painter->restore();
}

QSize GridDelegate::sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const
{
    QStyleOptionViewItem cell = option;
    initStyleOption(&cell, index);
    const int height = cell.fontMetrics.height() + 2 * frameWidth + 4;
    int width = cell.fontMetrics.horizontalAdvance(cell.text) + 2 * textMargin(*m_grid) + 2;
    if (m_grid->cellButton(index.column()) != CellButton::None)
        width += height;
    return {width, height};
}

bool GridDelegate::helpEvent(QHelpEvent* event,
                             QAbstractItemView* view,
                             const QStyleOptionViewItem& option,
                             const QModelIndex& index)
{
    if (event->type() != QEvent::ToolTip)
        return QStyledItemDelegate::helpEvent(event, view, option, index);
    const QString shown = index.data(Qt::DisplayRole).toString();
    QString text = index.data(Qt::EditRole).toString();
    const bool isCut = shown != text || sizeHint(option, index).width() > option.rect.width();
    if (!isCut || text.isEmpty()) {
        QToolTip::hideText();
        return true;
    }
    if (text.size() > longestToolTip)
        text = text.left(longestToolTip) + u"\u2026"_s;
    const QString markup =
        u"<p style='white-space: pre-wrap'>"_s + text.toHtmlEscaped() + u"</p>"_s;
    QToolTip::showText(event->globalPos(), markup, view, option.rect);
    return true;
}

} // namespace ostrand::toolkit
