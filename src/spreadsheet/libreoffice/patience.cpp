// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "spreadsheet/libreoffice/patience.h"

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QEvent>
#include <QEventLoop>
#include <QTimer>

namespace ostrand::spreadsheet::libreoffice {
namespace {

/// Drops what the user does to the program's own windows. Input that is held back instead would
/// come all at once when the wait is over, and press what he sees only then.
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

} // namespace

bool waitPatiently(const std::function<bool()>& condition, int timeout)
{
    constexpr int interval = 5;
    if (condition())
        return true;
    const QDeadlineTimer deadline(timeout);
    const InputBarrier barrier;
    QEventLoop loop;
    QTimer timer;
    QObject::connect(&timer, &QTimer::timeout, &loop, [&] {
        if (condition() || deadline.hasExpired())
            loop.quit();
    });
    timer.start(interval);
    loop.exec();
    return condition();
}

} // namespace ostrand::spreadsheet::libreoffice
