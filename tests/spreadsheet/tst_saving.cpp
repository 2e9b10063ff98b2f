// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "spreadsheet/office_fixture.h"

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QRegularExpression>
#include <QSysInfo>
#include <QTest>

#include <unistd.h>

using namespace Qt::StringLiterals;
using namespace ostrand;
using spreadsheet::FileFormat;
using spreadsheet::SaveChanges;
using tests::OfficeFixture;

namespace {

int errorOf(const std::function<void()>& calls)
{
    try {
        calls();
        return 0;
    } catch (const spreadsheet::Error& error) {
        return error.number();
    }
}

/// Number and words of the failure.
QString wordsOf(const std::function<void()>& calls)
{
    try {
        calls();
        return {};
    } catch (const spreadsheet::Error& error) {
        return QString::number(error.number()) + u' ' + error.description();
    }
}

QByteArray bytesOf(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

/// Locks a workbook as an application does: with its user, machine, time and private folder.
QString lock(const OfficeFixture& office, const QString& name, const QString& owner)
{
    QFile file(office.path(u".~lock."_s + name + u'#'));
    if (!file.open(QIODevice::WriteOnly) || file.write(owner.toUtf8()) < 0)
        qFatal("the lock can't be written");
    return file.fileName();
}

/// What the lock of this user's application says.
QString ownLock(const OfficeFixture& office, const QString& name)
{
    const auto application = spreadsheet::CreateObject();
    const auto workbook = application->Open(office.path(name));
    const QString text = QString::fromUtf8(bytesOf(office.path(u".~lock."_s + name + u'#')));
    if (!text.contains(u"file:"_s))
        qFatal("the workbook is not locked");
    workbook->Close(SaveChanges::No);
    return text;
}

/// A file that nobody may write, not even the superuser.
class Immutable
{
public:
    explicit Immutable(QString path)
        : m_path(std::move(path)),
          m_stands(QProcess::execute(u"chattr"_s, {u"+i"_s, m_path}) == 0)
    {
    }
    ~Immutable()
    {
        if (m_stands)
            QProcess::execute(u"chattr"_s, {u"-i"_s, m_path});
    }
    Immutable(const Immutable&) = delete;
    Immutable& operator=(const Immutable&) = delete;
    bool stands() const { return m_stands; }

private:
    QString m_path;
    bool m_stands;
};

/// A disk with little room, in place of a folder.
class SmallDisk
{
public:
    explicit SmallDisk(QString folder)
        : m_folder(std::move(folder))
    {
        QDir().mkpath(m_folder);
        m_stands =
            ::geteuid() == 0
            && QProcess::execute(
                   u"mount"_s, {u"-t"_s, u"tmpfs"_s, u"-o"_s, u"size=200k"_s, u"tmpfs"_s, m_folder})
                   == 0;
    }
    ~SmallDisk()
    {
        if (m_stands)
            QProcess::execute(u"umount"_s, {u"-l"_s, m_folder});
    }
    SmallDisk(const SmallDisk&) = delete;
    SmallDisk& operator=(const SmallDisk&) = delete;
    bool stands() const { return m_stands; }

private:
    QString m_folder;
    bool m_stands = false;
};

void fill(spreadsheet::Workbook& workbook)
{
    const auto sheet = workbook.Worksheets(1);
    for (int row = 1; row <= 60; ++row)
        sheet->Range(u"B%1"_s.arg(row))
            ->setValue(QString(10000, QChar(u'a' + row % 26)) + QString::number(row));
}

} // namespace

class TestSaving : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    static void cleanup() { spreadsheet::endHost(); }

    static void aFileThatIsOpenElsewhereCanBeFilledButNotSaved_data()
    {
        QTest::addColumn<bool>("ownUser");
        QTest::newRow("by somebody else") << false;
        QTest::newRow("by the same user") << true;
    }
    static void aFileThatIsOpenElsewhereCanBeFilledButNotSaved()
    {
        QFETCH(const bool, ownUser);
        const OfficeFixture office;
        const QString path = office.workbook(u"a.xls"_s, {u"one"_s});
        const QByteArray before = bytesOf(path);
        QString owner = u",somebody,elsewhere,21.03.2026 10:00,file:///home/somebody/office;"_s;
        if (ownUser)
            owner = ownLock(office, u"a.xls"_s)
                        .replace(QRegularExpression(u"file:.*"_s), u"file:///home/me/office;"_s);
        const QString foreign = lock(office, u"a.xls"_s, owner);
        const auto workbook = spreadsheet::CreateObject()->Open(path);
        const auto cell = workbook->Worksheets(1)->Range(u"A1"_s);
        QCOMPARE(std::get<QString>(cell->Value()), u"one"_s);
        cell->setValue(u"two"_s);
        QCOMPARE(std::get<QString>(cell->Value()), u"two"_s);
        try {
            workbook->Save();
            QFAIL("it was saved");
        } catch (const spreadsheet::Error& error) {
            QCOMPARE(error.number(), 70);
            QCOMPARE(error.description(), u"The file %1 is read-only."_s.arg(path));
        }
        QCOMPARE(bytesOf(path), before);
        workbook->Close(SaveChanges::No);
        QVERIFY(QFile::exists(foreign));
    }

    static void aLockIsRemovedOnlyWhenItIsOfADeadApplicationOfOurs_data()
    {
        QTest::addColumn<QString>("host");
        QTest::addColumn<QString>("folder");
        QTest::addColumn<int>("number");
        const QString here = QSysInfo::machineHostName();
        const QString gone = u"file://"_s + QDir::tempPath() + u"/ostrand-datasheets-gone"_s;
        QTest::newRow("dead") << here << gone << 0;
        QTest::newRow("dead, with domain") << here + u".example.org"_s << gone << 0;
        QTest::newRow("other machine") << here + u"2"_s << gone << 70;
        QTest::newRow("not ours") << here << u"file:///tmp/gone"_s << 70;
        QTest::newRow("perhaps alive") << here << QString() << 70;
    }
    static void aLockIsRemovedOnlyWhenItIsOfADeadApplicationOfOurs()
    {
        QFETCH(const QString, host);
        QFETCH(QString, folder);
        QFETCH(const int, number);
        const OfficeFixture office;
        const QString path = office.workbook(u"a.xls"_s);
        const QTemporaryDir alive(QDir::tempPath() + u"/ostrand-datasheets-XXXXXX"_s);
        if (folder.isEmpty())
            folder = QUrl::fromLocalFile(alive.path()).toString();
        lock(office, u"a.xls"_s, u",me,%1,21.03.2026 10:00,%2;"_s.arg(host, folder));
        const auto workbook = spreadsheet::CreateObject()->Open(path);
        workbook->Worksheets(1)->Range(u"A1"_s)->setValue(u"x"_s);
        QCOMPARE(errorOf([&] { workbook->Save(); }), number);
    }

    static void aReadOnlyFileCanBeFilledButNotSaved()
    {
        const OfficeFixture office;
        const QString path = office.workbook(u"a.xls"_s, {u"one"_s});
        const Immutable immutable(path);
        if (!immutable.stands())
            QSKIP("this file system knows no files that cannot be written");
        const QByteArray before = bytesOf(path);
        const auto workbook = spreadsheet::CreateObject()->Open(path);
        const auto cell = workbook->Worksheets(1)->Range(u"A1"_s);
        cell->setValue(u"two"_s);
        QCOMPARE(std::get<QString>(cell->Value()), u"two"_s);
        QCOMPARE(errorOf([&] { workbook->Save(); }), 70);
        QCOMPARE(errorOf([&] { workbook->Close(SaveChanges::Yes); }), 70);
        QCOMPARE(errorOf([&] { workbook->SaveAs(path, FileFormat::Workbook); }), 70);
        QCOMPARE(errorOf([&] { workbook->SaveCopyAs(path); }), 70);
        QCOMPARE(bytesOf(path), before);
        workbook->SaveCopyAs(office.path(u"copy.xls"_s));
        QVERIFY(!bytesOf(office.path(u"copy.xls"_s)).isEmpty());
    }

    static void aMissingFolderIsNotMade()
    {
        const OfficeFixture office;
        const auto workbook = spreadsheet::CreateObject()->Add();
        const QString path = office.path(u"nowhere/a.xls"_s);
        for (const bool copy : {false, true}) {
            try {
                copy ? workbook->SaveCopyAs(path) : workbook->SaveAs(path, FileFormat::Workbook);
                QFAIL("it was saved");
            } catch (const spreadsheet::Error& error) {
                QCOMPARE(error.number(), 76);
                QCOMPARE(error.description(), u"The folder of %1 was not found."_s.arg(path));
            }
        }
        QVERIFY(!QFile::exists(office.path(u"nowhere"_s)));
    }

    /// The application itself names only a place in its own source, alone or behind its words.
    static void whatTheApplicationRefusesIsToldInWords()
    {
        const OfficeFixture office;
        const auto workbook = spreadsheet::CreateObject()->Open(office.workbook(u"a.xls"_s));
        const QString sheet = workbook->Worksheets(1)->Name();
        QCOMPARE(wordsOf([&] { workbook->AddSheet(sheet); }),
                 u"1004 The spreadsheet application refused the command."_s);
        QVERIFY(QDir(office.path(QString())).mkdir(u"b.xls"_s));
        const QString words =
            wordsOf([&] { workbook->SaveAs(office.path(u"b.xls"_s), FileFormat::Workbook); });
        QVERIFY2(words.startsWith(u"1004 "_s) && words.contains(u"b.xls"_s), qPrintable(words));
        QVERIFY2(!words.contains(u".cxx"_s), qPrintable(words));
    }

    static void aFullDiskLeavesTheOldFilesWhole()
    {
        const OfficeFixture office;
        const SmallDisk disk(office.path(u"disk"_s));
        if (!disk.stands())
            QSKIP("only the superuser can have a disk of his own");
        const QString path = office.workbook(u"disk/a.xls"_s, {u"one"_s});
        const QString other = office.workbook(u"disk/b.xls"_s, {u"other"_s});
        const QByteArray before = bytesOf(path);
        const QByteArray otherBefore = bytesOf(other);
        const auto isRefused = [](const std::function<void()>& calls) {
            const int number = errorOf(calls);
            return number == 1004 || number == 70;
        };
        const auto workbook = spreadsheet::CreateObject()->Open(path);
        fill(*workbook);
        QVERIFY(isRefused([&] { workbook->SaveCopyAs(other); }));
        QCOMPARE(bytesOf(other), otherBefore);
        QVERIFY(isRefused([&] { workbook->Save(); }));
        QCOMPARE(bytesOf(path), before);
        QVERIFY(isRefused([&] { workbook->SaveAs(other, FileFormat::Workbook); }));
        QCOMPARE(bytesOf(other), otherBefore);
        QCOMPARE(workbook->Name(), u"a.xls"_s);
        const auto cell = workbook->Worksheets(1)->Range(u"A1"_s);
        QCOMPARE(std::get<QString>(cell->Value()), u"one"_s);
        workbook->Close(SaveChanges::No);
        QCOMPARE(bytesOf(path), before);
        QCOMPARE(QDir(QFileInfo(path).path()).entryList({u"*.part"_s, u"*.tmp"_s}, QDir::Files),
                 QStringList());
    }
};

QTEST_GUILESS_MAIN(TestSaving)
#include "tst_saving.moc"
