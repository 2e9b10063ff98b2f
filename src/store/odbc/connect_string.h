// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QStringList>
#include <QStringView>

#include <utility>
#include <vector>

namespace ostrand::store::odbc {

/// A connect string taken apart: "ODBC;KEY=value;KEY={value; with }} signs};...". Keys are found
/// in any case; of one that stands twice the first counts, as for drivers.
class ConnectString
{
public:
    explicit ConnectString(QStringView text);

    /// "" for a key that is not there.
    QString value(QStringView key) const;
    /// Puts a value in the key's place, or behind all others.
    void set(const QString& key, const QString& value);
    void remove(QStringView key);
    /// As drivers take it: without "ODBC;" in front, and values in braces where they need them.
    QString text() const;
    /// The values that no message may show.
    QStringList secrets() const;

private:
    using Pair = std::pair<QString, QString>;

    std::vector<Pair> m_pairs;
};

/// A driver's words with passwords made unreadable, those in connect strings within it too.
QString withoutSecrets(QString words, const QStringList& secrets);

} // namespace ostrand::store::odbc
