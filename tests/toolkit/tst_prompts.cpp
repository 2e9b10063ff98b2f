// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "support/scripted_prompts.h"
#include "toolkit/dialog_host.h"
#include "toolkit/prompts.h"

#include <QAbstractButton>
#include <QApplication>
#include <QDesktopServices>
#include <QDialog>
#include <QDir>
#include <QFile>
#include <QFileDialog>
#include <QFileInfo>
#include <QFontMetrics>
#include <QInputDialog>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QScopeGuard>
#include <QTemporaryDir>
#include <QTemporaryFile>
#include <QTest>
#include <QTimer>
#include <QUrl>

#include <functional>

using namespace Qt::StringLiterals;
using namespace ostrand;
using namespace ostrand::toolkit;

namespace {

/// Looks at the dialog that is about to open, once it is open; then it is closed if it still is.
template <typename Dialog>
void whenOpen(std::function<void(Dialog&)> action)
{
    auto* timer = new QTimer(QApplication::instance());
    QObject::connect(timer, &QTimer::timeout, timer, [timer, action] {
        auto* dialog = qobject_cast<Dialog*>(QApplication::activeModalWidget());
        if (!dialog)
            return;
        timer->stop();
        timer->deleteLater();
        action(*dialog);
        if (dialog == QApplication::activeModalWidget())
            dialog->reject();
    });
    timer->start();
}

void press(const QMessageBox& box, QMessageBox::StandardButton which)
{
    QVERIFY(box.button(which));
    QTest::mouseClick(box.button(which), Qt::LeftButton);
}

/// Takes what would go to the browser.
class Browser final : public QObject
{
    Q_OBJECT

public:
    QList<QUrl> opened;

public Q_SLOTS:
    void open(const QUrl& url) { opened << url; }
};

} // namespace

class TestPrompts : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { setPromptHost(nullptr); }

    void aFailureShowsAnExclamationWithOk();
    void aNoticeShowsAnInformationWithOk();
    void aQuestionShowsYesAndNo();
    void aQuestionIsAnsweredByItsKeys();
    void aQuestionStaysUntilItIsAnswered();
    void aQuestionWithCancelHasAThirdAnswer();
    void lineBreaksAndMarkupAreShownAsText();
    void aBoxMayHaveATitleAndNoIcon();
    void aBoxStandsOverTheActiveWindow();

    void anInputBoxGivesTheTextTyped();
    void aCancelledInputBoxGivesNothing();
    void anEmptyInputIsNotACancelledOne();
    void anInputBoxShowsItsTitleAndPromptWhole_data();
    void anInputBoxShowsItsTitleAndPromptWhole();

    void theOpenDialogIsSetUpAsAsked();
    void theSaveDialogIsSetUpAsAsked();
    void theSaveDialogDoesNotAskAboutExistingFiles();
    void aNameWithoutSuffixIsSavedAsProject();
    void aNameWithoutSuffixGetsTheOneAskedFor();
    void theDialogStartsAtThePresetFile();
    void aNameIsOfferedInAnotherFolder();
    void choosingAFileRaisesWhenCancelled();
    void aFileThatIsNotThereCountsAsNoChoice();
    void theFolderDialogGivesTheFolderChosen();
    void aCancelledFolderDialogGivesNothing();
    void filtersAreRewritten_data();
    void filtersAreRewritten();

    void addressesGoToTheBrowser();
    void theHostIsReplacedAndGivenBack();
    void formAEndsInNumberAndDescription();
    void formBEndsInNumberAndDescription();
};

void TestPrompts::aFailureShowsAnExclamationWithOk()
{
    bool seen = false;
    whenOpen<QMessageBox>([&](QMessageBox& box) {
        seen = true;
        QCOMPARE(box.windowTitle(), u"Ostrand Instrument Datasheets"_s);
        QCOMPARE(box.text(), u"It failed"_s);
        QCOMPARE(box.icon(), QMessageBox::Warning);
        QCOMPARE(box.standardButtons(), QMessageBox::StandardButtons(QMessageBox::Ok));
        press(box, QMessageBox::Ok);
    });
    showFailure(u"It failed"_s);
    QVERIFY(seen);
}

void TestPrompts::aNoticeShowsAnInformationWithOk()
{
    bool seen = false;
    whenOpen<QMessageBox>([&](QMessageBox& box) {
        seen = true;
        QCOMPARE(box.icon(), QMessageBox::Information);
        QCOMPARE(box.standardButtons(), QMessageBox::StandardButtons(QMessageBox::Ok));
        QTest::keyClick(&box, Qt::Key_Return);
    });
    showNotice(u"It is done"_s);
    QVERIFY(seen);
}

void TestPrompts::aQuestionShowsYesAndNo()
{
    whenOpen<QMessageBox>([](QMessageBox& box) {
        QCOMPARE(box.icon(), QMessageBox::Question);
        QCOMPARE(box.standardButtons(),
                 QMessageBox::StandardButtons(QMessageBox::Yes | QMessageBox::No));
        press(box, QMessageBox::Yes);
    });
    QVERIFY(askYesNo(u"Go on?"_s));
    whenOpen<QMessageBox>([](QMessageBox& box) { press(box, QMessageBox::No); });
    QVERIFY(!askYesNo(u"Go on?"_s));
}

void TestPrompts::aQuestionIsAnsweredByItsKeys()
{
    whenOpen<QMessageBox>([](QMessageBox& box) { QTest::keyClick(&box, Qt::Key_Return); });
    QVERIFY(askYesNo(u"Go on?"_s));
    whenOpen<QMessageBox>(
        [](QMessageBox& box) { QTest::keyClick(&box, Qt::Key_N, Qt::AltModifier); });
    QVERIFY(!askYesNo(u"Go on?"_s));
}

void TestPrompts::aQuestionStaysUntilItIsAnswered()
{
    bool stayed = false;
    whenOpen<QMessageBox>([&](QMessageBox& box) {
        QTest::keyClick(&box, Qt::Key_Escape);
        box.close();
        stayed = box.isVisible();
        press(box, QMessageBox::Yes);
    });
    QVERIFY(askYesNo(u"Go on?"_s));
    QVERIFY(stayed);
}

void TestPrompts::aQuestionWithCancelHasAThirdAnswer()
{
    const auto answer = [](const std::function<void(QMessageBox&)>& press) {
        whenOpen<QMessageBox>(press);
        return promptHost().messageBox({.text = u"Go on?"_s, .buttons = BoxButtons::YesNoCancel});
    };
    const auto pressing = [](QMessageBox::StandardButton button) {
        return [button](QMessageBox& box) { press(box, button); };
    };
    QVERIFY(answer(pressing(QMessageBox::Yes)) == Answer::Yes);
    QVERIFY(answer(pressing(QMessageBox::No)) == Answer::No);
    QVERIFY(answer(pressing(QMessageBox::Cancel)) == Answer::Cancel);
    QVERIFY(answer([](QMessageBox& box) { QTest::keyClick(&box, Qt::Key_Escape); })
            == Answer::Cancel);
    QVERIFY(answer([](QMessageBox& box) { box.close(); }) == Answer::Cancel);
}

void TestPrompts::lineBreaksAndMarkupAreShownAsText()
{
    bool seen = false;
    whenOpen<QMessageBox>([&](const QMessageBox& box) {
        seen = true;
        QCOMPARE(box.text(), u"<b>P&ID</b>\nsecond\nthird"_s);
        QCOMPARE(box.textFormat(), Qt::PlainText);
    });
    showFailure(u"<b>P&ID</b>\r\nsecond\r\nthird"_s);
    QVERIFY(seen);
}

void TestPrompts::aBoxMayHaveATitleAndNoIcon()
{
    bool seen = false;
    whenOpen<QMessageBox>([&](const QMessageBox& box) {
        seen = true;
        QCOMPARE(box.windowTitle(), u"Own title"_s);
        QCOMPARE(box.icon(), QMessageBox::NoIcon);
    });
    const Answer answer =
        promptHost().messageBox({.text = u"x"_s, .icon = BoxIcon::None, .title = u"Own title"_s});
    QVERIFY(seen);
    QVERIFY(answer == Answer::Ok);
}

void TestPrompts::aBoxStandsOverTheActiveWindow()
{
    QWidget window;
    window.show();
    QVERIFY(QTest::qWaitForWindowActive(&window));
    bool seen = false;
    whenOpen<QMessageBox>([&](const QMessageBox& box) {
        seen = true;
        QCOMPARE(box.parentWidget(), &window);
        QVERIFY(box.isModal());
    });
    showFailure(u"x"_s);
    QVERIFY(seen);
}

void TestPrompts::anInputBoxGivesTheTextTyped()
{
    whenOpen<QInputDialog>([](QInputDialog& dialog) {
        QCOMPARE(dialog.windowTitle(), u"New type"_s);
        QCOMPARE(dialog.labelText(), u"Name of the type"_s);
        QTest::keyClicks(dialog.findChild<QLineEdit*>(), u"sketch"_s);
        QTest::keyClick(dialog.findChild<QLineEdit*>(), Qt::Key_Return);
    });
    QCOMPARE(promptHost().inputBox(u"Name of the type"_s, u"New type"_s).value_or(u"-"_s),
             u"sketch"_s);
}

void TestPrompts::aCancelledInputBoxGivesNothing()
{
    whenOpen<QInputDialog>([](QInputDialog& dialog) {
        QTest::keyClicks(dialog.findChild<QLineEdit*>(), u"sketch"_s);
        QTest::keyClick(&dialog, Qt::Key_Escape);
    });
    QVERIFY(!promptHost().inputBox(u"x"_s, u"y"_s));
}

void TestPrompts::anEmptyInputIsNotACancelledOne()
{
    whenOpen<QInputDialog>([](QInputDialog& dialog) {
        QTest::keyClick(dialog.findChild<QLineEdit*>(), Qt::Key_Return);
    });
    QCOMPARE(promptHost().inputBox(u"x"_s, u"y"_s).value_or(u"-"_s), QString());
}

void TestPrompts::anInputBoxShowsItsTitleAndPromptWhole_data()
{
    QTest::addColumn<double>("scale");
    QTest::newRow("100 %") << 1.0;
    QTest::newRow("150 %") << 1.5;
}

void TestPrompts::anInputBoxShowsItsTitleAndPromptWhole()
{
    QFETCH(const double, scale);
    const QFont before = QApplication::font();
    const auto restore = qScopeGuard([&] { QApplication::setFont(before); });
    QFont font = before;
    font.setPointSizeF(before.pointSizeF() * scale);
    QApplication::setFont(font);
    const QFontMetrics metrics(font);
    int seen = 0;
    const auto expectRoom = [&](const QString& prompt, const QString& title) {
        whenOpen<QInputDialog>([&](QInputDialog& dialog) {
            ++seen;
            dialog.resize(dialog.minimumSize());
            const int buttons = 3 * metrics.height();
            const int needed = metrics.horizontalAdvance(title) + buttons;
            QVERIFY2(dialog.width() >= needed, qPrintable(QString::number(dialog.width())));
            QVERIFY(dialog.findChild<QLineEdit*>()->width() >= 20 * metrics.averageCharWidth());
            const auto* label = dialog.findChild<QLabel*>();
            QVERIFY(label->width() >= metrics.horizontalAdvance(prompt));
            QVERIFY(label->height() >= metrics.height());
        });
        promptHost().inputBox(prompt, title);
    };
    expectRoom(u"Name:"_s, u"Network address"_s);
    expectRoom(u"Name:"_s, u"A title that is much longer than what is asked for below it"_s);
    expectRoom(u"A prompt that is much longer than the title of the box which it is asked in"_s,
               u"x"_s);
    QCOMPARE(seen, 3);
}

void TestPrompts::theOpenDialogIsSetUpAsAsked()
{
    const QTemporaryDir folder;
    QFile file(folder.filePath(u"plant.mdb"_s));
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.close();
    whenOpen<QFileDialog>([&](QFileDialog& dialog) {
        QCOMPARE(dialog.windowTitle(), u"Open project..."_s);
        QCOMPARE(dialog.acceptMode(), QFileDialog::AcceptOpen);
        QCOMPARE(dialog.fileMode(), QFileDialog::ExistingFile);
        QCOMPARE(dialog.nameFilters(),
                 (QStringList{u"All Files (*)"_s, u"Ostrand Instrument Datasheets (*.mdb)"_s}));
        QCOMPARE(dialog.selectedNameFilter(), u"Ostrand Instrument Datasheets (*.mdb)"_s);
        QCOMPARE(QFileInfo(dialog.directory().path()).canonicalFilePath(),
                 QFileInfo(folder.path()).canonicalFilePath());
        dialog.selectFile(u"plant.mdb"_s);
        static_cast<QDialog&>(dialog).accept();
    });
    const QString chosen =
        chooseFile({.title = u"Open project..."_s,
                    .filter = u"All Files (*.*)|*.*|Ostrand Instrument Datasheets (*.mdb)|*.mdb"_s,
                    .filterIndex = 2,
                    .fileName = folder.path()});
    QCOMPARE(chosen, folder.filePath(u"plant.mdb"_s));
}

void TestPrompts::theSaveDialogIsSetUpAsAsked()
{
    bool seen = false;
    whenOpen<QFileDialog>([&](const QFileDialog& dialog) {
        seen = true;
        QCOMPARE(dialog.windowTitle(), u"Save Project as..."_s);
        QCOMPARE(dialog.acceptMode(), QFileDialog::AcceptSave);
        QCOMPARE(dialog.fileMode(), QFileDialog::AnyFile);
        QCOMPARE(dialog.selectedNameFilter(), u"All Files (*)"_s);
    });
    const auto chosen =
        promptHost().fileDialog({.title = u"Save Project as..."_s,
                                 .filter = u"All Files (*.*)|*.*|Projects(*.mdb)|*.mdb"_s,
                                 .save = true});
    QVERIFY(seen);
    QVERIFY(!chosen);
}

void TestPrompts::theSaveDialogDoesNotAskAboutExistingFiles()
{
    const QTemporaryDir folder;
    QFile file(folder.filePath(u"plant.mdb"_s));
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.close();
    whenOpen<QFileDialog>([&](QFileDialog& dialog) {
        dialog.findChild<QLineEdit*>(u"fileNameEdit"_s)->setText(file.fileName());
        static_cast<QDialog&>(dialog).accept();
    });
    const auto chosen = promptHost().fileDialog(
        {.title = {}, .filter = {}, .fileName = folder.path(), .save = true});
    QCOMPARE(chosen.value_or(u"-"_s), file.fileName());
}

void TestPrompts::aNameWithoutSuffixIsSavedAsProject()
{
    const QTemporaryDir folder;
    whenOpen<QFileDialog>([&](QFileDialog& dialog) {
        dialog.findChild<QLineEdit*>(u"fileNameEdit"_s)->setText(u"plant"_s);
        static_cast<QDialog&>(dialog).accept();
    });
    const auto chosen = promptHost().fileDialog(
        {.title = {}, .filter = {}, .fileName = folder.path(), .save = true});
    QCOMPARE(chosen.value_or(u"-"_s), folder.filePath(u"plant.mdb"_s));
}

void TestPrompts::aNameWithoutSuffixGetsTheOneAskedFor()
{
    const QTemporaryDir folder;
    whenOpen<QFileDialog>([&](QFileDialog& dialog) {
        dialog.findChild<QLineEdit*>(u"fileNameEdit"_s)->setText(u"report"_s);
        static_cast<QDialog&>(dialog).accept();
    });
    const auto chosen = promptHost().fileDialog(
        {.title = {}, .filter = {}, .fileName = folder.path(), .save = true, .suffix = u"txt"_s});
    QCOMPARE(chosen.value_or(u"-"_s), folder.filePath(u"report.txt"_s));
}

void TestPrompts::theDialogStartsAtThePresetFile()
{
    const QTemporaryDir folder;
    QFile file(folder.filePath(u"last.mdb"_s));
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.close();
    whenOpen<QFileDialog>([](QFileDialog& dialog) {
        QCOMPARE(dialog.findChild<QLineEdit*>(u"fileNameEdit"_s)->text(), u"last.mdb"_s);
        static_cast<QDialog&>(dialog).accept();
    });
    const QString stored = QString(file.fileName()).replace(u'/', u'\\');
    const auto chosen = promptHost().fileDialog({.title = {}, .filter = {}, .fileName = stored});
    QCOMPARE(chosen.value_or(u"-"_s), file.fileName());
}

void TestPrompts::aNameIsOfferedInAnotherFolder()
{
    const QTemporaryDir folder;
    whenOpen<QFileDialog>([](QFileDialog& dialog) {
        QCOMPARE(dialog.findChild<QLineEdit*>(u"fileNameEdit"_s)->text(), u"FT-1.mdb"_s);
        static_cast<QDialog&>(dialog).accept();
    });
    const auto chosen = promptHost().fileDialog({.title = {},
                                                 .filter = {},
                                                 .fileName = u"/elsewhere/FT-1.mdb"_s,
                                                 .folder = folder.path(),
                                                 .save = true});
    QCOMPARE(chosen.value_or(u"-"_s), folder.filePath(u"FT-1.mdb"_s));
}

void TestPrompts::choosingAFileRaisesWhenCancelled()
{
    whenOpen<QFileDialog>([](QFileDialog& dialog) { QTest::keyClick(&dialog, Qt::Key_Escape); });
    try {
        chooseFile({});
        QFAIL("nothing was raised");
    } catch (const store::Error& error) {
        QCOMPARE(error.number(), 32755);
    }
    tests::ScriptedPrompts& script = tests::installScriptedPrompts();
    script.files = {u"/a/b.mdb"_s};
    QCOMPARE(chooseFile({}), u"/a/b.mdb"_s);
}

void TestPrompts::filtersAreRewritten_data()
{
    QTest::addColumn<QString>("filter");
    QTest::addColumn<QStringList>("expected");
    QTest::newRow("none") << QString() << QStringList();
    QTest::newRow("all files") << u"All Files (*.*)|*.*"_s << QStringList{u"All Files (*)"_s};
    QTest::newRow("without blank")
        << u"Projects(*.mdb)|*.mdb"_s << QStringList{u"Projects (*.mdb)"_s};
    QTest::newRow("without brackets") << u"Projects|*.mdb"_s << QStringList{u"Projects (*.mdb)"_s};
    QTest::newRow("several patterns")
        << u"Pictures|*.png;*.jpg"_s << QStringList{u"Pictures (*.png *.jpg)"_s};
    QTest::newRow("several pairs") << u"A|*.a|B|*.b"_s << QStringList{u"A (*.a)"_s, u"B (*.b)"_s};
    QTest::newRow("a caption alone") << u"A|*.a|B"_s << QStringList{u"A (*.a)"_s};
}

void TestPrompts::filtersAreRewritten()
{
    QFETCH(const QString, filter);
    QTEST(nameFilters(filter), "expected");
}

void TestPrompts::aFileThatIsNotThereCountsAsNoChoice()
{
    QTemporaryFile file;
    QVERIFY(file.open());
    auto& script = tests::installScriptedPrompts();
    script.files = {file.fileName(), std::nullopt, file.fileName() + u".gone"_s, QDir::tempPath()};
    QCOMPARE(chooseFileIfAny({.title = {}, .filter = {}}), file.fileName());
    for (int i = 0; i < 3; ++i)
        QCOMPARE(chooseFileIfAny({.title = {}, .filter = {}}), QString());
    QVERIFY(script.files.empty());
}

void TestPrompts::theFolderDialogGivesTheFolderChosen()
{
    const QTemporaryDir folder;
    QVERIFY(QDir(folder.path()).mkdir(u"inner"_s));
    QWidget owner;
    whenOpen<QFileDialog>([&](QFileDialog& dialog) {
        QCOMPARE(dialog.windowTitle(), u"Select a folder"_s);
        QCOMPARE(dialog.fileMode(), QFileDialog::Directory);
        QVERIFY(dialog.testOption(QFileDialog::ShowDirsOnly));
        QCOMPARE(dialog.parentWidget(), &owner);
        dialog.findChild<QLineEdit*>(u"fileNameEdit"_s)->setText(folder.filePath(u"inner"_s));
        static_cast<QDialog&>(dialog).accept();
    });
    const auto chosen = promptHost().folderDialog(&owner, u"Select a folder"_s);
    QCOMPARE(chosen.value_or(u"-"_s), folder.filePath(u"inner"_s));
}

void TestPrompts::aCancelledFolderDialogGivesNothing()
{
    whenOpen<QFileDialog>([](QFileDialog& dialog) { dialog.reject(); });
    QVERIFY(!promptHost().folderDialog(nullptr, u"Select a folder"_s));
}

void TestPrompts::addressesGoToTheBrowser()
{
    Browser browser;
    QDesktopServices::setUrlHandler(u"https"_s, &browser, "open");
    promptHost().openAddress(u"https://host.example/page.asp?a=b&c=d"_s);
    QDesktopServices::unsetUrlHandler(u"https"_s);
    QCOMPARE(browser.opened, QList<QUrl>{QUrl(u"https://host.example/page.asp?a=b&c=d"_s)});
}

void TestPrompts::theHostIsReplacedAndGivenBack()
{
    tests::ScriptedPrompts& script = tests::installScriptedPrompts();
    showNotice(u"kept"_s);
    QCOMPARE(script.boxes.size(), std::size_t{1});
    QVERIFY(script.boxes[0].icon == BoxIcon::Information);
    const auto before = setPromptHost(nullptr);
    QCOMPARE(before.get(), &script);
    QVERIFY(dynamic_cast<DialogHost*>(&promptHost()));
}

void TestPrompts::formAEndsInNumberAndDescription()
{
    QCOMPARE(formA(u"It failed."_s, store::Error(53, u"File not found"_s)),
             u"It failed.\r\n53 : File not found"_s);
}

void TestPrompts::formBEndsInNumberAndDescription()
{
    QCOMPARE(formB(u"It failed. "_s, store::Error(3024, u"No such file"_s)),
             u"It failed. \r\nError : 3024. No such file"_s);
}

QTEST_MAIN(TestPrompts)
#include "tst_prompts.moc"
