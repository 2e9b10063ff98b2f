// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "data/scratch_project.h"

#include "store/collation.h"
#include "store/functions.h"

#include <stdexcept>

using namespace Qt::StringLiterals;

namespace ostrand::tests {
namespace {

namespace fs = std::filesystem;

struct Finalize
{
    void operator()(sqlite3_stmt* statement) const { sqlite3_finalize(statement); }
};

QString columnText(sqlite3_stmt* statement, int column)
{
    if (sqlite3_column_type(statement, column) == SQLITE_NULL)
        return u"NULL"_s;
    return QString::fromUtf16(
        static_cast<const char16_t*>(sqlite3_column_text16(statement, column)));
}

} // namespace

ScratchProject::ScratchProject(const char* name)
    : ScratchProject(fs::path(OSTRAND_BIN_DIR) / name)
{
}

ScratchProject::ScratchProject(const fs::path& file)
{
    const fs::path copy = fs::path(m_folder.path().toStdString()) / "project.mdb";
    fs::copy_file(file, copy);
    sqlite3* handle = nullptr;
    const int result = sqlite3_open_v2(copy.c_str(), &handle, SQLITE_OPEN_READWRITE, nullptr);
    m_handle.reset(handle);
    if (result != SQLITE_OK)
        throw std::runtime_error(sqlite3_errmsg(handle));
    sqlite3_extended_result_codes(handle, 1);
    sqlite3_db_config(handle, SQLITE_DBCONFIG_DQS_DML, 0, nullptr);
    store::registerCollation(handle);
    store::registerFunctions(handle);
    if (run("PRAGMA foreign_keys = ON") != SQLITE_OK)
        throw std::runtime_error(sqlite3_errmsg(handle));
}

int ScratchProject::run(const QByteArray& script)
{
    return sqlite3_exec(handle(), script.constData(), nullptr, nullptr, nullptr);
}

QString ScratchProject::lastMessage() const
{
    return QString::fromUtf8(sqlite3_errmsg(handle()));
}

QStringList ScratchProject::rows(const QByteArray& select)
{
    sqlite3_stmt* prepared = nullptr;
    if (sqlite3_prepare_v2(handle(), select.constData(), -1, &prepared, nullptr) != SQLITE_OK)
        throw std::runtime_error(sqlite3_errmsg(handle()));
    const std::unique_ptr<sqlite3_stmt, Finalize> statement(prepared);
    QStringList rows;
    while (sqlite3_step(prepared) == SQLITE_ROW) {
        QStringList columns;
        for (int i = 0; i < sqlite3_column_count(prepared); ++i)
            columns.append(columnText(prepared, i));
        rows.append(columns.join(u'|'));
    }
    return rows;
}

QString ScratchProject::row(const QByteArray& select)
{
    const QStringList all = rows(select);
    if (all.size() != 1)
        throw std::runtime_error("not one row: " + select.toStdString());
    return all.first();
}

fs::path dataFolder()
{
    return OSTRAND_DATA_DIR;
}

} // namespace ostrand::tests
