// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QProcess>
#include <QString>
#include <QStringList>
#include <QTemporaryDir>

namespace ostrand::tests {

/// An X display with a window manager of its own, on which the spreadsheet application shows its
/// windows, and the hands of a user at it. The program under test shows its own windows elsewhere.
class OfficeDisplay
{
public:
    OfficeDisplay();
    ~OfficeDisplay();
    OfficeDisplay(const OfficeDisplay&) = delete;
    OfficeDisplay& operator=(const OfficeDisplay&) = delete;

    /// Presses keys such as "ctrl+s", in the window that has the focus.
    static void press(const QStringList& keys);
    static void type(const QString& text);
    /// Clicks on a point of the screen.
    static void click(int x, int y);
    /// The titles of the windows that show.
    static QStringList windows();
    /// Brings a window whose title matches to the front; false when there is none.
    static bool activate(const QString& title);
    /// The same, and waits for a window that is about to show; false when none does.
    static bool bringUp(const QString& title);

private:
    static QString xdotool(const QStringList& words);

    QTemporaryDir m_folder;
    QProcess m_server;
    QProcess m_manager;
};

} // namespace ostrand::tests
