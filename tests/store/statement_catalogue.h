// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QStringList>

#include <vector>

/// Every statement that the program sends, with values of the small project in memory.
namespace ostrand::tests {

struct QueryCase
{
    const char* name;
    QString statement;
    QStringList rows;
};

struct ActionCase
{
    const char* name;
    QString statement;
    QByteArray check; ///< a select of SQLite's own dialect that shows what the statement did
    QStringList rows;
};

std::vector<QueryCase> queryCases();
std::vector<ActionCase> actionCases();
/// The statements of both, and criteria of FindFirst.
QStringList allStatements();
QStringList criteria();

} // namespace ostrand::tests
