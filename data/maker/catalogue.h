// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#pragma once

#include "maker/csv.h"

#include <string>
#include <string_view>
#include <vector>

namespace ostrand::maker {

class SqliteFile;

/// The tables of a project and the declared types of their columns, as columns.csv tells them.
/// The tables of the file and its own catalogue "~columns" are both made from it, so that the
/// program can read what a text column holds at most.
class Catalogue
{
public:
    enum class Type { Text, Memo, Boolean, Date, Long, Double };

    struct Column
    {
        std::string name;
        Type type;
        int length;        ///< characters that a Text holds; 0 for all other types
        std::string rules; ///< what the column's SQL definition says beyond its type
    };

    struct Table
    {
        std::string name;
        std::vector<Column> columns;

        const Column* find(std::string_view columnName) const;
    };

    /// Raises `InputError` for an unknown type, a Text without a length, and a length elsewhere.
    explicit Catalogue(const CsvTable& source);

    const std::vector<Table>& tables() const { return m_tables; }
    /// Raises `std::invalid_argument` when there is no such table.
    const Table& table(std::string_view name) const;

    /// Makes the empty tables and the catalogue table.
    void createIn(SqliteFile& file) const;

private:
    std::vector<Table> m_tables;
};

/// Adds all rows to the table whose columns their heading names. An empty cell becomes Null,
/// in quotes an empty text; True and False become -1 and 0. Raises `InputError` for an unknown
/// column and for a value that the column cannot hold.
void insertRows(SqliteFile& file, const Catalogue::Table& table, const CsvTable& rows);

} // namespace ostrand::maker
