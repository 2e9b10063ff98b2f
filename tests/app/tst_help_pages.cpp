// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "app/help_contents.h"
#include "app/help_page.h"
#include "app/help_search.h"

#include <QTest>

using namespace Qt::StringLiterals;
using namespace ostrand::app;

class TestHelpPages : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void entriesComeInOrderWithTheirLevels();
    void entriesAreReadHoweverTheyAreSpelled();
    void whatIsNoContentsHasNoEntries_data();
    void whatIsNoContentsHasNoEntries();
    void entriesWithoutEndAreBounded();
    void listsWithoutEndAreBounded();

    void aPageIsReadInItsOwnEncoding();
    void theTextOfAPageIsWhatTheUserReads();
    void aPageThatWouldHoldUpTheProgramIsNotShown_data();
    void aPageThatWouldHoldUpTheProgramIsNotShown();

    void wordsAreFoundWithoutCaseAndDiacritics();
    void wordsAreFoundByTheirBeginning();
    void placesAreThoseOfTheTextItself();
    void pagesWithAllWordsAreFound();
    void theBestPageComesFirst();
    void theExcerptShowsTheFirstHit();
    void anEmptyQueryFindsNothing();

private:
    static QStringList pagesFound(const HelpSearch& search, const QString& query);
};

QStringList TestHelpPages::pagesFound(const HelpSearch& search, const QString& query)
{
    QStringList pages;
    for (const HelpHit& hit : search.find(query))
        pages << hit.page;
    return pages;
}

void TestHelpPages::entriesComeInOrderWithTheirLevels()
{
    const auto topics = readHelpContents(
        u"<HTML><BODY><OBJECT type=\"text/site properties\"><param name=\"Window Styles\" "
        u"value=\"0x800025\"></OBJECT><UL>"
        u"<LI><OBJECT type=\"text/sitemap\"><param name=\"Name\" value=\"Tags\">"
        u"<param name=\"Local\" value=\"tags.htm\"></OBJECT>"
        u"<UL><LI><OBJECT type=\"text/sitemap\"><param name=\"Name\" value=\"New tags\">"
        u"<param name=\"Local\" value=\"tags.htm#new\"></OBJECT></UL>"
        u"<LI><OBJECT type=\"text/sitemap\"><param name=\"Name\" value=\"Tables\"></OBJECT>"
        u"</UL></BODY></HTML>"_s);
    QStringList lines;
    for (const HelpTopic& topic : topics)
        lines << QString::number(topic.level) + u' ' + topic.title + u' ' + topic.page;
    QCOMPARE(lines,
             (QStringList{u"0 Tags tags.htm"_s, u"1 New tags tags.htm#new"_s, u"0 Tables "_s}));
}

void TestHelpPages::entriesAreReadHoweverTheyAreSpelled()
{
    const auto topics = readHelpContents(
        u"<ul><li><object>\n<PARAM NAME='Name'\n VALUE='P&amp;ID &lt;1&gt; &eacute;'>"
        u"<Param value=\"a.htm\" name=\"Local\"></OBJECT>"_s);
    QCOMPARE(topics.size(), std::size_t{1});
    QCOMPARE(topics[0].title, u"P&ID <1> é"_s);
    QCOMPARE(topics[0].page, u"a.htm"_s);
}

void TestHelpPages::whatIsNoContentsHasNoEntries_data()
{
    QTest::addColumn<QString>("text");
    QTest::newRow("nothing") << QString();
    QTest::newRow("words") << u"no contents at all"_s;
    QTest::newRow("an open tag") << u"<object><param name=\"Name\" value=\"x"_s;
    QTest::newRow("no name") << u"<object><param name=\"Local\" value=\"x.htm\"></object>"_s;
    QTest::newRow("an open object") << u"<object><param name=\"Name\" value=\"x\">"_s;
    QTest::newRow("only signs") << QString(100000, u'<');
}

void TestHelpPages::whatIsNoContentsHasNoEntries()
{
    QFETCH(const QString, text);
    QCOMPARE(readHelpContents(text).size(), std::size_t{0});
}

void TestHelpPages::entriesWithoutEndAreBounded()
{
    const QString entry = u"<object><param name=\"Name\" value=\"x\"></object>"_s;
    QCOMPARE(readHelpContents(entry.repeated(20000)).size(), std::size_t{5000});
    const auto longTitle = readHelpContents(u"<object><param name=\"Name\" value=\""_s
                                            + QString(1000, u'x') + u"\"></object>"_s);
    QCOMPARE(longTitle.at(0).title.size(), 500);
}

void TestHelpPages::listsWithoutEndAreBounded()
{
    const QString entry = u"<ul><object><param name=\"Name\" value=\"x\"></object>"_s;
    const auto topics = readHelpContents(u"<ul>"_s.repeated(100000) + entry.repeated(1000)
                                         + u"</ul>"_s.repeated(500000) + entry);
    QCOMPARE(topics.size(), std::size_t{1001});
    QCOMPARE(topics.front().level, 0);
    QCOMPARE(topics[1].level, 1);
    QCOMPARE(topics[999].level, 15);
    QCOMPARE(topics.back().level, 0);
}

void TestHelpPages::aPageIsReadInItsOwnEncoding()
{
    QCOMPARE(decodeHelpPage("<meta charset=\"utf-8\">\xc3\xa9"), u"<meta charset=\"utf-8\">é"_s);
    QCOMPARE(decodeHelpPage("<meta charset=\"iso-8859-1\">\xe9"),
             u"<meta charset=\"iso-8859-1\">é"_s);
    QCOMPARE(decodeHelpPage("\xc3\xa9"), u"é"_s);
}

void TestHelpPages::theTextOfAPageIsWhatTheUserReads()
{
    const QString html =
        u"<html><head><title>A &amp; B</title><style>p {}</style></head><body><h1>Tags</h1>"
        u"<p>One<img src=\"pictures/x.png\"> two&nbsp;three</p><script>no()</script></body>"_s;
    QCOMPARE(helpPageTitle(html), u"A & B"_s);
    QCOMPARE(helpPageText(html).simplified(), u"Tags One two three"_s);
    QCOMPARE(helpPageTitle(u"<p>none</p>"_s), QString());
}

void TestHelpPages::aPageThatWouldHoldUpTheProgramIsNotShown_data()
{
    QTest::addColumn<QString>("html");
    QTest::addColumn<bool>("shown");
    const QString paragraph = u"<p>some words for the page</p>"_s;
    QTest::newRow("a long page") << paragraph.repeated(10000) << true;
    QTest::newRow("a larger page") << paragraph.repeated(20000) << false;
    QTest::newRow("tables one after another")
        << u"<table><tr><td>x</td></tr></table>"_s.repeated(500) << true;
    QTest::newRow("tables in tables") << u"<table><tr><td>"_s.repeated(5) << true;
    QTest::newRow("tables deep in tables") << u"<TABLE><tr><td>"_s.repeated(30) << false;
    QTest::newRow("open items") << u"<ul>"_s + u"<li>x<br>"_s.repeated(5000) << true;
    QTest::newRow("lists deep in lists") << u"<ul>"_s.repeated(2000) << false;
    QTest::newRow("long words") << QString(QString(5000, u'x') + u' ').repeated(10) << true;
    QTest::newRow("an endless word") << QString(200000, u'x') << false;
}

void TestHelpPages::aPageThatWouldHoldUpTheProgramIsNotShown()
{
    QFETCH(const QString, html);
    QFETCH(const bool, shown);
    QCOMPARE(isShowablePage(html), shown);
}

void TestHelpPages::wordsAreFoundWithoutCaseAndDiacritics()
{
    const std::vector<TextRange> one{{4, 4}};
    QCOMPARE(findWords(u"The Méss"_s, searchWords(u"mESS"_s)), one);
    QCOMPARE(findWords(u"The Über"_s, searchWords(u"uber"_s)), one);
    QCOMPARE(findWords(u"The uber"_s, searchWords(u"ÜBER"_s)), one);
    QCOMPARE(searchWords(u"  Tag TÀG  new "_s), (QStringList{u"tag"_s, u"new"_s}));
}

void TestHelpPages::wordsAreFoundByTheirBeginning()
{
    const std::vector<TextRange> found{{0, 3}, {5, 3}};
    QCOMPARE(findWords(u"tags tag untagged"_s, {u"tag"_s}), found);
    QCOMPARE(findWords(u"see P&ID"_s, searchWords(u"p&id"_s)), (std::vector<TextRange>{{4, 4}}));
    QCOMPARE(findWords(u"untagged"_s, {u"tag"_s}).size(), std::size_t{0});
}

void TestHelpPages::placesAreThoseOfTheTextItself()
{
    // The letters before the hits take more or less room without their marks.
    const QString text = u"ﬁrst e\u0301 \U0001F600 tag TAG"_s;
    for (const TextRange& range : findWords(text, {u"tag"_s}))
        QCOMPARE(text.mid(range.start, range.length).toLower(), u"tag"_s);
    QCOMPARE(findWords(text, {u"tag"_s}).size(), std::size_t{2});
    QCOMPARE(findWords(text, {u"fi"_s}).size(), std::size_t{1});
}

void TestHelpPages::pagesWithAllWordsAreFound()
{
    HelpSearch search;
    search.addPage(u"a"_s, u"Tags"_s, u"How to copy a tag"_s);
    search.addPage(u"b"_s, u"Documents"_s, u"A document of a tag"_s);
    search.addPage(u"c"_s, u"Reports"_s, u"Nothing of the kind"_s);
    QCOMPARE(pagesFound(search, u"tag"_s), (QStringList{u"a"_s, u"b"_s}));
    QCOMPARE(pagesFound(search, u"tag document"_s), QStringList{u"b"_s});
    QCOMPARE(pagesFound(search, u"report kind"_s), QStringList{u"c"_s});
    QCOMPARE(pagesFound(search, u"tag nowhere"_s), QStringList());
}

void TestHelpPages::theBestPageComesFirst()
{
    HelpSearch search;
    search.addPage(u"once"_s, u"One"_s, u"a tag"_s);
    search.addPage(u"often"_s, u"Two"_s, u"tag tag tag"_s);
    search.addPage(u"title"_s, u"The tag"_s, u"a tag"_s);
    QCOMPARE(pagesFound(search, u"tag"_s), (QStringList{u"title"_s, u"often"_s, u"once"_s}));
}

void TestHelpPages::theExcerptShowsTheFirstHit()
{
    HelpSearch search;
    search.addPage(
        u"a"_s, u"A"_s, u"word "_s.repeated(100) + u"needle "_s + u"end "_s.repeated(100));
    search.addPage(u"b"_s, u"B"_s, u"needle only"_s);
    const auto hits = search.find(u"needle"_s);
    QCOMPARE(hits.size(), std::size_t{2});
    QVERIFY2(hits[0].excerpt.startsWith(u"… word"_s) && hits[0].excerpt.contains(u" needle end"_s)
                 && hits[0].excerpt.endsWith(u" …"_s),
             qPrintable(hits[0].excerpt));
    QCOMPARE(hits[1].excerpt, u"needle only"_s);
}

void TestHelpPages::anEmptyQueryFindsNothing()
{
    HelpSearch search;
    search.addPage(u"a"_s, u"A"_s, u"text"_s);
    QVERIFY(search.find(QString()).empty());
    QVERIFY(search.find(u" \u0301 "_s).empty());
}

QTEST_MAIN(TestHelpPages)
#include "tst_help_pages.moc"
