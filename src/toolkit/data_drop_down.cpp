// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "toolkit/data_drop_down.h"

#include "toolkit/data_control.h"

namespace ostrand::toolkit {

DataDropDown::DataDropDown(QObject* parent)
    : QObject(parent)
{
}

void DataDropDown::setDataControl(DataControl* control)
{
    if (m_control)
        m_control->disconnect(this);
    m_control = control;
    forget();
    if (m_control)
        connect(m_control, &DataControl::refreshed, this, &DataDropDown::forget);
}

void DataDropDown::setListField(const QString& field)
{
    m_field = field;
    forget();
}

void DataDropDown::forget()
{
    m_read = false;
    m_values.clear();
    m_failure.reset();
}

QStringList DataDropDown::values()
{
    if (!m_read) {
        try {
            m_values = readValues();
            m_read = true;
            m_failure.reset();
        } catch (const store::Error& error) {
            m_failure = error;
            return {};
        }
    }
    return m_values;
}

std::optional<store::Error> DataDropDown::takeFailure()
{
    auto failure = m_failure;
    m_failure.reset();
    return failure;
}

QStringList DataDropDown::readValues() const
{
    QStringList values;
    if (!m_control || !m_control->isOpen())
        return values;
    const auto scope = m_control->Database().readScope();
    store::Recordset& records = m_control->Recordset();
    const int field = m_field.isEmpty() ? 0 : records.FieldIndex(m_field);
    if (field < 0)
        return values;
    records.readAllKeys();
    values.reserve(records.knownRows());
    for (int i = 0; i < records.knownRows(); ++i) {
        if (const auto* row = records.row(i))
            values.append((*row)[static_cast<size_t>(field)].text());
    }
    return values;
}

void DataDropDown::setValue(const QString& text)
{
    Q_EMIT valueSet(text);
}

} // namespace ostrand::toolkit
