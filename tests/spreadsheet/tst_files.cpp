// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "spreadsheet/office_fixture.h"
#include "support/without_root.h"

#include <QFile>
#include <QTest>

using namespace Qt::StringLiterals;
using namespace ostrand;
using tests::OfficeFixture;

namespace {

/// The number of the error that opening a file meets; 0 for none.
int errorOfOpening(const QString& path)
{
    try {
        spreadsheet::CreateObject()->Open(path);
        return 0;
    } catch (const spreadsheet::Error& error) {
        return error.number();
    }
}

} // namespace

class TestFiles : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    static void cleanupTestCase() { spreadsheet::endHost(); }

    static void filesThatAreNoWorkbooksAreRefused()
    {
        const OfficeFixture office;
        QCOMPARE(errorOfOpening(office.path(u"missing.xls"_s)), 1004);
        const auto write = [&](const QString& name, const QByteArray& bytes) {
            QFile file(office.path(name));
            file.open(QIODevice::WriteOnly);
            file.write(bytes);
            return file.fileName();
        };
        QCOMPARE(errorOfOpening(write(u"empty.xls"_s, {})), 321);
        QCOMPARE(errorOfOpening(write(u"garbage.xls"_s, QByteArray(3000, 'x'))), 321);
    }

    static void aMissingFileIsToldByName()
    {
        const OfficeFixture office;
        const QString path = office.path(u"missing.xls"_s);
        try {
            spreadsheet::CreateObject()->Open(path);
            QFAIL("it was opened");
        } catch (const spreadsheet::Error& error) {
            QCOMPARE(error.number(), 1004);
            QCOMPARE(error.description(), u"The file %1 was not found."_s.arg(path));
        }
    }

    static void aWorkbookThatWasCutOffIsRefused_data()
    {
        QTest::addColumn<double>("part");
        QTest::addColumn<int>("number");
        QTest::newRow("the header") << 0.01 << 321;
        QTest::newRow("a quarter") << 0.25 << 321;
        QTest::newRow("half") << 0.5 << 321;
        QTest::newRow("nearly all") << 0.9 << 321;
        QTest::newRow("all") << 1.0 << 0;
    }
    static void aWorkbookThatWasCutOffIsRefused()
    {
        QFETCH(const double, part);
        QFETCH(const int, number);
        const OfficeFixture office;
        QFile file(office.workbook(u"cut.xls"_s, {u"one"_s, u"two"_s}));
        QVERIFY(file.resize(static_cast<qint64>(static_cast<double>(file.size()) * part)));
        QCOMPARE(errorOfOpening(file.fileName()), number);
    }

    static void aCompoundFileOfAnotherProgramIsRefused()
    {
        const OfficeFixture office;
        QFile file(office.workbook(u"other.xls"_s, {u"one"_s}));
        QVERIFY(file.open(QIODevice::ReadWrite));
        QByteArray bytes = file.readAll();
        const auto utf16 = [](const char16_t* text) {
            return QByteArray(reinterpret_cast<const char*>(text), 16);
        };
        QVERIFY(bytes.contains(utf16(u"Workbook")));
        bytes.replace(utf16(u"Workbook"), utf16(u"Drawings"));
        QVERIFY(file.seek(0));
        QCOMPARE(file.write(bytes), bytes.size());
        file.close();
        QCOMPARE(errorOfOpening(file.fileName()), 321);
    }

    static void aWorkbookBehindAPasswordIsRefused()
    {
        const OfficeFixture office;
        QFile file(office.workbook(u"secret.xls"_s, {u"one"_s}));
        QVERIFY(file.open(QIODevice::ReadWrite));
        QByteArray bytes = file.readAll();
        // The record behind the first one becomes the one that says how the rest is scrambled.
        const qsizetype first = bytes.indexOf(QByteArray::fromHex("09081000"));
        QVERIFY(first > 0);
        qsizetype record = first + 4 + 16;
        while (bytes[record + 2] < 6)
            record += 4 + bytes[record + 2];
        bytes.replace(record, 2, QByteArray::fromHex("2f00"));
        bytes.replace(record + 4, 6, QByteArray::fromHex("00001234abcd"));
        QVERIFY(file.seek(0));
        QCOMPARE(file.write(bytes), bytes.size());
        file.close();
        try {
            spreadsheet::CreateObject()->Open(file.fileName());
            QFAIL("it was opened");
        } catch (const spreadsheet::Error& error) {
            QCOMPARE(error.number(), 70);
            QCOMPARE(error.description(),
                     u"The file %1 can't be read, or is protected by a password."_s.arg(
                         file.fileName()));
        }
    }

    static void aFileThatMayNotBeReadIsToldSo()
    {
        const OfficeFixture office;
        const QString path = office.workbook(u"private.xls"_s, {u"one"_s});
        QVERIFY(QFile::setPermissions(path, {}));
        QVERIFY(QFile::setPermissions(QFileInfo(path).path(), QFile::Permissions(0x7755)));
        const auto application = spreadsheet::CreateObject();
        const tests::WithoutRoot user;
        try {
            application->Open(path);
            QFAIL("it was opened");
        } catch (const spreadsheet::Error& error) {
            QCOMPARE(error.number(), 70);
            QCOMPARE(error.description(), u"The file %1 can't be read."_s.arg(path));
        }
    }

    static void propertiesSurviveTheFile()
    {
        const OfficeFixture office;
        const auto application = spreadsheet::CreateObject();
        const auto workbook = application->Add();
        workbook->setCustomDocumentProperty(u"DatasheetType"_s, u"PRESSURE TRANSMITTER"_s);
        workbook->SaveAs(office.path(u"a.xlt"_s), spreadsheet::FileFormat::Template);
        workbook->Close(spreadsheet::SaveChanges::No);
        const auto again = application->Open(office.path(u"a.xlt"_s));
        QCOMPARE(again->CustomDocumentProperty(u"DatasheetType"_s), u"PRESSURE TRANSMITTER"_s);
        QCOMPARE(again->Name(), u"a.xlt"_s);
        again->SaveCopyAs(office.path(u"b.xls"_s));
        again->Close(spreadsheet::SaveChanges::Yes);
        QCOMPARE(application->Open(office.path(u"b.xls"_s))->Name(), u"b.xls"_s);
    }
};

QTEST_GUILESS_MAIN(TestFiles)
#include "tst_files.moc"
