// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
//
// The main window while a run is under way, and after it.
#include "pid/run_desk.h"
#include "pid/run_source.h"

#include <QKeyEvent>
#include <QProgressBar>
#include <QPushButton>

using namespace Qt::StringLiterals;
using namespace ostrand;
using tests::RunDesk;

namespace {

const QString importButton = u"cmdImport"_s;
const QString exportButton = u"cmdExport"_s;
constexpr int sheets = 6;

/// Counts the times that a label paints itself, and remembers its texts.
class PaintCount final : public QObject
{
public:
    explicit PaintCount(QLabel& label)
        : m_label(label)
    {
        label.installEventFilter(this);
    }
    int count = 0;
    QStringList texts;

    bool eventFilter(QObject*, QEvent* event) override
    {
        if (event->type() == QEvent::Paint) {
            ++count;
            texts << m_label.text();
        }
        return false;
    }

private:
    QLabel& m_label;
};

} // namespace

class TestRunWindow : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup() { m_desk.reset(); }

    void theWindowTellsThatARunBegins_data() { buttons(); }
    void theWindowTellsThatARunBegins();
    void theWindowTellsOfEachDatasheet_data() { buttons(); }
    void theWindowTellsOfEachDatasheet();
    void theWindowRepaintsMeanwhile_data() { buttons(); }
    void theWindowRepaintsMeanwhile();
    void inputMeanwhileIsDropped_data() { buttons(); }
    void inputMeanwhileIsDropped();
    void theWindowDoesNotCloseMeanwhile_data() { buttons(); }
    void theWindowDoesNotCloseMeanwhile();
    void theGridShowsWhatWasImported();
    void theGridShowsWhatWasImportedBehindAnyBox();
    void anImportOfNothingLeavesTheGridWhereItStands();
    void aTagThatGoesMeanwhileIsExportedAsItStands();

private:
    static void buttons()
    {
        QTest::addColumn<QString>("button");
        QTest::newRow("import") << importButton;
        QTest::newRow("export") << exportButton;
    }
    QWidget& widget(const QString& name) { return *m_desk->window.findChild<QWidget*>(name); }
    void show()
    {
        m_desk->open(m_desk->project);
        m_desk->goTo(u"PT-3"_s);
    }
    QString shownService(int row)
    {
        const auto* model = m_desk->grid().model();
        for (int column = 0; column < model->columnCount(); ++column) {
            const QString text = model->index(row, column).data().toString();
            if (text.startsWith(u"Gas"_s))
                return text;
        }
        return {};
    }

    std::unique_ptr<tests::RunSource> m_source = tests::makeRunSource("file"_L1);
    std::unique_ptr<RunDesk> m_desk;
};

void TestRunWindow::init()
{
    m_source->reset();
    m_desk = std::make_unique<RunDesk>(m_source->path());
    m_desk->mapCell(u"D12"_s, u"index"_s, u"ServiceDescription"_s);
    for (int i = 1; i <= sheets; ++i) {
        const QString number = QString::number(i);
        m_source->add(u"PT"_s, number, {{u"SERVICE_"_s, u"Gas "_s + number}});
        m_desk->giveSheet(u"PT-"_s + number,
                          {RunDesk::toFront(m_source->table(), u"SERVICE_"_s, u"D12"_s)});
    }
}

void TestRunWindow::theWindowTellsThatARunBegins()
{
    QFETCH(QString, button);
    show();
    const PaintCount painted(dynamic_cast<QLabel&>(widget(u"Panel1"_s)));
    m_desk->run(button);
    QVERIFY2(painted.texts.contains(u"Please wait processing of datasheet begins"_s),
             qPrintable(painted.texts.join(u'|')));
}

void TestRunWindow::theWindowTellsOfEachDatasheet()
{
    QFETCH(QString, button);
    show();
    QStringList told;
    QStringList counts;
    m_desk->office.whenSaved = [&](const QString& path, const QString&) {
        QCOMPARE(QGuiApplication::overrideCursor()->shape(), Qt::WaitCursor);
        auto& bar = dynamic_cast<QProgressBar&>(widget(u"Progress"_s));
        QVERIFY(bar.isVisible());
        if (!counts.contains(bar.text())) {
            counts << bar.text();
            told << m_desk->panel(1) + u" in "_s + path.section(u'/', -1);
        }
    };
    m_desk->run(button);
    QStringList expected;
    QStringList expectedCounts;
    for (int i = 1; i <= sheets; ++i) {
        const QString file = u"PT-"_s + QString::number(i) + u".xls"_s;
        expected << (button == importButton ? u"Please wait processing datasheet:-  "_s
                                            : u"Please wait processing datasheet :-  "_s)
                        + file + u" in "_s + file;
        expectedCounts << QString::number(i - 1) + u" / "_s + QString::number(sheets);
    }
    QCOMPARE(told, expected);
    QCOMPARE(counts, expectedCounts);
}

void TestRunWindow::theWindowRepaintsMeanwhile()
{
    QFETCH(QString, button);
    show();
    const PaintCount painted(dynamic_cast<QLabel&>(widget(u"Panel1"_s)));
    std::vector<int> seen;
    m_desk->office.whenSaved = [&](const QString&, const QString&) {
        seen.push_back(painted.count);
        m_desk->window.update();
    };
    m_desk->run(button);
    QVERIFY(seen.size() >= static_cast<std::size_t>(sheets));
    QVERIFY(seen.front() > 0);
    QVERIFY(seen.back() >= seen.front() + sheets - 1);
}

void TestRunWindow::inputMeanwhileIsDropped()
{
    QFETCH(QString, button);
    show();
    auto& exit = widget(u"cmdExit"_s);
    bool exits = false;
    connect(&dynamic_cast<QPushButton&>(exit), &QPushButton::clicked, this, [&] { exits = true; });
    const QPointF center = exit.rect().center();
    m_desk->office.whenSaved = [&](const QString&, const QString&) {
        for (const auto type : {QEvent::MouseButtonPress, QEvent::MouseButtonRelease}) {
            QCoreApplication::postEvent(&exit,
                                        new QMouseEvent(type,
                                                        center,
                                                        exit.mapToGlobal(center),
                                                        Qt::LeftButton,
                                                        Qt::LeftButton,
                                                        Qt::NoModifier));
        }
        QCoreApplication::postEvent(
            &m_desk->grid(), new QKeyEvent(QEvent::KeyPress, Qt::Key_X, Qt::NoModifier, u"x"_s));
    };
    m_desk->run(button);
    QCoreApplication::processEvents();
    QVERIFY(!exits);
    QVERIFY(m_desk->window.isVisible());
    QVERIFY(m_desk->window.dbIndex().EditMode() == store::EditMode::None);
    QCOMPARE(m_desk->texts().size(), 1);
}

void TestRunWindow::theWindowDoesNotCloseMeanwhile()
{
    QFETCH(QString, button);
    show();
    m_desk->office.whenSaved = [&](const QString&, const QString&) {
        QCoreApplication::postEvent(&m_desk->window, new QCloseEvent);
    };
    m_desk->run(button);
    QVERIFY(m_desk->window.isVisible());
}

void TestRunWindow::theGridShowsWhatWasImported()
{
    show();
    m_desk->run(importButton);
    QCOMPARE(shownService(0), u"Gas 1"_s);
    QCOMPARE(shownService(sheets - 1), u"Gas 6"_s);
    QCOMPARE(m_desk->panel(1), u"Record: 1 of 6"_s);
    QCOMPARE(m_desk->cellText(index::column::tag), u"PT-1"_s);
    // As it does after a refresh by hand.
    const int records = m_desk->tags().RecordCount();
    m_desk->press(u"cmdRefresh"_s);
    QCoreApplication::processEvents();
    QCOMPARE(m_desk->cellText(index::column::tag), u"PT-1"_s);
    QCOMPARE(m_desk->tags().RecordCount(), records);
}

void TestRunWindow::theGridShowsWhatWasImportedBehindAnyBox()
{
    show();
    QStringList seen;
    m_desk->prompts.whileOpen = [&](const toolkit::Box&) { seen << shownService(0); };
    m_desk->run(importButton);
    QCOMPARE(seen, QStringList{u"Gas 1"_s});
}

void TestRunWindow::anImportOfNothingLeavesTheGridWhereItStands()
{
    m_source->run(u"DELETE FROM \"Components-Instruments\""_s);
    show();
    m_desk->run(importButton);
    QCOMPARE(m_desk->cellText(index::column::tag), u"PT-3"_s);
    QCOMPARE(m_desk->tags().AbsolutePosition(), 2);
}

/// Another program deletes it behind the refresh at the beginning of the run.
void TestRunWindow::aTagThatGoesMeanwhileIsExportedAsItStands()
{
    m_desk->makeSheet(u"PT-6.xls"_s,
                      {RunDesk::toFront(m_source->table(), u"SERVICE_"_s, u"D12"_s)},
                      {{u"D12"_s, u"as it stands"_s}});
    show();
    bool deleted = false;
    m_desk->office.whenOpened = [&](const QString&) {
        if (std::exchange(deleted, true))
            return;
        RunDesk::execute(m_desk->project, u"delete from [index] where PlantItemNo = 'PT-6'"_s);
        m_desk->window.dbIndex().Refresh();
    };
    m_desk->run(exportButton);
    const QStringList texts = m_desk->texts();
    QCOMPARE(texts.size(), 2);
    QVERIFY2(
        texts[0].startsWith(
            u"Error while populating index data into Excel Spreadsheet PT-6.xls.\r\n3021 : "_s),
        qPrintable(texts[0]));
    QCOMPARE(m_source->stored(u"PT"_s, u"6"_s, u"SERVICE_"_s), u"as it stands"_s);
}

QTEST_MAIN(TestRunWindow)
#include "tst_run_window.moc"
