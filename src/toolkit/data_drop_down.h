// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#pragma once

#include "toolkit/data_control.h"

#include <QObject>
#include <QPointer>
#include <QString>
#include <QStringList>

#include <optional>

namespace ostrand::toolkit {

/// A list of one or more fields of a data control's records, dropped from a cell of a grid. Its
/// rows are read when it is first dropped after a refresh.
class DataDropDown final : public QObject
{
    Q_OBJECT

public:
    explicit DataDropDown(QObject* parent = nullptr);

    void setDataControl(DataControl* control);
    DataControl* dataControl() const { return m_control; }
    /// The field whose value goes into the cell; the first of those shown.
    void setListField(const QString& field);

    /// The values offered, in the order of the recordset. Empty when the rows cannot be read.
    QStringList values();
    /// What kept the last `values` from reading the rows. Told once.
    std::optional<store::Error> takeFailure();
    /// Chooses a value: the current cell of the grid that the list hangs on takes it, and the row
    /// counts as changed.
    void setValue(const QString& text);

Q_SIGNALS:
    void valueSet(const QString& text);

private:
    void forget();
    QStringList readValues() const;

    QPointer<DataControl> m_control;
    QString m_field;
    QStringList m_values;
    std::optional<store::Error> m_failure;
    bool m_read = false;
};

} // namespace ostrand::toolkit
