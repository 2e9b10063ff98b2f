// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "spreadsheet/office_fixture.h"
#include "spreadsheet/sheet_look.h"

#include <QTest>

using namespace Qt::StringLiterals;
using namespace ostrand;
using spreadsheet::CellStyle;
using spreadsheet::HorizontalAlign;
using spreadsheet::VerticalAlign;
using tests::OfficeFixture;

namespace {

const spreadsheet::SheetLook& lookOf(spreadsheet::Worksheet& sheet)
{
    return dynamic_cast<const spreadsheet::SheetLook&>(sheet.design());
}

/// Saves a new workbook whose first sheet was given a look, and opens the file.
template <typename Design>
std::shared_ptr<spreadsheet::Workbook> written(const OfficeFixture& office, Design design)
{
    const auto application = spreadsheet::CreateObject();
    const auto workbook = application->Add();
    design(*workbook->Worksheets(1));
    workbook->SaveAs(office.path(u"a.xls"_s), spreadsheet::FileFormat::Workbook);
    workbook->Close(spreadsheet::SaveChanges::No);
    return application->Open(office.path(u"a.xls"_s));
}

bool isNear(double actual, double expected, double tolerance)
{
    return std::abs(actual - expected) <= tolerance;
}

} // namespace

class TestDesign : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    static void cleanupTestCase() { spreadsheet::endHost(); }

    static void aStyleSurvivesTheFile()
    {
        const CellStyle style{.fontName = u"Arial"_s,
                              .fontSize = 7.5,
                              .bold = true,
                              .italic = true,
                              .colour = 0x203040,
                              .background = 0xe6e9ed,
                              .horizontal = HorizontalAlign::Right,
                              .vertical = VerticalAlign::Centre,
                              .wrap = false,
                              .shrinkToFit = true,
                              .rotation = 90,
                              .locked = false,
                              .borders = spreadsheet::Borders{.outer = 0.75, .colour = 0x808080}};
        const OfficeFixture office;
        const auto workbook = written(office, [&](spreadsheet::Worksheet& sheet) {
            sheet.design().setStyle(u"B2"_s, style);
        });
        const CellStyle read = lookOf(*workbook->Worksheets(1)).style(u"B2"_s);
        QCOMPARE(read.fontName, style.fontName);
        QCOMPARE(read.fontSize, style.fontSize);
        QCOMPARE(read.bold, style.bold);
        QCOMPARE(read.italic, style.italic);
        QCOMPARE(read.colour, style.colour);
        QCOMPARE(read.background, style.background);
        QCOMPARE(read.horizontal, style.horizontal);
        QCOMPARE(read.vertical, style.vertical);
        QCOMPARE(read.wrap, style.wrap);
        QCOMPARE(read.shrinkToFit, style.shrinkToFit);
        QCOMPARE(read.rotation, style.rotation);
        QCOMPARE(read.locked, style.locked);
        QCOMPARE(read.borders->outer, style.borders->outer);
        QCOMPARE(read.borders->colour, style.borders->colour);
    }

    static void whatAStyleLeavesOpenStays()
    {
        const OfficeFixture office;
        const auto workbook = written(office, [](spreadsheet::Worksheet& sheet) {
            sheet.design().setStyle(
                u"A1:C3"_s,
                {.fontSize = 7,
                 .wrap = true,
                 .borders = spreadsheet::Borders{.outer = 0.75, .inner = 0.75}});
            sheet.design().setStyle(u"B2"_s,
                                    {.bold = true, .borders = spreadsheet::Borders{.inner = 1.75}});
            sheet.design().setStyle(u"C3"_s, {.borders = spreadsheet::Borders{.outer = 0}});
        });
        const auto sheet = workbook->Worksheets(1);
        const CellStyle read = lookOf(*sheet).style(u"B2"_s);
        QCOMPARE(read.fontSize, 7.0);
        QCOMPARE(read.wrap, true);
        QCOMPARE(read.bold, true);
        QCOMPARE(read.locked, true);
        QCOMPARE(read.borders->outer, 0.75);
        QCOMPARE(lookOf(*sheet).style(u"C3"_s).borders->outer, 0.0);
        QCOMPARE(lookOf(*sheet).style(u"A1"_s).borders->outer, 0.75);
    }

    static void aFormulaFollowsItsCellsBeforeAndAfterTheFile()
    {
        const OfficeFixture office;
        const auto textAt = [](spreadsheet::Worksheet& sheet, const QString& cell) {
            return std::get<QString>(sheet.Range(cell)->Value());
        };
        const auto workbook = written(office, [&](spreadsheet::Worksheet& sheet) {
            sheet.design().setName(u"FORM"_s);
            sheet.design().setFormula(u"B2"_s, u"=IF(A1=\"\";\"\";A1)"_s);
            sheet.design().setFormula(u"C2"_s, u"=IF($FORM.A1=\"\";\"\";$FORM.A1)"_s);
            QCOMPARE(textAt(sheet, u"B2"_s), QString());
            sheet.Range(u"A1"_s)->setValue(u"0012"_s);
            QCOMPARE(textAt(sheet, u"B2"_s), u"0012"_s);
        });
        const auto sheet = workbook->Worksheets(1);
        QCOMPARE(textAt(*sheet, u"C2"_s), u"0012"_s);
        sheet->Range(u"A1"_s)->setValue(u"flow"_s);
        QCOMPARE(textAt(*sheet, u"B2"_s), u"flow"_s);
        QCOMPARE(textAt(*sheet, u"C2"_s), u"flow"_s);
        sheet->Range(u"A1"_s)->setValue(QString());
        QCOMPARE(textAt(*sheet, u"C2"_s), QString());
    }

    static void aFaultyFormulaShowsAnError()
    {
        const OfficeFixture office;
        const auto workbook = written(office, [](spreadsheet::Worksheet& sheet) {
            sheet.design().setFormula(u"B2"_s, u"=1/0"_s);
        });
        const auto value = workbook->Worksheets(1)->Range(u"B2"_s)->Value();
        QVERIFY(std::holds_alternative<spreadsheet::CellError>(value));
    }

    static void thinAndMediumLinesSurviveTheFile()
    {
        const OfficeFixture office;
        const auto workbook = written(office, [](spreadsheet::Worksheet& sheet) {
            for (const auto& [cell, weight] :
                 {std::pair{u"B2"_s, 0.75}, std::pair{u"D2"_s, 1.75}, std::pair{u"F2"_s, 2.5}}) {
                sheet.design().setStyle(cell, {.borders = spreadsheet::Borders{.outer = weight}});
            }
        });
        const auto sheet = workbook->Worksheets(1);
        const auto weight = [&](const QString& cell) {
            return *lookOf(*sheet).style(cell).borders->outer;
        };
        QCOMPARE(weight(u"B2"_s), 0.75);
        QCOMPARE(weight(u"D2"_s), 1.75);
        QCOMPARE(weight(u"F2"_s), 2.5);
    }

    static void mergedBlocksSurviveTheFile()
    {
        const OfficeFixture office;
        const auto workbook = written(
            office, [](spreadsheet::Worksheet& sheet) { sheet.design().merge(u"D11:F11"_s); });
        const auto sheet = workbook->Worksheets(1);
        QCOMPARE(lookOf(*sheet).mergedBlock(u"E11"_s), u"D11:F11"_s);
        QCOMPARE(lookOf(*sheet).mergedBlock(u"D11"_s), u"D11:F11"_s);
        QCOMPARE(lookOf(*sheet).mergedBlock(u"D12"_s), u"D12"_s);
    }

    static void measuresSurviveTheFile()
    {
        const OfficeFixture office;
        const auto workbook = written(office, [](spreadsheet::Worksheet& sheet) {
            sheet.design().setColumnWidth(u"C"_s, 31);
            sheet.design().setColumnWidth(u"AA"_s, 3.3);
            sheet.design().setRowHeight(2, 5, 11);
        });
        const auto sheet = workbook->Worksheets(1);
        QVERIFY(isNear(lookOf(*sheet).columnWidth(u"C"_s), 31, 0.2));
        QVERIFY(isNear(lookOf(*sheet).columnWidth(u"AA"_s), 3.3, 0.2));
        QVERIFY(lookOf(*sheet).rowHeight(1) > 12);
        for (const int row : {2, 5})
            QVERIFY(isNear(lookOf(*sheet).rowHeight(row), 11, 0.1));
        QVERIFY(lookOf(*sheet).rowHeight(6) > 12);
    }

    static void thePageSurvivesTheFileSheetBySheet()
    {
        const spreadsheet::PageSetup upright{.margin = 0.35, .printArea = u"A1:H71"_s};
        const spreadsheet::PageSetup landscape{.landscape = true,
                                               .margin = 0.5,
                                               .printArea = u"B2:C3"_s,
                                               .pagesWide = 1,
                                               .pagesHigh = 2,
                                               .centred = false};
        const OfficeFixture office;
        const auto workbook = written(office, [&](spreadsheet::Worksheet& sheet) {
            // A page set anew takes the place of the one before.
            sheet.design().setPage(landscape);
            sheet.design().setPage(upright);
        });
        QCOMPARE(lookOf(*workbook->Worksheets(1)).page(), upright);

        const auto application = spreadsheet::CreateObject();
        const auto two = application->Add();
        two->Worksheets(1)->design().setPage(upright);
        two->AddSheet(u"Second"_s)->design().setPage(landscape);
        two->SaveAs(office.path(u"two.xls"_s), spreadsheet::FileFormat::Workbook);
        two->Close(spreadsheet::SaveChanges::No);
        const auto again = application->Open(office.path(u"two.xls"_s));
        QCOMPARE(lookOf(*again->Worksheets(1)).page(), upright);
        QCOMPARE(lookOf(*again->Worksheets(2)).page(), landscape);
    }

    static void textsAndNumbersKeepTheirKind()
    {
        const OfficeFixture office;
        const auto workbook = written(office, [](spreadsheet::Worksheet& sheet) {
            sheet.design().setText(u"A1"_s, u"0012"_s);
            sheet.design().setEntries(
                u"B2"_s, {{u"0012"_s, 12.0, QString()}, {u"=1+1"_s, 0.5, u"'two\nlines"_s}});
        });
        const auto sheet = workbook->Worksheets(1);
        const auto text = [&](const QString& cell) {
            return std::get<QString>(sheet->Range(cell)->Value());
        };
        const auto number = [&](const QString& cell) {
            return std::get<double>(sheet->Range(cell)->Value());
        };
        QCOMPARE(text(u"A1"_s), u"0012"_s);
        QCOMPARE(text(u"B2"_s), u"0012"_s);
        QCOMPARE(number(u"C2"_s), 12.0);
        QVERIFY(std::holds_alternative<std::monostate>(sheet->Range(u"D2"_s)->Value()));
        QCOMPARE(text(u"B3"_s), u"=1+1"_s);
        QCOMPARE(number(u"C3"_s), 0.5);
        QCOMPARE(text(u"D3"_s), u"'two\nlines"_s);
        QCOMPARE(lookOf(*sheet).numberFormat(u"C2"_s), u"General"_s);
    }

    static void gridLinesAreHiddenOnOneSheetAlone()
    {
        const OfficeFixture office;
        const auto application = spreadsheet::CreateObject();
        const auto workbook = application->Add();
        workbook->AddSheet(u"Second"_s)->design().setGridLines(false);
        workbook->Worksheets(2)->design().setGridLines(false);
        workbook->SaveAs(office.path(u"a.xls"_s), spreadsheet::FileFormat::Workbook);
        workbook->Close(spreadsheet::SaveChanges::No);
        const auto again = application->Open(office.path(u"a.xls"_s));
        QVERIFY(lookOf(*again->Worksheets(1)).hasGridLines());
        QVERIFY(!lookOf(*again->Worksheets(2)).hasGridLines());
        again->Worksheets(2)->design().setGridLines(true);
        QVERIFY(lookOf(*again->Worksheets(2)).hasGridLines());
    }

    static void aSheetIsNamedAndProtected()
    {
        const OfficeFixture office;
        const auto workbook = written(office, [](spreadsheet::Worksheet& sheet) {
            sheet.design().setName(u"DATASHEET"_s);
            sheet.Protect();
        });
        QCOMPARE(workbook->Worksheets(1)->Name(), u"DATASHEET"_s);
        QVERIFY(lookOf(*workbook->Worksheets(1)).isProtected());
        workbook->Worksheets(1)->Unprotect();
        QVERIFY(!lookOf(*workbook->Worksheets(1)).isProtected());
    }

    static void theSheetInFrontAndItsCellSurviveTheFile()
    {
        const OfficeFixture office;
        const auto application = spreadsheet::CreateObject();
        const auto workbook = application->Add();
        const auto second = workbook->AddSheet(u"Second"_s);
        workbook->AddSheet(u"Third"_s);
        second->Activate();
        second->Range(u"D11"_s)->Select();
        workbook->SaveAs(office.path(u"a.xlt"_s), spreadsheet::FileFormat::Template);
        workbook->Close(spreadsheet::SaveChanges::No);
        const auto again = application->Open(office.path(u"a.xlt"_s));
        QCOMPARE(again->ActiveSheet()->Name(), u"Second"_s);
        QCOMPARE(lookOf(*again->ActiveSheet()).currentCell(), u"D11"_s);
    }

    static void whatIsNoBlockIsRefused()
    {
        const OfficeFixture office;
        const auto application = spreadsheet::CreateObject();
        const auto workbook = application->Add();
        const auto sheet = workbook->Worksheets(1);
        QString words;
        const auto errorOf = [&](auto call) {
            try {
                call();
                return 0;
            } catch (const spreadsheet::Error& error) {
                words = error.description();
                return error.number();
            }
        };
        QCOMPARE(errorOf([&] { sheet->design().setStyle(u"nowhere"_s, {.bold = true}); }), 1004);
        QCOMPARE(errorOf([&] { sheet->design().merge(u"A0:B1"_s); }), 1004);
        QCOMPARE(errorOf([&] { sheet->design().setEntries(u"A0"_s, {{1.0}}); }), 1004);
        QCOMPARE(errorOf([&] { sheet->design().setEntries(u"A1"_s, {{1.0}, {1.0, 2.0}}); }), 5);
        QCOMPARE(words, u"The rows of a block are of one length."_s);
        workbook->AddSheet(u"Second"_s);
        QCOMPARE(errorOf([&] { sheet->design().setName(u"Second"_s); }), 1004);
        QCOMPARE(words, u"A sheet can't be named \"Second\"."_s);
    }
};

QTEST_GUILESS_MAIN(TestDesign)
#include "tst_design.moc"
