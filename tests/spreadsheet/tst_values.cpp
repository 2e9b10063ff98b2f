// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "spreadsheet/office_fixture.h"

#include <QTest>

using namespace Qt::StringLiterals;
using namespace ostrand;
using spreadsheet::CellValue;
using tests::OfficeFixture;

class TestValues : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    static void cleanupTestCase() { spreadsheet::endHost(); }

    static void textsStayLetterForLetter()
    {
        const QStringList texts{u"0012"_s,
                                u"1E5"_s,
                                u"2-10"_s,
                                u"TRUE"_s,
                                u"=1+1"_s,
                                u"'quoted"_s,
                                u"3/5/2024"_s,
                                u" blanks "_s,
                                u"10 %"_s,
                                u"-5"_s,
                                u"+5"_s,
                                u"1,5"_s,
                                u"10:30"_s,
                                u"@x"_s,
                                u"#N/A"_s,
                                u"Größe Ω 温度"_s,
                                u"two\nlines"_s};
        OfficeFixture office;
        const QString path = office.workbook(u"texts.xls"_s, texts);
        const auto application = spreadsheet::CreateObject();
        const auto workbook = application->Open(path);
        const auto sheet = workbook->Worksheets(1);
        for (int i = 0; i < texts.size(); ++i) {
            const auto cell = sheet->Range(u"A%1"_s.arg(i + 1));
            QCOMPARE(std::get<QString>(cell->Value()), texts[i]);
        }
        sheet->Range(u"A1"_s)->setValue(QString());
        QVERIFY(std::holds_alternative<std::monostate>(sheet->Range(u"A1"_s)->Value()));
    }

    static void whatIsNoCellIsRefused()
    {
        OfficeFixture office;
        const auto application = spreadsheet::CreateObject();
        const auto workbook = application->Add();
        const auto sheet = workbook->Worksheets(1);
        for (const QString& reference :
             {u"ZZZZ1"_s, u"A0"_s, u"A99999999"_s, u"nowhere"_s, u"A1:"_s}) {
            try {
                sheet->Range(reference);
                QFAIL(qPrintable(reference));
            } catch (const spreadsheet::Error& error) {
                QCOMPARE(error.number(), 1004);
            }
        }
        QVERIFY(std::holds_alternative<spreadsheet::ManyCells>(sheet->Range(u"A1:B2"_s)->Value()));
    }
};

QTEST_GUILESS_MAIN(TestValues)
#include "tst_values.moc"
