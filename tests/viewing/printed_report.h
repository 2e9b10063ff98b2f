// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#pragma once

#include "viewing/reports/description.h"

#include <QRectF>
#include <QSet>
#include <QStringList>

#include <vector>

namespace ostrand::tests {

/// A report as a reader of its PDF finds it: words at places, pages counted from 0.
class PrintedReport
{
public:
    struct Word
    {
        QString text;
        QRectF place; ///< points from the upper left corner of the page
    };

    /// What stands between a tag and the next text in the tags' column.
    struct PrintedRow
    {
        int page;
        QString tag;
        QStringList cells; ///< by column, the words joined by blanks
    };

    /// Writes the PDF of a form into `folder` and reads it back with pdftotext.
    PrintedReport(viewing::reports::Description form,
                  const QString& project,
                  const QString& folder);

    int pageCount() const { return static_cast<int>(m_pages.size()); }
    const std::vector<Word>& words(int page) const
    {
        return m_pages[static_cast<std::size_t>(page)];
    }
    /// All words of a page in reading order, joined by blanks.
    QString text(int page) const;
    /// The lines of a page from top to bottom.
    QStringList lines(int page) const;
    /// The rows of all pages; `tags` says which words are tags.
    std::vector<PrintedRow> rows(const QSet<QString>& tags) const;

private:
    void readPages(const QByteArray& words);
    int columnAt(double x) const;

    std::vector<double> m_columns; ///< where they begin, and where the last one ends
    std::vector<std::vector<Word>> m_pages;
};

} // namespace ostrand::tests
