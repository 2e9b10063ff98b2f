// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "floor_table.h"

#include "store/collation.h"

#include <QHeaderView>

#include <sqlite3.h>

#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

namespace ostrand::bench {
namespace {

class StaticModel final : public QAbstractTableModel
{
public:
    StaticModel(std::vector<QStringList> rows, QStringList columns)
        : m_rows(std::move(rows)),
          m_columns(std::move(columns))
    {
    }
    int rowCount(const QModelIndex& parent) const override
    {
        return parent.isValid() ? 0 : static_cast<int>(m_rows.size());
    }
    int columnCount(const QModelIndex& parent) const override
    {
        return parent.isValid() ? 0 : static_cast<int>(m_columns.size());
    }
    QVariant data(const QModelIndex& index, int role) const override
    {
        if (role != Qt::DisplayRole)
            return {};
        return m_rows[static_cast<std::size_t>(index.row())][index.column()];
    }
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override
    {
        if (role != Qt::DisplayRole || orientation != Qt::Horizontal)
            return {};
        return m_columns[section];
    }

private:
    std::vector<QStringList> m_rows;
    QStringList m_columns;
};

} // namespace

FloorTable::FloorTable(QStringList columns, QByteArray table, QByteArray key)
    : m_columns(std::move(columns)),
      m_table(std::move(table)),
      m_key(std::move(key))
{
}

FloorTable::~FloorTable()
{
    closeFile();
}

void FloorTable::makeView(const QTableView& grid)
{
    m_view = std::make_unique<QTableView>();
    m_view->setFont(grid.font());
    m_view->resize(grid.size());
    m_view->verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    m_view->verticalHeader()->setDefaultSectionSize(grid.verticalHeader()->defaultSectionSize());
    m_view->horizontalHeader()->setDefaultSectionSize(grid.horizontalHeader()->sectionSize(0));
    m_view->show();
}

FloorTable::Statement FloorTable::prepare(const QByteArray& sql) const
{
    sqlite3_stmt* statement = nullptr;
    if (sqlite3_prepare_v2(m_file, sql.constData(), -1, &statement, nullptr) != SQLITE_OK)
        qFatal("%s", sqlite3_errmsg(m_file));
    return {statement, &sqlite3_finalize};
}

void FloorTable::openFile(const QString& path)
{
    closeFile();
    if (sqlite3_open(path.toUtf8().constData(), &m_file) != SQLITE_OK)
        qFatal("cannot open %s", qPrintable(path));
    store::registerCollation(m_file);
    m_statements = prepareStatements();
}

void FloorTable::closeFile()
{
    m_statements.clear();
    sqlite3_close(m_file);
    m_file = nullptr;
}

QString FloorTable::textOf(sqlite3_stmt* statement, int column)
{
    const auto* text = reinterpret_cast<const char*>(sqlite3_column_text(statement, column));
    return QString::fromUtf8(text, sqlite3_column_bytes(statement, column));
}

std::vector<long long> FloorTable::readKeys(const QByteArray& order, int most, bool backwards) const
{
    const Statement statement = prepare("SELECT rowid FROM " + m_table + " ORDER BY " + order);
    std::vector<long long> keys;
    while (sqlite3_step(statement.get()) == SQLITE_ROW)
        keys.push_back(sqlite3_column_int64(statement.get(), 0));
    keys.resize(std::min(keys.size(), static_cast<std::size_t>(most)));
    if (backwards)
        std::reverse(keys.begin(), keys.end());
    return keys;
}

void FloorTable::show(const std::vector<long long>& keys)
{
    std::vector<QStringList> rows;
    rows.reserve(keys.size());
    sqlite3_exec(m_file, "BEGIN", nullptr, nullptr, nullptr);
    for (const long long key : keys)
        rows.push_back(readRow(key));
    for (const Statement& statement : m_statements)
        sqlite3_reset(statement.get());
    sqlite3_exec(m_file, "COMMIT", nullptr, nullptr, nullptr);
    auto model = std::make_unique<StaticModel>(std::move(rows), m_columns);
    m_view->setModel(model.get());
    m_model = std::move(model);
}

void FloorTable::showFirst(int rows)
{
    show(readKeys(m_key + " LIMIT " + QByteArray::number(rows), rows, false));
}

void FloorTable::showSorted(const QByteArray& column, int rows)
{
    show(readKeys('"' + column + '"', rows, false));
}

void FloorTable::showLast(int rows)
{
    show(readKeys(m_key + " DESC LIMIT " + QByteArray::number(rows), rows, true));
    m_view->scrollTo(
        m_model->index(static_cast<int>(rows) - 1, static_cast<int>(m_columns.size()) - 1));
}

} // namespace ostrand::bench
