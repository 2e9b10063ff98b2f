// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "floor_index.h"

#include "index/index_columns.h"

#include <sqlite3.h>

using namespace Qt::StringLiterals;

namespace ostrand::bench {
namespace {

constexpr std::size_t rowStatement = 0; ///< those of the documents follow

QStringList columnNames()
{
    QStringList names;
    for (const toolkit::GridColumn& column : index::indexColumns())
        names << column.name;
    return names;
}

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

} // namespace

FloorIndex::FloorIndex()
    : FloorTable(columnNames(), "\"index\"", "PlantItemNo")
{
}

std::vector<FloorTable::Statement> FloorIndex::prepareStatements()
{
    std::vector<Statement> statements;
    statements.push_back(prepare("SELECT " + rowFields() + " FROM qryIndex WHERE \"~key\" = ?1"));
    for (const index::DocumentKind& kind : index::documentKinds()) {
        const QByteArray literal = QString::fromUtf16(kind.literal).toUtf8();
        statements.push_back(
            prepare("SELECT x.docNo FROM itemDocXRef x JOIN document d ON d.docNo = x.docNo"
                    " WHERE x.PlantItemNo = ?1 AND (d.docType = '"
                    + literal + "' OR x.context = '" + literal + "')"));
    }
    return statements;
}

/// The cells of a row: its fields and its five documents.
QStringList FloorIndex::readRow(long long key)
{
    sqlite3_stmt* row = statement(rowStatement);
    sqlite3_reset(row);
    sqlite3_bind_int64(row, 1, key);
    sqlite3_step(row);
    QStringList cells;
    for (int i = 0; cells.size() < columns().size(); ++i)
        cells << textOf(row, i);
    for (std::size_t kind = 0; kind < index::documentKinds().size(); ++kind) {
        sqlite3_stmt* document = statement(kind + 1);
        sqlite3_reset(document);
        const QByteArray tag = cells[0].toUtf8();
        sqlite3_bind_text(document, 1, tag.constData(), -1, SQLITE_TRANSIENT);
        if (sqlite3_step(document) == SQLITE_ROW)
            cells[index::documentKinds()[kind].column] = textOf(document, 0);
    }
    return cells;
}

} // namespace ostrand::bench
