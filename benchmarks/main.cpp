// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
//
// ostrand-bench [NAME]: one line of JSON for each benchmark. Settings are its own and not kept.
#include "app/CRegHndlr.h"
#include "app/program.h"
#include "app/state.h"
#include "measure.h"

#include <QApplication>
#include <QSettings>
#include <QTemporaryDir>

int main(int argc, char* argv[])
{
    using namespace ostrand;
    const QApplication application(argc, argv);
    const QTemporaryDir settings;
    app::nameApplication();
    QSettings::setDefaultFormat(QSettings::IniFormat);
    QSettings::setPath(QSettings::IniFormat, QSettings::UserScope, settings.path());
    app::g_objRegHndlr = std::make_unique<app::CRegHndlr>();

    const QStringList words = QApplication::arguments();
    if (words.size() == 3 && words[1] == QLatin1StringView("--memory"))
        return bench::measureMemory(words[2].toInt());
    if (words.value(1) == QLatin1StringView("--report-memory"))
        return bench::measureReportMemory();
    const QString only = words.value(1);
    bench::runIndexBenches(only);
    bench::runDocumentsBenches(only);
    bench::runDatasheetBenches(only);
    bench::runMemoryBenches(only);
    bench::runPopulateBenches(only);
    bench::runLinkBenches(only);
    bench::runLogoBenches(only);
    bench::runReportBenches(only);
    app::g_objRegHndlr.reset();
    return 0;
}
