// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "maker/database_file.h"

#include "maker/sqlite_file.h"

#include <stdexcept>

namespace ostrand::maker {
namespace {

namespace fs = std::filesystem;

/// A file beside the target, which goes unless it is put in the target's place.
class NewFile
{
public:
    explicit NewFile(fs::path target)
        : m_target(std::move(target)),
          m_path(m_target)
    {
        m_path += ".new";
        fs::remove(m_path);
    }
    ~NewFile()
    {
        std::error_code ignored;
        fs::remove(m_path, ignored);
    }
    NewFile(const NewFile&) = delete;
    NewFile& operator=(const NewFile&) = delete;

    const fs::path& path() const { return m_path; }
    void putInPlace() const { fs::rename(m_path, m_target); }

private:
    fs::path m_target;
    fs::path m_path;
};

/// Safe as the file is thrown away when anything fails.
constexpr auto settings = "PRAGMA page_size = 4096;"
                          "PRAGMA journal_mode = OFF;"
                          "PRAGMA synchronous = OFF;"
                          "PRAGMA cache_size = -65536;"
                          "PRAGMA threads = 2;"
                          "BEGIN";

void checkReferences(const SqliteFile& file)
{
    SqliteStatement check(
        file,
        "SELECT \"table\" || ' row ' || rowid || ' refers to no row of ' || parent"
        " FROM pragma_foreign_key_check");
    if (check.step())
        throw std::runtime_error(check.text(0));
}

} // namespace

void makeDatabase(const fs::path& target, const std::function<void(SqliteFile&)>& fill)
{
    if (target.has_parent_path())
        fs::create_directories(target.parent_path());
    const NewFile newFile(target);
    {
        SqliteFile file(newFile.path());
        file.run(settings, "settings");
        fill(file);
        file.run("COMMIT", "commit");
        checkReferences(file);
        file.run("VACUUM", "vacuum");
    }
    newFile.putInPlace();
}

} // namespace ostrand::maker
