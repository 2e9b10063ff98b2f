// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
//
// Import and export of 200 datasheets with 12 map rows each, in a project of 10,000 tags that is
// sorted by a column. The floor loads the same files in one instance of the spreadsheet
// application, writes one block into each and stores it. Beside it stands what one process of the
// application per file takes.
#include "app/main_window.h"
#include "app/program.h"
#include "app/state.h"
#include "bench_data.h"
#include "datasheets/cXlHndlr.h"
#include "index/frmIndex.h"
#include "maker/sqlite_file.h"
#include "measure.h"
#include "office_process.h"
#include "pid/export.h"
#include "pid/import.h"
#include "spreadsheet/host.h"
#include "store/database.h"
#include "store/recordset.h"
#include "support/scripted_prompts.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

#include <string>

using namespace Qt::StringLiterals;
using ostrand::spreadsheet::SaveChanges;

namespace ostrand::bench {
namespace {

constexpr int tagCount = 10'000;
constexpr int sheetCount = 200;
constexpr int mapRows = 12;
constexpr int processCount = 10;
constexpr int runs = 3;
const QString templateName = u"DS_PT.xlt"_s;

class Linked
{
public:
    Linked()
        : m_prompts(tests::installScriptedPrompts())
    {
        const QDir bin(QCoreApplication::applicationDirPath());
        app::setInstallationFolder(m_folder.path());
        spreadsheet::setHostSettings({.folder = bin.path(), .headless = true});
        m_project = m_folder.filePath(u"project.mdb"_s);
        if (!QFile::copy(projectOf(tagCount), m_project))
            qFatal("cannot copy the project");
        QDir(m_folder.path()).mkdir(u"sheets"_s);
        datasheets::g_objXlHndlr = std::make_unique<datasheets::cXlHndlr>();
        nameFolders(bin.filePath(u"Templates"_s));
        auto window = std::make_unique<index::frmIndex>();
        m_window = window.get();
        app::g_frmIndex = std::move(window);
        m_window->resize(1280, 900);
        m_window->show();
        m_window->OpenIndex(m_project);
        makeSheets();
        makeInstruments();
        m_window->OpenIndex(m_project);
        m_window->Sort(sortedColumn);
        QTest::qWait(100);
    }
    ~Linked()
    {
        datasheets::g_objXlHndlr.reset();
        app::g_frmIndex.reset();
        spreadsheet::endHost();
        app::setInstallationFolder({});
    }
    Linked(const Linked&) = delete;
    Linked& operator=(const Linked&) = delete;

    double import()
    {
        return told(millisecondsOf([] { pid::cmdImport(); }), u"200 Datasheets"_s);
    }
    double exportAll()
    {
        return told(millisecondsOf([] { pid::cmdExport(); }), u"Database modified"_s);
    }

    double floor() const
    {
        std::vector<spreadsheet::CellWrite> block;
        for (int i = 0; i < mapRows; ++i)
            block.push_back({u"K"_s + QString::number(12 + i), u"a value"_s});
        return millisecondsOf([&] {
            const auto application = spreadsheet::CreateObject();
            for (const QString& tag : m_tags) {
                const auto book = application->Open(sheetFile(tag));
                book->Worksheets(1)->write(block);
                book->Save();
                book->Close(SaveChanges::No);
            }
        });
    }

    /// What a process of the application takes to load and store one file.
    double processPerFile() const
    {
        const QString out = m_folder.filePath(u"out"_s);
        const QString profile = m_folder.filePath(u"profile"_s);
        const double taken = millisecondsOf([&] {
            for (int i = 0; i < processCount; ++i)
                convertInProcess(profile, u"xls"_s, out, sheetFile(m_tags[i]));
        });
        return taken / processCount;
    }

private:
    static constexpr int sortedColumn = 2;

    QString sheetFile(const QString& tag) const
    {
        return m_folder.filePath(u"sheets/"_s + tag + u".xls"_s);
    }
    QString pidFile() const { return m_folder.filePath(u"pid.mdb"_s); }

    double told(double taken, const QString& words)
    {
        const QStringList texts = m_prompts.takeTexts();
        if (texts.size() != 1 || !texts[0].startsWith(words))
            qFatal("%s", qPrintable(texts.join(u'\n')));
        return taken;
    }

    void nameFolders(const QString& templates)
    {
        const auto database = store::DBEngine::OpenDatabase(m_project);
        const auto attribute = [&](const QString& name, const QString& value) {
            database.Execute(u"update qryProjectInfo set attributeValue = '"_s + value
                             + u"' where attributeName = '"_s + name + u'\'');
        };
        attribute(u"DefaultDatasheetFolder"_s, m_folder.filePath(u"sheets"_s));
        attribute(u"DefaultTemplateFolder"_s, templates);
        attribute(u"DefaultP&IDDatabase"_s, pidFile());
        database.Execute(u"update qryIndex set DatasheetPath = Null, DatasheetFileName = Null"_s);
        const auto tags = database.OpenRecordset(u"select Tag from qryIndex"_s);
        constexpr int step = tagCount / sheetCount;
        for (int i = 0; !tags->Eof() && m_tags.size() < sheetCount; tags->MoveNext(), ++i) {
            const QString tag = tags->Field(0).text();
            if (i % step == 0 && tag.count(u'-') == 1)
                m_tags << tag;
        }
        for (const QString& tag : m_tags)
            database.Execute(u"update qryIndex set DatasheetPath = 'x', DatasheetFileName = 'y' "
                             u"where Tag = '"_s
                             + tag + u'\'');
    }

    void makeSheets()
    {
        const QString first = sheetFile(m_tags.front());
        if (!datasheets::xlHndlr().CopySprSht(templateName, first))
            qFatal("the datasheet could not be made");
        for (qsizetype i = 1; i < m_tags.size(); ++i)
            QFile::copy(first, sheetFile(m_tags[i]));
    }

    void makeInstruments()
    {
        const QString sample = QCoreApplication::applicationDirPath() + u"/Samples/HGC_PID.mdb"_s;
        QFile::copy(sample, pidFile());
        QFile::setPermissions(pidFile(), QFile::ReadOwner | QFile::WriteOwner);
        maker::SqliteFile file(pidFile().toStdString());
        std::string sql = "DELETE FROM \"Components-Instruments\"; BEGIN;";
        for (qsizetype i = 0; i < m_tags.size(); ++i) {
            const std::string number = std::to_string(i + 1);
            sql += "INSERT INTO \"Components-Instruments\" (ID_COUNT_, FUNCTION_, TAG_, SERVICE_,"
                   " LINE_OR_EQUIP_, LOCATION_, PID_NO_, FLUID_, SIZE_, RATING_, SPEC_, MATERIAL_,"
                   " SIGNAL_, MANUFACTURER_, MODEL_) VALUES ("
                   + number + ", '" + m_tags[i].section(u'-', 0, 0).toStdString() + "', '"
                   + m_tags[i].section(u'-', 1).toStdString() + "', 'Service " + number
                   + "', 'V-1', 'FIELD', 'P-1', 'Wet gas', 'DN100', 'CL600', '6C1', '316L',"
                     " '4-20 mA', 'Calder', 'M-1');";
        }
        file.run(sql + "COMMIT", "instruments");
    }

    tests::ScriptedPrompts& m_prompts;
    QTemporaryDir m_folder;
    QString m_project;
    QStringList m_tags;
    index::frmIndex* m_window = nullptr;
};

/// Ours per file beside one process for each opening of a file.
void reportProcesses(const QString& bench, const Linked& linked, double ours, int openings)
{
    report(
        bench + u"-processes"_s, {ours / sheetCount, openings * linked.processPerFile()}, u"ms"_s);
}

} // namespace

void runLinkBenches(const QString& only)
{
    const bool asksImport = asked(only, u"import-200"_s);
    const bool asksExport = asked(only, u"export-200"_s);
    if (!asksImport && !asksExport)
        return;
    Linked linked;
    linked.floor(); // the application starts
    const auto floor = [&] { return linked.floor(); };
    if (asksImport) {
        const Pair pair = middleOf(
            runs, [&] { return linked.import(); }, floor);
        report(u"import-200"_s, pair, u"ms"_s);
        reportProcesses(u"import-200"_s, linked, pair.ours, 1);
    }
    if (asksExport) {
        linked.import();
        const Pair pair = middleOf(
            runs, [&] { return linked.exportAll(); }, floor);
        report(u"export-200"_s, pair, u"ms"_s);
        reportProcesses(u"export-200"_s, linked, pair.ours, 2);
    }
}

} // namespace ostrand::bench
