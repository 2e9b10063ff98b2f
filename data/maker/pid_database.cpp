// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "maker/pid_database.h"

#include "maker/catalogue.h"
#include "maker/database_file.h"
#include "maker/sqlite_file.h"

namespace ostrand::maker {

void makePidDatabase(const std::filesystem::path& target, const std::filesystem::path& data)
{
    const std::filesystem::path source = data / "sample_pid";
    const Catalogue catalogue(CsvTable::read(source / "columns.csv"));
    makeDatabase(target, [&](SqliteFile& file) {
        catalogue.createIn(file);
        for (const Catalogue::Table& table : catalogue.tables())
            insertRows(file, table, CsvTable::read(source / (table.name + ".csv")));
    });
}

} // namespace ostrand::maker
