// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>

namespace ostrand::app {

/// While it lives, F1 opens the manual in every window that has no F1 of its own.
class HelpKey final : public QObject
{
    Q_OBJECT

public:
    explicit HelpKey(QObject* parent = nullptr);

    bool eventFilter(QObject* watched, QEvent* event) override;
};

} // namespace ostrand::app
