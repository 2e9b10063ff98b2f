// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#pragma once

#include "spreadsheet/application.h"
#include "store/recordset.h"

#include <QHash>
#include <QString>

#include <optional>

namespace ostrand::pid {

/// Brings datasheets up to date from the project, one after another, with no session and no window.
class DatasheetRefresh
{
public:
    /// Opens the tag's datasheet, fills it, saves and closes it. Shows its own failures. The main
    /// window's index stands on the tag afterwards.
    void ProcessDatasheetProc(spreadsheet::Application& application,
                              const QString& DatasheetToProcess,
                              const QString& tag);

    /// Makes the tag's record the current one of the main window's index: the first whose first
    /// field is the same in every letter. Without one the index stands at its end.
    void moveToTag(const QString& tag);

private:
    bool standsOn(const QString& tag) const;
    void readPlaces();

    /// Where the tags stood when the index was read last; it may have changed since.
    QHash<QString, int> m_places;
};

} // namespace ostrand::pid
