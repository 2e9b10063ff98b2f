// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "datasheets/session_cases.h"
#include "office/office_desk.h"
#include "office/office_display.h"
#include "spreadsheet/host.h"

using namespace ostrand;
using namespace ostrand::tests;

int main(int argc, char* argv[])
{
    const OfficeDisplay display;
    const QApplication application(argc, argv);
    spreadsheet::setHostSettings({.folder = QStringLiteral(OSTRAND_BIN_DIR)});
    SessionCases cases([] { return std::make_unique<OfficeDesk>(); });
    const int failures = QTest::qExec(&cases, argc, argv);
    spreadsheet::endHost();
    return failures;
}
