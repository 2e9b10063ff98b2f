// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
//
// A datasheet of the sample project in the real spreadsheet application, which runs already and has
// a display of its own.
#include "app/state.h"
#include "datasheets/cXlHndlr.h"
#include "index/frmIndex.h"
#include "measure.h"
#include "office/office_display.h"
#include "office/watched_application.h"
#include "store/database.h"
#include "store/recordset.h"

#include <QCoreApplication>
#include <QDir>
#include <QProcess>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTest>

using namespace Qt::StringLiterals;
using ostrand::spreadsheet::SaveChanges;

namespace ostrand::bench {
namespace {

constexpr int runs = 9;
const QString tag = u"PT-1001"_s;
const QString templateName = u"DS_PT.xlt"_s;
const QString datasheetType = u"PRESSURE TRANSMITTER"_s;

/// The main window with the sample project and a datasheet for one of its tags.
class Desk
{
public:
    Desk()
    {
        const QDir bin(QCoreApplication::applicationDirPath());
        const QString project = m_folder.filePath(u"sample.mdb"_s);
        const int code = QProcess::execute(bin.filePath(u"ostrand-make-project"_s),
                                           {u"--datasheets"_s,
                                            m_folder.path(),
                                            u"--templates"_s,
                                            bin.filePath(u"Templates"_s),
                                            u"sample"_s,
                                            project});
        if (code != 0)
            qFatal("the sample project could not be made");
        datasheets::g_objXlHndlr = std::make_unique<datasheets::cXlHndlr>();
        auto window = std::make_unique<index::frmIndex>();
        m_window = window.get();
        app::g_frmIndex = std::move(window);
        m_window->resize(1280, 760);
        m_window->show();
        m_window->OpenIndex(project);
        makeDatasheet();
    }
    ~Desk()
    {
        datasheets::g_objXlHndlr.reset();
        app::g_frmIndex.reset();
        spreadsheet::endHost();
    }
    Desk(const Desk&) = delete;
    Desk& operator=(const Desk&) = delete;

    QString path() const { return m_folder.filePath(tag + u".xls"_s); }

    /// From the button to the filled workbook in its window.
    double open()
    {
        auto* button = m_window->findChild<QPushButton*>(u"cmdDatasheet"_s);
        const double taken = millisecondsOf([button] {
            button->click();
            QCoreApplication::processEvents(); // the window shows when the program comes to rest
        });
        if (!datasheets::xlHndlr().XlAlreadyOpen())
            qFatal("the datasheet did not open");
        QTest::qWait(settling);
        return taken;
    }
    void close()
    {
        workbook()->Save();
        if (!datasheets::xlHndlr().CloseOpenDatasheet())
            qFatal("the datasheet did not close");
        QTest::qWait(settling);
    }
    /// The same file loaded into a window that shows, and nothing else.
    double bareOpen() const
    {
        const auto application = spreadsheet::CreateObject();
        std::shared_ptr<spreadsheet::Workbook> bare;
        application->setVisible(true);
        const double taken = millisecondsOf([&] { bare = application->Open(path()); });
        QTest::qWait(settling);
        bare->Close(SaveChanges::No);
        QTest::qWait(settling);
        return taken;
    }

    std::shared_ptr<spreadsheet::Workbook> workbook() const { return m_application.workbook(); }

private:
    void makeDatasheet()
    {
        if (!datasheets::xlHndlr().CopySprSht(templateName, path()))
            qFatal("the datasheet could not be made");
        store::Recordset& tags = m_window->dbIndex().Recordset();
        tags.FindFirst(u"[Tag] = '"_s + tag + u"'"_s);
        tags.Edit();
        tags.SetField(u"DatasheetPath"_s, m_folder.path());
        tags.SetField(u"DatasheetFileName"_s, QString(tag + u".xls"_s));
        tags.Update();
    }

    static constexpr int settling = 400;
    tests::OfficeDisplay m_display;
    tests::WatchedApplication m_application;
    QTemporaryDir m_folder;
    index::frmIndex* m_window = nullptr;
};

/// The cells that the passes write, as the Map names them.
std::vector<std::pair<QString, QString>> mappedCells()
{
    std::vector<std::pair<QString, QString>> cells;
    const auto database = store::DBEngine::OpenDatabase(app::g_strIndexFile);
    const auto rows = database.OpenRecordset(
        u"select Worksheet, object from qryMap where DatasheetType = '"_s + datasheetType + u"'"_s);
    for (; !rows->Eof(); rows->MoveNext())
        cells.emplace_back(rows->Field(u"Worksheet"_s).text(), rows->Field(u"object"_s).text());
    return cells;
}

void openBench(Desk& desk)
{
    const auto ours = [&] {
        const double taken = desk.open();
        desk.close();
        return taken;
    };
    report(u"datasheet-open"_s, middleOf(runs, ours, [&] { return desk.bareOpen(); }), u"ms"_s);
}

/// The floor is one write of each mapped cell, with the sheets and the values at hand.
void populateBench(Desk& desk)
{
    desk.open();
    const auto ours = [] { return millisecondsOf([] { datasheets::xlHndlr().PopulateXl(); }); };
    const auto cells = mappedCells();
    const auto workbook = desk.workbook();
    std::map<QString, std::shared_ptr<spreadsheet::Worksheet>> sheets;
    for (const auto& [sheet, cell] : cells)
        sheets.try_emplace(sheet, workbook->Worksheets(sheet));
    const auto floor = [&] {
        return millisecondsOf([&] {
            for (const auto& [sheet, cell] : cells)
                sheets.at(sheet)->Range(cell)->setValue(u"a value"_s);
        });
    };
    const Pair pair = middleOf(runs, ours, floor);
    datasheets::xlHndlr().PopulateXl();
    desk.close();
    report(u"populate-sheet"_s, pair, u"ms"_s);
}

} // namespace

void runDatasheetBenches(const QString& only)
{
    const bool open = asked(only, u"datasheet-open"_s);
    const bool populate = asked(only, u"populate-sheet"_s);
    if (!open && !populate)
        return;
    Desk desk;
    if (open)
        openBench(desk);
    if (populate)
        populateBench(desk);
}

} // namespace ostrand::bench
