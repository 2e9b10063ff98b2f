// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "spreadsheet/office_fixture.h"

#include <QFile>
#include <QImage>
#include <QTest>

using namespace Qt::StringLiterals;
using namespace ostrand;
using tests::OfficeFixture;

namespace {

constexpr double rounding = 0.2; // points; files keep shapes on a coarse grid

bool isNear(double actual, double expected)
{
    return std::abs(actual - expected) <= rounding;
}

/// A picture file of 96 by 48 pixels; a resolution of 0 leaves the file without one.
QString picture(const OfficeFixture& office, const QString& name, int dotsPerMetre)
{
    QImage image(96, 48, QImage::Format_RGB32);
    image.fill(Qt::darkBlue);
    image.setDotsPerMeterX(dotsPerMetre);
    image.setDotsPerMeterY(dotsPerMetre);
    if (!image.save(office.path(name)))
        qFatal("the picture was not written");
    return office.path(name);
}

QStringList namesOf(spreadsheet::Worksheet& sheet)
{
    QStringList names;
    for (const auto& shape : sheet.Shapes())
        names << shape->Name();
    return names;
}

int errorOfInserting(spreadsheet::Worksheet& sheet, const QString& file)
{
    try {
        sheet.InsertPicture(file);
        return 0;
    } catch (const spreadsheet::Error& error) {
        return error.number();
    }
}

} // namespace

class TestShapes : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    static void cleanupTestCase() { spreadsheet::endHost(); }

    static void aNamedPictureSurvivesTheFile()
    {
        const OfficeFixture office;
        const auto application = spreadsheet::CreateObject();
        const auto workbook = application->Add();
        const auto sheet = workbook->Worksheets(1);
        const auto shape = sheet->InsertPicture(picture(office, u"a.png"_s, 3780));
        shape->setName(u"LOGO"_s);
        shape->setPosition(2, 3);
        shape->setSize({200, 40});
        workbook->SaveAs(office.path(u"a.xls"_s), spreadsheet::FileFormat::Workbook);
        workbook->Close(spreadsheet::SaveChanges::No);

        const auto again = application->Open(office.path(u"a.xls"_s));
        const auto shapes = again->Worksheets(1)->Shapes();
        QCOMPARE(shapes.size(), std::size_t{1});
        QCOMPARE(shapes[0]->Name(), u"LOGO"_s);
        QVERIFY(isNear(shapes[0]->Left(), 2));
        QVERIFY(isNear(shapes[0]->Top(), 3));
        QVERIFY(isNear(shapes[0]->Size().width, 200));
        QVERIFY(isNear(shapes[0]->Size().height, 40));
    }

    static void aPictureComesInItsOwnSizeToTheSelectedCell()
    {
        const OfficeFixture office;
        const auto application = spreadsheet::CreateObject();
        const auto workbook = application->Add();
        const auto sheet = workbook->Worksheets(1);
        sheet->design().setRowHeight(1, 3, 20);
        sheet->design().setColumnWidth(u"A"_s, 13); // 96 pixels
        sheet->Range(u"B4"_s)->Select();
        const auto shape = sheet->InsertPicture(picture(office, u"a.png"_s, 3780));
        QVERIFY(isNear(shape->Left(), 72));
        QVERIFY(isNear(shape->Top(), 60));
        QVERIFY(isNear(shape->Size().width, 72));
        QVERIFY(isNear(shape->Size().height, 36));
        const auto finer = sheet->InsertPicture(picture(office, u"b.png"_s, 2 * 3780));
        QVERIFY(isNear(finer->Size().width, 36));
    }

    static void aPictureWithoutAResolutionIsAsLargeAsItsPixels()
    {
        const OfficeFixture office;
        QFile file(office.path(u"a.gif"_s));
        QVERIFY(file.open(QIODevice::WriteOnly));
        // One black pixel.
        file.write(
            QByteArray::fromHex("47494638396101000100800000000000ffffff2c00000000010001000002"
                                "024401003b"));
        file.close();
        const auto application = spreadsheet::CreateObject();
        const auto workbook = application->Add();
        const auto shape = workbook->Worksheets(1)->InsertPicture(file.fileName());
        QVERIFY(isNear(shape->Size().width, 0.75));
        QVERIFY(isNear(shape->Size().height, 0.75));
    }

    static void aSelectionOnAnotherSheetIsNoPlace()
    {
        const OfficeFixture office;
        const auto application = spreadsheet::CreateObject();
        const auto workbook = application->Add();
        workbook->Worksheets(1)->Range(u"C9"_s)->Select();
        const auto second = workbook->AddSheet(u"Second"_s);
        const auto shape = second->InsertPicture(picture(office, u"a.png"_s, 3780));
        QVERIFY(isNear(shape->Left(), 0));
        QVERIFY(isNear(shape->Top(), 0));
        QVERIFY(workbook->Worksheets(1)->Shapes().empty());
    }

    static void shapesAreListedAndDeletedOneByOne()
    {
        const OfficeFixture office;
        const QString file = picture(office, u"a.png"_s, 3780);
        const auto application = spreadsheet::CreateObject();
        const auto workbook = application->Add();
        const auto sheet = workbook->Worksheets(1);
        for (const QString& name : {u"one"_s, u"two"_s, u"three"_s})
            sheet->InsertPicture(file)->setName(name);
        QCOMPARE(namesOf(*sheet), (QStringList{u"one"_s, u"two"_s, u"three"_s}));
        sheet->Shapes().at(1)->Delete();
        QCOMPARE(namesOf(*sheet), (QStringList{u"one"_s, u"three"_s}));
        workbook->SaveAs(office.path(u"a.xlt"_s), spreadsheet::FileFormat::Template);
        workbook->Close(spreadsheet::SaveChanges::No);
        const auto again = application->Open(office.path(u"a.xlt"_s));
        QCOMPARE(namesOf(*again->Worksheets(1)), (QStringList{u"one"_s, u"three"_s}));
    }

    static void aPictureIsReplacedUnderTheSheetsProtection()
    {
        const OfficeFixture office;
        const auto application = spreadsheet::CreateObject();
        const auto workbook = application->Add();
        const auto sheet = workbook->Worksheets(1);
        sheet->InsertPicture(picture(office, u"a.png"_s, 3780))->setName(u"LOGO"_s);
        sheet->Protect();
        sheet->Unprotect();
        sheet->Shapes().at(0)->Delete();
        sheet->InsertPicture(picture(office, u"b.jpg"_s, 3780))->setName(u"logo"_s);
        sheet->Protect();
        QCOMPARE(namesOf(*sheet), QStringList{u"logo"_s});
    }

    static void whatIsNoPictureIsRefused()
    {
        const OfficeFixture office;
        const auto application = spreadsheet::CreateObject();
        const auto workbook = application->Add();
        const auto sheet = workbook->Worksheets(1);
        QFile file(office.path(u"text.png"_s));
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write("no picture");
        file.close();
        QCOMPARE(errorOfInserting(*sheet, file.fileName()), 1004);
        QCOMPARE(errorOfInserting(*sheet, office.path(u"missing.png"_s)), 1004);
        QCOMPARE(errorOfInserting(*sheet, office.path(QString())), 1004);
        QVERIFY(sheet->Shapes().empty());
        try {
            sheet->InsertPicture(u"/nowhere/logo.png"_s);
            QFAIL("a missing file was inserted");
        } catch (const spreadsheet::Error& error) {
            QCOMPARE(error.description(), u"The picture /nowhere/logo.png can't be read."_s);
        }
    }
};

QTEST_GUILESS_MAIN(TestShapes)
#include "tst_shapes.moc"
