// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QAbstractTableModel>
#include <QString>
#include <QStringList>
#include <QTableView>

#include <memory>
#include <vector>

struct sqlite3;
struct sqlite3_stmt;

namespace ostrand::bench {

/// What the index window cannot do without, done with the bare tools: rows read through SQLite's C
/// API with queries prepared beforehand, and painted by a plain table view over a static model.
class FloorIndex
{
public:
    FloorIndex();
    ~FloorIndex();
    FloorIndex(const FloorIndex&) = delete;
    FloorIndex& operator=(const FloorIndex&) = delete;

    /// A view like the grid: its size, its columns, its row height.
    void makeView(const QTableView& grid);
    QTableView& view() { return *m_view; }

    /// Opens the file and prepares the queries.
    void openFile(const QString& path);
    void closeFile();
    /// Shows the first rows by tag, the first rows by a column, the last rows by tag.
    void showFirst(int rows);
    void showSorted(const QByteArray& column, int rows);
    void showLast(int rows);

private:
    using Statement = std::unique_ptr<sqlite3_stmt, int (*)(sqlite3_stmt*)>;

    Statement prepare(const QByteArray& sql) const;
    void show(const std::vector<long long>& keys);
    QStringList readRow(long long key);
    std::vector<long long> readKeys(const QByteArray& sql, int most, bool backwards) const;

    sqlite3* m_file = nullptr;
    std::vector<Statement> m_statements;
    std::unique_ptr<QTableView> m_view;
    std::unique_ptr<QAbstractTableModel> m_model;
    QStringList m_columns;
};

} // namespace ostrand::bench
