// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "app/frmHelp.h"
#include "app/help.h"
#include "app/help_browser.h"
#include "app/program.h"
#include "made_help.h"
#include "support/help_windows.h"
#include "support/program_fixture.h"

#include <QAccessible>
#include <QAction>
#include <QApplication>
#include <QBuffer>
#include <QFile>
#include <QImage>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPrintDialog>
#include <QPrinter>
#include <QProcess>
#include <QSplitter>
#include <QTabWidget>
#include <QTest>
#include <QTimer>
#include <QToolBar>
#include <QToolButton>
#include <QTreeWidget>

#include <memory>

using namespace Qt::StringLiterals;
using namespace ostrand;
using app::frmHelp;
using tests::HelpSources;
using tests::htmlPage;
using tests::ProgramFixture;

namespace {

const QStringList helpIsMissing{u"Unable to launch HTML Help,\r\n"
                                u"or the topic you requested does not exist"_s};

QByteArray pngOf(const QSize& size)
{
    QImage image(size, QImage::Format_RGB32);
    image.fill(Qt::red);
    QBuffer buffer;
    image.save(&buffer, "PNG");
    return buffer.data();
}

HelpSources usualSources()
{
    return {
        {u"contents.hhc"_s,
         tests::contentsFile({{u"Welcome"_s, u"ID_MANUAL.htm"_s},
                              {u"Tags"_s, u"tags.htm"_s},
                              {u"Documents"_s, u"documents.htm"_s},
                              {u"Gone"_s, u"gone.htm"_s}})},
        {u"ID_MANUAL.htm"_s,
         htmlPage(u"Welcome"_s,
                  u"<p><a href=\"tags.htm#rename\">Tags</a> <a href=\"lost.htm\">Lost</a> "
                  u"<a href=\"https://www.ostrand.example/a?b=c\">Web</a> "
                  u"<a href=\"file:///etc/passwd\">File</a> "
                  u"<a href=\"javascript:alert(1)\">Script</a> "
                  u"<a href=\"ms-its:OstrandErrors.chm::/ID_ERRORS.htm\">Errors</a> "
                  u"<a href=\"ms-its:Other.chm::/ID_ERRORS.htm\">Foreign</a></p>"_s)},
        {u"tags.htm"_s,
         htmlPage(u"Working with tags"_s,
                  u"<p>A valve.</p>"_s + u"<p>line</p>"_s.repeated(200)
                      + u"<h2><a name=\"rename\"></a>Rename</h2><p>A Véntil and a valve.</p>"_s
                      + u"<p><img src=\"pictures/grid.png\"></p>"_s)},
        {u"documents.htm"_s, htmlPage(u"Documents"_s, u"<p>The valve of a document.</p>"_s)},
        {u"nested.htm"_s, htmlPage(u"Nested"_s, u"<table><tr><td>"_s.repeated(40))},
        {u"pictures/grid.png"_s, pngOf({300, 200})},
    };
}

} // namespace

class TestHelpWindow : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void theManualOpensWithItsContents();
    void thePageIsFoundWhateverItsCase();
    void theErrorReferenceHasAWindowOfItsOwn();
    void anotherTopicComesInTheWindowThatIsOpen();
    void aTopicThatIsMissingIsTold_data();
    void aTopicThatIsMissingIsTold();
    void aBrokenFileIsTold_data();
    void aBrokenFileIsTold();
    void aFileThatIsReplacedIsReadAnew();
    void aFileWithoutContentsShowsItsPage();

    void backForwardAndHomeGoThroughThePages();
    void linksLeadToPagesPlacesAndTheUsersBrowser();
    void anEntryWithoutPageIsTold();
    void picturesComeFromTheHelpFileAlone();
    void onlyLinksHaveTheirColour();

    void theSearchFindsPagesAndMarksTheirWords();
    void theSearchTabTakesTheFocus();
    void aTextIsFoundOnThePage();
    void escapeClosesTheFindBarAndThenTheWindow();
    void lettersGrowAndShrinkWithinBounds();

    void aPageIsPrintedWithItsPictures();
    void thePrintDialogCanBeCancelled();
    void theWindowOpensWhereItWasClosed();
    void everyControlHasAnAccessibleName();

private:
    void install(const HelpSources& sources, const QString& name = u"OstrandDatasheets"_s);
    static frmHelp* window();
    static void show(const QString& topic = u"ID_MANUAL"_s, bool manual = true)
    {
        app::ShowHelpTopic(nullptr, topic, manual);
        if (QWidget* shown = window())
            QVERIFY(QTest::qWaitForWindowActive(shown));
    }
    QStringList texts() { return m_fixture->prompts.takeTexts(); }
    static app::HelpBrowser& browser() { return *window()->findChild<app::HelpBrowser*>(); }
    template <typename Control>
    static Control& control(const QString& name)
    {
        return *window()->findChild<Control*>(name);
    }
    static void press(const QString& keys) { QTest::keySequence(window(), QKeySequence(keys)); }
    static void trigger(const QString& name) { control<QAction>(name).trigger(); }
    /// Clicks on a word of the page in sight.
    static void clickOn(const QString& word);

    std::unique_ptr<ProgramFixture> m_fixture;
};

void TestHelpWindow::init()
{
    m_fixture = std::make_unique<ProgramFixture>();
    app::setInstallationFolder(m_fixture->path(u"program"_s));
    install(usualSources());
}

void TestHelpWindow::cleanup()
{
    while (frmHelp* open = window())
        delete open;
    m_fixture.reset();
}

void TestHelpWindow::install(const HelpSources& sources, const QString& name)
{
    tests::compileHelp(app::installationFolder(), name, sources);
}

frmHelp* TestHelpWindow::window()
{
    const QList<frmHelp*> open = tests::helpWindows();
    return open.isEmpty() ? nullptr : open.first();
}

void TestHelpWindow::clickOn(const QString& word)
{
    browser().moveCursor(QTextCursor::Start);
    QVERIFY(browser().goToText(word, false));
    QTextCursor cursor = browser().textCursor();
    cursor.setPosition(cursor.selectionStart() + 1);
    QTest::mouseClick(
        browser().viewport(), Qt::LeftButton, {}, browser().cursorRect(cursor).center());
}

void TestHelpWindow::theManualOpensWithItsContents()
{
    show();
    QCOMPARE(texts(), QStringList());
    QVERIFY(window());
    QCOMPARE(window()->windowTitle(), u"Welcome - Ostrand Datasheets Help"_s);
    QVERIFY(!window()->isModal());
    QVERIFY(browser().toPlainText().startsWith(u"Tags Lost"_s));
    const auto& tree = control<QTreeWidget>(u"treeContents"_s);
    QCOMPARE(tree.topLevelItemCount(), 4);
    QCOMPARE(tree.topLevelItem(1)->text(0), u"Tags"_s);
    QCOMPARE(tree.currentItem()->text(0), u"Welcome"_s);
}

void TestHelpWindow::thePageIsFoundWhateverItsCase()
{
    show(u"id_manual"_s);
    QCOMPARE(texts(), QStringList());
    QCOMPARE(window()->windowTitle(), u"Welcome - Ostrand Datasheets Help"_s);
    QCOMPARE(control<QTreeWidget>(u"treeContents"_s).currentItem()->text(0), u"Welcome"_s);
}

void TestHelpWindow::theErrorReferenceHasAWindowOfItsOwn()
{
    install({{u"contents.hhc"_s, tests::contentsFile({{u"Errors"_s, u"ID_ERRORS.htm"_s}})},
             {u"ID_ERRORS.htm"_s, htmlPage(u"All errors"_s, u"<p>None.</p>"_s)}},
            u"OstrandErrors"_s);
    show();
    const QWidget* manual = window();
    clickOn(u"Foreign"_s);
    QCOMPARE(tests::helpWindows().size(), 1);
    clickOn(u"Errors"_s);
    QCOMPARE(texts(), QStringList());
    QCOMPARE(tests::helpWindows().size(), 2);
    const auto other = tests::helpWindows().first() == manual ? tests::helpWindows().last()
                                                              : tests::helpWindows().first();
    QCOMPARE(other->windowTitle(), u"All errors - Ostrand Datasheets Errors"_s);
}

void TestHelpWindow::anotherTopicComesInTheWindowThatIsOpen()
{
    show();
    const frmHelp* first = window();
    QWidget other;
    other.show();
    other.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&other));
    show(u"tags"_s);
    QCOMPARE(window(), first);
    QCOMPARE(window()->windowTitle(), u"Working with tags - Ostrand Datasheets Help"_s);
    QTRY_COMPARE(QApplication::activeWindow(), static_cast<QWidget*>(window()));
    QCOMPARE(tests::helpWindows().size(), 1);
}

void TestHelpWindow::aTopicThatIsMissingIsTold_data()
{
    QTest::addColumn<QString>("topic");
    for (const char* topic : {"ID_NOTHING", "", "../ID_MANUAL", "nested"})
        QTest::newRow(topic) << QString::fromLatin1(topic);
}

void TestHelpWindow::aTopicThatIsMissingIsTold()
{
    QFETCH(const QString, topic);
    show(topic);
    QCOMPARE(texts(), helpIsMissing);
    QVERIFY(!window());
    show();
    show(topic);
    QCOMPARE(texts(), helpIsMissing);
    QCOMPARE(window()->windowTitle(), u"Welcome - Ostrand Datasheets Help"_s);
}

void TestHelpWindow::aBrokenFileIsTold_data()
{
    QTest::addColumn<double>("part");
    for (const double part : {0.0, 0.001, 0.1, 0.25, 0.5, 0.6, 0.75, 0.9, 0.99, 0.999})
        QTest::addRow("cut to %g", part) << part;
    QTest::newRow("missing") << -1.0;
}

void TestHelpWindow::aBrokenFileIsTold()
{
    QFETCH(const double, part);
    QFile file(app::installationFolder() + u"/OstrandDatasheets.chm"_s);
    const auto whole = static_cast<double>(file.size());
    QVERIFY(part < 0 ? file.remove() : file.resize(static_cast<qint64>(whole * part)));
    show();
    QCOMPARE(texts(), helpIsMissing);
    QVERIFY(!window());
}

void TestHelpWindow::aFileThatIsReplacedIsReadAnew()
{
    show(u"tags"_s);
    auto sources = usualSources();
    sources[u"ID_MANUAL.htm"_s] = htmlPage(u"Second edition"_s, u"<p>New.</p>"_s);
    sources[u"contents.hhc"_s] = tests::contentsFile({{u"New"_s, u"ID_MANUAL.htm"_s}});
    install(sources);
    clickOn(u"valve"_s);
    show();
    QCOMPARE(window()->windowTitle(), u"Second edition - Ostrand Datasheets Help"_s);
    QCOMPARE(control<QTreeWidget>(u"treeContents"_s).topLevelItemCount(), 1);
    QVERIFY(!control<QAction>(u"mnuBack"_s).isEnabled());
}

void TestHelpWindow::aFileWithoutContentsShowsItsPage()
{
    auto sources = usualSources();
    sources[u"contents.hhc"_s] = "nothing of use";
    install(sources);
    show();
    QCOMPARE(texts(), QStringList());
    QCOMPARE(control<QTreeWidget>(u"treeContents"_s).topLevelItemCount(), 0);
    clickOn(u"Tags"_s);
    QCOMPARE(browser().page(), u"tags.htm"_s);
}

void TestHelpWindow::backForwardAndHomeGoThroughThePages()
{
    show();
    QVERIFY(!control<QAction>(u"mnuBack"_s).isEnabled());
    auto& tree = control<QTreeWidget>(u"treeContents"_s);
    tree.setCurrentItem(tree.topLevelItem(1));
    tree.setCurrentItem(tree.topLevelItem(2));
    QCOMPARE(browser().page(), u"documents.htm"_s);
    press(u"Alt+Left"_s);
    QCOMPARE(browser().page(), u"tags.htm"_s);
    QCOMPARE(tree.currentItem()->text(0), u"Tags"_s);
    QCOMPARE(window()->windowTitle(), u"Working with tags - Ostrand Datasheets Help"_s);
    press(u"Alt+Left"_s);
    QCOMPARE(browser().page(), u"ID_MANUAL.htm"_s);
    press(u"Alt+Right"_s);
    QCOMPARE(browser().page(), u"tags.htm"_s);
    press(u"Alt+Home"_s);
    QCOMPARE(browser().page(), u"ID_MANUAL.htm"_s);
    QVERIFY(control<QAction>(u"mnuBack"_s).isEnabled());
    QVERIFY(!control<QAction>(u"mnuForward"_s).isEnabled());
}

void TestHelpWindow::linksLeadToPagesPlacesAndTheUsersBrowser()
{
    show();
    clickOn(u"Web"_s);
    QCOMPARE(m_fixture->prompts.addresses, QStringList{u"https://www.ostrand.example/a?b=c"_s});
    clickOn(u"File"_s);
    clickOn(u"Script"_s);
    QCOMPARE(m_fixture->prompts.addresses.size(), 1);
    QCOMPARE(browser().page(), u"ID_MANUAL.htm"_s);
    QCOMPARE(texts(), QStringList());
    clickOn(u"Lost"_s);
    QCOMPARE(texts(), helpIsMissing);
    QCOMPARE(browser().page(), u"ID_MANUAL.htm"_s);
    clickOn(u"Tags"_s);
    QCOMPARE(browser().page(), u"tags.htm"_s);
    const QTextCursor top = browser().cursorForPosition({5, 5});
    QVERIFY2(top.blockNumber() > 100, "the place is not in sight");
}

void TestHelpWindow::anEntryWithoutPageIsTold()
{
    show();
    auto& tree = control<QTreeWidget>(u"treeContents"_s);
    tree.setCurrentItem(tree.topLevelItem(3));
    QCOMPARE(texts(), helpIsMissing);
    QCOMPARE(browser().page(), u"ID_MANUAL.htm"_s);
}

void TestHelpWindow::picturesComeFromTheHelpFileAlone()
{
    const QString outside = m_fixture->file(u"outside.png"_s, pngOf({40, 40}));
    show(u"tags"_s);
    const auto sizeOf = [](const QString& name) {
        const QUrl url = browser().source().resolved(QUrl(name));
        return browser().loadResource(QTextDocument::ImageResource, url).value<QImage>().size();
    };
    QCOMPARE(sizeOf(u"pictures/grid.png"_s), QSize(300, 200));
    const QStringList others{outside,
                             u"file://"_s + outside,
                             u"../../../../../../../"_s + outside,
                             u"https://www.ostrand.example/logo.png"_s,
                             u"tags.htm"_s};
    for (const QString& name : others)
        QCOMPARE(sizeOf(name), QSize(1, 1));
    QVERIFY(!browser()
                 .loadResource(QTextDocument::StyleSheetResource, QUrl::fromLocalFile(outside))
                 .isValid());
}

void TestHelpWindow::onlyLinksHaveTheirColour()
{
    const QPalette usual = QApplication::palette();
    QPalette dark(QColor(0x30, 0x30, 0x30));
    dark.setColor(QPalette::Base, QColor(0x20, 0x20, 0x20));
    dark.setColor(QPalette::Link, Qt::blue);
    QApplication::setPalette(dark);
    show();
    const auto colourOf = [](const QString& word) {
        browser().moveCursor(QTextCursor::Start);
        return browser().goToText(word, false)
                   ? browser().textCursor().charFormat().foreground().color().lightness()
                   : -1;
    };
    const int link = colourOf(u"Web"_s);
    show(u"tags"_s);
    browser().moveCursor(QTextCursor::Start);
    const bool found = browser().goToText(u"Rename"_s, false);
    const bool isPlain =
        !browser().textCursor().charFormat().hasProperty(QTextFormat::ForegroundBrush);
    QApplication::setPalette(usual);
    QVERIFY2(link > 150, qPrintable(QString::number(link)));
    QVERIFY(found && isPlain);
}

void TestHelpWindow::theSearchFindsPagesAndMarksTheirWords()
{
    show();
    press(u"Ctrl+Shift+F"_s);
    auto& field = control<QLineEdit>(u"txtSearch"_s);
    QTRY_VERIFY(field.hasFocus());
    auto& hits = control<QListWidget>(u"lstHits"_s);
    QTest::keyClicks(&field, u"VALVE"_s);
    QTRY_COMPARE(hits.count(), 2);
    QCOMPARE(control<QLabel>(u"lblFound"_s).text(), u"2 pages found"_s);
    QCOMPARE(hits.item(0)->text(), u"Tags"_s);
    QTest::keyClick(&field, Qt::Key_Return);
    QCOMPARE(browser().page(), u"tags.htm"_s);
    QCOMPARE(browser().extraSelections().size(), 2);
    QCOMPARE(browser().extraSelections().first().cursor.selectedText(), u"valve"_s);
    QTest::keyClick(&hits, Qt::Key_Down);
    QCOMPARE(browser().page(), u"documents.htm"_s);

    field.setText(u"ventil rename"_s);
    QTest::keyClick(&field, Qt::Key_Return);
    QCOMPARE(control<QLabel>(u"lblFound"_s).text(), u"1 page found"_s);
    QCOMPARE(browser().page(), u"tags.htm"_s);
    QCOMPARE(browser().extraSelections().size(), 2);
    QVERIFY(browser().cursorForPosition({5, 5}).blockNumber() > 100);

    field.setText(u"valve nowhere"_s);
    QTRY_COMPARE(control<QLabel>(u"lblFound"_s).text(), u"No page holds all of these words."_s);
    QCOMPARE(hits.count(), 0);
    field.clear();
    QTRY_VERIFY(control<QLabel>(u"lblFound"_s).isHidden());
}

void TestHelpWindow::theSearchTabTakesTheFocus()
{
    show();
    control<QTabWidget>(u"tabs"_s).setCurrentIndex(1);
    QTest::keyClicks(QApplication::focusWidget(), u"valve"_s);
    QCOMPARE(control<QLineEdit>(u"txtSearch"_s).text(), u"valve"_s);
}

void TestHelpWindow::aTextIsFoundOnThePage()
{
    show(u"tags"_s);
    press(u"Ctrl+F"_s);
    auto& field = control<QLineEdit>(u"txtFind"_s);
    QTRY_VERIFY(field.hasFocus());
    QTest::keyClicks(&field, u"valve"_s);
    QTest::keyClick(&field, Qt::Key_Return);
    const int first = browser().textCursor().position();
    QCOMPARE(browser().textCursor().selectedText(), u"valve"_s);
    press(u"F3"_s);
    QVERIFY(browser().textCursor().position() > first);
    press(u"F3"_s);
    QCOMPARE(browser().textCursor().position(), first);
    press(u"Shift+F3"_s);
    QVERIFY(browser().textCursor().position() > first);
    QTest::keyClicks(&field, u"x"_s);
    QTest::keyClick(&field, Qt::Key_Return);
    QCOMPARE(control<QLabel>(u"lblFind"_s).text(), u"Not found on this page"_s);
}

void TestHelpWindow::escapeClosesTheFindBarAndThenTheWindow()
{
    show();
    press(u"Ctrl+F"_s);
    QVERIFY(control<QWidget>(u"findBar"_s).isVisible());
    QTest::keyClick(&control<QLineEdit>(u"txtFind"_s), Qt::Key_Escape);
    QVERIFY(!control<QWidget>(u"findBar"_s).isVisible());
    const QPointer<frmHelp> open = window();
    QTest::keyClick(&browser(), Qt::Key_Escape);
    QVERIFY(!window());
    QTRY_VERIFY(!open);
}

void TestHelpWindow::lettersGrowAndShrinkWithinBounds()
{
    show();
    const int usual = browser().font().pointSize();
    press(u"Ctrl++"_s);
    QCOMPARE(browser().font().pointSize(), usual + 1);
    for (int i = 0; i < 100; ++i)
        trigger(u"mnuZoomIn"_s);
    const int largest = browser().font().pointSize();
    QVERIFY(largest > usual + 4 && largest < 40);
    for (int i = 0; i < 100; ++i)
        press(u"Ctrl+-"_s);
    QVERIFY(browser().font().pointSize() < usual && browser().font().pointSize() > 3);
    press(u"Ctrl+0"_s);
    QCOMPARE(browser().font().pointSize(), usual);
}

void TestHelpWindow::aPageIsPrintedWithItsPictures()
{
    show(u"tags"_s);
    QPrinter printer(QPrinter::HighResolution);
    printer.setOutputFormat(QPrinter::PdfFormat);
    printer.setOutputFileName(m_fixture->path(u"page.pdf"_s));
    window()->print(printer);
    QProcess reader;
    reader.start(u"pdftotext"_s, {m_fixture->path(u"page.pdf"_s), u"-"_s});
    QVERIFY(reader.waitForFinished());
    const QString text = QString::fromUtf8(reader.readAllStandardOutput());
    QVERIFY(text.contains(u"A valve."_s) && text.contains(u"Rename"_s));
    reader.start(u"pdfimages"_s, {u"-list"_s, m_fixture->path(u"page.pdf"_s)});
    QVERIFY(reader.waitForFinished());
    QVERIFY(reader.readAllStandardOutput().contains(" 300   200 "));
}

void TestHelpWindow::thePrintDialogCanBeCancelled()
{
    show();
    bool seen = false;
    QTimer look;
    connect(&look, &QTimer::timeout, this, [&seen] {
        if (auto* dialog = qobject_cast<QPrintDialog*>(QApplication::activeModalWidget())) {
            seen = true;
            dialog->reject();
        }
    });
    look.start(10);
    trigger(u"mnuPrint"_s);
    QVERIFY(seen);
    QVERIFY(window());
}

void TestHelpWindow::theWindowOpensWhereItWasClosed()
{
    show();
    window()->resize(700, 500);
    auto& splitter = control<QSplitter>(u"splitter"_s);
    splitter.setSizes({200, 500});
    const QList<int> sizes = splitter.sizes();
    window()->close();
    QTRY_VERIFY(!window());
    show();
    QCOMPARE(window()->size(), QSize(700, 500));
    QCOMPARE(control<QSplitter>(u"splitter"_s).sizes(), sizes);
}

void TestHelpWindow::everyControlHasAnAccessibleName()
{
    show();
    press(u"Ctrl+F"_s);
    for (auto* widget : window()->findChildren<QWidget*>()) {
        if (widget->focusPolicy() == Qt::NoFocus || widget->objectName().startsWith(u"qt_"_s))
            continue;
        auto* face = QAccessible::queryAccessibleInterface(widget);
        const QString which =
            QLatin1String(widget->metaObject()->className()) + u' ' + widget->objectName();
        QVERIFY2(!face->text(QAccessible::Name).isEmpty(), qPrintable(which));
    }
    const auto& bar = control<QToolBar>(u"toolBar"_s);
    for (const auto* button : bar.findChildren<QToolButton*>()) {
        if (button->defaultAction())
            QVERIFY2(!button->toolTip().isEmpty(), qPrintable(button->text()));
    }
}

QTEST_MAIN(TestHelpWindow)
#include "tst_help_window.moc"
