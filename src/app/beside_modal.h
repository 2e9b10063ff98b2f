// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>

class QWidget;

namespace ostrand::app {

/// Keeps a window usable while modal windows stand, whichever was opened first. A modal window
/// blocks all windows but those that belong to it, so the window belongs to the modal one on top,
/// and to none once that is gone. It neither closes nor goes away with it.
class BesideModal final : public QObject
{
    Q_OBJECT

public:
    /// The window is already created in the system, and lives longer.
    explicit BesideModal(QWidget& window);

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    bool isOwn(const QWidget* widget) const;
    void belongTo(const QWidget* modal);
    void belongToTopmost();

    QWidget& m_window;
    bool m_blocked = false;
};

} // namespace ostrand::app
