// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "toolkit/grid_model.h"

#include "toolkit/data_control.h"
#include "toolkit/grid_reading.h"
#include "toolkit/row_buffer.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace ostrand::toolkit {

namespace {

/// No cell is wide enough for more, and measuring a whole memo for each paint would cost.
constexpr qsizetype longestShown = 500;

/// The first line, with an ellipsis where more follows.
QString oneLine(const QString& text)
{
    const auto isBreak = [](QChar c) { return c == u'\n' || c == u'\r'; };
    const auto end = std::find_if(text.begin(), text.end(), isBreak);
    const qsizetype length = std::min<qsizetype>(end - text.begin(), longestShown);
    if (length == text.size())
        return text;
    return QString(text.left(length) + u" \u2026"_s);
}

} // namespace

DataGridModel::DataGridModel(const RowBuffer& buffer,
                             const UnboundCells& unbound,
                             GridReading& reading,
                             QObject* parent)
    : QAbstractTableModel(parent),
      m_buffer(buffer),
      m_unbound(unbound),
      m_reading(reading)
{
}

void DataGridModel::addColumn(const GridColumn& column)
{
    const int number = columnCount();
    beginInsertColumns({}, number, number);
    m_columns.push_back(column);
    m_fields.push_back(-1);
    endInsertColumns();
}

bool DataGridModel::hasUnboundColumns() const
{
    return std::any_of(m_columns.begin(), m_columns.end(), [](const GridColumn& column) {
        return column.field.isEmpty();
    });
}

void DataGridModel::setCaption(int number, const QString& caption)
{
    m_columns[static_cast<size_t>(number)].caption = caption;
    Q_EMIT headerDataChanged(Qt::Horizontal, number, number);
}

void DataGridModel::setDataControl(DataControl* control)
{
    m_control = control;
    reload();
}

void DataGridModel::setAllowAddNew(bool allow)
{
    if (m_allowAddNew == allow)
        return;
    m_allowAddNew = allow;
    reload();
}

store::Recordset* DataGridModel::recordset() const
{
    return m_control && m_control->isOpen() ? &m_control->Recordset() : nullptr;
}

bool DataGridModel::wantsNewRow() const
{
    const store::Recordset* records = recordset();
    return m_allowAddNew && records && records->Updatable();
}

void DataGridModel::reload()
{
    beginResetModel();
    try {
        readShape();
    } catch (const store::Error&) {
        m_records = 0;
        m_hasNewRow = false;
        std::fill(m_fields.begin(), m_fields.end(), -1);
    }
    endResetModel();
}

void DataGridModel::readShape()
{
    const store::Recordset* records = recordset();
    m_records = records ? records->knownRows() : 0;
    m_hasNewRow = wantsNewRow();
    for (size_t i = 0; i < m_columns.size(); ++i) {
        const QString& field = m_columns[i].field;
        m_fields[i] = records && !field.isEmpty() ? records->FieldIndex(field) : -1;
    }
}

void DataGridModel::takeNewRecords()
{
    const int known = recordset() ? recordset()->knownRows() : 0;
    if (known <= m_records)
        return;
    beginInsertRows({}, m_records, known - 1);
    m_records = known;
    endInsertRows();
}

void DataGridModel::insertRecord(int position, bool ahead)
{
    const int row = ahead || !m_hasNewRow ? position : position + 1;
    beginInsertRows({}, row, row);
    ++m_records;
    endInsertRows();
    showRowAgain(position);
}

void DataGridModel::removeRecord(int position)
{
    if (!isRecord(position))
        return;
    beginRemoveRows({}, position, position);
    --m_records;
    endRemoveRows();
}

void DataGridModel::showRowAgain(int row)
{
    if (row < 0 || row >= rowCount() || m_columns.empty())
        return;
    Q_EMIT dataChanged(index(row, 0), index(row, columnCount() - 1));
    Q_EMIT headerDataChanged(Qt::Vertical, row, row);
}

int DataGridModel::rowUnderEdit() const
{
    if (m_buffer.kind() == RowBuffer::Kind::Add)
        return newRow();
    if (m_buffer.kind() == RowBuffer::Kind::Edit && recordset())
        return recordset()->positionOf(m_buffer.mark()).value_or(-1);
    return -1;
}

bool DataGridModel::isUnderEdit(int row) const
{
    if (m_buffer.kind() == RowBuffer::Kind::Edit)
        return markOf(row) == m_buffer.mark();
    return m_buffer.kind() == RowBuffer::Kind::Add && row >= 0 && row == newRow();
}

std::optional<store::RowMark> DataGridModel::markOf(int row) const
{
    const store::Recordset* records = recordset();
    if (!records || !isRecord(row) || row >= records->knownRows())
        return std::nullopt;
    return records->markAt(row);
}

bool DataGridModel::isGone(int row) const
{
    return markOf(row) && !recordset()->row(row);
}

store::Value DataGridModel::editedValue(int column) const
{
    if (const store::Value* typed = m_buffer.cell(column))
        return *typed;
    const store::Recordset* records = recordset();
    if (!records)
        return {};
    if (!isUnbound(column) && records->editMode() != store::EditMode::None)
        return fieldIndex(column) < 0 ? store::Value() : records->Field(fieldIndex(column));
    if (m_buffer.kind() != RowBuffer::Kind::Edit)
        return {};
    if (isUnbound(column))
        return m_unbound.value(m_buffer.mark(), column);
    return storedValue(rowUnderEdit(), column);
}

store::Value DataGridModel::value(int row, int column) const
{
    return isUnderEdit(row) ? editedValue(column) : storedValue(row, column);
}

store::Value DataGridModel::storedValue(int row, int column) const
{
    const auto mark = markOf(row);
    if (!mark)
        return {};
    if (isUnbound(column))
        return m_unbound.value(*mark, column);
    const std::vector<store::Value>* values = recordset()->row(row);
    const int field = fieldIndex(column);
    return values && field >= 0 ? (*values)[static_cast<size_t>(field)] : store::Value();
}

int DataGridModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : m_records + (m_hasNewRow ? 1 : 0);
}

int DataGridModel::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_columns.size());
}

QString DataGridModel::text(const QModelIndex& cell) const
{
    if (isGone(cell.row()))
        return tr("#Deleted");
    return value(cell.row(), cell.column()).text();
}

/// Asked for while painting: a file that cannot be read just now leaves the cells empty, but for
/// those that were typed.
QString DataGridModel::cellText(const QModelIndex& index) const
{
    QString shown;
    if (m_reading.attempt([&] { shown = text(index); }))
        return shown;
    return typedText(index);
}

QString DataGridModel::typedText(const QModelIndex& index) const
{
    const store::Value* typed = m_buffer.cell(index.column());
    try {
        return typed && isUnderEdit(index.row()) ? typed->text() : QString();
    } catch (const store::Error&) {
        return {}; // a closed recordset has no rows to be under edit
    }
}

QVariant DataGridModel::data(const QModelIndex& index, int role) const
{
    switch (role) {
    case Qt::DisplayRole:
        return oneLine(cellText(index));
    case Qt::EditRole:
    case Qt::AccessibleTextRole:
        return cellText(index);
    default:
        return {};
    }
}

QVariant DataGridModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation == Qt::Horizontal)
        return role == Qt::DisplayRole ? column(section).caption : QVariant();
    if (role != Qt::AccessibleTextRole)
        return {};
    return section == newRow() ? tr("New record") : tr("Record %1").arg(section + 1);
}

Qt::ItemFlags DataGridModel::flags(const QModelIndex& index) const
{
    if (!index.isValid())
        return Qt::NoItemFlags;
    return Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemIsEditable | Qt::ItemNeverHasChildren;
}

} // namespace ostrand::toolkit
