// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "maker/plant.h"

#include "maker/csv.h"

#include <map>

namespace ostrand::maker {
namespace {

namespace fs = std::filesystem;

constexpr int firstUnit = 10;

/// A row of a table whose cells are asked for by the name of their column.
class NamedRow
{
public:
    NamedRow(const CsvTable& table, const CsvTable::Row& row)
        : m_table(table),
          m_row(row)
    {
    }

    const std::string& operator[](std::string_view column) const
    {
        return m_row.cells[m_table.column(column)];
    }
    InputError fault(const std::string& what) const { return {m_table.name(), m_row.line, what}; }
    double number(std::string_view column) const
    {
        const std::string& cell = (*this)[column];
        try {
            return cell.empty() ? 0.0 : std::stod(cell);
        } catch (const std::exception&) {
            throw fault(cell + " is no number");
        }
    }

private:
    const CsvTable& m_table;
    const CsvTable::Row& m_row;
};

std::map<std::string, std::vector<Member>> readMembers(const fs::path& file)
{
    const CsvTable table = CsvTable::read(file);
    std::map<std::string, std::vector<Member>> members;
    for (const CsvTable::Row& cells : table.rows()) {
        const NamedRow row(table, cells);
        members[row["Loop"]].push_back({row["Letters"],
                                        row["Suffix"],
                                        row["InstrumentType"],
                                        row["Location"],
                                        row["SignalType"],
                                        row["DatasheetType"],
                                        row["Values"],
                                        row["Documents"],
                                        row["Make"]});
    }
    return members;
}

std::map<std::string, std::vector<Loop>> readLoops(const fs::path& folder)
{
    const auto members = readMembers(folder / "members.csv");
    const CsvTable table = CsvTable::read(folder / "loops.csv");
    std::map<std::string, std::vector<Loop>> loops;
    for (const CsvTable::Row& cells : table.rows()) {
        const NamedRow row(table, cells);
        const auto found = members.find(row["Loop"]);
        if (found == members.end())
            throw row.fault("no members of the loop " + row["Loop"]);
        loops[row["Class"]].push_back(
            {row["Letter"], row["Service"], row["Unit"], row.number("Operating"), found->second});
    }
    return loops;
}

/// One unit; false when `left` instruments are visited.
bool walkUnit(const PlantParts& parts,
              int unit,
              int& left,
              const std::function<void(const Place&)>& visit)
{
    int equipmentNumber = 0;
    int loopNumber = 0;
    for (const Equipment& equipment : parts.equipment) {
        ++equipmentNumber;
        for (const Loop& loop : equipment.loops) {
            ++loopNumber;
            for (const Member& member : loop.members) {
                if (left-- == 0)
                    return false;
                visit({unit, equipmentNumber, loopNumber, equipment, loop, member});
            }
        }
    }
    return true;
}

} // namespace

PlantParts readPlantParts(const fs::path& folder)
{
    const auto loops = readLoops(folder);
    PlantParts parts;
    const CsvTable equipment = CsvTable::read(folder / "equipment.csv");
    for (const CsvTable::Row& cells : equipment.rows()) {
        const NamedRow row(equipment, cells);
        const auto found = loops.find(row["Class"]);
        if (found == loops.end())
            throw row.fault("no loops of the class " + row["Class"]);
        parts.equipment.push_back({row["Prefix"],
                                   row["Name"],
                                   row["System"],
                                   row["Material"],
                                   row["Zone"],
                                   found->second});
    }
    const CsvTable makers = CsvTable::read(folder / "makers.csv");
    for (const CsvTable::Row& cells : makers.rows()) {
        const NamedRow row(makers, cells);
        parts.makers[row["Make"]].push_back({row["Name"], row["Code"]});
    }
    if (parts.equipment.empty())
        throw InputError(equipment.name(), 1, "no equipment");
    return parts;
}

void walkPlant(const PlantParts& parts, int count, const std::function<void(const Place&)>& visit)
{
    for (int unit = firstUnit; walkUnit(parts, unit, count, visit); ++unit) {
    }
}

} // namespace ostrand::maker
