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

/// What a grid window cannot do without, done with the bare tools: rows read through SQLite's C
/// API with queries prepared beforehand, and painted by a plain table view over a static model.
class FloorTable
{
public:
    virtual ~FloorTable();
    FloorTable(const FloorTable&) = delete;
    FloorTable& operator=(const FloorTable&) = delete;

    /// A view like the grid: its size, its columns, its row height.
    void makeView(const QTableView& grid);
    QTableView& view() { return *m_view; }

    /// Opens the file and prepares the queries.
    void openFile(const QString& path);
    void closeFile();
    /// Shows the first rows by key, the first rows by a column, the last rows by key.
    void showFirst(int rows);
    void showSorted(const QByteArray& column, int rows);
    void showLast(int rows);

protected:
    using Statement = std::unique_ptr<sqlite3_stmt, int (*)(sqlite3_stmt*)>;

    /// The grid's columns, and the table with its key as a statement names them.
    FloorTable(QStringList columns, QByteArray table, QByteArray key);

    /// The statements that `readRow` uses.
    virtual std::vector<Statement> prepareStatements() = 0;
    /// The cells of a row.
    virtual QStringList readRow(long long key) = 0;

    Statement prepare(const QByteArray& sql) const;
    sqlite3_stmt* statement(std::size_t number) const { return m_statements[number].get(); }
    const QStringList& columns() const { return m_columns; }
    static QString textOf(sqlite3_stmt* statement, int column);

private:
    void show(const std::vector<long long>& keys);
    std::vector<long long> readKeys(const QByteArray& order, int most, bool backwards) const;

    sqlite3* m_file = nullptr;
    std::vector<Statement> m_statements;
    std::unique_ptr<QTableView> m_view;
    std::unique_ptr<QAbstractTableModel> m_model;
    QStringList m_columns;
    QByteArray m_table;
    QByteArray m_key;
};

} // namespace ostrand::bench
