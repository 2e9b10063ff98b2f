// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QHeaderView>

#include <functional>
#include <utility>

namespace ostrand::toolkit {

enum class RecordMarker { None, Current, Edited, New };

/// The row header: marks the current record, the one under edit and the new-record row, and is
/// where rows are selected.
class RecordHeader final : public QHeaderView
{
    Q_OBJECT

public:
    RecordHeader(QWidget* parent, std::function<RecordMarker(int row)> marker);

    QSize sizeHint() const override;

Q_SIGNALS:
    void rowPressed(int row, Qt::KeyboardModifiers modifiers);
    void rowDraggedTo(int row);
    void released(Qt::MouseButton button, Qt::KeyboardModifiers modifiers, QPoint position);

protected:
    void paintSection(QPainter* painter, const QRect& rect, int row) const override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;

private:
    std::function<RecordMarker(int)> m_marker;
    bool m_dragging = false;
};

} // namespace ostrand::toolkit
