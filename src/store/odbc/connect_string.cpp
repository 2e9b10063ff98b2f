// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "store/odbc/connect_string.h"

#include <QRegularExpression>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace ostrand::store::odbc {
namespace {

bool isSame(QStringView one, QStringView other)
{
    return one.compare(other, Qt::CaseInsensitive) == 0;
}

bool isSecret(QStringView key)
{
    return isSame(key, u"PWD") || isSame(key, u"PASSWORD");
}

/// Reads the value in braces at the front of `rest` and moves behind it.
QString takeBraced(QStringView& rest)
{
    QString value;
    qsizetype i = 1;
    for (; i < rest.size(); ++i) {
        if (rest[i] == u'}') {
            if (i + 1 >= rest.size() || rest[i + 1] != u'}')
                break;
            ++i;
        }
        value += rest[i];
    }
    rest = rest.sliced(std::min(i + 1, rest.size()));
    return value;
}

QStringView takeUntil(QStringView& rest, QChar end)
{
    const qsizetype found = rest.indexOf(end);
    const QStringView taken = found < 0 ? rest : rest.first(found);
    rest = found < 0 ? QStringView() : rest.sliced(found + 1);
    return taken;
}

/// The driver manager compares a data source's name as it stands, braces and all.
QString written(const QString& key, const QString& value)
{
    const bool needsBraces = value.contains(u';') || value.startsWith(u'{') || value.contains(u'}')
                             || value.trimmed().size() != value.size() || isSame(key, u"DRIVER");
    if (!needsBraces || isSame(key, u"DSN"))
        return value;
    return u'{' + QString(value).replace(u'}', "}}"_L1) + u'}';
}

} // namespace

ConnectString::ConnectString(QStringView text)
{
    QStringView rest = text;
    while (!rest.isEmpty()) {
        const qsizetype end = rest.indexOf(u';');
        const qsizetype sign = rest.indexOf(u'=');
        if (sign < 0 || (end >= 0 && end < sign)) {
            takeUntil(rest, u';'); // "ODBC", or nothing between two semicolons
            continue;
        }
        const QString key = takeUntil(rest, u'=').trimmed().toString();
        while (!rest.isEmpty() && rest.front() == u' ')
            rest = rest.sliced(1);
        const bool braced = rest.startsWith(u'{');
        QString value = braced ? takeBraced(rest) : QString();
        const QStringView behind = takeUntil(rest, u';').trimmed();
        if (!braced)
            value = behind.toString();
        if (!key.isEmpty())
            m_pairs.emplace_back(key, value);
    }
}

QString ConnectString::value(QStringView key) const
{
    for (const auto& [name, value] : m_pairs) {
        if (isSame(name, key))
            return value;
    }
    return {};
}

void ConnectString::set(const QString& key, const QString& value)
{
    for (Pair& pair : m_pairs) {
        if (isSame(pair.first, key)) {
            pair.second = value;
            return;
        }
    }
    m_pairs.emplace_back(key, value);
}

void ConnectString::remove(QStringView key)
{
    std::erase_if(m_pairs, [key](const Pair& pair) { return isSame(pair.first, key); });
}

QString ConnectString::text() const
{
    QString text;
    for (const auto& [key, value] : m_pairs)
        text += key + u'=' + written(key, value) + u';';
    return text;
}

QStringList ConnectString::secrets() const
{
    QStringList secrets;
    for (const auto& [key, value] : m_pairs) {
        if (isSecret(key) && !value.isEmpty())
            secrets << value;
    }
    return secrets;
}

QString withoutSecrets(QString words, const QStringList& secrets)
{
    static const QRegularExpression assigned(
        u"\\b(pwd|password)\\s*=\\s*(\\{(?:[^}]|\\}\\})*\\}|[^;\\s]*)"_s,
        QRegularExpression::CaseInsensitiveOption);
    words.replace(assigned, u"\\1=***"_s);
    for (const QString& secret : secrets)
        words.replace(secret, u"***"_s);
    return words;
}

} // namespace ostrand::store::odbc
