// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace ostrand::maker {

/// A fault of an input file. The text names the file and the line.
class InputError : public std::runtime_error
{
public:
    InputError(std::string_view file, int line, std::string_view what);
};

/// A table read from comma-separated text: cells may stand in quotes, a quoted cell may hold
/// commas, line breaks and doubled quotes. The first row names the columns.
class CsvTable
{
public:
    struct Row
    {
        int line; ///< where the row begins in the file, counted from 1
        std::vector<std::string> cells;
        std::vector<bool> quoted; ///< by cell: it stands in quotes, so an empty one is a text

        /// There is nothing in the cell, not even an empty text.
        bool isBlank(std::size_t cell) const { return cells[cell].empty() && !quoted[cell]; }
    };

    /// Raises `InputError` for a quote that is not closed or stands inside an unquoted cell, for
    /// text behind a closing quote, and for a row with more or fewer cells than columns.
    static CsvTable parse(std::string_view text, std::string name);
    static CsvTable read(const std::filesystem::path& file);

    const std::string& name() const { return m_name; }
    const std::vector<std::string>& columns() const { return m_columns; }
    const std::vector<Row>& rows() const { return m_rows; }
    /// The place of a column, by its exact name. Raises `InputError` when there is none.
    std::size_t column(std::string_view columnName) const;

private:
    std::string m_name;
    std::vector<std::string> m_columns;
    std::vector<Row> m_rows;
};

/// A whole file as it is. Raises `InputError` when it cannot be read.
std::string readFile(const std::filesystem::path& file);

} // namespace ostrand::maker
