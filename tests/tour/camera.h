// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QDialog>
#include <QString>

#include <functional>

class QPixmap;
class QWidget;

namespace ostrand::tour {

/// Takes the pictures of one walk through the program.
class Camera
{
public:
    /// Pictures go to `folder`; their names begin with `mark`.
    Camera(QString folder, QString mark);

    const QString& folder() const { return m_folder; }
    /// The walk at the usual scale and colours, which goes into everything.
    bool isFirst() const { return m_mark.isEmpty(); }

    /// The screen where the window stands, with all popups and boxes over it.
    void take(const QString& name, const QWidget* window) const;
    /// The whole screen, with the windows of other programs.
    void takeScreen(const QString& name) const;
    /// Lets the program come to rest, and its windows be painted.
    static void settle();
    /// Runs an action that opens a modal box or window, takes its picture and closes it.
    template <typename Action>
    void takeModal(const QString& name, Action action) const
    {
        pictureOfNextModal(name, [](QDialog& modal) { modal.reject(); });
        action();
    }
    /// Takes a picture of the modal box or window that opens next, now or later, and ends it by an
    /// answer.
    void pictureOfNextModal(const QString& name, std::function<void(QDialog&)> answer) const;

private:
    void save(const QPixmap& picture, const QString& name) const;

    QString m_folder;
    QString m_mark;
};

} // namespace ostrand::tour
