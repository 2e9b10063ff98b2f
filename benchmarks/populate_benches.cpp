// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
//
// All instruments of a P&ID database listed, chosen and inserted into an index that holds as many
// other tags. The floor inserts the same rows with one prepared statement in one transaction.
#include "app/main_window.h"
#include "app/state.h"
#include "bench_data.h"
#include "index/frmIndex.h"
#include "maker/sqlite_file.h"
#include "measure.h"
#include "pid/frmPopulate.h"

#include <QElapsedTimer>
#include <QFile>
#include <QListView>
#include <QTemporaryDir>
#include <QTest>

#include <string>

using namespace Qt::StringLiterals;

namespace ostrand::bench {
namespace {

constexpr int fewer = 100'000;
constexpr int more = 200'000;
constexpr int runs = 5;

constexpr const char* function = "ZT";
constexpr const char* service = "Measured at the far end of the plant";

/// The number within a tag; the tag as the program makes it from function and number.
std::string numberOf(int instrument)
{
    return std::to_string(1'000'000 + instrument);
}

std::string tagOf(int instrument)
{
    std::string tag = function;
    tag += '-';
    tag += numberOf(instrument);
    return tag;
}

class Populating
{
public:
    Populating()
    {
        auto window = std::make_unique<index::frmIndex>();
        window->resize(1280, 900);
        window->show();
        app::g_frmIndex = std::move(window);
    }
    ~Populating() { app::g_frmIndex.reset(); }
    Populating(const Populating&) = delete;
    Populating& operator=(const Populating&) = delete;

    double ours(int instruments)
    {
        app::g_strIndexFile = freshProject();
        app::mainWindow().OpenIndex(app::g_strIndexFile);
        const QString pid = pidOf(instruments);
        QTest::qWait(60);
        QElapsedTimer timer;
        timer.start();
        pid::frmPopulate window(pid);
        if (!window.load())
            qFatal("nothing to populate from");
        window.show();
        window.findChild<QListView*>(u"lstPopulate"_s)->selectAll();
        window.insertChosen();
        return static_cast<double>(timer.nsecsElapsed()) / 1e6;
    }

    double floor(int instruments)
    {
        maker::SqliteFile file(freshProject().toStdString());
        file.run("PRAGMA foreign_keys = ON", "keys");
        QElapsedTimer timer;
        timer.start();
        file.run("BEGIN IMMEDIATE", "begin");
        maker::SqliteStatement insert(
            file, "INSERT INTO \"index\" (PlantItemNo, ServiceDescription) VALUES (?, ?)");
        for (int i = 0; i < instruments; ++i) {
            const std::string tag = tagOf(i);
            insert.bind(0, tag);
            insert.bind(1, service);
            insert.run();
        }
        file.run("COMMIT", "commit");
        return static_cast<double>(timer.nsecsElapsed()) / 1e6;
    }

private:
    QString freshProject()
    {
        // Another name each time, so that nothing is known of the file from the last run.
        const QString path = m_folder.filePath(u"project-%1.mdb"_s.arg(++m_projects));
        QFile::remove(m_folder.filePath(u"project-%1.mdb"_s.arg(m_projects - 2)));
        if (!QFile::copy(projectOf(fewer), path))
            qFatal("cannot copy the project");
        return path;
    }

    QString pidOf(int instruments)
    {
        const QString path = m_folder.filePath(u"pid-%1.mdb"_s.arg(instruments));
        if (QFile::exists(path))
            return path;
        maker::SqliteFile file(path.toStdString());
        file.run("CREATE TABLE \"Components-Instruments\" (ID_COUNT_ INTEGER PRIMARY KEY,"
                 " FUNCTION_ TEXT COLLATE JET, TAG_ TEXT COLLATE JET, SERVICE_ TEXT COLLATE JET);"
                 "BEGIN",
                 "table");
        maker::SqliteStatement insert(
            file, "INSERT INTO \"Components-Instruments\" VALUES (NULL, ?, ?, ?)");
        for (int i = 0; i < instruments; ++i) {
            const std::string number = numberOf(i);
            insert.bind(0, function);
            insert.bind(1, number);
            insert.bind(2, service);
            insert.run();
        }
        file.run("COMMIT", "commit");
        return path;
    }

    QTemporaryDir m_folder;
    int m_projects = 0;
};

} // namespace

void runPopulateBenches(const QString& only)
{
    const bool asksFewer = asked(only, u"populate-100k"_s);
    const bool asksMore = asked(only, u"populate-200k"_s);
    if (!asksFewer && !asksMore)
        return;
    Populating bench;
    if (asksFewer) {
        report(u"populate-100k"_s,
               middleOf(
                   runs, [&] { return bench.ours(fewer); }, [&] { return bench.floor(fewer); }),
               u"ms"_s);
    }
    if (asksMore) {
        report(u"populate-200k"_s,
               middleOf(
                   runs, [&] { return bench.ours(more); }, [&] { return bench.ours(fewer); }),
               u"ms"_s);
    }
}

} // namespace ostrand::bench
