// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QStyledItemDelegate>

namespace ostrand::app {

namespace helpHitRole {
inline constexpr int page = Qt::UserRole;
inline constexpr int excerpt = Qt::UserRole + 1;
} // namespace helpHitRole

/// Draws a page that a search found: its title, and under it the text around the first hit.
class HelpHitDelegate final : public QStyledItemDelegate
{
    Q_OBJECT

public:
    using QStyledItemDelegate::QStyledItemDelegate;

    void paint(QPainter* painter,
               const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;
    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;
};

} // namespace ostrand::app
