// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
//
// The logo in the templates as the build has made them and in datasheets made from them, replaced
// by the real application on a display.
#include "office/office_display.h"
#include "spreadsheet/host.h"
#include "spreadsheet/office_traces.h"
#include "spreadsheet/sheet_look.h"
#include "support/index_fixture.h"

#include <QApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QImage>
#include <QProgressBar>
#include <QSysInfo>

#include <atomic>
#include <csignal>
#include <thread>

using namespace Qt::StringLiterals;
using namespace ostrand;
using spreadsheet::SaveChanges;
using tests::OfficeDisplay;
using tests::OfficeTraces;

namespace {

constexpr double rounding = 0.3; // points; files keep shapes on a coarse grid
constexpr int sheetsWithLogo = 2;
const QString datasheetLogo = u"mnuSetupDatasheets"_s;
const QString templateLogo = u"mnuSetupTemplates"_s;
const QString done = u"Datasheet logo operation completed"_s;
const QString question = u"Datasheet logo file not found would you like to locate it now?"_s;

bool isNear(double actual, double expected)
{
    return std::abs(actual - expected) <= rounding;
}

const spreadsheet::SheetLook& lookOf(spreadsheet::Worksheet& sheet)
{
    return dynamic_cast<const spreadsheet::SheetLook&>(sheet.design());
}

QByteArray bytesOf(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

void writeBytes(const QString& path, const QByteArray& bytes)
{
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
        qFatal("%s was not written", qPrintable(path));
}

struct Picture
{
    QString name;
    double left;
    double top;
    double width;
    double height;
};

struct SheetState
{
    QString name;
    spreadsheet::CellValues values;
    spreadsheet::PageSetup page;
    spreadsheet::CellStyle style;
    QString currentCell;
    bool isProtected;
    double columnWidth;
    std::vector<Picture> pictures;
};

struct BookState
{
    QString type;
    QString front;
    std::vector<SheetState> sheets;
};

std::vector<Picture> picturesOf(spreadsheet::Worksheet& sheet)
{
    std::vector<Picture> pictures;
    for (const auto& shape : sheet.Shapes())
        pictures.push_back({shape->Name(),
                            shape->Left(),
                            shape->Top(),
                            shape->Size().width,
                            shape->Size().height});
    return pictures;
}

BookState stateOf(spreadsheet::Application& application, const QString& file)
{
    const auto book = application.Open(file);
    BookState state{.type = book->CustomDocumentProperty(u"DatasheetType"_s),
                    .front = book->ActiveSheet()->Name(),
                    .sheets = {}};
    for (int i = 1; i <= book->SheetCount(); ++i) {
        const auto sheet = book->Worksheets(i);
        sheet->Activate();
        state.sheets.push_back({.name = sheet->Name(),
                                .values = sheet->Values(u"A1:H71"_s),
                                .page = lookOf(*sheet).page(),
                                .style = lookOf(*sheet).style(u"C12"_s),
                                .currentCell = lookOf(*sheet).currentCell(),
                                .isProtected = lookOf(*sheet).isProtected(),
                                .columnWidth = lookOf(*sheet).columnWidth(u"C"_s),
                                .pictures = picturesOf(*sheet)});
    }
    book->Close(SaveChanges::No);
    return state;
}

/// States are read by an application that shows nothing.
std::vector<BookState> statesOf(const QString& folder, const QStringList& names)
{
    spreadsheet::setHostSettings({.folder = QStringLiteral(OSTRAND_BIN_DIR), .headless = true});
    std::vector<BookState> states;
    const auto application = spreadsheet::CreateObject();
    for (const QString& name : names)
        states.push_back(stateOf(*application, folder + u'/' + name));
    application->Quit();
    spreadsheet::setHostSettings({.folder = QStringLiteral(OSTRAND_BIN_DIR)});
    return states;
}

/// Waits on a thread of its own for an application to have a workbook open, and kills it then.
class Killer
{
public:
    explicit Killer(const QString& file)
        : m_lock(QFileInfo(file).path() + u"/.~lock."_s + QFileInfo(file).fileName() + u'#'),
          m_thread([this] { watch(); })
    {
    }
    ~Killer()
    {
        m_ended = true;
        m_thread.join();
    }
    Killer(const Killer&) = delete;
    Killer& operator=(const Killer&) = delete;

private:
    void watch() const
    {
        while (!m_ended && !QFile::exists(m_lock))
            std::this_thread::sleep_for(std::chrono::milliseconds(1));
        if (const qint64 group = spreadsheet::hostProcess(); group > 0 && !m_ended)
            ::kill(static_cast<pid_t>(-group), SIGKILL);
    }

    QString m_lock;
    std::atomic<bool> m_ended = false;
    std::thread m_thread;
};

} // namespace

class TestLogoOffice : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void everyTemplateGetsTheLogo();
    void everyDatasheetGetsTheLogo_data();
    void everyDatasheetGetsTheLogo();
    void theFormulasStillFollow();
    void aSecondRunLeavesOneLogo();
    void theSheetsStayScrolledAsTheyWere();
    void aSmallLogoKeepsItsSize();
    void twoLogosBecomeOneNewAndOneOld();
    void badWorkbooksAreToldAndStay();
    void aTemplateThatIsOpenElsewhereStays();
    void anApplicationThatIsKilledIsReplaced();
    void anUnusableLogoIsAskedFor_data();
    void anUnusableLogoIsAskedFor();
    void theWorkbooksAreSeenMeanwhile();
    void whatTheUserDoesMeanwhileChangesNothing();
    void nothingIsLeftBehind();

private:
    QString folder(const QString& name) const { return m_program->path(name); }
    QString sheetFile(const QString& name) const { return folder(u"sheets/"_s + name); }
    QString picture(const QString& name, int width, int height) const;
    void setLogo(const QString& file) const { setAttribute(u"Logo file"_s, file); }
    void setAttribute(const QString& name, const QString& value) const;
    void giveSheets(const QStringList& names) const;
    QStringList run(const QString& entry);
    static void verifyLogo(const BookState& after, const BookState& before, double ratio);

    std::unique_ptr<tests::IndexFixture> m_program;
};

void TestLogoOffice::init()
{
    m_program = std::make_unique<tests::IndexFixture>();
    for (const QString& name : {u"sheets"_s, u"templates"_s})
        QDir(folder(QString())).mkdir(name);
    m_program->project = m_program->emptyProject();
    setAttribute(u"DefaultDatasheetFolder"_s, folder(u"sheets"_s));
    setAttribute(u"DefaultTemplateFolder"_s, folder(u"templates"_s));
    setLogo(picture(u"logo.jpg"_s, 1200, 300));
    m_program->open(m_program->project);
}

void TestLogoOffice::cleanup()
{
    m_program.reset();
    spreadsheet::endHost();
}

QString TestLogoOffice::picture(const QString& name, int width, int height) const
{
    if (name.endsWith(u".gif"_s)) { // one black pixel
        writeBytes(folder(name),
                   QByteArray::fromHex("47494638396101000100800000000000ffffff2c0000000001000100"
                                       "0002024401003b"));
        return folder(name);
    }
    QImage image(width, height, QImage::Format_RGB32);
    constexpr int dots = 3780; // to the metre: 96 to the inch
    image.setDotsPerMeterX(dots);
    image.setDotsPerMeterY(dots);
    for (int x = 0; x < width; ++x) {
        for (int y = 0; y < height; ++y)
            image.setPixel(x, y, qRgb(x * 255 / width, y * 255 / height, 120));
    }
    if (!image.save(folder(name)))
        qFatal("the picture was not written");
    return folder(name);
}

void TestLogoOffice::setAttribute(const QString& name, const QString& value) const
{
    tests::ProgramFixture::execute(m_program->project,
                                   u"update qryProjectInfo set attributeValue = '"_s + value
                                       + u"' where attributeName = '"_s + name + u'\'');
}

/// Copies of a datasheet that was made from a template and filled.
void TestLogoOffice::giveSheets(const QStringList& names) const
{
    const auto application = spreadsheet::CreateObject();
    const auto book = application->Open(QStringLiteral(OSTRAND_BIN_DIR "/Templates/DS_PT.xlt"));
    book->Worksheets(1)->write(
        {{u"D11"_s, u"PT-1"_s}, {u"D12"_s, u"Drücke 'Süd'"_s}, {u"D27"_s, u"0042"_s}});
    for (const QString& name : names)
        book->SaveCopyAs(sheetFile(name));
    book->Close(SaveChanges::No);
    application->Quit();
}

/// Chooses a menu entry; the texts shown.
QStringList TestLogoOffice::run(const QString& entry)
{
    m_program->choose(entry);
    [&] {
        QVERIFY(!QGuiApplication::overrideCursor());
        QVERIFY(!m_program->window.findChild<QProgressBar*>(u"Progress"_s)->isVisible());
        QVERIFY(m_program->panel(1).startsWith(u"Record: "_s));
        QCOMPARE(spreadsheet::hostProcess(), 0);
    }();
    return m_program->texts();
}

/// `ratio` is that of the picture's sides.
void TestLogoOffice::verifyLogo(const BookState& after, const BookState& before, double ratio)
{
    constexpr double roomWidth = 210;
    constexpr double roomHeight = 40;
    QCOMPARE(after.type, before.type);
    QCOMPARE(after.front, u"DATASHEET"_s);
    QCOMPARE(after.sheets.size(), before.sheets.size());
    for (std::size_t i = 0; i < after.sheets.size(); ++i) {
        const SheetState& sheet = after.sheets[i];
        const SheetState& old = before.sheets[i];
        QCOMPARE(sheet.name, old.name);
        QVERIFY(sheet.values == old.values);
        QCOMPARE(sheet.page, old.page);
        QVERIFY(sheet.style == old.style);
        QVERIFY(isNear(sheet.columnWidth, old.columnWidth));
        QVERIFY(sheet.isProtected);
        QCOMPARE(sheet.pictures.size(), i < sheetsWithLogo ? std::size_t{1} : std::size_t{0});
        if (i >= sheetsWithLogo)
            continue;
        const Picture& logo = sheet.pictures[0];
        QCOMPARE(logo.name, u"logo"_s);
        QCOMPARE(old.pictures[0].name, u"LOGO"_s);
        QVERIFY(isNear(logo.left, 2) && isNear(logo.top, 2));
        QVERIFY(logo.width <= roomWidth + rounding && logo.height <= roomHeight + rounding);
        QVERIFY(isNear(logo.width, logo.height * ratio) || isNear(logo.height, logo.width / ratio));
        QVERIFY(sheet.currentCell.startsWith(i == 0 ? u"D11"_s : u"B14"_s));
    }
}

void TestLogoOffice::everyTemplateGetsTheLogo()
{
    const QDir made(QStringLiteral(OSTRAND_BIN_DIR "/Templates"));
    const QStringList names = made.entryList({u"*.xlt"_s}, QDir::Files, QDir::Name);
    QCOMPARE(names.size(), 15);
    for (const QString& name : names) {
        QFile::copy(made.filePath(name), folder(u"templates/"_s + name));
        QFile::setPermissions(folder(u"templates/"_s + name), QFile::ReadOwner | QFile::WriteOwner);
    }
    const std::vector<BookState> before = statesOf(folder(u"templates"_s), names);
    QCOMPARE(run(templateLogo), QStringList{u"Template logo operation completed"_s});
    const std::vector<BookState> after = statesOf(folder(u"templates"_s), names);
    for (std::size_t i = 0; i < after.size(); ++i) {
        verifyLogo(after[i], before[i], 4);
        if (QTest::currentTestFailed())
            qFatal("in %s", qPrintable(names[static_cast<qsizetype>(i)]));
    }
    QCOMPARE(QDir(folder(u"templates"_s))
                 .entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot, QDir::Name),
             names);
}

void TestLogoOffice::everyDatasheetGetsTheLogo_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<int>("width");
    QTest::addColumn<int>("height");
    QTest::newRow("jpg") << u"wide.jpg"_s << 2400 << 200;
    QTest::newRow("bmp") << u"high.bmp"_s << 300 << 900;
    QTest::newRow("png") << u"square.png"_s << 500 << 500;
    QTest::newRow("gif") << u"dot.gif"_s << 1 << 1;
}

void TestLogoOffice::everyDatasheetGetsTheLogo()
{
    QFETCH(QString, name);
    QFETCH(int, width);
    QFETCH(int, height);
    const QStringList names{u"a.xls"_s, u"b.XLS"_s};
    giveSheets(names);
    setLogo(picture(name, width, height));
    const std::vector<BookState> before = statesOf(folder(u"sheets"_s), names);
    QCOMPARE(run(datasheetLogo), QStringList{done});
    const std::vector<BookState> after = statesOf(folder(u"sheets"_s), names);
    for (std::size_t i = 0; i < after.size(); ++i)
        verifyLogo(after[i], before[i], double(width) / height);
    QVERIFY(bytesOf(sheetFile(u"a.xls"_s)).startsWith(QByteArray::fromHex("d0cf11e0a1b11ae1")));
}

void TestLogoOffice::theFormulasStillFollow()
{
    giveSheets({u"a.xls"_s});
    QCOMPARE(run(datasheetLogo), QStringList{done});
    const auto application = spreadsheet::CreateObject();
    const auto book = application->Open(sheetFile(u"a.xls"_s));
    const auto echo = book->Worksheets(u"NOTES"_s)->Range(u"D11"_s);
    QCOMPARE(std::get<QString>(echo->Value()), u"PT-1"_s);
    book->Worksheets(1)->Range(u"D11"_s)->setValue(u"PT-2"_s);
    QCOMPARE(std::get<QString>(echo->Value()), u"PT-2"_s);
    book->Close(SaveChanges::No);
}

void TestLogoOffice::aSecondRunLeavesOneLogo()
{
    giveSheets({u"a.xls"_s});
    run(datasheetLogo);
    const qint64 size = QFileInfo(sheetFile(u"a.xls"_s)).size();
    const BookState first = statesOf(folder(u"sheets"_s), {u"a.xls"_s})[0];
    QCOMPARE(run(datasheetLogo), QStringList{done});
    const BookState second = statesOf(folder(u"sheets"_s), {u"a.xls"_s})[0];
    QCOMPARE(second.sheets[0].pictures.size(), std::size_t{1});
    QVERIFY(isNear(second.sheets[0].pictures[0].width, first.sheets[0].pictures[0].width));
    QVERIFY(QFileInfo(sheetFile(u"a.xls"_s)).size() < size + 4096);
}

/// The records of the sheets' windows in a workbook hold the first row and column in sight.
void TestLogoOffice::theSheetsStayScrolledAsTheyWere()
{
    giveSheets({u"a.xls"_s});
    QCOMPARE(run(datasheetLogo), QStringList{done});
    const QByteArray bytes = bytesOf(sheetFile(u"a.xls"_s));
    const QByteArray record("\x3e\x02\x12\x00", 4);
    int sheets = 0;
    for (qsizetype at = bytes.indexOf(record); at >= 0; at = bytes.indexOf(record, at + 1)) {
        constexpr qsizetype placeOfRow = 6;
        QCOMPARE(bytes.mid(at + placeOfRow, 4), QByteArray(4, '\0'));
        ++sheets;
    }
    QVERIFY(sheets > 0);
}

void TestLogoOffice::aSmallLogoKeepsItsSize()
{
    giveSheets({u"a.xls"_s});
    setLogo(picture(u"small.png"_s, 96, 32));
    QCOMPARE(run(datasheetLogo), QStringList{done});
    const Picture logo = statesOf(folder(u"sheets"_s), {u"a.xls"_s})[0].sheets[0].pictures[0];
    QVERIFY(isNear(logo.width, 72));
    QVERIFY(isNear(logo.height, 24));
}

void TestLogoOffice::twoLogosBecomeOneNewAndOneOld()
{
    giveSheets({u"a.xls"_s});
    {
        const auto application = spreadsheet::CreateObject();
        application->setVisible(true);
        const auto book = application->Open(sheetFile(u"a.xls"_s));
        const auto sheet = book->Worksheets(1);
        sheet->Unprotect();
        const auto second = sheet->InsertPicture(picture(u"second.png"_s, 40, 20));
        second->setName(u"Logo"_s);
        second->setPosition(300, 0);
        book->Save();
        book->Close(SaveChanges::No);
        application->Quit();
    }
    QCOMPARE(run(datasheetLogo), QStringList{done});
    const auto pictures = statesOf(folder(u"sheets"_s), {u"a.xls"_s})[0].sheets[0].pictures;
    QCOMPARE(pictures.size(), std::size_t{2});
    QCOMPARE(pictures[0].name, u"Logo"_s);
    QVERIFY(pictures[0].left > 290);
    QCOMPARE(pictures[1].name, u"logo"_s);
    QVERIFY(isNear(pictures[1].left, 2));
}

void TestLogoOffice::badWorkbooksAreToldAndStay()
{
    const QStringList bad{u"b.xls"_s, u"c.xls"_s, u"d.xls"_s, u"e.xls"_s, u"f.xls"_s};
    giveSheets(QStringList{u"a.xls"_s, u"g.xls"_s} + bad);
    // Open elsewhere, a text, cut off, a sheet behind a password, none of the project's types.
    const QString lock = folder(u"sheets/.~lock.b.xls#"_s);
    writeBytes(lock, ",somebody,elsewhere,21.03.2026 10:00,file:///home/somebody/office;");
    writeBytes(sheetFile(u"c.xls"_s), "a letter");
    QVERIFY(QFile::resize(sheetFile(u"d.xls"_s), 5000));
    QByteArray bytes = bytesOf(sheetFile(u"e.xls"_s));
    // The record with the sum of no password stands behind those that protect the sheet.
    const QByteArray noPassword = QByteArray::fromHex("120002000100dd000200000013000200");
    const qsizetype password = bytes.indexOf(noPassword) + noPassword.size();
    QVERIFY(password > noPassword.size());
    bytes.replace(password, 2, QByteArray::fromHex("cdab"));
    writeBytes(sheetFile(u"e.xls"_s), bytes);
    {
        const auto application = spreadsheet::CreateObject();
        const auto book = application->Add();
        book->SaveAs(sheetFile(u"f.xls"_s), spreadsheet::FileFormat::Workbook);
        book->Close(SaveChanges::No);
        application->Quit();
    }
    QList<QByteArray> before;
    for (const QString& name : bad)
        before << bytesOf(sheetFile(name));
    const QStringList texts = run(datasheetLogo);
    QVERIFY2(texts.size() == 7, qPrintable(texts.join(u'|')));
    QCOMPARE(texts[0], u"70  The file %1 is read-only."_s.arg(sheetFile(u"b.xls"_s)));
    QCOMPARE(texts[1], u"321  The file %1 is no workbook."_s.arg(sheetFile(u"c.xls"_s)));
    QCOMPARE(texts[2], u"321  The file %1 is no workbook."_s.arg(sheetFile(u"d.xls"_s)));
    QCOMPARE(texts[3], u"1004  e.xls: The sheet DATASHEET is protected by a password."_s);
    QCOMPARE(texts[4],
             u"Error while opening Excel Spreadsheet f.xls.\r\n5 : The workbook has no document "
             u"property DatasheetType."_s);
    QCOMPARE(texts[5], u"Datasheet f.xls is invalid datasheet"_s);
    QCOMPARE(texts[6], done);
    for (qsizetype i = 0; i < bad.size(); ++i)
        QCOMPARE(bytesOf(sheetFile(bad[i])), before[i]);
    QVERIFY(QFile::exists(lock));
    QFile::remove(lock);
    for (const BookState& state : statesOf(folder(u"sheets"_s), {u"a.xls"_s, u"g.xls"_s}))
        QCOMPARE(state.sheets[0].pictures.at(0).name, u"logo"_s);
}

void TestLogoOffice::aTemplateThatIsOpenElsewhereStays()
{
    const QString file = folder(u"templates/T.xlt"_s);
    QVERIFY(QFile::copy(QStringLiteral(OSTRAND_BIN_DIR "/Templates/DS_PT.xlt"), file));
    writeBytes(folder(u"templates/.~lock.T.xlt#"_s),
               ",somebody,elsewhere,21.03.2026 10:00,file:///home/somebody/office;");
    const QByteArray before = bytesOf(file);
    QCOMPARE(run(templateLogo),
             (QStringList{u"70  The file %1 is read-only."_s.arg(file),
                          u"Template logo operation completed"_s}));
    QCOMPARE(bytesOf(file), before);
}

void TestLogoOffice::anApplicationThatIsKilledIsReplaced()
{
    giveSheets({u"a.xls"_s, u"b.xls"_s, u"c.xls"_s});
    const QByteArray before = bytesOf(sheetFile(u"b.xls"_s));
    QStringList texts;
    {
        const Killer killer(sheetFile(u"b.xls"_s));
        texts = run(datasheetLogo);
    }
    QVERIFY(texts.size() >= 2);
    const QString opening = u"Error while opening Excel Spreadsheet "_s;
    for (const QString& text : texts.first(texts.size() - 1)) {
        QVERIFY2(text.startsWith(opening)
                     && text.contains(u".\r\n462 : The spreadsheet application has ended."_s),
                 qPrintable(text));
    }
    QCOMPARE(texts.last(), done);
    QCOMPARE(bytesOf(sheetFile(u"b.xls"_s)), before);
    const auto states = statesOf(folder(u"sheets"_s), {u"a.xls"_s, u"b.xls"_s, u"c.xls"_s});
    QCOMPARE(states[0].sheets[0].pictures.at(0).name, u"logo"_s);
    QCOMPARE(states[1].sheets[0].pictures.at(0).name, u"LOGO"_s);
    QCOMPARE(states[2].sheets[0].pictures.at(0).name, u"logo"_s);
}

void TestLogoOffice::anUnusableLogoIsAskedFor_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QByteArray>("content");
    QTest::newRow("missing") << u"nowhere.jpg"_s << QByteArray();
    QTest::newRow("a text") << u"text.gif"_s << QByteArray("no picture");
    QTest::newRow("empty") << u"empty.gif"_s << QByteArray("");
    QTest::newRow("a header alone") << u"header.bmp"_s << QByteArray::fromHex("424d3a0000000000");
    const auto half = [this](const QString& suffix) {
        const QTemporaryDir scratch;
        const QString file = scratch.filePath(u"a."_s + suffix);
        QImage image(400, 300, QImage::Format_RGB32);
        image.fill(Qt::darkRed);
        if (!image.save(file))
            qFatal("the picture was not written");
        const QByteArray whole = bytesOf(file);
        return whole.left(whole.size() / 2);
    };
    for (const QString& suffix : {u"jpg"_s, u"png"_s, u"bmp"_s})
        QTest::newRow(qPrintable(u"half of a "_s + suffix)) << u"half."_s + suffix << half(suffix);
    QTest::newRow("20000 by 20000") << u"huge.png"_s << QByteArray();
}

void TestLogoOffice::anUnusableLogoIsAskedFor()
{
    QFETCH(QString, name);
    QFETCH(QByteArray, content);
    giveSheets({u"a.xls"_s});
    const QByteArray before = bytesOf(sheetFile(u"a.xls"_s));
    if (name == u"huge.png"_s) {
        QImage image(20000, 20000, QImage::Format_Mono);
        image.fill(1);
        QVERIFY(image.save(folder(name)));
    } else if (!content.isNull()) {
        writeBytes(folder(name), content);
    }
    setLogo(folder(name));
    QCOMPARE(run(datasheetLogo), (QStringList{question, done}));
    QCOMPARE(bytesOf(sheetFile(u"a.xls"_s)), before);
}

void TestLogoOffice::theWorkbooksAreSeenMeanwhile()
{
    giveSheets({u"first.xls"_s, u"second.xls"_s, u"third.xls"_s});
    QSet<QString> seen;
    std::atomic<bool> ended = false;
    std::thread onlooker([&] {
        while (!ended) {
            for (const QString& title : OfficeDisplay::windows())
                seen << title.section(u'.', 0, 0);
        }
    });
    const QStringList texts = run(datasheetLogo);
    ended = true;
    onlooker.join();
    QCOMPARE(texts, QStringList{done});
    QVERIFY2(seen.contains(u"second"_s), qPrintable(QStringList(seen.values()).join(u'|')));
    QVERIFY(!OfficeDisplay::windows().join(u'\n').contains(u".xls"_s));
}

void TestLogoOffice::whatTheUserDoesMeanwhileChangesNothing()
{
    QStringList names;
    constexpr int files = 12;
    for (int i = 0; i < files; ++i)
        names << u"%1.xls"_s.arg(i, 2, 10, QChar(u'0'));
    giveSheets(names);
    const std::vector<BookState> before = statesOf(folder(u"sheets"_s), names);
    std::atomic<bool> ended = false;
    std::thread user([&] {
        while (!ended) {
            OfficeDisplay::click(600, 400);
            OfficeDisplay::type(u"wrong "_s);
            OfficeDisplay::press({u"Return"_s, u"Delete"_s, u"ctrl+v"_s, u"ctrl+w"_s, u"alt+F4"_s});
        }
    });
    const QStringList texts = run(datasheetLogo);
    ended = true;
    user.join();
    QCOMPARE(texts, QStringList{done});
    const std::vector<BookState> after = statesOf(folder(u"sheets"_s), names);
    for (std::size_t i = 0; i < after.size(); ++i)
        verifyLogo(after[i], before[i], 4);
}

void TestLogoOffice::nothingIsLeftBehind()
{
    giveSheets({u"a.xls"_s, u"b.xls"_s});
    std::unique_ptr<OfficeTraces> traces;
    connect(m_program->window.findChild<QProgressBar*>(u"Progress"_s),
            &QProgressBar::valueChanged,
            this,
            [&](int value) {
                if (value == 1)
                    traces = std::make_unique<OfficeTraces>(spreadsheet::hostProcess());
            });
    QCOMPARE(run(datasheetLogo), QStringList{done});
    QVERIFY(traces);
    QTRY_VERIFY(traces->areGone());
    QCOMPARE(QDir(folder(u"sheets"_s))
                 .entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot, QDir::Name),
             (QStringList{u"a.xls"_s, u"b.xls"_s}));
    // The program goes on with its datasheets.
    const auto application = spreadsheet::CreateObject();
    application->Open(sheetFile(u"a.xls"_s))->Close(SaveChanges::No);
}

int main(int argc, char* argv[])
{
    const OfficeDisplay display;
    const QApplication application(argc, argv);
    spreadsheet::setHostSettings({.folder = QStringLiteral(OSTRAND_BIN_DIR)});
    TestLogoOffice cases;
    const int failures = QTest::qExec(&cases, argc, argv);
    spreadsheet::endHost();
    return failures;
}

#include "tst_logo_office.moc"
