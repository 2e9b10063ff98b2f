// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

class QWidget;

namespace ostrand::tour {

/// Takes the pictures of one walk through the program.
class Camera
{
public:
    /// Pictures go to `folder`; their names begin with `mark`.
    Camera(QString folder, QString mark);

    const QString& folder() const { return m_folder; }

    /// The screen where the window stands, with all popups and boxes over it.
    void take(const QString& name, const QWidget* window) const;
    /// Lets the program come to rest, and its windows be painted.
    static void settle();
    /// Runs an action that opens a modal box or window, takes its picture and closes it.
    template <typename Action>
    void takeModal(const QString& name, Action action) const
    {
        pictureOfNextModal(name);
        action();
    }

private:
    void pictureOfNextModal(const QString& name) const;

    QString m_folder;
    QString m_mark;
};

} // namespace ostrand::tour
