// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "viewing/printed_report.h"

#include "viewing/reports/pages.h"
#include "viewing/reports/pdf.h"

#include <QDir>
#include <QProcess>
#include <QXmlStreamReader>

#include <algorithm>
#include <cmath>

using namespace Qt::StringLiterals;

namespace ostrand::tests {
namespace {

using viewing::reports::Description;
using viewing::reports::Pages;
using viewing::reports::Paper;

constexpr double pointsPerMillimetre = 72 / 25.4;

std::vector<double> columnEdges(const Description& form)
{
    const bool isA3 = form.paper == Paper::A3Landscape;
    const double sheet = isA3 ? 420 : 297;
    const double body = isA3 ? 400 : 277;
    double x = (sheet - body) / 2;
    std::vector<double> edges{x * pointsPerMillimetre};
    for (const auto& column : form.columns) {
        x += column.width;
        edges.push_back(x * pointsPerMillimetre);
    }
    return edges;
}

bool isOneLine(const PrintedReport::Word& one, const PrintedReport::Word& other)
{
    return std::abs(one.place.center().y() - other.place.center().y()) < 3;
}

} // namespace

PrintedReport::PrintedReport(Description form, const QString& project, const QString& folder)
    : m_columns(columnEdges(form))
{
    setLocation(form, project);
    auto data = read(form);
    const QString pdf = QDir(folder).filePath(u"report.pdf"_s);
    Pages pages(std::make_shared<const Description>(std::move(form)), std::move(data));
    writePdf(pages, pdf);
    QProcess reader;
    reader.start(u"pdftotext"_s, {u"-bbox"_s, pdf, u"-"_s});
    if (!reader.waitForFinished(60000) || reader.exitCode() != 0)
        qFatal("pdftotext: %s", reader.readAllStandardError().constData());
    readPages(reader.readAllStandardOutput());
}

void PrintedReport::readPages(const QByteArray& words)
{
    QXmlStreamReader xml(words);
    while (!xml.atEnd()) {
        if (xml.readNext() != QXmlStreamReader::StartElement)
            continue;
        if (xml.name() == "page"_L1)
            m_pages.emplace_back();
        if (xml.name() != "word"_L1)
            continue;
        const QXmlStreamAttributes at = xml.attributes();
        const QPointF corner(at.value("xMin"_L1).toDouble(), at.value("yMin"_L1).toDouble());
        const QPointF end(at.value("xMax"_L1).toDouble(), at.value("yMax"_L1).toDouble());
        m_pages.back().push_back({xml.readElementText(), QRectF(corner, end)});
    }
    if (xml.hasError())
        qFatal("pdftotext: %s", qPrintable(xml.errorString()));
}

QString PrintedReport::text(int page) const
{
    return lines(page).join(u' ');
}

QStringList PrintedReport::lines(int page) const
{
    std::vector<Word> sorted = words(page);
    std::sort(sorted.begin(), sorted.end(), [](const Word& a, const Word& b) {
        return a.place.center().y() < b.place.center().y();
    });
    QStringList lines;
    for (auto first = sorted.begin(); first != sorted.end();) {
        const auto end = std::find_if(
            first, sorted.end(), [&](const Word& word) { return !isOneLine(*first, word); });
        std::sort(first, end, [](const Word& a, const Word& b) {
            return a.place.left() < b.place.left();
        });
        QStringList texts;
        for (; first != end; ++first)
            texts << first->text;
        lines << texts.join(u' ');
    }
    return lines;
}

int PrintedReport::columnAt(double x) const
{
    const auto next = std::upper_bound(m_columns.begin(), m_columns.end(), x);
    return static_cast<int>(next - m_columns.begin()) - 1;
}

std::vector<PrintedReport::PrintedRow> PrintedReport::rows(const QSet<QString>& tags) const
{
    std::vector<PrintedRow> rows;
    for (int page = 0; page < pageCount(); ++page) {
        std::vector<const Word*> inFront;
        for (const Word& word : words(page)) {
            if (columnAt(word.place.left()) == 0)
                inFront.push_back(&word);
        }
        for (const Word* tag : inFront) {
            const double first = m_columns.front() + 2 * pointsPerMillimetre;
            if (!tags.contains(tag->text) || tag->place.left() > first)
                continue;
            double end = 1e9;
            for (const Word* below : inFront) {
                if (!isOneLine(*tag, *below) && below->place.top() > tag->place.top())
                    end = std::min(end, below->place.top());
            }
            PrintedRow row{
                page, tag->text, QStringList(static_cast<qsizetype>(m_columns.size()) - 1)};
            std::vector<const Word*> inside;
            for (const Word& word : words(page)) {
                const double y = word.place.center().y();
                if (y > tag->place.top() && y < end)
                    inside.push_back(&word);
            }
            std::stable_sort(inside.begin(), inside.end(), [](const Word* a, const Word* b) {
                return isOneLine(*a, *b) ? a->place.left() < b->place.left()
                                         : a->place.top() < b->place.top();
            });
            // The lines of a row follow each other closely.
            constexpr double gap = 6;
            double bottom = tag->place.bottom();
            for (const Word* word : inside) {
                if (word->place.top() > bottom + gap)
                    break;
                bottom = word->place.bottom();
                const int column = columnAt(word->place.left());
                if (column < 0 || column >= row.cells.size())
                    continue;
                QString& cell = row.cells[column];
                cell += cell.isEmpty() ? word->text : u' ' + word->text;
            }
            rows.push_back(row);
        }
    }
    return rows;
}

} // namespace ostrand::tests
