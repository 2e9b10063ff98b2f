// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "store/connection.h"
#include "store/database.h"

#include <QFile>
#include <QTemporaryFile>

using namespace Qt::StringLiterals;

namespace ostrand::store {
namespace {

namespace fs = std::filesystem;

void requirePlace(const fs::path& target, const QString& shown)
{
    std::error_code ignored;
    const fs::path folder = target.parent_path();
    if (!folder.empty() && !fs::is_directory(folder, ignored))
        throw Error(errors::invalidPath, u"'%1' is not a valid path."_s.arg(shown));
    if (fs::is_directory(target, ignored))
        throw Error(errors::permissionDenied, u"'%1' is a folder."_s.arg(shown));
    if (fs::exists(target, ignored)
        && !QFile(shown).open(QIODevice::ReadWrite | QIODevice::ExistingOnly))
        throw Error(errors::permissionDenied, u"The file '%1' cannot be written."_s.arg(shown));
}

/// All pages of the source, as of one moment, whoever has it open.
void copyPages(Connection& source, const QString& to)
{
    sqlite3* handle = nullptr;
    const int code = sqlite3_open_v2(
        to.toUtf8().constData(), &handle, SQLITE_OPEN_READWRITE | SQLITE_OPEN_EXRESCODE, nullptr);
    const std::unique_ptr<sqlite3, decltype(&sqlite3_close_v2)> target(handle, &sqlite3_close_v2);
    if (code != SQLITE_OK)
        raiseSqliteError(handle, code);
    const Connection::OwnScope own(source);
    sqlite3_backup* backup = sqlite3_backup_init(handle, "main", source.handle(), "main");
    if (!backup)
        raiseSqliteError(handle, sqlite3_extended_errcode(handle));
    const int stepped = sqlite3_backup_step(backup, -1);
    const int finished = sqlite3_backup_finish(backup);
    if (stepped != SQLITE_DONE)
        raiseSqliteError(handle, finished != SQLITE_OK ? finished : stepped);
}

void setUsualPermissions(const fs::path& part, const fs::path& target)
{
    std::error_code ignored;
    const auto replaced = fs::status(target, ignored);
    const auto usual = fs::perms::owner_read | fs::perms::owner_write | fs::perms::group_read
                       | fs::perms::others_read;
    fs::permissions(part, fs::exists(replaced) ? replaced.permissions() : usual, ignored);
}

} // namespace

void copyDatabase(const QString& from, const QString& to)
{
    const fs::path target = toPath(to);
    const auto source = openConnection(from, true);
    requirePlace(target, to);

    QTemporaryFile part(to + u".XXXXXX"_s);
    if (!part.open())
        throw Error(errors::permissionDenied, u"The file '%1' cannot be made."_s.arg(to));
    part.close();
    copyPages(*source, part.fileName());

    const fs::path partPath = toPath(part.fileName());
    setUsualPermissions(partPath, target);
    // A rollback journal left beside the old file would be played back into the new one.
    std::error_code error;
    fs::path journal = target;
    journal += "-journal";
    fs::remove(journal, error);
    fs::rename(partPath, target, error);
    if (error) {
        throw Error(errors::permissionDenied,
                    u"The file '%1' cannot be made: %2."_s.arg(
                        to, QString::fromStdString(error.message())));
    }
    part.setAutoRemove(false);
}

} // namespace ostrand::store
