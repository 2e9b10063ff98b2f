// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "viewing/reports/page_frame.h"

#include "toolkit/paths.h"
#include "viewing/reports/geometry.h"
#include "viewing/reports/logo.h"
#include "viewing/reports/project_block.h"
#include "viewing/reports/sheet.h"

#include <QCoreApplication>
#include <QDate>

using namespace Qt::StringLiterals;

namespace ostrand::viewing::reports {
namespace {

constexpr int headerHeight = fromMillimetres(23);
constexpr int headerGap = fromMillimetres(1);
constexpr int logoWidth = fromMillimetres(40);
constexpr int logoHeight = fromMillimetres(14);
constexpr int logoDotsPerMillimetre = 24; // 600 dots per inch
constexpr int padding = fromMillimetres(1.5);
constexpr int projectEdge = fromMillimetres(0.35); ///< over and under the texts
constexpr int projectWidth = fromMillimetres(80);
constexpr int footerHeight = fromMillimetres(9);
constexpr int footerGap = fromMillimetres(1);

QString tr(const char* text)
{
    return QCoreApplication::translate("Reports", text);
}

} // namespace

PageFrame::PageFrame(const Description& report, const ReportData& data, const Typefaces& faces)
    : m_report(report),
      m_faces(faces),
      m_size(sheetSize(report.paper)),
      m_revisions(data.of(revisionBlock), faces, m_size.width() - 2 * pageMargin),
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
    return page == 0 && hasRevisions() ? end - m_revisions.height() - headerGap : end;
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
        TextBlock::cut(headerText(u"company"_s), m_faces.group, width, 2, Align::Centre);
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
    const ProjectBlock block({{tr("Contract"), headerText(u"contract"_s)},
                              {tr("Plant"), headerText(u"plant"_s)},
                              {tr("Operating unit"), headerText(u"operating unit"_s)},
                              {tr("Location"), headerText(u"location"_s)},
                              {tr("Page"), number},
                              {tr("Printed"), m_date}},
                             m_faces,
                             place.size() - QSize(2 * padding, 2 * projectEdge));
    block.show(sheet, place.topLeft() + QPoint(padding, projectEdge));
}

void PageFrame::showFooter(Sheet& sheet, int page) const
{
    if (page == 0 && hasRevisions())
        m_revisions.show(sheet, {pageMargin, bodyEnd(0) + headerGap});
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

} // namespace ostrand::viewing::reports
