// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "floor_index.h"

#include "index/index_columns.h"
#include "store/collation.h"

#include <QHeaderView>

#include <sqlite3.h>

#include <algorithm>

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

constexpr int rowStatement = 0; ///< those of the documents follow

/// The fields of the grid's columns in their order, with nothing in place of documents.
QByteArray rowFields()
{
    QByteArray fields;
    for (const toolkit::GridColumn& column : index::indexColumns()) {
        fields += fields.isEmpty() ? "" : ", ";
        fields += column.field.isEmpty() ? QByteArray("NULL")
                                         : QByteArray('"' + column.field.toUtf8() + '"');
    }
    return fields;
}

QString textOf(sqlite3_stmt* statement, int column)
{
    const auto* text = reinterpret_cast<const char*>(sqlite3_column_text(statement, column));
    return QString::fromUtf8(text, sqlite3_column_bytes(statement, column));
}

} // namespace

FloorIndex::FloorIndex()
{
    for (const toolkit::GridColumn& column : index::indexColumns())
        m_columns << column.name;
}

FloorIndex::~FloorIndex()
{
    closeFile();
}

void FloorIndex::makeView(const QTableView& grid)
{
    m_view = std::make_unique<QTableView>();
    m_view->setFont(grid.font());
    m_view->resize(grid.size());
    m_view->verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    m_view->verticalHeader()->setDefaultSectionSize(grid.verticalHeader()->defaultSectionSize());
    m_view->horizontalHeader()->setDefaultSectionSize(grid.horizontalHeader()->sectionSize(0));
    m_view->show();
}

FloorIndex::Statement FloorIndex::prepare(const QByteArray& sql) const
{
    sqlite3_stmt* statement = nullptr;
    if (sqlite3_prepare_v2(m_file, sql.constData(), -1, &statement, nullptr) != SQLITE_OK)
        qFatal("%s", sqlite3_errmsg(m_file));
    return {statement, &sqlite3_finalize};
}

void FloorIndex::openFile(const QString& path)
{
    closeFile();
    if (sqlite3_open(path.toUtf8().constData(), &m_file) != SQLITE_OK)
        qFatal("cannot open %s", qPrintable(path));
    store::registerCollation(m_file);
    m_statements.push_back(prepare("SELECT " + rowFields() + " FROM qryIndex WHERE \"~key\" = ?1"));
    for (const index::DocumentKind& kind : index::documentKinds()) {
        const QByteArray literal = QString::fromUtf16(kind.literal).toUtf8();
        m_statements.push_back(
            prepare("SELECT x.docNo FROM itemDocXRef x JOIN document d ON d.docNo = x.docNo"
                    " WHERE x.PlantItemNo = ?1 AND (d.docType = '"
                    + literal + "' OR x.context = '" + literal + "')"));
    }
}

void FloorIndex::closeFile()
{
    m_statements.clear();
    sqlite3_close(m_file);
    m_file = nullptr;
}

std::vector<long long> FloorIndex::readKeys(const QByteArray& sql, int most, bool backwards) const
{
    const Statement statement = prepare(sql);
    std::vector<long long> keys;
    while (sqlite3_step(statement.get()) == SQLITE_ROW)
        keys.push_back(sqlite3_column_int64(statement.get(), 0));
    keys.resize(std::min(keys.size(), static_cast<std::size_t>(most)));
    if (backwards)
        std::reverse(keys.begin(), keys.end());
    return keys;
}

/// The cells of a row: its fields and its five documents.
QStringList FloorIndex::readRow(long long key)
{
    sqlite3_stmt* row = m_statements[rowStatement].get();
    sqlite3_reset(row);
    sqlite3_bind_int64(row, 1, key);
    sqlite3_step(row);
    QStringList cells;
    for (int i = 0; cells.size() < m_columns.size(); ++i)
        cells << textOf(row, i);
    for (std::size_t kind = 0; kind < index::documentKinds().size(); ++kind) {
        sqlite3_stmt* document = m_statements[kind + 1].get();
        sqlite3_reset(document);
        const QByteArray tag = cells[0].toUtf8();
        sqlite3_bind_text(document, 1, tag.constData(), -1, SQLITE_TRANSIENT);
        if (sqlite3_step(document) == SQLITE_ROW)
            cells[index::documentKinds()[kind].column] = textOf(document, 0);
    }
    return cells;
}

void FloorIndex::show(const std::vector<long long>& keys)
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

void FloorIndex::showFirst(int rows)
{
    show(readKeys("SELECT rowid FROM \"index\" ORDER BY PlantItemNo LIMIT "
                      + QByteArray::number(rows),
                  rows,
                  false));
}

void FloorIndex::showSorted(const QByteArray& column, int rows)
{
    show(readKeys("SELECT rowid FROM \"index\" ORDER BY \"" + column + "\"", rows, false));
}

void FloorIndex::showLast(int rows)
{
    show(readKeys("SELECT rowid FROM \"index\" ORDER BY PlantItemNo DESC LIMIT "
                      + QByteArray::number(rows),
                  rows,
                  true));
    m_view->scrollTo(
        m_model->index(static_cast<int>(rows) - 1, static_cast<int>(m_columns.size()) - 1));
}

} // namespace ostrand::bench
