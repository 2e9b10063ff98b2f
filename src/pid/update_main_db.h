// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#pragma once

#include "pid/map_sheet.h"
#include "store/database.h"

#include <QSet>
#include <QString>

#include <memory>

namespace ostrand::pid {

/// Passes values that landed in datasheets on into the project: into the index, or into the
/// documents and their cross references. What was written is seen in the main window after
/// `refresh`.
class MainDbUpdate
{
public:
    MainDbUpdate() = default;
    ~MainDbUpdate();
    MainDbUpdate(const MainDbUpdate&) = delete;
    MainDbUpdate& operator=(const MainDbUpdate&) = delete;

    /// `value` is the text that was put into the cell of `entry`; `lookup` names the tag's record.
    /// Where the project's Map does not know the cell, nothing happens. Shows its own failures.
    void updateMainDB(const MapEntry& entry,
                      const QString& value,
                      const QString& lookup,
                      const QString& datasheetType);

    /// Values passed on from here to `endPiece` reach the file in one piece.
    void beginPiece();
    void endPiece();

    /// Reads anew what the main window shows of the values passed on. Shows its own failures.
    void refresh();

private:
    void pass(const MapEntry& entry,
              const QString& value,
              const QString& lookup,
              const QString& datasheetType);
    void intoIndex(const QString& table,
                   const QString& field,
                   const QString& value,
                   const QString& lookup);
    void intoDocuments(const QString& docType, const QString& value, const QString& lookup);
    void failed(const store::Error& error);

    std::unique_ptr<store::Database> m_database; ///< while a piece is under way
    std::unique_ptr<store::Database::WriteScope> m_piece;
    bool m_indexChanged = false;
    QSet<QString> m_changedKinds;
};

} // namespace ostrand::pid
