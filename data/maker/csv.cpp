// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "maker/csv.h"

#include <algorithm>
#include <fstream>
#include <sstream>
#include <utility>

namespace ostrand::maker {
namespace {

/// Walks the text once, a character at a time, and counts lines as it goes.
class Reader
{
public:
    Reader(std::string_view text, std::string_view name)
        : m_text(text),
          m_name(name)
    {
        constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";
        if (m_text.substr(0, byteOrderMark.size()) == byteOrderMark)
            m_at = byteOrderMark.size();
    }

    bool atEnd() const { return m_at == m_text.size(); }

    CsvTable::Row row()
    {
        CsvTable::Row row{m_line, {}, {}};
        do {
            row.quoted.push_back(peek('"'));
            row.cells.push_back(row.quoted.back() ? quotedCell() : plainCell());
        } while (take(','));
        endRow();
        return row;
    }

private:
    bool peek(char character) const { return !atEnd() && m_text[m_at] == character; }

    bool peekLineBreak() const { return peek('\n') || m_text.substr(m_at, 2) == "\r\n"; }

    bool take(char character)
    {
        if (!peek(character))
            return false;
        ++m_at;
        return true;
    }

    std::string plainCell()
    {
        const std::size_t begin = m_at;
        while (!atEnd() && !peek(',') && !peekLineBreak()) {
            if (peek('"'))
                throw InputError(m_name, m_line, "a quote stands inside an unquoted cell");
            ++m_at;
        }
        return std::string(m_text.substr(begin, m_at - begin));
    }

    std::string quotedCell()
    {
        const int begin = m_line;
        std::string cell;
        take('"');
        while (!atEnd()) {
            if (take('"') && !peek('"'))
                return cell;
            if (peek('\n'))
                ++m_line;
            cell += m_text[m_at++];
        }
        throw InputError(m_name, begin, "a quote is not closed");
    }

    void endRow()
    {
        if (atEnd())
            return;
        if (!peekLineBreak())
            throw InputError(m_name, m_line, "text stands behind a closing quote");
        take('\r');
        take('\n');
        ++m_line;
    }

    std::string_view m_text;
    std::string_view m_name;
    std::size_t m_at = 0;
    int m_line = 1;
};

std::string describe(std::string_view file, int line, std::string_view what)
{
    std::ostringstream text;
    text << file << ':' << line << ": " << what;
    return text.str();
}

} // namespace

InputError::InputError(std::string_view file, int line, std::string_view what)
    : std::runtime_error(describe(file, line, what))
{
}

CsvTable CsvTable::parse(std::string_view text, std::string name)
{
    CsvTable table;
    table.m_name = std::move(name);
    Reader reader(text, table.m_name);
    if (reader.atEnd())
        throw InputError(table.m_name, 1, "the row of column names is missing");
    table.m_columns = reader.row().cells;
    while (!reader.atEnd()) {
        Row row = reader.row();
        if (row.cells.size() != table.m_columns.size()) {
            throw InputError(table.m_name,
                             row.line,
                             std::to_string(table.m_columns.size()) + " cells expected, "
                                 + std::to_string(row.cells.size()) + " found");
        }
        table.m_rows.push_back(std::move(row));
    }
    return table;
}

CsvTable CsvTable::read(const std::filesystem::path& file)
{
    return parse(readFile(file), file.filename().string());
}

std::size_t CsvTable::column(std::string_view columnName) const
{
    const auto found = std::find(m_columns.begin(), m_columns.end(), columnName);
    if (found == m_columns.end())
        throw InputError(m_name, 1, "the column " + std::string(columnName) + " is missing");
    return static_cast<std::size_t>(found - m_columns.begin());
}

std::string readFile(const std::filesystem::path& file)
{
    std::ifstream stream(file, std::ios::binary);
    std::ostringstream content;
    content << stream.rdbuf();
    // An empty file sets the fail bit of the stream that it is copied to, not of its own.
    if (!stream.is_open() || stream.bad())
        throw InputError(file.string(), 1, "the file cannot be read");
    return content.str();
}

} // namespace ostrand::maker
