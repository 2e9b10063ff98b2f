// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <variant>

namespace ostrand::store {

/// What the values of a field stand for, where their own type does not tell.
enum class Meaning { Plain, Date, Flag };

/// One field value: Null, a whole number, a real number or a text. Dates are texts
/// "yyyy-MM-dd HH:mm:ss" (without the time part at midnight), booleans are -1 and 0.
class Value
{
public:
    Value() = default; ///< Null
    Value(const QString& text)
        : m_data(text)
    {
    }
    Value(qint64 number)
        : m_data(number)
    {
    }
    Value(int number)
        : m_data(qint64{number})
    {
    }
    Value(double number)
        : m_data(number)
    {
    }
    Value(bool flag)
        : m_data(flag ? qint64{-1} : qint64{0})
    {
    }
    Value(const char*) = delete;

    bool isNull() const { return std::holds_alternative<std::monostate>(m_data); }
    bool isText() const { return std::holds_alternative<QString>(m_data); }
    bool isInteger() const { return std::holds_alternative<qint64>(m_data); }
    bool isReal() const { return std::holds_alternative<double>(m_data); }

    /// The value joined to an empty text: Null gives "".
    QString text() const;
    /// Null or "".
    bool isNullOrEmpty() const;
    /// The value as a number; 0 for Null and for a text that is no number.
    double number() const;
    qint64 integer() const;
    /// True for any number but 0.
    bool flag() const { return number() != 0.0; }

    /// Same state and same value; texts exactly, with case.
    bool operator==(const Value& other) const = default;

private:
    std::variant<std::monostate, qint64, double, QString> m_data;
};

} // namespace ostrand::store
