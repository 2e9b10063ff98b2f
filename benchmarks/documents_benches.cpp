// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
//
// The register of documents: opened, and sorted by the titles.
#include "app/state.h"
#include "bench_data.h"
#include "documents/frmDoc.h"
#include "floor_table.h"
#include "measure.h"

#include <QHeaderView>
#include <QTest>

#include <sqlite3.h>

#include <memory>

using namespace Qt::StringLiterals;

namespace ostrand::bench {
namespace {

constexpr int documentCount = 50'000;
constexpr int runs = 9;
constexpr int sortedColumn = 1;
const QByteArray sortedField = "Title";

/// The floor of the register: the rows of the documents.
class FloorDocuments final : public FloorTable
{
public:
    FloorDocuments()
        : FloorTable(
            {u"docNo"_s, u"Title"_s, u"docType"_s, u"Path"_s, u"Filename"_s}, "document", "docNo")
    {
    }

protected:
    std::vector<Statement> prepareStatements() override
    {
        std::vector<Statement> statements;
        statements.push_back(prepare("SELECT docNo, Title, docType, Path, Filename FROM qryDoc"
                                     " WHERE \"~key\" = ?1"));
        return statements;
    }
    QStringList readRow(long long key) override
    {
        sqlite3_stmt* row = statement(0);
        sqlite3_reset(row);
        sqlite3_bind_int64(row, 1, key);
        sqlite3_step(row);
        QStringList cells;
        for (int i = 0; i < columns().size(); ++i)
            cells << textOf(row, i);
        return cells;
    }
};

class Windows
{
public:
    Windows()
    {
        app::g_strIndexFile = projectOfDocuments(documentCount);
        newWindow();
        m_floor.makeView(grid());
        settle();
    }
    ~Windows() { app::g_strIndexFile.clear(); }
    Windows(const Windows&) = delete;
    Windows& operator=(const Windows&) = delete;

    toolkit::DataGrid& grid() { return *m_window->findChild<toolkit::DataGrid*>(); }
    documents::frmDoc& window() { return *m_window; }
    FloorTable& floor() { return m_floor; }
    /// A fresh window with no rows yet.
    void newWindow()
    {
        m_window = std::make_unique<documents::frmDoc>();
        m_window->show();
        settle();
    }
    /// Lets everything happen that waits for a quiet moment.
    static void settle() { QTest::qWait(60); }
    int shownRows()
    {
        return grid().viewport()->height() / grid().verticalHeader()->defaultSectionSize() + 1;
    }

private:
    std::unique_ptr<documents::frmDoc> m_window;
    FloorDocuments m_floor;
};

void openBench(Windows& windows)
{
    const auto ours = [&] {
        windows.newWindow();
        return untilPainted(windows.grid(), [&] { windows.window().RefreshData(); });
    };
    const auto floor = [&] {
        windows.floor().closeFile();
        return untilPainted(windows.floor().view(), [&] {
            windows.floor().openFile(app::g_strIndexFile);
            windows.floor().showFirst(windows.shownRows());
        });
    };
    report(u"docs-50k-open"_s, middleOf(runs, ours, floor), u"ms"_s);
}

void sortBench(Windows& windows)
{
    const auto ours = [&] {
        windows.window().Sort(0);
        Windows::settle();
        return untilPainted(windows.grid(), [&] { windows.window().Sort(sortedColumn); });
    };
    const auto floor = [&] {
        windows.floor().showFirst(windows.shownRows());
        Windows::settle();
        return untilPainted(windows.floor().view(),
                            [&] { windows.floor().showSorted(sortedField, windows.shownRows()); });
    };
    report(u"docs-50k-sort"_s, middleOf(runs, ours, floor), u"ms"_s);
}

} // namespace

void runDocumentsBenches(const QString& only)
{
    if (!asked(only, u"docs-50k"_s))
        return;
    Windows windows;
    openBench(windows);
    sortBench(windows);
}

} // namespace ostrand::bench
