// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "bench_data.h"
#include "index/frmIndex.h"
#include "measure.h"
#include "toolkit/data_grid.h"

#include <QCoreApplication>
#include <QProcess>
#include <QTest>

#include <cstdio>

using namespace Qt::StringLiterals;

namespace ostrand::bench {
namespace {

constexpr int fewer = 100'000;
constexpr int more = 200'000;
constexpr double mostMegabytes = 150;

double megabytesWith(int tags)
{
    projectOf(tags);
    QProcess process;
    process.start(QCoreApplication::applicationFilePath(), {u"--memory"_s, QString::number(tags)});
    process.waitForFinished(-1);
    return process.readAllStandardOutput().trimmed().toDouble();
}

} // namespace

int measureMemory(int tags)
{
    index::frmIndex window;
    window.resize(1280, 900);
    window.show();
    window.OpenIndex(projectOf(tags));
    QTest::qWait(300);
    auto* grid = window.findChild<toolkit::DataGrid*>(u"GridIndex"_s);
    QTest::keyClick(grid, Qt::Key_End, Qt::ControlModifier);
    QTest::qWait(100);
    window.Sort(1);
    QTest::qWait(300);
    QTest::keyClick(grid, Qt::Key_End, Qt::ControlModifier);
    QTest::qWait(100);
    std::printf("%.2f\n", statusMegabytes("VmRSS:"));
    return 0;
}

/// The first line has the most that is allowed as its floor, the second the figure of the first.
void runMemoryBenches(const QString& only)
{
    if (!asked(only, u"memory-100k"_s) && !asked(only, u"memory-200k"_s))
        return;
    const double first = megabytesWith(fewer);
    report(u"memory-100k"_s, {first, mostMegabytes}, u"MB"_s);
    report(u"memory-200k"_s, {megabytesWith(more), first}, u"MB"_s);
}

} // namespace ostrand::bench
