// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
//
// Exporting; OSTRAND_TEST_SOURCE names the kind of P&ID database.
#include "pid/export_cases.h"

int main(int argc, char* argv[])
{
    const QApplication application(argc, argv);
    // The driver manager keeps what it knows of a data source: there is one for all cases.
    const auto source = ostrand::tests::makeRunSource(QLatin1StringView{OSTRAND_TEST_SOURCE});
    ostrand::tests::ExportCases cases(*source);
    return QTest::qExec(&cases, argc, argv);
}
