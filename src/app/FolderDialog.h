// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

class QWidget;

namespace ostrand::app {

/// The folder that the user picks in the system's folder browser, over `owner`; "" on cancel.
QString BrowseForFolder(QWidget* owner, const QString& title);

} // namespace ostrand::app
