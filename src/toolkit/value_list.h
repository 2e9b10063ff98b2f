// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QAbstractListModel>
#include <QFrame>
#include <QLabel>
#include <QListView>
#include <QStringList>

#include <vector>

namespace ostrand::toolkit {

/// Values that hold a text, in any case; those that begin with it come first.
class FilteredValues final : public QAbstractListModel
{
    Q_OBJECT

public:
    using QAbstractListModel::QAbstractListModel;

    void setValues(const QStringList& values);
    void filter(const QString& text);
    void setRowHeight(int height) { m_rowHeight = height; }
    QString at(int row) const { return m_values.at(m_hits[static_cast<size_t>(row)]); }

    int rowCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;

private:
    QStringList m_values;
    std::vector<int> m_hits;
    int m_rowHeight = 0;
};

/// The list that drops from a cell. The keyboard stays with the cell's editor, which hands over
/// the keys that move in the list.
class ValueList final : public QFrame
{
    Q_OBJECT

public:
    explicit ValueList(QWidget* parent);

    /// Drops the list below (or above) a cell, all values in it, on the one that the cell holds.
    void
    drop(const QStringList& values, const QString& current, QWidget* editor, const QRect& cell);
    void filter(const QString& text);
    /// Moves in the list; true for a key that does.
    bool moveBy(int key);
    /// The highlighted value; a null text for none.
    QString highlighted() const;

Q_SIGNALS:
    void picked(const QString& value);

protected:
    bool eventFilter(QObject* object, QEvent* event) override;

private:
    void fit();
    int widestValue() const;
    void highlight(int row);

    FilteredValues m_values;
    QListView m_view;
    QLabel m_nothing; ///< takes the place of the list when no value holds the text
    QWidget* m_editor = nullptr;
    QRect m_cell;
    int m_width = 0;
};

} // namespace ostrand::toolkit
