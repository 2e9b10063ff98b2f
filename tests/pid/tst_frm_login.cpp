// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "app/program.h"
#include "app/state.h"
#include "pid/frmLogin.h"
#include "support/in_window.h"
#include "support/program_fixture.h"
#include "support/without_root.h"

#include <QAccessible>
#include <QApplication>
#include <QDir>
#include <QFile>
#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalSpy>
#include <QTest>

#include <sys/stat.h>

#include <memory>

using namespace Qt::StringLiterals;
using namespace ostrand;
using ostrand::app::g_blnPidLinked;
using ostrand::pid::frmLogin;
using ostrand::tests::ProgramFixture;
using ostrand::toolkit::BoxIcon;

namespace {

// The driver of the tests logs in as this key of the connect string says.
const QString serverThatAnswers = u"plant7;ANSWER=ok"_s;
const QString serverThatRefuses = u"plant7;ANSWER=no"_s;

} // namespace

class TestFrmLogin : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup();

    void theWindowIsModalAndTitled();
    void theFieldsStandInTheirOrder();
    void thePasswordIsHidden();
    void everyControlHasAnAccessibleName();
    void anEmptyFieldIsTold_data();
    void anEmptyFieldIsTold();
    void helpAsksForTheManual();
    void cancelAndEscapeDropTheLink();
    void closingByTheFrameKeepsTheLink();

    void aLoginLeavesItsConnectString();
    void aLoginReplacesAnOldFile();
    void aLoginToASqlServerTakesNoUser();
    void theExtensionIsComparedInSmallLetters();
    void aLoginThatFailsDropsTheLinkWithoutAWord();
    void anotherDatabaseIsRefused();
    void withoutAFileTheLinkIsDropped();
    void theFileGoesToTheUsersFolderWhereTheProgramsIsClosed();
    void withoutRightsAnywhereTheFileIsTold();
    void anyOtherFailureIsTold();
    void everyCommandHasItsKey();

private:
    void open(const QString& path, const std::function<void()>& steps);
    template <typename Control>
    Control* control(const QString& name)
    {
        return m_window->findChild<Control*>(name);
    }
    void press(const QString& name)
    {
        auto* button = control<QPushButton>(name);
        QVERIFY2(button && button->isEnabled() && button->isVisible(), qPrintable(name));
        QTest::mouseClick(button, Qt::LeftButton);
    }
    void fill(const QString& server, const QString& user, const QString& password);
    /// Fills in the fields of a login on this file, and presses OK.
    void logIn(const QString& path, const QString& server);
    QString path(const QString& name) { return m_fixture->path(name); }
    QString dataFile() { return path(u"bin/data.txt"_s); }
    static QByteArray content(const QString& path)
    {
        QFile file(path);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("(none)");
    }
    QStringList texts() { return m_fixture->prompts.takeTexts(); }
    void expect(BoxIcon icon, const QString& text);

    std::unique_ptr<ProgramFixture> m_fixture;
    std::unique_ptr<frmLogin> m_window;
    QTemporaryDir m_sources;
};

void TestFrmLogin::initTestCase()
{
    const QByteArray driver = "Driver=" OSTRAND_FAKE_DRIVER "\n";
    const auto write = [this](const QString& name, const QByteArray& text) {
        QFile file(m_sources.filePath(name));
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write(text);
    };
    write(u"odbcinst.ini"_s,
          "[Microsoft ODBC for Oracle]\n" + driver + "\n[SQL SERVER]\n" + driver);
    write(u"odbc.ini"_s, "[P&ID_SQL_SERVER]\n" + driver);
    qputenv("ODBCSYSINI", QFile::encodeName(m_sources.path()));
    qputenv("ODBCINI", QFile::encodeName(m_sources.filePath(u"odbc.ini"_s)));
}

void TestFrmLogin::init()
{
    m_fixture = std::make_unique<ProgramFixture>();
    QVERIFY(QDir().mkpath(path(u"bin"_s)));
    app::setInstallationFolder(path(u"bin"_s));
    qputenv("XDG_STATE_HOME", path(u"state"_s).toUtf8());
    g_blnPidLinked = true;
}

void TestFrmLogin::cleanup()
{
    m_window.reset();
    g_blnPidLinked = false;
    qunsetenv("XDG_STATE_HOME");
    m_fixture.reset();
}

void TestFrmLogin::open(const QString& path, const std::function<void()>& steps)
{
    m_window = std::make_unique<frmLogin>(path);
    tests::inWindow(
        *m_window, [this] { m_window->ShowInfo(); }, steps);
}

void TestFrmLogin::fill(const QString& server, const QString& user, const QString& password)
{
    for (const auto& [name, text] : {std::pair{u"txtServer"_s, server},
                                     std::pair{u"txtUserName"_s, user},
                                     std::pair{u"txtPassword"_s, password}}) {
        auto* field = control<QLineEdit>(name);
        field->clear();
        QTest::keyClicks(field, text);
    }
}

void TestFrmLogin::logIn(const QString& path, const QString& server)
{
    open(path, [&] {
        fill(server, u"scott"_s, u"tiger"_s);
        press(u"CmdOk"_s);
        QVERIFY(!m_window->isVisible());
    });
}

void TestFrmLogin::expect(BoxIcon icon, const QString& text)
{
    QCOMPARE(m_fixture->prompts.boxes.size(), std::size_t{1});
    QVERIFY(m_fixture->prompts.boxes[0].icon == icon);
    QCOMPARE(texts(), QStringList{text});
}

void TestFrmLogin::theWindowIsModalAndTitled()
{
    open(u"/a/plant.mdb"_s, [this] {
        QCOMPARE(m_window->windowTitle(), u"Enter Login Info For Database"_s);
        QVERIFY(m_window->isModal());
        QVERIFY(control<QPushButton>(u"CmdOk"_s)->isDefault());
    });
}

void TestFrmLogin::theFieldsStandInTheirOrder()
{
    open(u"/a/plant.mdb"_s, [this] {
        const auto* fields = m_window->findChild<QFormLayout*>();
        const auto captionOf = [&](const QString& name) {
            return qobject_cast<QLabel*>(fields->labelForField(control<QLineEdit>(name)))->text();
        };
        QCOMPARE(captionOf(u"txtServer"_s), u"Server Name"_s);
        QCOMPARE(captionOf(u"txtUserName"_s), u"User Name:"_s);
        QCOMPARE(captionOf(u"txtPassword"_s), u"Password:"_s);
        for (const char* name :
             {"txtServer", "txtUserName", "txtPassword", "CmdOk", "cmdHelp", "cmdCancel"}) {
            QCOMPARE(QApplication::focusWidget()->objectName(), QString::fromLatin1(name));
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        }
    });
}

void TestFrmLogin::thePasswordIsHidden()
{
    open(u"/a/plant.mdb"_s, [this] {
        QCOMPARE(control<QLineEdit>(u"txtPassword"_s)->echoMode(), QLineEdit::Password);
    });
}

void TestFrmLogin::everyControlHasAnAccessibleName()
{
    open(u"/a/plant.mdb"_s, [this] {
        for (auto* widget : m_window->findChildren<QWidget*>()) {
            if (widget->focusPolicy() == Qt::NoFocus)
                continue;
            auto* face = QAccessible::queryAccessibleInterface(widget);
            QVERIFY2(!face->text(QAccessible::Name).isEmpty(), qPrintable(widget->objectName()));
        }
    });
}

void TestFrmLogin::anEmptyFieldIsTold_data()
{
    QTest::addColumn<QString>("server");
    QTest::addColumn<QString>("user");
    QTest::addColumn<QString>("password");
    QTest::newRow("all") << QString() << QString() << QString();
    QTest::newRow("server") << QString() << u"a"_s << u"b"_s;
    QTest::newRow("user") << u"a"_s << QString() << u"b"_s;
    QTest::newRow("password") << u"a"_s << u"b"_s << QString();
}

void TestFrmLogin::anEmptyFieldIsTold()
{
    QFETCH(QString, server);
    QFETCH(QString, user);
    QFETCH(QString, password);
    open(u"/a/plant.mdb"_s, [&] {
        fill(server, user, password);
        press(u"CmdOk"_s);
        expect(BoxIcon::Information, u"One of the field is empty"_s);
        QVERIFY(m_window->isVisible());
        QVERIFY(control<QLineEdit>(u"txtUserName"_s)->hasFocus());
    });
    QVERIFY(g_blnPidLinked);
}

void TestFrmLogin::helpAsksForTheManual()
{
    open(u"/a/plant.mdb"_s, [this] {
        press(u"cmdHelp"_s);
        expect(BoxIcon::Exclamation,
               u"Unable to launch HTML Help,\r\nor the topic you requested does not exist"_s);
        QVERIFY(m_window->isVisible());
    });
}

void TestFrmLogin::cancelAndEscapeDropTheLink()
{
    open(u"/a/plant.mdb"_s, [this] {
        press(u"cmdCancel"_s);
        QVERIFY(!m_window->isVisible());
    });
    QVERIFY(!g_blnPidLinked);
    g_blnPidLinked = true;
    open(u"/a/plant.mdb"_s, [this] {
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Escape);
        QVERIFY(!m_window->isVisible());
    });
    QVERIFY(!g_blnPidLinked);
    QCOMPARE(texts(), QStringList());
}

void TestFrmLogin::closingByTheFrameKeepsTheLink()
{
    open(u"/a/plant.mdb"_s, [this] { QVERIFY(m_window->close()); });
    QVERIFY(g_blnPidLinked);
}

// ---- logging in

void TestFrmLogin::aLoginLeavesItsConnectString()
{
    g_blnPidLinked = false;
    logIn(u"/plants/base.mdb"_s, serverThatAnswers);
    QVERIFY(g_blnPidLinked);
    QCOMPARE(texts(), QStringList());
    const QByteArray line = content(dataFile());
    QVERIFY2(line.startsWith("ODBC;") && line.endsWith("\r\n"), line.constData());
    QCOMPARE(line.count('\n'), 1);
    QVERIFY2(line.contains("SERVER=plant7;") && line.contains("DATABASE=base;")
                 && line.contains("UID=scott;") && line.contains("PWD=tiger;"),
             line.constData());
}

void TestFrmLogin::aLoginReplacesAnOldFile()
{
    m_fixture->file(u"bin/data.txt"_s, QByteArray(5000, 'x'));
    ::chmod(dataFile().toUtf8().constData(), 0444);
    ::chmod(path(QString()).toUtf8().constData(), 0755);
    ::chmod(path(u"bin"_s).toUtf8().constData(), 0777);
    {
        const tests::WithoutRoot user;
        logIn(u"/plants/base.mdb"_s, serverThatAnswers);
    }
    QVERIFY(g_blnPidLinked);
    QVERIFY(content(dataFile()).startsWith("ODBC;"));
    QVERIFY(!content(dataFile()).contains("xxx"));
}

void TestFrmLogin::aLoginToASqlServerTakesNoUser()
{
    logIn(u"C:\\plants\\P&ID_SQL_SERVER.mdf"_s, serverThatAnswers);
    QCOMPARE(texts(), QStringList());
    QVERIFY(g_blnPidLinked);
    const QByteArray line = content(dataFile());
    QVERIFY2(line.contains("SERVER=plant7;") && line.contains("DSN=P&ID_SQL_SERVER;"),
             line.constData());
    QVERIFY(!line.contains("scott") && !line.contains("tiger"));
}

void TestFrmLogin::theExtensionIsComparedInSmallLetters()
{
    logIn(u"/plants/P&ID_SQL_SERVER.MDF"_s, serverThatAnswers);
    QVERIFY(g_blnPidLinked);
    QVERIFY(!content(dataFile()).contains("scott"));
}

void TestFrmLogin::aLoginThatFailsDropsTheLinkWithoutAWord()
{
    logIn(u"/plants/base.mdb"_s, serverThatRefuses);
    QVERIFY(!g_blnPidLinked);
    QCOMPARE(texts(), QStringList());
    QVERIFY(!QFile::exists(dataFile()));
}

void TestFrmLogin::anotherDatabaseIsRefused()
{
    logIn(u"/plants/base.mdf"_s, serverThatAnswers);
    QVERIFY(!g_blnPidLinked);
    expect(BoxIcon::Information, u"Please select the proper database."_s);
    QVERIFY(!QFile::exists(dataFile()));
}

void TestFrmLogin::withoutAFileTheLinkIsDropped()
{
    QVERIFY(QDir().mkpath(path(u"bin/data.txt/inner"_s)));
    logIn(u"/plants/base.mdb"_s, serverThatAnswers);
    QVERIFY(!g_blnPidLinked);
    QCOMPARE(texts(), QStringList());
}

void TestFrmLogin::theFileGoesToTheUsersFolderWhereTheProgramsIsClosed()
{
    app::setInstallationFolder(path(u"gone"_s));
    logIn(u"/plants/base.mdb"_s, serverThatAnswers);
    QVERIFY(g_blnPidLinked);
    QVERIFY(content(path(u"state/ostrand-datasheets/data.txt"_s)).startsWith("ODBC;"));
}

void TestFrmLogin::withoutRightsAnywhereTheFileIsTold()
{
    QVERIFY(QDir().mkpath(path(u"state"_s)));
    ::chmod(path(QString()).toUtf8().constData(), 0755);
    ::chmod(path(u"bin"_s).toUtf8().constData(), 0555);
    ::chmod(path(u"state"_s).toUtf8().constData(), 0555);
    {
        const tests::WithoutRoot user;
        logIn(u"/plants/base.mdb"_s, serverThatAnswers);
    }
    expect(BoxIcon::Exclamation,
           u"The file 'data.txt' is already exists\r\n and it is read only"_s);
}

void TestFrmLogin::anyOtherFailureIsTold()
{
    app::setInstallationFolder(path(u"gone"_s));
    qputenv("XDG_STATE_HOME", m_fixture->file(u"state"_s, "x").toUtf8());
    logIn(u"/plants/base.mdb"_s, serverThatAnswers);
    expect(BoxIcon::Exclamation, u"Login operation failed \r\n58File already exists"_s);
}

void TestFrmLogin::everyCommandHasItsKey()
{
    open(u"/plants/base.mdb"_s, [this] {
        const auto pressKey = [this](const QString& name, Qt::Key key) {
            const QSignalSpy clicked(control<QPushButton>(name), &QPushButton::clicked);
            QTest::keyClick(QApplication::focusWidget(), key, Qt::AltModifier);
            QTRY_COMPARE(clicked.size(), 1);
        };
        pressKey(u"cmdHelp"_s, Qt::Key_H);
        QCOMPARE(texts().size(), 1);
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
        expect(BoxIcon::Information, u"One of the field is empty"_s);
        pressKey(u"CmdOk"_s, Qt::Key_O);
        expect(BoxIcon::Information, u"One of the field is empty"_s);
        pressKey(u"cmdCancel"_s, Qt::Key_C);
        QVERIFY(!m_window->isVisible());
    });
}

QTEST_MAIN(TestFrmLogin)
#include "tst_frm_login.moc"
