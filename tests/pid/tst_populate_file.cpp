// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "pid/pid_file.h"
#include "pid/populate_cases.h"

using namespace ostrand::tests;

int main(int argc, char* argv[])
{
    const QApplication application(argc, argv);
    PopulateCases cases([] { return std::make_unique<PidFile>(); });
    return QTest::qExec(&cases, argc, argv);
}
