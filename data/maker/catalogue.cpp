// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "maker/catalogue.h"

#include "maker/sqlite_file.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <stdexcept>
#include <utility>

namespace ostrand::maker {
namespace {

using Type = Catalogue::Type;

constexpr std::array<std::pair<std::string_view, Type>, 6> typeNames{{
    {"Text", Type::Text},
    {"Memo", Type::Memo},
    {"Boolean", Type::Boolean},
    {"Date", Type::Date},
    {"Long", Type::Long},
    {"Double", Type::Double},
}};

std::string_view nameOf(Type type)
{
    return typeNames.at(static_cast<std::size_t>(type)).first;
}

Type typeOf(const CsvTable& source, const CsvTable::Row& row, const std::string& name)
{
    const auto* const found = std::find_if(
        typeNames.begin(), typeNames.end(), [&](const auto& known) { return known.first == name; });
    if (found == typeNames.end())
        throw InputError(source.name(), row.line, "unknown type " + name);
    return found->second;
}

int lengthOf(const CsvTable& source, const CsvTable::Row& row, Type type, const std::string& cell)
{
    int length = 0;
    const char* const end = cell.data() + cell.size();
    const auto [rest, failure] = std::from_chars(cell.data(), end, length);
    const bool isLength = failure == std::errc{} && rest == end && length > 0;
    if (type == Type::Text ? !isLength : !cell.empty())
        throw InputError(source.name(), row.line, "a Text, and nothing else, has a length");
    return length;
}

std::string inQuotes(std::string_view name)
{
    return '"' + std::string(name) + '"';
}

/// The SQL type of a column with the rule that keeps values of other kinds out. The names of rules
/// are what the user reads when one refuses a value.
std::string definition(const Catalogue::Column& column)
{
    const std::string name = inQuotes(column.name);
    switch (column.type) {
    case Type::Text:
        return "TEXT COLLATE JET CHECK (length(" + name + ") <= " + std::to_string(column.length)
               + ")";
    case Type::Memo:
        return "TEXT COLLATE JET";
    case Type::Boolean:
        return "INTEGER CONSTRAINT \"True or False\" CHECK (" + name + " IN (0, -1))";
    case Type::Date:
        // A day that the calendar has, with or without a time of day. A day that is none, such as
        // 30 February, changes when something is added to it.
        return "TEXT CONSTRAINT \"a day of the calendar\" CHECK (coalesce(" + name + " IN (date("
               + name + ", '+0 days'), datetime(" + name + ", '+0 days')), " + name + " IS NULL))";
    case Type::Long:
        // Not INTEGER, as a key of that name would take the place of the rowid.
        return "INT";
    case Type::Double:
        break;
    }
    return "REAL";
}

std::string createStatement(const Catalogue::Table& table)
{
    std::string sql = "CREATE TABLE " + inQuotes(table.name) + " (";
    std::string_view separator = "\n    ";
    for (const Catalogue::Column& column : table.columns) {
        sql.append(separator).append(inQuotes(column.name) + ' ' + definition(column));
        if (!column.rules.empty())
            sql += ' ' + column.rules;
        separator = ",\n    ";
    }
    return sql + "\n) STRICT";
}

void insertCatalogue(SqliteFile& file, const std::vector<Catalogue::Table>& tables)
{
    file.run("CREATE TABLE \"~columns\" (\n"
             "    tableName TEXT COLLATE JET NOT NULL,\n"
             "    columnName TEXT COLLATE JET NOT NULL,\n"
             "    type TEXT NOT NULL,\n"
             "    length INTEGER,\n"
             "    PRIMARY KEY (tableName, columnName)\n"
             ") STRICT",
             "~columns");
    SqliteStatement insert(file, "INSERT INTO \"~columns\" VALUES (?, ?, ?, ?)");
    for (const Catalogue::Table& table : tables) {
        for (const Catalogue::Column& column : table.columns) {
            insert.bind(0, table.name);
            insert.bind(1, column.name);
            insert.bind(2, nameOf(column.type));
            if (column.type == Type::Text)
                insert.bindNumber(3, column.length);
            else
                insert.bindNull(3);
            insert.run();
        }
    }
}

std::string insertStatement(const Catalogue::Table& table, const CsvTable& rows)
{
    std::string columns;
    std::string parameters;
    for (const std::string& column : rows.columns()) {
        if (!table.find(column))
            throw InputError(rows.name(), 1, table.name + " has no column " + column);
        columns += (columns.empty() ? "" : ", ") + inQuotes(column);
        parameters += parameters.empty() ? "?" : ", ?";
    }
    return "INSERT INTO " + inQuotes(table.name) + " (" + columns + ") VALUES (" + parameters + ")";
}

double numberOf(const std::string& cell)
{
    double number = 0;
    const char* const end = cell.data() + cell.size();
    const auto [rest, failure] = std::from_chars(cell.data(), end, number);
    if (failure != std::errc{} || rest != end)
        throw std::invalid_argument(cell + " is no number");
    return number;
}

void bindCell(SqliteStatement& insert, int parameter, Type type, const CsvTable::Row& row)
{
    const auto place = static_cast<std::size_t>(parameter);
    const std::string& cell = row.cells[place];
    const bool isText = type == Type::Text || type == Type::Memo;
    if (isText ? row.isBlank(place) : cell.empty()) {
        insert.bindNull(parameter);
    } else if (type == Type::Boolean) {
        if (cell != "True" && cell != "False")
            throw std::invalid_argument(cell + " is neither True nor False");
        insert.bindNumber(parameter, cell == "True" ? -1 : 0);
    } else if (type == Type::Long) {
        insert.bindNumber(parameter, static_cast<sqlite3_int64>(numberOf(cell)));
    } else if (type == Type::Double) {
        insert.bindReal(parameter, numberOf(cell));
    } else {
        insert.bind(parameter, cell);
    }
}

} // namespace

const Catalogue::Column* Catalogue::Table::find(std::string_view columnName) const
{
    const auto found = std::find_if(columns.begin(), columns.end(), [&](const Column& column) {
        return column.name == columnName;
    });
    return found == columns.end() ? nullptr : &*found;
}

Catalogue::Catalogue(const CsvTable& source)
{
    const std::size_t tableAt = source.column("Table");
    const std::size_t columnAt = source.column("Column");
    const std::size_t typeAt = source.column("Type");
    const std::size_t lengthAt = source.column("Length");
    const std::size_t rulesAt = source.column("Rules");
    for (const CsvTable::Row& row : source.rows()) {
        if (m_tables.empty() || m_tables.back().name != row.cells[tableAt])
            m_tables.push_back({row.cells[tableAt], {}});
        const Type type = typeOf(source, row, row.cells[typeAt]);
        const int length = lengthOf(source, row, type, row.cells[lengthAt]);
        m_tables.back().columns.push_back({row.cells[columnAt], type, length, row.cells[rulesAt]});
    }
}

const Catalogue::Table& Catalogue::table(std::string_view name) const
{
    const auto found = std::find_if(
        m_tables.begin(), m_tables.end(), [&](const Table& table) { return table.name == name; });
    if (found == m_tables.end())
        throw std::invalid_argument("there is no table " + std::string(name));
    return *found;
}

void Catalogue::createIn(SqliteFile& file) const
{
    for (const Table& table : m_tables)
        file.run(createStatement(table), table.name);
    insertCatalogue(file, m_tables);
}

void insertRows(SqliteFile& file, const Catalogue::Table& table, const CsvTable& rows)
{
    SqliteStatement insert(file, insertStatement(table, rows));
    std::vector<Type> types;
    for (const std::string& column : rows.columns())
        types.push_back(table.find(column)->type);
    for (const CsvTable::Row& row : rows.rows()) {
        try {
            for (std::size_t i = 0; i < types.size(); ++i)
                bindCell(insert, static_cast<int>(i), types[i], row);
            insert.run();
        } catch (const std::exception& failure) {
            throw InputError(rows.name(), row.line, failure.what());
        }
    }
}

} // namespace ostrand::maker
