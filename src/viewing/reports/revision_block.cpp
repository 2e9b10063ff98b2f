// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "viewing/reports/revision_block.h"

#include "viewing/reports/measures.h"
#include "viewing/reports/natural_order.h"
#include "viewing/reports/sheet.h"

#include <QCoreApplication>
#include <QRegularExpression>

#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

namespace ostrand::viewing::reports {
namespace {

constexpr int padding = fromMillimetres(0.75);
constexpr std::size_t mostRevisions = 3;
constexpr int mostLines = 8; ///< of a revision; three such ones leave half of a small sheet
const QString dateField = u"Date"_s;

QString tr(const char* text)
{
    return QCoreApplication::translate("Reports", text);
}

/// A column with its width in millimetres; one has none and takes what is left.
struct RevisionColumn
{
    const char* caption;
    double width;
    QString field;
};
const RevisionColumn columns[] = {
    {QT_TRANSLATE_NOOP("Reports", "NO"), 12, u"RevNo"_s},
    {QT_TRANSLATE_NOOP("Reports", "DATE"), 22, dateField},
    {QT_TRANSLATE_NOOP("Reports", "DESCRIPTION"), 0, u"Description"_s},
    {QT_TRANSLATE_NOOP("Reports", "BY"), 26, u"createdBy"_s},
    {QT_TRANSLATE_NOOP("Reports", "CHK"), 26, u"checkedBy"_s},
    {QT_TRANSLATE_NOOP("Reports", "APPR"), 26, u"approvedBy"_s},
};

/// The last revisions, the newest first.
std::vector<Row> newest(std::vector<Row> revisions)
{
    const auto later = [](const Row& a, const Row& b) {
        const int date = compareNatural(a[dateField], b[dateField]);
        return date != 0 ? date > 0 : compareNatural(a[u"RevNo"_s], b[u"RevNo"_s]) > 0;
    };
    std::stable_sort(revisions.begin(), revisions.end(), later);
    if (revisions.size() > mostRevisions)
        revisions.erase(revisions.begin() + mostRevisions, revisions.end());
    return revisions;
}

/// A date goes without its time; other texts stay as they are.
QString shownText(const RevisionColumn& column, const Row& revision)
{
    const QString& text = revision[column.field];
    if (column.field != dateField)
        return text;
    static const QRegularExpression moment(
        u"^(\\d{4}-\\d{2}-\\d{2})[ T]\\d{2}:\\d{2}(:\\d{2}(\\.\\d+)?)?$"_s);
    const QRegularExpressionMatch match = moment.match(text);
    return match.hasMatch() ? match.captured(1) : text;
}

std::vector<int> columnEdges(int width)
{
    double others = 0;
    for (const RevisionColumn& column : columns)
        others += column.width;
    std::vector<int> edges{0};
    for (const RevisionColumn& column : columns)
        edges.push_back(edges.back()
                        + (column.width == 0 ? width - fromMillimetres(others)
                                             : fromMillimetres(column.width)));
    return edges;
}

template <typename TextOf>
Band bandOf(const TextOf& textOf, const Typeface& face, const std::vector<int>& edges)
{
    Band band;
    band.lineHeight = face.lineHeight();
    band.above = band.below = padding / 2;
    band.boxes = edges;
    for (std::size_t i = 0; i < std::size(columns); ++i) {
        const int room = edges[i + 1] - edges[i] - 2 * padding;
        band.add({TextBlock::cut(textOf(columns[i]), face, room, mostLines), edges[i] + padding});
    }
    return band;
}

} // namespace

RevisionBlock::RevisionBlock(const std::vector<Row>& revisions, const Typefaces& faces, int width)
    : m_older({}, faces.body, width),
      m_width(width)
{
    if (revisions.empty())
        return;
    const std::vector<int> edges = columnEdges(width);
    Band heads =
        bandOf([](const RevisionColumn& column) { return tr(column.caption); }, faces.bold, edges);
    heads.shaded = true;
    m_table.add(std::move(heads));
    const std::vector<Row> shown = newest(revisions);
    for (const Row& revision : shown) {
        m_table.add(
            bandOf([&](const RevisionColumn& column) { return shownText(column, revision); },
                   faces.body,
                   edges));
    }
    if (shown.size() < revisions.size())
        m_older = TextBlock(tr("Earlier revisions: %1").arg(revisions.size() - shown.size()),
                            faces.body,
                            width - 2 * padding);
}

void RevisionBlock::show(Sheet& sheet, QPoint at) const
{
    m_table.show(sheet, at, 0, m_table.lineCount());
    sheet.frame({at, QSize(m_width, m_table.height())}, Rule::Frame);
    sheet.text(m_older, at + QPoint(padding, m_table.height()));
}

} // namespace ostrand::viewing::reports
