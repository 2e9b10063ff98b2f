// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "pid/equal_instruments.h"

#include "store/collation.h"
#include "store/database.h"
#include "store/folding.h"
#include "store/recordset.h"

#include <algorithm>
#include <map>
#include <utility>

using namespace Qt::StringLiterals;

namespace ostrand::pid {
namespace {

constexpr qsizetype longestPlainTag = 1024; ///< far below the longest pattern that LIKE takes

/// Numbers texts so that those which the engine finds equal have the same number.
class EqualTexts
{
public:
    int numberOf(const QString& text)
    {
        const auto found = m_exact.constFind(text);
        if (found != m_exact.cend())
            return *found;
        const int number = m_equal.emplace(text, static_cast<int>(m_equal.size())).first->second;
        m_exact.insert(text, number);
        return number;
    }

private:
    struct Before
    {
        bool operator()(const QString& a, const QString& b) const
        {
            return store::compareText(a, b) < 0;
        }
    };

    QHash<QString, int> m_exact;
    std::map<QString, int, Before> m_equal;
};

/// LIKE sees a whole number as its digits; every other number is better left to the engine.
bool canBeCounted(const Instrument& instrument)
{
    return instrument.function.isText() && (instrument.tag.isText() || instrument.tag.isInteger());
}

bool isPlainTag(const QString& tag)
{
    static const QString special = u"*?#['"_s;
    return tag.size() <= longestPlainTag
           && std::none_of(tag.cbegin(), tag.cend(), [](QChar c) { return special.contains(c); });
}

} // namespace

EqualInstruments::EqualInstruments(const store::Database& pid,
                                   bool isServer,
                                   const std::vector<Instrument>& all)
    : m_pid(pid),
      m_table(isServer ? u"[PID_Components_Instruments]"_s : u"[Components-Instruments]"_s),
      m_all(all)
{
    if (!isServer && std::all_of(all.cbegin(), all.cend(), canBeCounted))
        countAll();
}

void EqualInstruments::countAll()
{
    EqualTexts functions;
    QHash<std::pair<int, QString>, int> groups;
    m_groupOf.reserve(m_all.size());
    for (const Instrument& instrument : m_all) {
        const std::pair key(functions.numberOf(instrument.function.text()),
                            store::foldCase(instrument.tag.text()));
        auto group = groups.find(key);
        if (group == groups.end()) {
            group = groups.insert(key, static_cast<int>(m_sizes.size()));
            m_sizes.push_back(0);
        }
        m_groupOf.push_back(*group);
        ++m_sizes[static_cast<std::size_t>(*group)];
    }
}

qint64 EqualInstruments::count(std::size_t instrument) const
{
    const Instrument& wanted = m_all[instrument];
    const bool isCounted = !m_groupOf.empty() && isPlainTag(wanted.tag.text())
                           && !wanted.function.text().contains(u'\'');
    return isCounted ? m_sizes[static_cast<std::size_t>(m_groupOf[instrument])]
                     : countByStatement(wanted);
}

qint64 EqualInstruments::countByStatement(const Instrument& instrument) const
{
    const auto rows =
        m_pid.OpenRecordset(u"Select count(*) as total from "_s + m_table + u" WHERE "_s + m_table
                            + u".FUNCTION_ ='"_s + instrument.function.text() + u"' AND "_s
                            + m_table + u".TAG_ LIKE '"_s + instrument.tag.text() + u"'"_s);
    return rows->Field(u"total"_s).integer();
}

} // namespace ostrand::pid
