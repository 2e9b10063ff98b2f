// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QCoreApplication>
#include <QEvent>
#include <QObject>

namespace ostrand::spreadsheet {

/// While one stands, what the user does to the program's own windows is dropped. Input that is held
/// back instead would come all at once when a wait is over, and press what he sees only then.
class InputBarrier final : public QObject
{
public:
    InputBarrier() { QCoreApplication::instance()->installEventFilter(this); }

    bool eventFilter(QObject* /*watched*/, QEvent* event) override
    {
        switch (event->type()) {
        case QEvent::Close:
            event->ignore();
            return true;
        case QEvent::MouseButtonPress:
        case QEvent::MouseButtonRelease:
        case QEvent::MouseButtonDblClick:
        case QEvent::Wheel:
        case QEvent::ContextMenu:
        case QEvent::KeyPress:
        case QEvent::KeyRelease:
        case QEvent::Shortcut:
        case QEvent::ShortcutOverride:
        case QEvent::InputMethod:
        case QEvent::TouchBegin:
        case QEvent::TouchUpdate:
        case QEvent::TouchEnd:
        case QEvent::Drop:
            return true;
        default:
            return false;
        }
    }
};

} // namespace ostrand::spreadsheet
