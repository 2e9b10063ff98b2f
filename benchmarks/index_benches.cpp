// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "app/CRegHndlr.h"
#include "app/state.h"
#include "bench_data.h"
#include "floor_index.h"
#include "index/frmIndex.h"
#include "measure.h"
#include "toolkit/data_grid.h"

#include <QCoreApplication>
#include <QHeaderView>
#include <QTest>

#include <memory>

using namespace Qt::StringLiterals;

namespace ostrand::bench {
namespace {

constexpr int tags = 100'000;
constexpr int runs = 9;
constexpr int sortedColumn = 2;
const QByteArray sortedField = "ServiceDescription";

/// The main window with a project open in it, and the floor beside it.
class Windows
{
public:
    Windows()
        : m_path(projectOf(tags))
    {
        newWindow();
        m_floor.makeView(grid());
        settle();
    }

    toolkit::DataGrid& grid() { return *m_window->findChild<toolkit::DataGrid*>(u"GridIndex"_s); }
    FloorIndex& floor() { return m_floor; }
    const QString& path() const { return m_path; }
    index::frmIndex& window() { return *m_window; }

    /// A fresh main window with no project.
    void newWindow()
    {
        m_window = std::make_unique<index::frmIndex>();
        m_window->resize(1280, 900);
        m_window->show();
        settle();
    }
    /// Lets everything happen that waits for a quiet moment.
    static void settle() { QTest::qWait(60); }
    /// The rows that the grid shows at once.
    int shownRows()
    {
        return grid().viewport()->height() / grid().verticalHeader()->defaultSectionSize() + 1;
    }

private:
    QString m_path;
    std::unique_ptr<index::frmIndex> m_window;
    FloorIndex m_floor;
};

void openBench(Windows& windows)
{
    const auto ours = [&] {
        windows.newWindow();
        return untilPainted(windows.grid(), [&] { windows.window().OpenIndex(windows.path()); });
    };
    const auto floor = [&] {
        windows.floor().closeFile();
        return untilPainted(windows.floor().view(), [&] {
            windows.floor().openFile(windows.path());
            windows.floor().showFirst(windows.shownRows());
        });
    };
    report(u"open-100k"_s, middleOf(runs, ours, floor), u"ms"_s);
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
    report(u"sort-100k"_s, middleOf(runs, ours, floor), u"ms"_s);
}

void jumpBench(Windows& windows)
{
    const auto ours = [&] {
        QTest::keyClick(&windows.grid(), Qt::Key_Home, Qt::ControlModifier);
        Windows::settle();
        return untilPainted(windows.grid(), [&] {
            QTest::keyClick(&windows.grid(), Qt::Key_End, Qt::ControlModifier);
        });
    };
    const auto floor = [&] {
        windows.floor().showFirst(windows.shownRows());
        Windows::settle();
        return untilPainted(windows.floor().view(),
                            [&] { windows.floor().showLast(windows.shownRows()); });
    };
    report(u"jump-100k"_s, middleOf(runs, ours, floor), u"ms"_s);
}

} // namespace

void runIndexBenches(const QString& only)
{
    const bool open = asked(only, u"open-100k"_s);
    const bool sort = asked(only, u"sort-100k"_s);
    const bool jump = asked(only, u"jump-100k"_s);
    if (!open && !sort && !jump)
        return;
    Windows windows;
    if (open)
        openBench(windows);
    windows.newWindow();
    windows.window().OpenIndex(windows.path());
    windows.floor().openFile(windows.path());
    Windows::settle();
    if (jump)
        jumpBench(windows);
    if (sort)
        sortBench(windows);
}

} // namespace ostrand::bench
