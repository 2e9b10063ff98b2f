// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "spreadsheet/office_fixture.h"

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QTcpServer>
#include <QTest>

using namespace Qt::StringLiterals;
using namespace ostrand;
using tests::OfficeFixture;

namespace {

/// The parts of a workbook in the newer format, made of text.
using Parts = QList<std::pair<QString, QString>>;

const QString namespaces =
    u"xmlns:office=\"urn:oasis:names:tc:opendocument:xmlns:office:1.0\" "
    "xmlns:table=\"urn:oasis:names:tc:opendocument:xmlns:table:1.0\" "
    "xmlns:text=\"urn:oasis:names:tc:opendocument:xmlns:text:1.0\" "
    "xmlns:script=\"urn:oasis:names:tc:opendocument:xmlns:script:1.0\" "
    "xmlns:of=\"urn:oasis:names:tc:opendocument:xmlns:of:1.2\" "
    "xmlns:ooo=\"http://openoffice.org/2004/office\" "
    "xmlns:xlink=\"http://www.w3.org/1999/xlink\" "
    "xmlns:dom=\"http://www.w3.org/2001/xml-events\" office:version=\"1.3\""_s;

/// Content with one cell, and what stands before the sheets and behind its first one.
QString content(const QString& before, const QString& cell, const QString& behind = {})
{
    return u"<office:document-content "_s + namespaces + u'>' + before
           + u"<office:body><office:spreadsheet><table:table table:name=\"Sheet1\">"
             "<table:table-row>"_s
           + cell + u"</table:table-row></table:table>"_s + behind
           + u"</office:spreadsheet></office:body></office:document-content>"_s;
}

void write(const QString& path, const QByteArray& bytes)
{
    QDir().mkpath(QFileInfo(path).path());
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
        qFatal("the parts can't be written");
}

/// Packs the parts to a workbook file.
QString pack(const OfficeFixture& office, const QString& name, const Parts& parts)
{
    const QDir folder(office.path(name + u".parts"_s));
    const QString type = u"application/vnd.oasis.opendocument.spreadsheet"_s;
    QString list = u"<manifest:manifest "
                   "xmlns:manifest=\"urn:oasis:names:tc:opendocument:xmlns:manifest:1.0\" "
                   "manifest:version=\"1.3\"><manifest:file-entry manifest:full-path=\"/\" "
                   "manifest:media-type=\""_s
                   + type + u"\"/>"_s;
    for (const auto& [path, text] : parts) {
        write(folder.filePath(path), "<?xml version=\"1.0\"?>" + text.toUtf8());
        list += u"<manifest:file-entry manifest:full-path=\"%1\" "
                "manifest:media-type=\"text/xml\"/>"_s.arg(path);
    }
    list += u"</manifest:manifest>"_s;
    write(folder.filePath(u"META-INF/manifest.xml"_s), "<?xml version=\"1.0\"?>" + list.toUtf8());
    write(folder.filePath(u"mimetype"_s), type.toUtf8());
    QProcess zip;
    zip.setWorkingDirectory(folder.path());
    const QString file = office.path(name);
    for (const QStringList& words : {QStringList{u"-q"_s, u"-0"_s, u"-X"_s, file, u"mimetype"_s},
                                     QStringList{u"-q"_s, u"-r"_s, u"-X"_s, file, u"."_s}}) {
        zip.start(u"zip"_s, words);
        if (!zip.waitForFinished() || zip.exitCode() != 0)
            qFatal("the parts can't be packed");
    }
    return file;
}

const QString plainCell =
    u"<table:table-cell office:value-type=\"string\"><text:p>quiet</text:p></table:table-cell>"_s;

/// The head of a part of a macro library.
QString documentType(const QString& element, const QString& file)
{
    return u"<!DOCTYPE %1 PUBLIC \"-//OpenOffice.org//DTD OfficeDocument 1.0//EN\" \"%2\">"_s.arg(
        element, file);
}

/// A workbook with a macro that writes a mark file as the workbook opens.
QString macroWorkbook(const OfficeFixture& office)
{
    const QString library = u"http://openoffice.org/2000/library"_s;
    return pack(
        office,
        u"macro.xls"_s,
        {{u"content.xml"_s,
          content(u"<office:scripts><office:event-listeners><script:event-listener "
                  "script:language=\"ooo:script\" script:event-name=\"dom:load\" "
                  "xlink:href=\"vnd.sun.star.script:Standard.Module1.Main?language=Basic&amp;"
                  "location=document\" xlink:type=\"simple\"/></office:event-listeners>"
                  "</office:scripts>"_s,
                  plainCell)},
         {u"Basic/script-lc.xml"_s,
          documentType(u"library:libraries"_s, u"libraries.dtd"_s)
              + u"<library:libraries xmlns:library=\""_s + library
              + u"\"><library:library library:name=\"Standard\" library:link=\"false\"/>"
                "</library:libraries>"_s},
         {u"Basic/Standard/script-lb.xml"_s,
          documentType(u"library:library"_s, u"library.dtd"_s)
              + u"<library:library xmlns:library=\""_s + library
              + u"\" library:name=\"Standard\" library:readonly=\"false\" "
                "library:passwordprotected=\"false\">"
                "<library:element library:name=\"Module1\"/></library:library>"_s},
         {u"Basic/Standard/Module1.xml"_s,
          documentType(u"script:module"_s, u"module.dtd"_s)
              + u"<script:module xmlns:script=\"http://openoffice.org/2000/script\" "
                "script:name=\"Module1\" script:language=\"StarBasic\">Sub Main\n"
                "Open Environ(\"OSTRAND_MARK\") For Output As #1\nPrint #1, \"ran\"\nClose #1\n"
                "End Sub</script:module>"_s}});
}

/// A workbook whose one cell is linked to that of another file, and remembers the value "cached".
QString linkedWorkbook(const OfficeFixture& office, const QString& name, const QString& target)
{
    const QString formula = u"<table:table-cell table:formula=\"of:=['%1'#$Sheet1.A1]\" "
                            "office:value-type=\"string\" office:string-value=\"cached\">"
                            "<text:p>cached</text:p></table:table-cell>"_s.arg(target);
    const QString cache = u"<table:table table:name=\"'%1'#Sheet1\"><table:table-source "
                          "xlink:type=\"simple\" xlink:href=\"%1\" table:table-name=\"Sheet1\" "
                          "table:mode=\"copy-results-only\"/><table:table-row>"
                          "<table:table-cell office:value-type=\"string\"><text:p>cached</text:p>"
                          "</table:table-cell></table:table-row></table:table>"_s.arg(target);
    return pack(office, name, {{u"content.xml"_s, content({}, formula, cache)}});
}

QString shownIn(const std::shared_ptr<spreadsheet::Workbook>& workbook)
{
    const spreadsheet::CellValue value = workbook->Worksheets(1)->Range(u"A1"_s)->Value();
    const auto* text = std::get_if<QString>(&value);
    return text ? *text : u"no text"_s;
}

} // namespace

class TestSafety : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    static void cleanup() { spreadsheet::endHost(); }

    static void aMacroDoesNotRunWhenItsWorkbookOpens()
    {
        const OfficeFixture office;
        const QString mark = office.path(u"mark"_s);
        qputenv("OSTRAND_MARK", mark.toUtf8());
        const auto application = spreadsheet::CreateObject();
        const auto workbook = application->Open(macroWorkbook(office));
        QCOMPARE(shownIn(workbook), u"quiet"_s);
        QTest::qWait(700);
        QVERIFY(!QFile::exists(mark));
        workbook->Close(spreadsheet::SaveChanges::No);
        QVERIFY(!QFile::exists(mark));
    }

    static void aLinkToAnotherFileKeepsTheValueItHad()
    {
        const OfficeFixture office;
        const QString target =
            QUrl::fromLocalFile(office.workbook(u"other.xls"_s, {u"new"_s})).toString();
        const QString path = linkedWorkbook(office, u"linked.xls"_s, target);
        const auto application = spreadsheet::CreateObject();
        const auto workbook = application->Open(path);
        QTest::qWait(500);
        QCOMPARE(shownIn(workbook), u"cached"_s);
    }

    static void aLinkToAServerIsNotFollowed()
    {
        QTcpServer server;
        QVERIFY(server.listen(QHostAddress::LocalHost));
        bool called = false;
        QObject::connect(&server, &QTcpServer::newConnection, &server, [&] { called = true; });
        const OfficeFixture office;
        const QString path = linkedWorkbook(
            office, u"web.xls"_s, u"http://127.0.0.1:%1/other.ods"_s.arg(server.serverPort()));
        const auto application = spreadsheet::CreateObject();
        const auto workbook = application->Open(path);
        QTest::qWait(1000);
        QVERIFY(!called);
        QCOMPARE(shownIn(workbook), u"cached"_s);
    }
};

QTEST_GUILESS_MAIN(TestSafety)
#include "tst_safety.moc"
