// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
//
// Opening: one connection per file and process, and the checks ahead of SQLite's own.
#include "store/connection.h"
#include "store/file_identity.h"

#include <array>
#include <fstream>
#include <string_view>

using namespace Qt::StringLiterals;

namespace ostrand::store {
namespace {

namespace fs = std::filesystem;

struct OpenFile
{
    FileIdentity identity;
    std::weak_ptr<Connection> connection;
};

std::vector<OpenFile>& openFiles()
{
    static std::vector<OpenFile> files;
    return files;
}

std::shared_ptr<Connection> findOpen(const FileIdentity& identity, bool readOnly)
{
    std::erase_if(openFiles(), [](const OpenFile& file) { return file.connection.expired(); });
    for (const OpenFile& file : openFiles()) {
        auto connection = file.connection.lock();
        if (file.identity == identity && connection && (readOnly || !connection->isReadOnly()))
            return connection;
    }
    return nullptr;
}

void requireFile(const fs::path& path, const QString& shown)
{
    std::error_code ignored;
    if (path.empty() || !fs::exists(path, ignored)) {
        const fs::path folder = path.parent_path();
        if (!folder.empty() && !fs::is_directory(folder, ignored))
            throw Error(errors::invalidPath, u"'%1' is not a valid path."_s.arg(shown));
        throw Error(errors::fileNotFound, u"The file '%1' was not found."_s.arg(shown));
    }
    if (!fs::is_regular_file(path, ignored))
        throw Error(errors::unrecognizedFormat, u"'%1' is no database file."_s.arg(shown));
}

constexpr std::string_view signature("SQLite format 3\0", 16);
constexpr std::size_t headerSize = 100;
using Header = std::array<char, headerSize>;

std::uintmax_t bigEndian(const Header& header, std::size_t at, std::size_t count)
{
    std::uintmax_t value = 0;
    for (std::size_t i = 0; i < count; ++i)
        value = value << 8 | static_cast<unsigned char>(header[at + i]);
    return value;
}

/// A file shorter than its own header tells was cut off, unless a rollback is still to come.
bool isTruncated(const fs::path& path, const Header& header)
{
    std::error_code error;
    fs::path journal = path;
    journal += "-journal";
    if (fs::exists(journal, error))
        return false;
    const std::uintmax_t pageSize =
        bigEndian(header, 16, 2) == 1 ? 65536 : bigEndian(header, 16, 2);
    const std::uintmax_t pages = bigEndian(header, 28, 4);
    const bool countIsValid = bigEndian(header, 24, 4) == bigEndian(header, 92, 4);
    return countIsValid && fs::file_size(path, error) < pages * pageSize;
}

/// Reads the header ahead of SQLite, which would take an empty file for a new database. Only for
/// files that the process has not open: closing a file drops all the locks the process has on it.
void requireDatabaseHeader(const fs::path& path, const QString& shown)
{
    std::ifstream file(path, std::ios::binary);
    if (!file)
        throw Error(errors::readOnly, u"The file '%1' cannot be read."_s.arg(shown));
    Header header{};
    file.read(header.data(), static_cast<std::streamsize>(header.size()));
    const bool whole = file.gcount() == static_cast<std::streamsize>(header.size());
    if (!whole || std::string_view(header.data(), signature.size()) != signature) {
        throw Error(errors::unrecognizedFormat,
                    u"'%1' has no database format that this program knows."_s.arg(shown));
    }
    if (isTruncated(path, header))
        throw Error(errors::damagedFile,
                    u"The file '%1' is damaged: a part is missing."_s.arg(shown));
}

} // namespace

fs::path toPath(const QString& path)
{
    const QByteArray utf8 = path.toUtf8();
    return {std::u8string_view(reinterpret_cast<const char8_t*>(utf8.constData()),
                               static_cast<std::size_t>(utf8.size()))};
}

std::shared_ptr<Connection> openConnection(const QString& path, bool readOnly)
{
    const fs::path file = toPath(path);
    requireFile(file, path);
    const auto identity = identityOf(file);
    if (!identity)
        throw Error(errors::fileNotFound, u"The file '%1' was not found."_s.arg(path));
    if (auto open = findOpen(*identity, readOnly))
        return open;
    requireDatabaseHeader(file, path);
    auto connection = std::make_shared<Connection>(file, *identity, readOnly);
    if (!readOnly && sqlite3_db_readonly(connection->handle(), "main") == 1) {
        throw Error(errors::readOnly,
                    u"The file '%1' cannot be written: it is read-only."_s.arg(path));
    }
    openFiles().push_back({*identity, connection});
    return connection;
}

} // namespace ostrand::store
