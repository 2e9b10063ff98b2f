// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <vector>

namespace ostrand::app {

/// A point from which the user looks for folders.
struct Place
{
    QString name; ///< for the user
    QString path;
};

/// The system's drives, the user's home and the volumes that are mounted now.
std::vector<Place> mountedPlaces();

} // namespace ostrand::app
