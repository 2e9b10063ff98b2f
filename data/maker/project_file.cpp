// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "maker/project_file.h"

#include "maker/database_file.h"
#include "maker/sqlite_file.h"

namespace ostrand::maker {
namespace {

namespace fs = std::filesystem;

/// "OSTR", schema version 1.
constexpr auto ids = "PRAGMA application_id = 0x4F535452;"
                     "PRAGMA user_version = 1";

void insertSeedRows(SqliteFile& file, const Catalogue& catalogue, const fs::path& folder)
{
    for (const Catalogue::Table& table : catalogue.tables()) {
        const fs::path seed = folder / (table.name + ".csv");
        if (fs::exists(seed))
            insertRows(file, table, CsvTable::read(seed));
    }
}

} // namespace

void makeProject(const fs::path& target, const fs::path& data, const Fill& fill)
{
    const fs::path source = data / "template";
    const Catalogue catalogue(CsvTable::read(source / "columns.csv"));
    makeDatabase(target, [&](SqliteFile& file) {
        file.run(ids, "ids");
        catalogue.createIn(file);
        insertSeedRows(file, catalogue, source / "seed");
        if (fill)
            fill(file, catalogue);
        for (const char* script : {"keys.sql", "relationships.sql", "queries.sql"})
            file.run(readFile(source / script), script);
    });
}

} // namespace ostrand::maker
