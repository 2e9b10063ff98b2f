// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "maker/sample.h"

#include "maker/catalogue.h"
#include "maker/project_file.h"
#include "maker/range.h"
#include "maker/sqlite_file.h"

#include <map>
#include <set>
#include <vector>

namespace ostrand::maker {
namespace {

namespace fs = std::filesystem;

/// The installation report reads ranges in parts, the other reports as one text.
void splitRanges(SqliteFile& file, const std::string& range, const std::string& kind)
{
    SqliteStatement read(file,
                         "SELECT DISTINCT " + range + " FROM \"index\" WHERE " + range
                             + " IS NOT NULL ORDER BY 1");
    SqliteStatement write(file,
                          "UPDATE \"index\" SET Min" + kind + "Value = ?1, Max" + kind
                              + "Value = ?2, " + (kind == "Calibration" ? "Calib" : kind)
                              + "UnitsOfMeasure = ?3 WHERE " + range + " = ?4");
    std::vector<std::string> texts;
    while (read.step())
        texts.push_back(read.text(0));
    for (const std::string& text : texts) {
        const Range parts = splitRange(text);
        write.bindTextOrNull(0, parts.low);
        write.bindTextOrNull(1, parts.high);
        write.bindTextOrNull(2, parts.unit);
        write.bind(3, text);
        write.run();
    }
}

void setRemarks(SqliteFile& file, const CsvTable& remarks)
{
    const std::size_t tag = remarks.column("Tag");
    const std::size_t text = remarks.column("Remarks");
    SqliteStatement update(file, "UPDATE \"index\" SET Remarks = ? WHERE PlantItemNo = ?");
    for (const CsvTable::Row& row : remarks.rows()) {
        update.bind(0, row.cells[text]);
        update.bind(1, row.cells[tag]);
        update.run();
        if (file.changedRows() == 0)
            throw InputError(remarks.name(), row.line, "unknown tag " + row.cells[tag]);
    }
}

/// Sheet, revision and date have no fields of their own: they belong to the title.
std::string titleOf(const CsvTable& documents, const CsvTable::Row& row)
{
    const auto cell = [&](std::string_view name) { return row.cells[documents.column(name)]; };
    return cell("Title") + ", sheet " + cell("Sheet") + ", rev. " + cell("Revision") + ", "
           + cell("RevDate");
}

void insertDocuments(SqliteFile& file, const CsvTable& documents)
{
    const std::size_t tag = documents.column("Tag");
    const std::size_t kind = documents.column("DocumentKind");
    const std::size_t number = documents.column("DocumentNumber");
    SqliteStatement document(file, "INSERT INTO document (docNo, docType, Title) VALUES (?, ?, ?)");
    SqliteStatement tie(file,
                        "INSERT INTO itemDocXRef (PlantItemNo, docNo, context) VALUES (?, ?, ?)");
    std::set<std::string> known;
    for (const CsvTable::Row& row : documents.rows()) {
        if (known.insert(row.cells[number]).second) {
            const std::string title = titleOf(documents, row);
            document.bind(0, row.cells[number]);
            document.bind(1, row.cells[kind]);
            document.bind(2, title);
            document.run();
        }
        tie.bind(0, row.cells[tag]);
        tie.bind(1, row.cells[number]);
        tie.bind(2, row.cells[kind]);
        tie.run();
    }
}

void setAttributes(SqliteFile& file, const CsvTable& attributes, const SampleFolders& folders)
{
    std::map<std::string, std::string> values;
    for (const CsvTable::Row& row : attributes.rows()) {
        values[row.cells[attributes.column("Attribute")]] = row.cells[attributes.column("Value")];
    }
    if (!folders.datasheets.empty())
        values["DefaultDatasheetFolder"] = folders.datasheets;
    if (!folders.templates.empty())
        values["DefaultTemplateFolder"] = folders.templates;
    if (!folders.pid.empty())
        values["DefaultP&IDDatabase"] = folders.pid;
    if (!folders.logo.empty())
        values["Logo file"] = folders.logo;
    SqliteStatement update(file,
                           "UPDATE ProjectInfo SET attributeValue = ? WHERE attributeName = ?");
    for (const auto& [name, value] : values) {
        update.bind(0, value);
        update.bind(1, name);
        update.run();
    }
}

} // namespace

void makeSample(const fs::path& target, const fs::path& data, const SampleFolders& folders)
{
    const fs::path source = data / "sample";
    makeProject(target, data, [&](SqliteFile& file, const Catalogue& catalogue) {
        insertRows(file, catalogue.table("index"), CsvTable::read(source / "index.csv"));
        splitRanges(file, "ProcessRangeValue", "Process");
        splitRanges(file, "CalibrationRangeValue", "Calibration");
        setRemarks(file, CsvTable::read(source / "remarks.csv"));
        insertDocuments(file, CsvTable::read(source / "documents.csv"));
        insertRows(
            file, catalogue.table("IndexRevisions"), CsvTable::read(source / "revisions.csv"));
        setAttributes(file, CsvTable::read(source / "project.csv"), folders);
    });
}

} // namespace ostrand::maker
