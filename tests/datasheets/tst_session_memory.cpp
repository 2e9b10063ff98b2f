// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "datasheets/memory_desk.h"
#include "datasheets/session_cases.h"

using namespace ostrand::tests;

int main(int argc, char* argv[])
{
    const QApplication application(argc, argv);
    SessionCases cases([] { return std::make_unique<MemoryDesk>(); });
    return QTest::qExec(&cases, argc, argv);
}
