// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QTest>
#include <QTimer>
#include <QWidget>

#include <functional>

namespace ostrand::tests {

/// Opens a window that blocks its caller, runs the steps while it is open, and takes it away where
/// they left it open. A window that does not open fails the test.
inline void
inWindow(QWidget& window, const std::function<void()>& open, const std::function<void()>& steps)
{
    bool ran = false;
    QTimer start;
    start.setSingleShot(true);
    QObject::connect(&start, &QTimer::timeout, &window, [&] {
        QVERIFY(QTest::qWaitForWindowActive(&window));
        ran = true;
        steps();
        window.hide();
    });
    start.start(0);
    open();
    QVERIFY2(ran, "the window did not open");
}

} // namespace ostrand::tests
