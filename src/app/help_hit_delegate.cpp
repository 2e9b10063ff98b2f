// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "app/help_hit_delegate.h"

#include <QApplication>
#include <QPainter>

namespace ostrand::app {
namespace {

constexpr int margin = 5;
constexpr int excerptLines = 3;

QFont titleFont(const QStyleOptionViewItem& option)
{
    QFont font = option.font;
    font.setBold(true);
    return font;
}

} // namespace

void HelpHitDelegate::paint(QPainter* painter,
                            const QStyleOptionViewItem& option,
                            const QModelIndex& index) const
{
    QStyleOptionViewItem row = option;
    initStyleOption(&row, index);
    const QString title = row.text;
    row.text.clear();
    const QStyle* style = row.widget ? row.widget->style() : QApplication::style();
    style->drawControl(QStyle::CE_ItemViewItem, &row, painter, row.widget);

    painter->save();
    const bool isSelected = row.state.testFlag(QStyle::State_Selected);
    painter->setPen(row.palette.color(isSelected ? QPalette::HighlightedText : QPalette::Text));
    QRect place = row.rect.adjusted(margin, margin, -margin, -margin);
    painter->setFont(titleFont(row));
    const QFontMetrics metrics(titleFont(row));
    painter->drawText(place,
                      Qt::AlignTop | Qt::TextSingleLine,
                      metrics.elidedText(title, Qt::ElideRight, place.width()));
    place.setTop(place.top() + metrics.height() + 2);
    place.setHeight(row.fontMetrics.lineSpacing() * excerptLines);
    painter->setFont(row.font);
    painter->setClipRect(place);
    painter->drawText(
        place, Qt::AlignTop | Qt::TextWordWrap, index.data(helpHitRole::excerpt).toString());
    painter->restore();
}

QSize HelpHitDelegate::sizeHint(const QStyleOptionViewItem& option,
                                const QModelIndex& /*index*/) const
{
    const int title = QFontMetrics(titleFont(option)).height() + 2;
    return {0, title + option.fontMetrics.lineSpacing() * excerptLines + 2 * margin};
}

} // namespace ostrand::app
