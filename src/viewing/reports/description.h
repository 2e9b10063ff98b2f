// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QStringList>

#include <functional>
#include <optional>
#include <vector>

/// Reports as plain descriptions: what a report reads, in which order and groups, and what it
/// prints of a row. The engine reads, measures and paints any of them; a further report is one
/// further description.
namespace ostrand::viewing::reports {

class Row;

/// Rows that a report or a subreport reads.
struct Source
{
    QStringList tables; ///< tables and stored queries that the select reads, the leading one first
    QString select;     ///< names its fields
    QString location = {}; ///< path of the project file; set anew whenever a report is shown
};

using Compose = std::function<QString(const Row&)>;
using Test = std::function<bool(const Row&)>;

/// Rows beside the report's own, read once and tied to its rows by a field.
struct Subreport
{
    QString name;
    Source source;
    QString link =
        {}; ///< the field that holds the key of the row it belongs to; "" for page blocks
};

/// A printed column. One of `field`, `compose` and `subreport` says what stands in it.
struct Column
{
    QString caption;
    double width;           ///< millimetres
    QString field = {};     ///< a field of the row
    Compose compose = {};   ///< a text made of the row
    QString subreport = {}; ///< the rows of this subreport tied to the row, one a line: `line`
    Compose line = {};      ///< the text of one row of the subreport
    Test warn = {};         ///< prints the cell bold behind a warning mark
    bool right = false;     ///< aligned to the right
    bool bold = false;
};

/// Lines under a row that its subreport's rows give: a small table, or one line of joined texts.
/// Joined ones that follow each other share a line while they fit.
struct Under
{
    QString caption;             ///< in front of the first line
    QString subreport;           ///< "" for the row itself, joined
    std::vector<Column> columns; ///< read the subreport's rows
    bool joined = false;         ///< all texts of the first column in one flowing line
};

/// Rows with equal text in `field` stand together under a heading, which repeats on each page with
/// "(continued)".
struct Group
{
    QString caption; ///< of the heading, in front of the value: "Area"
    QString field;
    bool newPage = false; ///< each group begins a page
};

/// A number on the last page: of rows, of cells, or of different texts.
struct Total
{
    QString caption;
    std::function<int(const Row&)> count = {}; ///< summed up over the rows
    Compose distinct = {};                     ///< counts the different non-empty texts
};

/// A form of one page for one row: its captions with their values, and a table to be filled in by
/// hand.
struct Card
{
    struct Item
    {
        QString caption;
        Compose text;
    };
    std::vector<Item> items;
    QString tableCaption = {};
    QStringList tableColumns = {}; ///< headings of the blank table
    QStringList tableRows = {};    ///< first cells of its rows
};

enum class SectionKind {
    ReportHeader,
    PageHeader,
    GroupHeader,
    Details,
    GroupFooter,
    ReportFooter,
    PageFooter
};

/// A band of the report with the subreports that stand in it.
struct Section
{
    SectionKind kind;
    std::vector<Subreport> subreports = {};
};

enum class Paper { A3Landscape, A4Landscape };

struct Description
{
    QString name;  ///< of the definition: "crxIndex"
    QString title; ///< printed in the page header
    QString form;  ///< what the viewer calls this form of the report: "A3"
    Paper paper = Paper::A4Landscape;
    Source source;
    QString key;                   ///< the field of the row that subreports link to
    std::vector<Section> sections; ///< in printed order
    std::vector<Group> groups = {};
    QStringList sort = {};   ///< fields, in natural order within the groups
    Test filter = {};        ///< rows to be printed; all when empty
    QString filterText = {}; ///< said in the page footer
    QString sortText = {};   ///< said in the page footer
    std::vector<Column> columns = {};
    std::vector<Under> under = {};
    std::optional<Card> card = {}; ///< instead of a table
    std::vector<Total> totals = {};
};

/// The names under which the engine finds the two page blocks among the subreports: the header
/// block (`qryrptindexheader`) and the revision block (`qryIndexRev`).
inline const QString headerBlock = QStringLiteral("header");
inline const QString revisionBlock = QStringLiteral("revisions");

/// Has the report and every subreport of its sections read the project file at `path`.
void setLocation(Description& report, const QString& path);

} // namespace ostrand::viewing::reports
