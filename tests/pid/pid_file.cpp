// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "pid/pid_file.h"

#include "maker/sqlite_file.h"

#include <QFile>

namespace ostrand::tests {
namespace {

void bind(maker::SqliteStatement& insert, int parameter, const std::optional<std::string>& text)
{
    if (text)
        insert.bind(parameter, *text);
    else
        insert.bindNull(parameter);
}

std::optional<std::string> utf8(const std::optional<QString>& text)
{
    return text ? std::optional(text->toStdString()) : std::nullopt;
}

} // namespace

PidFile::PidFile()
{
    if (!QFile::copy(QStringLiteral(OSTRAND_BIN_DIR "/Samples/HGC_PID.mdb"), path()))
        qFatal("the sample's P&ID database is missing");
    run("DELETE FROM \"Components-Instruments\"");
}

void PidFile::run(const QByteArray& script) const
{
    maker::SqliteFile file(path().toStdString());
    file.run(script.toStdString(), "test");
}

void PidFile::fill(const std::vector<PidRow>& rows)
{
    maker::SqliteFile file(path().toStdString());
    file.run("BEGIN", "begin");
    maker::SqliteStatement insert(
        file,
        "INSERT INTO \"Components-Instruments\" (ID_COUNT_, FUNCTION_, TAG_, SERVICE_) "
        "SELECT coalesce(max(ID_COUNT_), 0) + 1, ?, ?, ? FROM \"Components-Instruments\"");
    for (const PidRow& row : rows) {
        const auto function = utf8(row.function);
        const auto tag = utf8(row.tag);
        const auto service = utf8(row.service);
        bind(insert, 0, function);
        bind(insert, 1, tag);
        bind(insert, 2, service);
        insert.run();
    }
    file.run("COMMIT", "commit");
}

} // namespace ostrand::tests
