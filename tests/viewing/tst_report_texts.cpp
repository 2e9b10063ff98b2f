// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
//
// Texts on the pages of a report: how they break and are painted, and where they are found.
#include "made_report.h"
#include "viewing/reports/geometry.h"
#include "viewing/reports/pages.h"

#include <QPainter>
#include <QTemporaryDir>
#include <QTest>

using namespace Qt::StringLiterals;
using namespace ostrand::viewing::reports;
using ostrand::tests::MadeReport;
using ostrand::tests::RecordedSheet;
using ostrand::tests::texts;

namespace {

QStringList linesOf(const TextBlock& block)
{
    QStringList lines;
    for (int i = 0; i < block.lineCount(); ++i)
        lines << block.lineText(i).toString();
    return lines;
}

QImage painted(const Pages& pages, int page, double scale)
{
    QImage picture((pages.size() * scale).toSize(), QImage::Format_RGB32);
    picture.fill(Qt::white);
    QPainter painter(&picture);
    painter.scale(scale, scale);
    pages.draw(painter, page);
    return picture;
}

bool isDark(QRgb pixel)
{
    return qGray(pixel) < 0x60;
}

/// Counts dark points between two distances from the left, in points of the sheet.
int darkPoints(const QImage& picture, double from, double to, double top, double scale)
{
    int count = 0;
    for (int y = int(top * scale); y < picture.height(); ++y) {
        for (int x = int(from * scale); x < int(to * scale); ++x)
            count += isDark(picture.pixel(x, y)) ? 1 : 0;
    }
    return count;
}

} // namespace

class ReportTextsTest : public QObject
{
    Q_OBJECT

private slots:
    void breaksAtBlanks();
    void breaksLongWordsAtSeamsOrAnywhere();
    void keepsLineBreaksAndDropsControlCharacters();
    void cutsWithAnEllipsis();
    void keepsHostileTextsInTheirColumn_data();
    void keepsHostileTextsInTheirColumn();
    void joinsLinesThatFitBeforeItCuts();
    void beginsRightToLeftTextsAtTheRight();
    void keepsJoinedRightToLeftTextsBesideTheirCaption();
    void findsTextsWhereTheyStand();
    void findsTextsOverLineBreaks();
    void showsTheLogoInItsProportions();
    void leavesTheLogoOutThatCannotBeRead();
    void paintsOnlyPagesThatAreThere();
};

void ReportTextsTest::breaksAtBlanks()
{
    const Typeface face(7.5, false);
    const int width = face.width(u"four words  in");
    QCOMPARE(linesOf(TextBlock(u"four words  in a row"_s, face, width)),
             QStringList({u"four words  in"_s, u"a row"_s}));
    QCOMPARE(linesOf(TextBlock(u"four words  in"_s, face, width - 1)),
             QStringList({u"four words"_s, u"in"_s}));
    QCOMPARE(linesOf(TextBlock({}, face, width)), QStringList());
    QCOMPARE(TextBlock(u"four words  in a row"_s, face, width).usedWidth(), width);
}

void ReportTextsTest::breaksLongWordsAtSeamsOrAnywhere()
{
    const Typeface face(7.5, false);
    QCOMPARE(linesOf(TextBlock(u"HGC-05-LD-F-1001"_s, face, face.width(u"HGC-05-LD-F-1"))),
             QStringList({u"HGC-05-LD-F-"_s, u"1001"_s}));
    QCOMPARE(linesOf(TextBlock(u"iiiiii"_s, face, face.width(u"iiii"))),
             QStringList({u"iiii"_s, u"ii"_s}));
    const QString endless(10000, u'x');
    const QStringList lines = linesOf(TextBlock(endless, face, face.width(u"xxxxxxxxxx")));
    QCOMPARE(lines.size(), 1000);
    QCOMPARE(lines.join(QString()), endless);
    // Even a letter too wide for the column stands on some line.
    QCOMPARE(linesOf(TextBlock(u"WW"_s, face, 1)), QStringList({u"W"_s, u"W"_s}));
}

void ReportTextsTest::keepsLineBreaksAndDropsControlCharacters()
{
    const Typeface face(7.5, false);
    QCOMPARE(linesOf(TextBlock(u"one\r\ntwo\rthree\nfour\n\nsix\r\n"_s, face, 10000)),
             QStringList({u"one"_s, u"two"_s, u"three"_s, u"four"_s, u""_s, u"six"_s}));
    QCOMPARE(linesOf(TextBlock(u"a\tb\u0007c"_s + QChar(0) + u'd', face, 10000)),
             QStringList{u"a b c d"_s});
}

void ReportTextsTest::cutsWithAnEllipsis()
{
    const Typeface face(7.5, false);
    const int width = face.width(u"Instrum");
    for (const QString& text :
         {u"Instrumentation"_s, u"流量变送器流量变送器"_s, QString(5000, u'x')}) {
        const TextBlock block = TextBlock::cut(text, face, width);
        QCOMPARE(block.lineCount(), 1);
        QVERIFY(block.text().endsWith(u'\u2026'));
        QVERIFY(block.usedWidth() <= width);
        QCOMPARE(TextBlock::cut(text, face, width, 2).lineCount(), 2);
    }
    QCOMPARE(TextBlock::cut(u"Instrum"_s, face, width).text(), u"Instrum"_s);
}

void ReportTextsTest::keepsHostileTextsInTheirColumn_data()
{
    QTest::addColumn<QString>("text");
    QTest::newRow("word of 10,000 letters") << QString(10000, u'W');
    QTest::newRow("10,000 letters in words") << u"flow "_s.repeated(2000);
    QTest::newRow("East Asian") << u"流量变送器"_s.repeated(300);
    QTest::newRow("right to left") << u"مرسل تدفق الغاز "_s.repeated(100);
    QTest::newRow("both ways") << u"FT-101 محول flow "_s.repeated(100);
    QTest::newRow("marks") << u"e\u0301\u0327"_s.repeated(500);
    QTest::newRow("half a character") << QString(300, QChar(0xd800));
    QTest::newRow("beyond the plane") << u"\U0001F600"_s.repeated(300);
    QTest::newRow("control characters")
        << QString(u"a\u0001\u0002\u009f\u200f\u202e\ufeff"_s + QChar(0)).repeated(99);
    QTest::newRow("blanks") << QString(5000, u' ') + u'x';
    QTest::newRow("line breaks") << QString(u'x' + u"\r\n"_s.repeated(300) + u'x');
}

/// The columns to its right stay free of its letters, and nothing leaves the body below.
void ReportTextsTest::keepsHostileTextsInTheirColumn()
{
    QFETCH(QString, text);
    MadeReport made;
    made.add(u"T-1"_s, text);
    Pages pages(made.report, made.data);
    pages.layOutAll();
    QVERIFY(pages.count() < 100);
    const double left = (pageMargin + 40.0 / 277 * bodyWidth(Paper::A4Landscape)) / unitsPerPoint;
    const double right = (pageMargin + 177.0 / 277 * bodyWidth(Paper::A4Landscape)) / unitsPerPoint;
    const double end = pages.size().width() - double(pageMargin) / unitsPerPoint - 1;
    // Under the header and the heads, to where the totals or the footer begin.
    const double top = 140;
    for (const double scale : {1.0, 2.0}) {
        const QImage picture = painted(pages, 0, scale);
        const QImage body = picture.copy(0, 0, picture.width(), int(330 * scale));
        QVERIFY(darkPoints(picture, left, right, top, scale) > 0);
        if (pages.count() > 1)
            QCOMPARE(darkPoints(body, right + 1, end, top, scale), 0);
    }
}

void ReportTextsTest::joinsLinesThatFitBeforeItCuts()
{
    const Typeface face(7.5, false);
    QCOMPARE(TextBlock::cut(u"North\r\nof river"_s, face, 10000).text(), u"North of river"_s);
    QCOMPARE(linesOf(TextBlock::cut(u"one\ntwo\nthree"_s, face, 10000, 2)),
             QStringList({u"one"_s, u"two three"_s}));
    const int width = face.width(u"North of");
    QVERIFY(TextBlock::cut(u"North\nof river"_s, face, width).text().endsWith(u'\u2026'));
    MadeReport made;
    made.add(u"T-1"_s, {}, {}, u"North\r\nof river"_s);
    const QStringList page = texts(*made.layOut(), 0);
    QCOMPARE(page.count(u"Area: North of river"_s), 2); // heading and totals
    QVERIFY(page.filter(u"\u2026"_s).isEmpty());
}

void ReportTextsTest::beginsRightToLeftTextsAtTheRight()
{
    const Typeface face(7.5, false);
    constexpr int width = 2000;
    const QString arabic = u"\u0645\u0631\u0633\u0644 \u062a\u062f\u0641\u0642"_s;
    const TextBlock block(u"flow\n"_s + arabic, face, width);
    QCOMPARE(block.lineStart(0, 0).x(), 0);
    QVERIFY(qAbs(block.lineStart(1, 0).x() + block.usedWidth() - width) < 5);
    const std::vector<QRect> places = block.places(5, arabic.size(), 0, 2);
    QCOMPARE(places.size(), 1U);
    QVERIFY(qAbs(places[0].x() + places[0].width() - width) < 5);
    // Far Eastern texts run to the right.
    QCOMPARE(TextBlock(u"流量变送器"_s, face, width).lineStart(0, 0).x(), 0);
    QVERIFY(TextBlock(arabic, face, width).narrowed().lineStart(0, 0).x() < 5);
    QCOMPARE(TextBlock(arabic, face, width).narrowed().lineCount(), 1);
}

void ReportTextsTest::keepsJoinedRightToLeftTextsBesideTheirCaption()
{
    MadeReport made;
    const auto under = [](const QString& caption, const QString& field) {
        return Under{caption, {}, {{.caption = {}, .width = 1, .field = field}}, true};
    };
    made.report->under = {under(u"First"_s, u"Service"_s), under(u"Second"_s, u"Remarks"_s)};
    made.report->columns = {{.caption = u"TAG"_s, .width = 40, .field = u"Tag"_s}};
    const QString arabic = u"\u0645\u0631\u0633\u0644"_s;
    made.add(u"T-1"_s, arabic, u"remark"_s);
    Pages pages(made.report, made.data);
    pages.layOutAll();
    const auto place = [&](const QString& text) { return pages.find(0, text).at(0).places.at(0); };
    QVERIFY(place(u"First"_s).right() < place(arabic).left());
    QVERIFY(place(arabic).right() < place(u"Second"_s).left());
    QCOMPARE(place(arabic).top(), place(u"Second"_s).top());
}

void ReportTextsTest::findsTextsWhereTheyStand()
{
    MadeReport made;
    for (int i = 0; i < 5; ++i)
        made.add(u"T-%1"_s.arg(i), u"Flow of gas, flow of oil"_s);
    Pages pages(made.report, made.data);
    pages.layOutAll();
    QCOMPARE(pages.find(0, u"FLOW OF"_s).size(), 10U);
    QCOMPARE(pages.find(0, u"made list"_s).size(), 2U); // in the header and in the footer
    QCOMPARE(pages.find(0, u"area: a"_s).size(), 2U);   // heading and totals
    QCOMPARE(pages.find(0, u"1 of 1"_s).size(), 1U);
    QCOMPARE(pages.find(0, {}).size(), 0U);
    QCOMPARE(pages.find(0, u"nowhere"_s).size(), 0U);
    QCOMPARE(pages.find(1, u"flow"_s).size(), 0U);
    const std::vector<Hit> hits = pages.find(0, u"T-3"_s);
    QCOMPARE(hits.size(), 1U);
    QCOMPARE(hits[0].places.size(), 1U);
    const QImage picture = painted(pages, 0, 2);
    const QRectF place = hits[0].places[0];
    int dark = 0;
    for (int y = int(place.top() * 2); y < int(place.bottom() * 2); ++y) {
        for (int x = int(place.left() * 2); x < int(place.right() * 2); ++x)
            dark += isDark(picture.pixel(x, y)) ? 1 : 0;
    }
    QVERIFY(dark > 10);
    // In reading order.
    const std::vector<Hit> flows = pages.find(0, u"flow"_s);
    const auto flow = [&](std::size_t number) { return flows[number].places[0]; };
    QVERIFY(flow(0).top() == flow(1).top() && flow(0).right() < flow(1).left());
    QVERIFY(flow(1).top() < flow(2).top());
}

void ReportTextsTest::findsTextsOverLineBreaks()
{
    MadeReport made;
    made.add(u"T-1"_s, u"one\r\ntwo"_s, u"words "_s.repeated(20) + u"last words"_s);
    made.add(u"T-2"_s, u"流量变送器"_s.repeated(30) + u"终"_s);
    Pages pages(made.report, made.data);
    pages.layOutAll();
    const std::vector<Hit> broken = pages.find(0, u"one two"_s);
    QCOMPARE(broken.size(), 1U);
    const std::vector<QRectF> each{pages.find(0, u"one"_s)[0].places[0],
                                   pages.find(0, u"two"_s)[0].places[0]};
    QCOMPARE(broken[0].places, each);
    QVERIFY(each[0].bottom() <= each[1].top());
    QCOMPARE(pages.find(0, u"words last"_s).size(), 1U);
    // A text that fills lines is marked line by line, no further than its letters reach.
    const std::vector<Hit> many = pages.find(0, u"words "_s.repeated(20) + u"last"_s);
    QCOMPARE(many.size(), 1U);
    QVERIFY(many[0].places.size() > 1U);
    for (const QRectF& line : many[0].places)
        QCOMPARE(line.height(), each[0].height());
    QCOMPARE(pages.find(0, u"变送器终"_s).size(), 1U);
    QCOMPARE(pages.find(0, u"流量"_s).size(), 30U);
}

void ReportTextsTest::showsTheLogoInItsProportions()
{
    const QTemporaryDir folder;
    MadeReport made;
    made.report->source.location = folder.filePath(u"made.mdb"_s);
    made.data.logoFile = u"pictures\\logo.png"_s;
    QDir(folder.path()).mkdir(u"pictures"_s);
    struct Case
    {
        QSize picture;
        double width;
        double height; // millimetres
    };
    for (const Case& size : {Case{{400, 100}, 40, 10},
                             Case{{100, 100}, 14, 14},
                             Case{{6000, 3000}, 28, 14},
                             Case{{1, 1}, 14, 14}}) {
        QImage logo(size.picture, QImage::Format_RGB32);
        logo.fill(Qt::red);
        QVERIFY(logo.save(folder.filePath(u"pictures/logo.png"_s)));
        RecordedSheet sheet;
        made.layOut()->show(sheet, 0);
        QCOMPARE(sheet.pictures.size(), 1U);
        QVERIFY(qAbs(sheet.pictures[0].width() - fromMillimetres(size.width)) < 3);
        QVERIFY(qAbs(sheet.pictures[0].height() - fromMillimetres(size.height)) < 3);
        Pages pages(made.report, made.data);
        pages.layOutAll();
        const QPointF middle = QRectF(sheet.pictures[0]).center() / unitsPerPoint;
        QCOMPARE(painted(pages, 0, 1).pixelColor(middle.toPoint()), QColor(Qt::red));
    }
}

void ReportTextsTest::leavesTheLogoOutThatCannotBeRead()
{
    const QTemporaryDir folder;
    MadeReport made;
    made.report->source.location = folder.filePath(u"made.mdb"_s);
    QFile text(folder.filePath(u"text.png"_s));
    QVERIFY(text.open(QIODevice::WriteOnly));
    text.write("no picture");
    text.close();
    for (const QString& name : {u"text.png"_s, u"none.png"_s, u"."_s, u"/dev/zero"_s, u""_s}) {
        made.data.logoFile = name;
        RecordedSheet sheet;
        made.layOut()->show(sheet, 0);
        QVERIFY2(sheet.pictures.empty(), qPrintable(name));
    }
}

void ReportTextsTest::paintsOnlyPagesThatAreThere()
{
    const MadeReport made;
    Pages pages(made.report, made.data);
    pages.layOutAll();
    QImage blank = painted(pages, 0, 1);
    blank.fill(Qt::white);
    QVERIFY(painted(pages, 0, 1) != blank);
    QVERIFY(painted(pages, 1, 1) == blank);
    QVERIFY(painted(pages, -1, 1) == blank);
}

QTEST_MAIN(ReportTextsTest)
#include "tst_report_texts.moc"
