// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <vector>

namespace ostrand::app {

/// An entry of the contents of a help file.
struct HelpTopic
{
    QString title;
    QString page;  ///< as links name it, perhaps with "#place"; "" for an entry that only groups
    int level = 0; ///< 0 at the top; at most one more than the entry before
};

/// The entries of a contents file in order. Whatever is no contents file has none; of one without
/// end the first thousands are read.
std::vector<HelpTopic> readHelpContents(const QString& text);

} // namespace ostrand::app
