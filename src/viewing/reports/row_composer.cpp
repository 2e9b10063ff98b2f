// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "viewing/reports/row_composer.h"

#include "viewing/reports/measures.h"

#include <QStringList>

#include <algorithm>
#include <tuple>
#include <utility>

using namespace Qt::StringLiterals;

namespace ostrand::viewing::reports {
namespace {

constexpr int padding = fromMillimetres(0.9);    ///< between a text and the edges of its column
constexpr int rowPadding = fromMillimetres(0.5); ///< over and under the texts of a row
constexpr int underIndent = fromMillimetres(4);
constexpr int underPadding = fromMillimetres(0.2);
constexpr int underGap = fromMillimetres(5); ///< between texts that follow each other in a line

} // namespace

RowComposer::RowComposer(const Description& report,
                         const ReportData& data,
                         const Typefaces& faces,
                         int width)
    : m_report(report),
      m_data(data),
      m_faces(faces),
      m_width(width)
{
    double all = 0;
    for (const Column& column : report.columns)
        all += column.width;
    double reach = 0;
    m_places.push_back(0);
    for (const Column& column : report.columns) {
        reach += column.width;
        m_places.push_back(qRound(reach / all * width));
    }
    if (report.under.empty() && !report.card)
        m_edges = m_places;
    // Lines under nearly every row would break the rules between columns into stubs.
    m_framed = !report.card && !report.under.empty()
               && std::all_of(report.under.begin(), report.under.end(), [](const Under& under) {
                      return under.subreport.isEmpty();
                  });
}

Block RowComposer::compose(const Row& row) const
{
    return m_report.card ? card(row) : table(row);
}

Block RowComposer::heads() const
{
    Block block;
    if (m_report.card || m_report.columns.empty())
        return block;
    Band band = this->band(rowPadding, rowPadding);
    for (std::size_t i = 0; i < m_report.columns.size(); ++i) {
        const Column& column = m_report.columns[i];
        const int width = m_places[i + 1] - m_places[i] - 2 * padding;
        const Align align = column.right ? Align::Right : Align::Left;
        band.add({TextBlock(column.caption, m_faces.bold, width, align), m_places[i] + padding});
    }
    band.shaded = true;
    band.boxes = m_places;
    block.add(std::move(band));
    return block;
}

QString RowComposer::name(const Row& row) const
{
    const QString& key = row[m_report.key];
    return key.isEmpty() && !m_report.columns.empty() ? text(m_report.columns.front(), row) : key;
}

Block RowComposer::table(const Row& row) const
{
    Block block;
    Band band = this->band(rowPadding, m_report.under.empty() ? rowPadding : 0);
    for (std::size_t i = 0; i < m_report.columns.size(); ++i) {
        const int width = m_places[i + 1] - m_places[i];
        band.add(cell(m_report.columns[i], row, m_places[i], width));
    }
    if (m_framed)
        band.edges = m_places;
    block.add(std::move(band));
    addUnder(block, row, underIndent);
    return block;
}

QString RowComposer::text(const Column& column, const Row& row) const
{
    if (!column.subreport.isEmpty()) {
        QStringList lines;
        for (const Row& tied : m_data.of(column.subreport, row[m_report.key])) {
            const QString line = column.line ? column.line(tied) : QString();
            if (!line.isEmpty())
                lines << line;
        }
        return lines.join(u'\n');
    }
    return column.compose ? column.compose(row) : row[column.field];
}

Cell RowComposer::cell(const Column& column, const Row& row, int x, int width) const
{
    const bool warned = column.warn && column.warn(row);
    const Typeface& face = warned || column.bold ? m_faces.bold : m_faces.body;
    const Align align = column.right ? Align::Right : Align::Left;
    const QString shown = warned ? u"!  "_s + text(column, row) : text(column, row);
    return {TextBlock(shown, face, width - 2 * padding, align), x + padding, warned};
}

Cell RowComposer::caption(const QString& text, int x, int width) const
{
    return {TextBlock(text, m_faces.bold, width - 2 * padding), x + padding};
}

Band RowComposer::band(int above, int below) const
{
    Band band;
    band.lineHeight = m_faces.body.lineHeight();
    band.above = above;
    band.below = below;
    return band;
}

void RowComposer::addUnder(Block& block, const Row& row, int indent) const
{
    Flow flow{indent};
    for (const Under& under : m_report.under) {
        if (under.joined) {
            addJoined(block, flow, under, joinedText(under, row));
        } else {
            endFlow(block, flow);
            addLines(block, under, row, indent);
        }
    }
    endFlow(block, flow);
    if (!m_report.under.empty())
        block.padEnd(rowPadding);
}

QString RowComposer::joinedText(const Under& under, const Row& row) const
{
    if (under.columns.empty())
        return {};
    if (under.subreport.isEmpty())
        return text(under.columns.front(), row);
    QStringList texts;
    for (const Row& tied : m_data.of(under.subreport, row[m_report.key])) {
        const QString one = text(under.columns.front(), tied);
        if (!one.isEmpty())
            texts << one;
    }
    return texts.join(u", "_s);
}

void RowComposer::addJoined(Block& block, Flow& flow, const Under& under, const QString& text) const
{
    if (text.isEmpty())
        return;
    const auto place = [&] {
        const int x = flow.x;
        const Cell head = caption(under.caption, x, m_width / 2);
        const int start = under.caption.isEmpty() ? x : x + head.text.usedWidth() + 2 * padding;
        const int width = m_width - start - 2 * padding;
        return std::pair(head, Cell{TextBlock(text, m_faces.body, width), start + padding});
    };
    auto [head, cell] = place();
    if (flow.band && (cell.text.lineCount() > 1 || cell.x + cell.text.usedWidth() > m_width)) {
        endFlow(block, flow);
        std::tie(head, cell) = place();
    }
    if (!flow.band) {
        flow.band = band(underPadding, 0);
        if (m_framed)
            flow.band->edges = {0, m_width};
    }
    if (cell.text.lineCount() > 1) {
        flow.x = m_width;
    } else {
        flow.x = cell.x + cell.text.usedWidth() + underGap;
        cell.text = cell.text.narrowed();
    }
    if (!under.caption.isEmpty())
        flow.band->add(std::move(head));
    flow.band->add(std::move(cell));
}

void RowComposer::endFlow(Block& block, Flow& flow)
{
    if (flow.band)
        block.add(std::move(*flow.band));
    flow = {flow.start};
}

void RowComposer::addLines(Block& block, const Under& under, const Row& row, int indent) const
{
    if (under.columns.empty())
        return;
    bool first = true;
    const Cell head = caption(under.caption, indent, m_width / 2);
    const int start =
        under.caption.isEmpty() ? indent : indent + head.text.usedWidth() + 2 * padding;
    double all = 0;
    for (const Column& column : under.columns)
        all += column.width;
    const double scale = std::min(1.0, (m_width - start) / (all * fromMillimetres(1)));
    for (const Row& tied : m_data.of(under.subreport, row[m_report.key])) {
        Band band = this->band(0, 0);
        if (first && !under.caption.isEmpty())
            band.add(head);
        double reach = 0;
        for (const Column& column : under.columns) {
            const int x = start + qRound(reach * scale * fromMillimetres(1));
            reach += column.width;
            const int end = start + qRound(reach * scale * fromMillimetres(1));
            band.add(cell(column, tied, x, end - x));
        }
        block.add(std::move(band));
        first = false;
    }
}

} // namespace ostrand::viewing::reports
