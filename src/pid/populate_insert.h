// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <functional>
#include <vector>

namespace ostrand::pid {

/// A new tag and its service text, which is not stored where it is "".
struct NewTag
{
    QString plantItemNo;
    QString service;
};

/// Told of each tag ahead of its turn, and of "" when all had theirs.
using PopulateProgress = std::function<void(const QString& plantItemNo)>;

/// Adds the tags that the open project does not know by exactly their text to its index, and makes
/// the report of those that were renamed. Raises `store::Error` at the first tag that is refused:
/// those before it stay, and the report tells of them alone.
void insertTags(const std::vector<NewTag>& tags, const PopulateProgress& progress);

} // namespace ostrand::pid
