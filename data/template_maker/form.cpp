// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "template_maker/form.h"

#include "maker/csv.h"

#include <functional>
#include <map>
#include <tuple>

namespace ostrand::template_maker {
namespace {

using maker::CsvTable;
using maker::InputError;

/// A row of a table, read by the names of the columns.
class Record
{
public:
    Record(const CsvTable& table, const CsvTable::Row& row)
        : m_table(table),
          m_row(row)
    {
    }

    QString text(const char* column) const
    {
        return QString::fromStdString(m_row.cells[m_table.column(column)]);
    }
    double number(const char* column) const
    {
        bool valid = false;
        const double value = text(column).toDouble(&valid);
        if (!valid)
            throw InputError(m_table.name(), m_row.line, std::string(column) + " is no number");
        return value;
    }
    int count(const char* column, int most) const
    {
        bool valid = false;
        const int value = text(column).toInt(&valid);
        if (!valid || value < 1 || value > most)
            throw InputError(m_table.name(), m_row.line, std::string(column) + " is out of range");
        return value;
    }
    bool flag(const char* column) const { return text(column) == QStringLiteral("True"); }
    [[noreturn]] void fail(const std::string& why) const
    {
        throw InputError(m_table.name(), m_row.line, why);
    }

private:
    const CsvTable& m_table;
    const CsvTable::Row& m_row;
};

void forEach(const std::filesystem::path& file, const std::function<void(const Record&)>& visit)
{
    const CsvTable table = CsvTable::read(file);
    for (const CsvTable::Row& row : table.rows())
        visit(Record(table, row));
}

Form& formOf(std::vector<Form>& forms, const Record& record)
{
    const QString type = record.text("DatasheetType");
    for (Form& form : forms) {
        if (form.type == type)
            return form;
    }
    record.fail("unknown datasheet type " + type.toStdString());
}

using ValueName = std::tuple<QString, QString, QString>; ///< datasheet type, table and field

/// Where the values of the project are entered. A value with two places could be changed at one of
/// them and be out of date at the other.
std::map<ValueName, Place> readMap(const std::filesystem::path& data)
{
    std::map<ValueName, Place> places;
    forEach(data / "template/seed/Map.csv", [&](const Record& record) {
        const ValueName name{
            record.text("DatasheetType"), record.text("TableName"), record.text("Field")};
        const Place place{.worksheet = record.text("Worksheet"), .cell = record.text("object")};
        if (!places.emplace(name, place).second)
            record.fail(std::get<2>(name).toStdString() + " is mapped a second time");
    });
    return places;
}

/// Every form shows the values of these places. Where a form enters the value there, nothing is
/// left to show.
void readEchoes(const std::filesystem::path& data, std::vector<Form>& forms)
{
    const std::map<ValueName, Place> places = readMap(data);
    forEach(data / "templates/echoes.csv", [&](const Record& record) {
        const Place place{.worksheet = record.text("Worksheet"), .cell = record.text("Cell")};
        for (Form& form : forms) {
            const auto source =
                places.find({form.type, record.text("TableName"), record.text("Field")});
            if (source == places.end()) {
                record.fail(record.text("Field").toStdString() + " is not mapped for "
                            + form.type.toStdString());
            }
            if (source->second != place)
                form.echoes.push_back({.place = place, .source = source->second});
        }
    });
}

} // namespace

std::vector<Form> readForms(const std::filesystem::path& data)
{
    constexpr int manyForms = 999;
    constexpr int mostLines = 56;
    constexpr int mostCells = 3;
    constexpr int lastRow = 70;
    std::vector<Form> forms;
    forEach(data / "template/seed/DatasheetTypes.csv", [&](const Record& record) {
        forms.push_back({.number = record.count("ReportNum", manyForms),
                         .type = record.text("DatasheetType"),
                         .fileName = record.text("FileName"),
                         .lines = {},
                         .pidRows = {},
                         .logoSheets = {},
                         .echoes = {}});
    });
    forEach(data / "templates/lines.csv", [&](const Record& record) {
        std::vector<Line>& lines = formOf(forms, record).lines;
        lines.push_back({.section = record.text("Section"),
                         .number = record.count("Line", mostLines),
                         .label = record.text("Label"),
                         .unit = record.text("Unit"),
                         .valueCells = record.count("ValueCells", mostCells)});
        if (lines.back().number != static_cast<int>(lines.size()))
            record.fail("the lines are not numbered one by one");
    });
    forEach(data / "templates/pid_map.csv", [&](const Record& record) {
        formOf(forms, record)
            .pidRows.push_back({.table = record.text("PidTable"),
                                .field = record.text("PidField"),
                                .worksheet = record.text("Worksheet"),
                                .column = record.text("Column"),
                                .row = record.count("Row", lastRow)});
    });
    forEach(data / "template/seed/DtShtWorksheets.csv", [&](const Record& record) {
        formOf(forms, record)
            .logoSheets.push_back({.worksheet = record.text("WorkSheet"),
                                   .anchor = record.text("LogoAnchor"),
                                   .deltaX = record.number("DeltaX"),
                                   .deltaY = record.number("DeltaY"),
                                   .defaultCell = record.text("DefaultCell"),
                                   .isDefault = record.flag("DefaultSheet")});
    });
    readEchoes(data, forms);
    return forms;
}

} // namespace ostrand::template_maker
