// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "viewing/choice_box.h"

#include <QKeyEvent>
#include <QScopedValueRollback>
#include <QWheelEvent>

namespace ostrand::viewing {

ChoiceBox::ChoiceBox(QWidget* parent)
    : QComboBox(parent)
{
    setFocusPolicy(Qt::StrongFocus);
    connect(this, &QComboBox::activated, this, [this] {
        if (!m_isWalking)
            Q_EMIT left();
    });
}

void ChoiceBox::wheelEvent(QWheelEvent* event)
{
    if (hasFocus())
        QComboBox::wheelEvent(event);
    else
        event->ignore();
}

void ChoiceBox::keyPressEvent(QKeyEvent* event)
{
    switch (event->key()) {
    case Qt::Key_PageUp:
    case Qt::Key_PageDown:
        event->ignore();
        return;
    case Qt::Key_Escape:
        if (revert())
            Q_EMIT left();
        else
            event->ignore();
        return;
    default: {
        const QScopedValueRollback walking(m_isWalking, true);
        QComboBox::keyPressEvent(event);
    }
    }
}

} // namespace ostrand::viewing
