// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "viewing/reports/page_frame.h"

#include "toolkit/paths.h"
#include "viewing/reports/geometry.h"
#include "viewing/reports/logo.h"
#include "viewing/reports/natural_order.h"
#include "viewing/reports/sheet.h"

#include <QCoreApplication>
#include <QDate>

#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

namespace ostrand::viewing::reports {
namespace {

constexpr int headerHeight = fromMillimetres(22);
constexpr int headerGap = fromMillimetres(2);
constexpr int logoWidth = fromMillimetres(40);
constexpr int logoHeight = fromMillimetres(14);
constexpr int logoDotsPerMillimetre = 24; // 600 dots per inch
constexpr int padding = fromMillimetres(1.5);
constexpr int projectWidth = fromMillimetres(80);
constexpr int projectCaptionWidth = fromMillimetres(24);
constexpr int footerHeight = fromMillimetres(9);
constexpr int footerGap = fromMillimetres(1);
constexpr std::size_t mostRevisions = 3;

QString tr(const char* text)
{
    return QCoreApplication::translate("Reports", text);
}

/// The last revisions, the newest first.
std::vector<Row> newest(std::vector<Row> revisions)
{
    const auto later = [](const Row& a, const Row& b) {
        const int date = compareNatural(a[u"Date"_s], b[u"Date"_s]);
        return date != 0 ? date > 0 : compareNatural(a[u"RevNo"_s], b[u"RevNo"_s]) > 0;
    };
    std::stable_sort(revisions.begin(), revisions.end(), later);
    if (revisions.size() > mostRevisions)
        revisions.erase(revisions.begin() + mostRevisions, revisions.end());
    return revisions;
}

/// A column of the revision block: its width in millimetres and its field.
struct RevisionColumn
{
    const char* caption;
    double width;
    const char16_t* field;
};
constexpr RevisionColumn revisionColumns[] = {
    {QT_TRANSLATE_NOOP("Reports", "NO"), 12, u"RevNo"},
    {QT_TRANSLATE_NOOP("Reports", "DATE"), 22, u"Date"},
    {QT_TRANSLATE_NOOP("Reports", "DESCRIPTION"), 100, u"Description"},
    {QT_TRANSLATE_NOOP("Reports", "BY"), 26, u"createdBy"},
    {QT_TRANSLATE_NOOP("Reports", "CHK"), 26, u"checkedBy"},
    {QT_TRANSLATE_NOOP("Reports", "APPR"), 26, u"approvedBy"},
};

} // namespace

PageFrame::PageFrame(const Description& report, const ReportData& data, const Typefaces& faces)
    : m_report(report),
      m_faces(faces),
      m_size(sheetSize(report.paper)),
      m_revisions(newest(data.of(revisionBlock))),
      m_older(static_cast<int>(data.of(revisionBlock).size() - m_revisions.size())),
      m_logoFile(data.logoFile),
      m_date(QDate::currentDate().toString(Qt::ISODate))
{
    if (const std::vector<Row>& header = data.of(headerBlock); !header.empty())
        m_header = header.front();
}

int PageFrame::bodyTop()
{
    return pageMargin + headerHeight + headerGap;
}

int PageFrame::bodyEnd(int page) const
{
    const int end = m_size.height() - pageMargin - footerHeight;
    return page == 0 && !m_revisions.empty() ? end - revisionsHeight() - headerGap : end;
}

QString PageFrame::headerText(const QString& field) const
{
    return m_header ? (*m_header)[field] : QString();
}

void PageFrame::showHeader(Sheet& sheet, int page, std::optional<int> count) const
{
    const QRect all(pageMargin, pageMargin, m_size.width() - 2 * pageMargin, headerHeight);
    const int logoEnd = all.x() + logoWidth + 2 * padding;
    const int projectStart = all.x() + all.width() - projectWidth;
    sheet.frame(all, Rule::Frame);
    for (const int x : {logoEnd, projectStart})
        sheet.rule({x, all.y(), x, all.y() + all.height()}, Rule::Frame);
    showLogo(sheet, {all.x(), all.y(), logoEnd - all.x(), all.height()});
    showTitle(sheet, {logoEnd, all.y(), projectStart - logoEnd, all.height()});
    showProject(sheet, {projectStart, all.y(), projectWidth, all.height()}, page, count);
}

void PageFrame::showLogo(Sheet& sheet, QRect place) const
{
    if (!m_logo) {
        m_logo =
            readLogo(m_logoFile,
                     m_report.source.location,
                     QSize(logoWidth, logoHeight) * logoDotsPerMillimetre / fromMillimetres(1));
    }
    if (m_logo->isNull())
        return;
    const QSize size = m_logo->size().scaled({logoWidth, logoHeight}, Qt::KeepAspectRatio);
    QRect picture({}, size.expandedTo({1, 1}));
    picture.moveCenter(place.center());
    sheet.picture(picture, *m_logo);
}

void PageFrame::showTitle(Sheet& sheet, QRect place) const
{
    const int width = place.width() - 2 * padding;
    const TextBlock company =
        TextBlock::cut(headerText(u"company"_s), m_faces.group, width, 1, Align::Centre);
    const TextBlock title = TextBlock::cut(m_report.title, m_faces.title, width, 1, Align::Centre);
    const int gap = company.lineCount() == 0 ? 0 : padding;
    const int top = place.y() + (place.height() - company.height() - gap - title.height()) / 2;
    sheet.text(company, {place.x() + padding, top});
    sheet.text(title, {place.x() + padding, top + company.height() + gap});
}

void PageFrame::showProject(Sheet& sheet, QRect place, int page, std::optional<int> count) const
{
    const QString number =
        count ? tr("%1 of %2").arg(page + 1).arg(*count) : QString::number(page + 1);
    const std::pair<QString, QString> lines[] = {
        {tr("Contract"), headerText(u"contract"_s)},
        {tr("Plant"), headerText(u"plant"_s)},
        {tr("Operating unit"), headerText(u"operating unit"_s)},
        {tr("Location"), headerText(u"location"_s)},
        {tr("Page"), number},
        {tr("Printed"), m_date},
    };
    constexpr int lineCount = static_cast<int>(std::size(lines));
    const int step = (place.height() - padding) / lineCount;
    const int valueX = place.x() + projectCaptionWidth + padding;
    int y = place.y() + padding / 2 + (step - m_faces.body.lineHeight()) / 2;
    for (const auto& [caption, value] : lines) {
        sheet.text(TextBlock::cut(caption, m_faces.body, projectCaptionWidth - padding),
                   {place.x() + padding, y});
        sheet.text(
            TextBlock::cut(value, m_faces.bold, place.x() + place.width() - valueX - padding),
            {valueX, y});
        y += step;
    }
}

void PageFrame::showFooter(Sheet& sheet, int page) const
{
    if (page == 0 && !m_revisions.empty())
        showRevisions(sheet);
    const int width = m_size.width() - 2 * pageMargin;
    const int top = m_size.height() - pageMargin - footerHeight + footerGap;
    const int right = pageMargin + width * 3 / 4;
    const int lineHeight = m_faces.small.lineHeight();
    sheet.rule({pageMargin, top, pageMargin + width, top}, Rule::Frame);
    const auto show = [&](const QString& text, int x, int line, int most, Align align) {
        sheet.text(TextBlock::cut(text, m_faces.small, most, 1, align),
                   {x, top + footerGap + line * lineHeight});
    };
    const int leftWidth = width * 3 / 4 - padding;
    const int rightWidth = width - width * 3 / 4;
    const QString filter = m_report.filterText.isEmpty() ? tr("all tags") : m_report.filterText;
    show(tr("Filter: %1").arg(filter), pageMargin, 0, leftWidth, Align::Left);
    show(tr("Sort: %1").arg(m_report.sortText), pageMargin, 1, leftWidth, Align::Left);
    show(m_report.title + (m_report.form.isEmpty() ? QString() : u", "_s + m_report.form),
         right,
         0,
         rightWidth,
         Align::Right);
    show(toolkit::fileTitle(m_report.source.location), right, 1, rightWidth, Align::Right);
}

int PageFrame::revisionsHeight() const
{
    const int lines = static_cast<int>(m_revisions.size()) + 1;
    const int lineHeight = m_faces.body.lineHeight() + padding / 2;
    return lines * lineHeight + (m_older > 0 ? m_faces.body.lineHeight() : 0);
}

void PageFrame::showRevisions(Sheet& sheet) const
{
    const int step = m_faces.body.lineHeight() + padding / 2;
    const int lines = static_cast<int>(m_revisions.size()) + 1;
    const int top = bodyEnd(0) + headerGap;
    double all = 0;
    for (const RevisionColumn& column : revisionColumns)
        all += column.width;
    const int width = fromMillimetres(all);
    const int left = m_size.width() - pageMargin - width;
    sheet.fill({left, top, width, step}, Shade::Medium);
    sheet.frame({left, top, width, lines * step}, Rule::Frame);
    for (int i = 1; i < lines; ++i)
        sheet.rule({left, top + i * step, left + width, top + i * step}, Rule::Hair);
    const auto showLine = [&](int line, const auto& textOf, const Typeface& face) {
        double reach = 0;
        for (const RevisionColumn& column : revisionColumns) {
            const int x = left + fromMillimetres(reach);
            reach += column.width;
            if (line == 0 && x > left)
                sheet.rule({x, top, x, top + lines * step}, Rule::Hair);
            sheet.text(
                TextBlock::cut(textOf(column), face, fromMillimetres(column.width) - padding),
                {x + padding / 2, top + line * step + padding / 4});
        }
    };
    showLine(
        0, [](const RevisionColumn& column) { return tr(column.caption); }, m_faces.bold);
    for (std::size_t i = 0; i < m_revisions.size(); ++i) {
        showLine(
            static_cast<int>(i) + 1,
            [&](const RevisionColumn& column) {
                return m_revisions[i][QString::fromUtf16(column.field)];
            },
            m_faces.body);
    }
    if (m_older > 0) {
        sheet.text(TextBlock::cut(tr("Earlier revisions: %1").arg(m_older), m_faces.body, width),
                   {left + padding / 2, top + lines * step});
    }
}

} // namespace ostrand::viewing::reports
