// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "viewing/reports/report_data.h"

#include "store/database.h"
#include "store/recordset.h"
#include "viewing/reports/natural_order.h"

#include <QSet>

#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

namespace ostrand::viewing::reports {
namespace {

/// Gives equal texts one buffer: most values of an index stand in many rows.
class TextPool
{
public:
    QString shared(const QString& text)
    {
        constexpr qsizetype longest = 64;
        if (text.isEmpty() || text.size() > longest)
            return text;
        return *m_texts.insert(text);
    }

private:
    QSet<QString> m_texts;
};

std::vector<Row> readRows(const store::Database& file, const QString& select, TextPool& pool)
{
    const auto records = file.OpenSnapshot(select);
    const int fieldCount = records->FieldCount();
    QStringList names;
    for (int i = 0; i < fieldCount; ++i)
        names << records->FieldName(i);
    const auto fields = std::make_shared<const Fields>(names);
    records->readAllKeys();
    std::vector<Row> rows;
    rows.reserve(static_cast<std::size_t>(records->knownRows()));
    for (int i = 0; i < records->knownRows(); ++i) {
        const std::vector<store::Value>* values = records->row(i);
        if (values == nullptr)
            continue;
        std::vector<QString> texts;
        texts.reserve(values->size());
        for (const store::Value& value : *values)
            texts.push_back(pool.shared(value.text()));
        rows.emplace_back(fields, std::move(texts));
    }
    return rows;
}

/// Keys tie rows in any case, and blanks at the end do not count, as in the project's relations.
QString folded(QString key)
{
    while (key.endsWith(u' '))
        key.chop(1);
    return key.toCaseFolded();
}

QHash<QString, std::vector<Row>> byKey(std::vector<Row> rows, const QString& link)
{
    QHash<QString, std::vector<Row>> tied;
    if (link.isEmpty()) {
        if (!rows.empty())
            tied.insert(QString(), std::move(rows));
        return tied;
    }
    for (Row& row : rows) {
        const QString key = folded(row[link]);
        tied[key].push_back(std::move(row));
    }
    return tied;
}

/// Compares rows by the groups and then by the order. Rows that belong to no group stand last.
class Order
{
public:
    Order(const Description& report, const Fields& fields)
    {
        for (const Group& group : report.groups)
            m_groups.push_back(fields.at(group.field));
        for (const QString& field : report.sort)
            m_sort.push_back(fields.at(field));
    }

    bool operator()(const Row& a, const Row& b) const
    {
        for (const int place : m_groups) {
            const QString& left = a.at(place);
            const QString& right = b.at(place);
            if (left.isEmpty() != right.isEmpty())
                return right.isEmpty();
            if (const int order = compareExactly(left, right); order != 0)
                return order < 0;
        }
        for (const int place : m_sort) {
            if (const int order = compareNatural(a.at(place), b.at(place)); order != 0)
                return order < 0;
        }
        return false;
    }

private:
    /// Texts that differ in case alone are groups of their own, and must not mix.
    static int compareExactly(const QString& a, const QString& b)
    {
        if (a == b)
            return 0;
        const int order = compareNatural(a, b);
        return order != 0 ? order : a.compare(b);
    }

    std::vector<int> m_groups;
    std::vector<int> m_sort;
};

void filterAndSort(std::vector<Row>& rows, const Description& report)
{
    if (report.filter)
        std::erase_if(rows, [&](const Row& row) { return !report.filter(row); });
    if (!rows.empty())
        std::stable_sort(rows.begin(), rows.end(), Order(report, rows.front().fields()));
}

/// The picture that the project names; Null and a missing attribute are "".
QString readLogo(const store::Database& file)
{
    const auto records = file.OpenSnapshot(
        u"select attributeValue from qryProjectInfo where attributeName = 'logo file'"_s);
    return records->Eof() ? QString() : records->Field(0).text();
}

std::vector<const Subreport*> subreportsOf(const Description& report)
{
    std::vector<const Subreport*> all;
    for (const Section& section : report.sections) {
        for (const Subreport& subreport : section.subreports)
            all.push_back(&subreport);
    }
    return all;
}

} // namespace

Fields::Fields(const QStringList& names)
{
    for (int i = 0; i < names.size(); ++i) {
        m_places.insert(names[i], i);
        const QString folded = names[i].toCaseFolded();
        if (!m_places.contains(folded))
            m_places.insert(folded, i);
    }
}

int Fields::at(const QString& name) const
{
    // Names are mostly asked for as they were read, which needs no folding.
    const auto exact = m_places.constFind(name);
    return exact != m_places.constEnd() ? *exact : m_places.value(name.toCaseFolded(), -1);
}

Row::Row(std::shared_ptr<const Fields> fields, std::vector<QString> texts)
    : m_fields(std::move(fields)),
      m_texts(std::move(texts))
{
}

const QString& Row::operator[](const QString& field) const
{
    return at(m_fields->at(field));
}

const QString& Row::at(int place) const
{
    static const QString none;
    return place < 0 ? none : m_texts[static_cast<std::size_t>(place)];
}

const std::vector<Row>& ReportData::of(const QString& subreport, const QString& key) const
{
    static const std::vector<Row> none;
    const auto keys = subreports.constFind(subreport);
    if (keys == subreports.constEnd())
        return none;
    const auto tied = keys->constFind(folded(key));
    return tied == keys->constEnd() ? none : *tied;
}

ReportData read(const Description& report)
{
    ReportData data;
    TextPool pool;
    std::vector<const Subreport*> waiting = subreportsOf(report);
    const auto readFrom = [&](const store::Database& file, const QString& location) {
        for (const Subreport*& subreport : waiting) {
            if (subreport == nullptr || subreport->source.location != location)
                continue;
            data.subreports.insert(
                subreport->name,
                byKey(readRows(file, subreport->source.select, pool), subreport->link));
            subreport = nullptr;
        }
        std::erase(waiting, nullptr);
    };
    {
        const QString& location = report.source.location;
        const auto file =
            store::DBEngine::OpenDatabase(location, store::DBEngine::Access::ReadOnly);
        const auto moment = file.readScope();
        data.rows = readRows(file, report.source.select, pool);
        data.logoFile = readLogo(file);
        readFrom(file, location);
    }
    while (!waiting.empty()) {
        const QString location = waiting.front()->source.location;
        const auto file =
            store::DBEngine::OpenDatabase(location, store::DBEngine::Access::ReadOnly);
        const auto moment = file.readScope();
        readFrom(file, location);
    }
    filterAndSort(data.rows, report);
    return data;
}

} // namespace ostrand::viewing::reports
