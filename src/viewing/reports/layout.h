// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#pragma once

#include "viewing/reports/page_frame.h"
#include "viewing/reports/report_data.h"
#include "viewing/reports/row_composer.h"
#include "viewing/reports/totals.h"
#include "viewing/reports/typeface.h"

#include <memory>
#include <vector>

namespace ostrand::viewing::reports {

class Sheet;

/// Breaks a report into pages, row by row. A page keeps only what stands where; its texts are made
/// anew when it is shown.
class Layout
{
public:
    Layout(std::shared_ptr<const Description> report, ReportData data);

    /// Lays out the next row, and the totals behind the last one.
    void step();
    bool complete() const { return m_complete; }
    int count() const;
    const Description& report() const { return *m_report; }
    /// Tells a page to a sheet.
    void show(Sheet& sheet, int page) const;

private:
    enum class Kind : quint8 { Group, Row, Name, TotalsHead, Total, Nothing };
    struct Item
    {
        Kind kind;
        bool continued = false;
        int number = 0; ///< of the row, or of the line of the totals
        int level = 0;  ///< of a group
        int first = 0;  ///< lines of a row
        int end = 0;
        int top = 0;
        int height = 0;
    };
    struct Page
    {
        bool heads = true; ///< the columns' captions stand on it
        std::vector<Item> items;
    };

    void addPage(bool heads);
    Page& page() { return m_pages.back(); }
    int room() const;
    /// The room for rows on a page without the revision block.
    int wholeRoom() const;
    /// Goes on to the next page where a row finds no room although there is none yet.
    void leavePage();
    void put(Item item, int height);
    void putGroups(int row, int first, int end, bool continued);
    void putRow(int row, const Block& block, int firstNewGroup);
    void putPieces(int row, const Block& block);
    void putTotals();
    bool hasRows() const { return m_hasRows; }
    int firstNewGroup(int row) const;
    bool beginsPage(int firstNewGroup) const;
    TextBlock groupText(const Item& item) const;
    int groupHeight() const;

    void showItem(Sheet& sheet, const Item& item) const;
    void showGroup(Sheet& sheet, const Item& item) const;
    void showRow(Sheet& sheet, const Item& item) const;
    void showEdges(Sheet& sheet, const Page& page) const;

    std::shared_ptr<const Description> m_report;
    ReportData m_data;
    Typefaces m_faces;
    int m_width;
    PageFrame m_frame;
    RowComposer m_composer;
    Totals m_totals;
    Block m_heads;
    std::vector<Page> m_pages;
    int m_nextRow = 0;
    int m_y = 0;            ///< where the next item of the last page stands
    bool m_hasRows = false; ///< on the last page
    bool m_complete = false;
};

} // namespace ostrand::viewing::reports
