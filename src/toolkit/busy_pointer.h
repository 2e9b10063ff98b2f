// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QCursor>
#include <QGuiApplication>

namespace ostrand::toolkit {

/// The pointer has a shape everywhere, as long as one stands.
class PointerShape
{
public:
    explicit PointerShape(Qt::CursorShape shape) { QGuiApplication::setOverrideCursor(shape); }
    ~PointerShape() { QGuiApplication::restoreOverrideCursor(); }
    PointerShape(const PointerShape&) = delete;
    PointerShape& operator=(const PointerShape&) = delete;
};

/// The hourglass, as long as one stands.
class BusyPointer : public PointerShape
{
public:
    BusyPointer()
        : PointerShape(Qt::WaitCursor)
    {
    }
};

} // namespace ostrand::toolkit
