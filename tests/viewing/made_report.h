// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#pragma once

#include "support/recorded_sheet.h"
#include "viewing/reports/description.h"
#include "viewing/reports/layout.h"
#include "viewing/reports/report_data.h"

#include <memory>

namespace ostrand::tests {

/// A report made by hand: its description and its rows.
struct MadeReport
{
    std::shared_ptr<viewing::reports::Description> report =
        std::make_shared<viewing::reports::Description>();
    viewing::reports::ReportData data;

    /// Tag, Service and Remarks in three columns, grouped by Area and Unit.
    MadeReport()
    {
        using namespace Qt::StringLiterals;
        report->name = u"crxMade"_s;
        report->title = u"Made List"_s;
        report->form = u"A4"_s;
        report->source.location = u"/plant/made.mdb"_s;
        report->key = u"Tag"_s;
        report->groups = {{u"Area"_s, u"Area"_s}, {u"Unit"_s, u"Unit"_s}};
        report->columns = {{.caption = u"TAG"_s, .width = 40, .field = u"Tag"_s},
                           {.caption = u"SERVICE"_s, .width = 137, .field = u"Service"_s},
                           {.caption = u"REMARKS"_s, .width = 100, .field = u"Remarks"_s}};
    }

    static viewing::reports::Row row(const QStringList& names, const QStringList& texts)
    {
        return {std::make_shared<const viewing::reports::Fields>(names),
                std::vector<QString>(texts.begin(), texts.end())};
    }
    void add(const QString& tag,
             const QString& service,
             const QString& remarks = {},
             const QString& area = QStringLiteral("A"),
             const QString& unit = QStringLiteral("1"))
    {
        data.rows.push_back(row({QStringLiteral("Tag"),
                                 QStringLiteral("Service"),
                                 QStringLiteral("Remarks"),
                                 QStringLiteral("Area"),
                                 QStringLiteral("Unit")},
                                {tag, service, remarks, area, unit}));
    }
    /// Rows of one to four lines in two areas of two units each.
    void addRows(int count)
    {
        using namespace Qt::StringLiterals;
        for (int i = 0; i < count; ++i) {
            QStringList lines;
            for (int line = 0; line <= i % 4; ++line)
                lines << u"part %1 of T-%2"_s.arg(line).arg(i);
            add(u"T-%1"_s.arg(i),
                lines.join(u'\n'),
                {},
                i < count / 2 ? u"North"_s : u"South"_s,
                QString::number(i * 4 / count));
        }
    }

    std::unique_ptr<viewing::reports::Layout> layOut() const
    {
        auto layout = std::make_unique<viewing::reports::Layout>(report, data);
        while (!layout->complete())
            layout->step();
        return layout;
    }
};

inline std::vector<RecordedSheet::Line> lines(const viewing::reports::Layout& layout, int page)
{
    RecordedSheet sheet;
    layout.show(sheet, page);
    return std::move(sheet.lines);
}

/// The texts on a page, line by line.
inline QStringList texts(const viewing::reports::Layout& layout, int page)
{
    QStringList all;
    for (const RecordedSheet::Line& line : lines(layout, page))
        all << line.text;
    return all;
}

} // namespace ostrand::tests
