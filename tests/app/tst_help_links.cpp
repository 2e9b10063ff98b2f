// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
//
// The help files that come with the program hold together.
#include "app/help_contents.h"
#include "app/help_file.h"
#include "app/help_page.h"

#include <QDir>
#include <QImage>
#include <QRegularExpression>
#include <QTest>
#include <QUrl>

using namespace Qt::StringLiterals;
using namespace ostrand::app;

class TestHelpLinks : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    void theFrontPageIsThere_data() { eachFile(); }
    void theFrontPageIsThere();
    void theContentsNameEveryPageAndNoOther_data() { eachFile(); }
    void theContentsNameEveryPageAndNoOther();
    void everyPageHasATitleOfItsOwn_data() { eachFile(); }
    void everyPageHasATitleOfItsOwn();
    void everyLinkLeadsToAPlace_data() { eachFile(); }
    void everyLinkLeadsToAPlace();
    void everyPictureIsThere_data() { eachFile(); }
    void everyPictureIsThere();
    void pagesTakeTheirColoursFromTheUser_data() { eachFile(); }
    void pagesTakeTheirColoursFromTheUser();

private:
    static void eachFile();
    QString page(const QString& name) const;
    QStringList pages() const;
    std::vector<HelpTopic> topics() const;
    /// The values of an attribute on a page.
    QStringList attributes(const QString& page, const QString& element, const QString& name) const;

    std::optional<HelpFile> m_help;
    QDir m_sources;
};

void TestHelpLinks::eachFile()
{
    QTest::addColumn<QString>("file");
    QTest::addColumn<QString>("folder");
    QTest::addColumn<QString>("front");
    QTest::newRow("manual") << u"OstrandDatasheets.chm"_s << u"manual"_s << u"ID_MANUAL.htm"_s;
    QTest::newRow("errors") << u"OstrandErrors.chm"_s << u"errors"_s << u"ID_ERRORS.htm"_s;
}

void TestHelpLinks::init()
{
    QFETCH(const QString, file);
    QFETCH(const QString, folder);
    m_help = HelpFile::open(QStringLiteral(OSTRAND_BIN_DIR "/") + file);
    QVERIFY(m_help);
    m_sources = QDir(QStringLiteral(OSTRAND_HELP_DIR "/") + folder);
    QVERIFY(!pages().isEmpty());
}

QStringList TestHelpLinks::pages() const
{
    return m_sources.entryList({u"*.htm"_s});
}

QString TestHelpLinks::page(const QString& name) const
{
    return decodeHelpPage(m_help->read(name).value_or(QByteArray()));
}

std::vector<HelpTopic> TestHelpLinks::topics() const
{
    return readHelpContents(page(u"contents.hhc"_s));
}

QStringList TestHelpLinks::attributes(const QString& name,
                                      const QString& element,
                                      const QString& attribute) const
{
    const QRegularExpression pattern(
        u"<%1\\b[^>]*\\b%2\\s*=\\s*(?:\"([^\"]*)\"|'([^']*)')"_s.arg(element, attribute),
        QRegularExpression::CaseInsensitiveOption);
    QStringList values;
    const QString html = page(name);
    for (auto it = pattern.globalMatch(html); it.hasNext();) {
        const auto match = it.next();
        values << match.captured(1) + match.captured(2);
    }
    return values;
}

void TestHelpLinks::theFrontPageIsThere()
{
    QFETCH(const QString, front);
    QVERIFY(!helpPageText(page(front)).isEmpty());
    QVERIFY(!topics().empty());
    QCOMPARE(topics().front().page, front);
}

void TestHelpLinks::theContentsNameEveryPageAndNoOther()
{
    QStringList named;
    for (const HelpTopic& topic : topics()) {
        QVERIFY(!topic.title.isEmpty());
        if (!topic.page.isEmpty())
            named << topic.page.section(u'#', 0, 0);
    }
    named.removeDuplicates();
    named.sort();
    QStringList all = pages();
    all.sort();
    QCOMPARE(named, all);
}

void TestHelpLinks::everyPageHasATitleOfItsOwn()
{
    QStringList titles;
    for (const QString& name : pages()) {
        QVERIFY2(isShowablePage(page(name)), qPrintable(name));
        const QString title = helpPageTitle(page(name));
        QVERIFY2(!title.isEmpty() && !titles.contains(title), qPrintable(name));
        titles << title;
    }
}

void TestHelpLinks::everyLinkLeadsToAPlace()
{
    for (const QString& name : pages()) {
        for (const QString& link : attributes(name, u"a"_s, u"href"_s)) {
            const QUrl url(link);
            if (url.scheme() == "ms-its"_L1) {
                const QStringList parts = url.path().split(u"::/"_s);
                const auto other = HelpFile::open(QStringLiteral(OSTRAND_BIN_DIR "/") + parts[0]);
                QVERIFY2(parts.size() == 2 && other && other->contains(parts[1]),
                         qPrintable(name + u": "_s + link));
                continue;
            }
            if (!url.scheme().isEmpty()) {
                QVERIFY2(url.scheme() == "https"_L1, qPrintable(name + u": "_s + link));
                continue;
            }
            const QString target = url.path().isEmpty() ? name : url.path();
            const QByteArray where = QString(name + u": "_s + link).toUtf8();
            QVERIFY2(pages().contains(target) && m_help->read(target), where.constData());
            if (!url.fragment().isEmpty())
                QVERIFY2(
                    attributes(target, u"[a-z0-9]+"_s, u"(?:name|id)"_s).contains(url.fragment()),
                    where.constData());
        }
    }
}

void TestHelpLinks::everyPictureIsThere()
{
    for (const QString& name : pages()) {
        for (const QString& source : attributes(name, u"img"_s, u"src"_s)) {
            const auto bytes = m_help->read(source);
            QVERIFY2(bytes, qPrintable(name + u": "_s + source));
            const QImage picture = QImage::fromData(*bytes);
            QVERIFY2(!picture.isNull() && bytes->size() < 150000, qPrintable(source));
        }
    }
}

void TestHelpLinks::pagesTakeTheirColoursFromTheUser()
{
    QStringList texts{page(u"manual.css"_s)};
    for (const QString& name : pages())
        texts << page(name);
    const QRegularExpression colour(u"[^-\\w](?:bgcolor|color|background(?:-color)?)\\s*[=:]"_s,
                                    QRegularExpression::CaseInsensitiveOption);
    for (const QString& text : texts) {
        const auto match = colour.match(text);
        QVERIFY2(!match.hasMatch(), qPrintable(text.mid(match.capturedStart(), 60)));
    }
}

QTEST_MAIN(TestHelpLinks)
#include "tst_help_links.moc"
