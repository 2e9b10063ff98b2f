// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "viewing/reports/totals.h"

#include "viewing/reports/measures.h"

#include <QCoreApplication>

#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

namespace ostrand::viewing::reports {
namespace {

constexpr int padding = fromMillimetres(1);
constexpr int levelIndent = fromMillimetres(5);
constexpr int mostLabelWidth = fromMillimetres(120);
constexpr int usualNumberWidth = fromMillimetres(26);

QString tr(const char* text)
{
    return QCoreApplication::translate("Reports", text);
}

} // namespace

QString groupLabel(const Group& group, const Row& row)
{
    const QString& value = row[group.field];
    if (group.caption.isEmpty())
        return value.isEmpty() ? tr("(none)") : value;
    return group.caption + u": "_s + (value.isEmpty() ? tr("(none)") : value);
}

Totals::Totals(const Description& report, const Typefaces& faces, int width)
    : m_report(report),
      m_faces(faces),
      m_all(emptyLine(tr("Total"), 0)),
      m_seen(report.totals.size())
{
    const int numbers = static_cast<int>(report.totals.size()) + 1;
    m_numberWidth = std::min(usualNumberWidth, width / (numbers + 2));
    m_labelWidth = std::min(mostLabelWidth, width - numbers * m_numberWidth);
}

Totals::Line Totals::emptyLine(const QString& label, int level) const
{
    return {label, level, std::vector<qint64>(m_report.totals.size() + 1)};
}

void Totals::add(const Row& row, int level)
{
    m_open.resize(std::min(m_open.size(), static_cast<std::size_t>(level)));
    for (std::size_t i = m_open.size(); i < m_report.groups.size(); ++i) {
        m_open.push_back({m_lines.size(), std::vector<QSet<QString>>(m_report.totals.size())});
        m_lines.push_back(emptyLine(groupLabel(m_report.groups[i], row), static_cast<int>(i)));
    }
    for (Count& open : m_open)
        count(row, m_lines[open.line], open.seen);
    count(row, m_all, m_seen);
}

void Totals::count(const Row& row, Line& line, std::vector<QSet<QString>>& seen) const
{
    ++line.numbers[0];
    for (std::size_t i = 0; i < m_report.totals.size(); ++i) {
        const Total& total = m_report.totals[i];
        if (total.distinct) {
            const QString text = total.distinct(row);
            if (!text.isEmpty())
                seen[i].insert(text);
            line.numbers[i + 1] = seen[i].size();
        } else if (total.count) {
            line.numbers[i + 1] += total.count(row);
        }
    }
}

void Totals::addNumbers(Band& band, const std::vector<QString>& texts, const Typeface& face) const
{
    int x = m_labelWidth;
    for (const QString& text : texts) {
        band.add({TextBlock(text, face, m_numberWidth - 2 * padding, Align::Right), x + padding});
        x += m_numberWidth;
    }
    band.lineHeight = m_faces.body.lineHeight();
    band.above = band.below = padding / 2;
    band.boxes = {0};
    for (std::size_t i = 0; i <= texts.size(); ++i)
        band.boxes.push_back(m_labelWidth + static_cast<int>(i) * m_numberWidth);
}

Block Totals::heads(bool continued) const
{
    Band band;
    const QString title = continued ? tr("Totals (continued)") : tr("Totals");
    band.add({TextBlock(title, m_faces.bold, m_labelWidth - 2 * padding), padding});
    std::vector<QString> captions{tr("Tags")};
    for (const Total& total : m_report.totals)
        captions.push_back(total.caption);
    addNumbers(band, captions, m_faces.bold);
    band.shaded = true;
    Block block;
    block.add(std::move(band));
    return block;
}

Block Totals::line(int number) const
{
    const bool all = number == static_cast<int>(m_lines.size());
    const Line& line = all ? m_all : m_lines[static_cast<std::size_t>(number)];
    const Typeface& face = all || line.level == 0 ? m_faces.bold : m_faces.body;
    const int indent = padding + line.level * levelIndent;
    Band band;
    band.add({TextBlock::cut(line.label, face, m_labelWidth - indent - padding), indent});
    std::vector<QString> numbers;
    for (const qint64 value : line.numbers)
        numbers.push_back(QString::number(value));
    addNumbers(band, numbers, face);
    band.shaded = all;
    Block block;
    block.add(std::move(band));
    return block;
}

} // namespace ostrand::viewing::reports
