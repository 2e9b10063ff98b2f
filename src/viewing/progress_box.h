// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QElapsedTimer>
#include <QProgressDialog>

namespace ostrand::viewing {

/// Tells how far a run is that keeps its caller waiting, and lets the user cancel it, by Esc too.
/// It shows once the run has lasted for a while.
class ProgressBox
{
public:
    /// The box comes up after `patience` milliseconds.
    ProgressBox(QWidget* owner, int patience);

    /// To be called often. False once the user has cancelled. No total stands for an unknown one.
    bool step(const QString& text, int done, int total);

private:
    QProgressDialog m_box;
    QElapsedTimer m_clock;
    qint64 m_listenedAt = 0;
    int m_patience;
};

} // namespace ostrand::viewing
