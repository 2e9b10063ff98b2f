// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "support/file_size_limit.h"
#include "support/without_root.h"
#include "toolkit/file_system.h"
#include "toolkit/paths.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

#include <sys/stat.h>

#include <functional>
#include <memory>

using namespace Qt::StringLiterals;
using namespace ostrand;
using ostrand::tests::FileSizeLimit;
using ostrand::tests::WithoutRoot;

namespace {

/// The number of the error that a command raises; 0 for none.
int errorOf(const std::function<void()>& command)
{
    try {
        command();
    } catch (const store::Error& error) {
        return error.number();
    }
    return 0;
}

dev_t deviceOf(const QString& path)
{
    struct stat found
    {
    };
    ::stat(path.toUtf8().constData(), &found);
    return found.st_dev;
}

} // namespace

class TestFileSystem : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { m_folder = std::make_unique<QTemporaryDir>(); }
    void cleanup() { m_folder.reset(); }

    void folderAndNameAreJoined();
    void bothSeparatorsReachTheFile();
    void theTitleIsTheLastPart_data();
    void theTitleIsTheLastPart();

    void aFileExistsAndAFolderDoesNot();
    void aFileIsMoved();
    void movingAMissingFileFails();
    void movingOntoAFileFails();
    void movingIntoAMissingFolderFails();
    void movingWithoutRightsFails();
    void movingToAnotherFileSystemTakesTheContentAlong();
    void movingToAFullFileSystemKeepsTheFile();

    void aFileIsCopiedOverWhatIsThere();
    void aReadOnlyFileIsCopiedWithItsRights();
    void copyingAMissingFileFails();
    void copyingIntoAMissingFolderFails();
    void copyingWithoutRightsFails();
    void copyingToAFullFileSystemKeepsTheOldTarget();

    void aFileIsDeleted();
    void deletingAMissingFileFails();
    void deletingAReadOnlyFileFails();
    void deletingWithoutRightsFails();

private:
    QString path(const QString& name) const { return m_folder->filePath(name); }
    QString make(const QString& name, const QByteArray& content = "content") const;
    static QByteArray read(const QString& file);

    std::unique_ptr<QTemporaryDir> m_folder;
};

QString TestFileSystem::make(const QString& name, const QByteArray& content) const
{
    QFile file(path(name));
    if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size())
        qFatal("cannot write %s", qPrintable(name));
    return path(name);
}

QByteArray TestFileSystem::read(const QString& file)
{
    QFile open(file);
    return open.open(QIODevice::ReadOnly) ? open.readAll() : QByteArray("(unreadable)");
}

void TestFileSystem::folderAndNameAreJoined()
{
    QCOMPARE(toolkit::joinPath(u"/a/b"_s, u"c.xls"_s), u"/a/b/c.xls"_s);
    QCOMPARE(toolkit::joinPath(uR"(C:\a)"_s, u"c.xls"_s),
             uR"(C:\a)"_s + QDir::separator() + u"c.xls"_s);
    QCOMPARE(toolkit::joinPath(QString(), u"c.xls"_s), QString(QDir::separator() + u"c.xls"_s));
}

void TestFileSystem::bothSeparatorsReachTheFile()
{
    QCOMPARE(toolkit::filePath(uR"(C:\a\b/c.xls)"_s), u"C:/a/b/c.xls"_s);
    QCOMPARE(toolkit::filePath(QString()), QString());
    const QString file = make(u"a.xls"_s);
    QString backslashes = file;
    backslashes.replace(u'/', u'\\');
    QVERIFY(toolkit::fileExists(backslashes));
    toolkit::moveFile(backslashes, QString(path(u"b.xls"_s)).replace(u'/', u'\\'));
    QCOMPARE(read(path(u"b.xls"_s)), QByteArray("content"));
    toolkit::deleteFile(QString(path(u"b.xls"_s)).replace(u'/', u'\\'));
    QVERIFY(QDir(m_folder->path()).isEmpty());
}

void TestFileSystem::theTitleIsTheLastPart_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<QString>("title");
    QTest::newRow("slashes") << u"/a/b.mdb"_s << u"b.mdb"_s;
    QTest::newRow("backslashes") << uR"(C:\a\b.mdb)"_s << u"b.mdb"_s;
    QTest::newRow("both") << uR"(C:\a/x\b.mdb)"_s << u"b.mdb"_s;
    QTest::newRow("bare") << u"b.mdb"_s << u"b.mdb"_s;
    QTest::newRow("a folder") << u"/a/"_s << QString();
    QTest::newRow("nothing") << QString() << QString();
}

void TestFileSystem::theTitleIsTheLastPart()
{
    QFETCH(const QString, path);
    QTEST(toolkit::fileTitle(path), "title");
}

void TestFileSystem::aFileExistsAndAFolderDoesNot()
{
    QVERIFY(toolkit::fileExists(make(u"a.xls"_s)));
    QVERIFY(!toolkit::fileExists(m_folder->path()));
    QVERIFY(!toolkit::fileExists(path(u"b.xls"_s)));
    QVERIFY(!toolkit::fileExists(QString()));
}

void TestFileSystem::aFileIsMoved()
{
    const QString from = make(u"Größe.xls"_s);
    toolkit::moveFile(from, path(u"Ω.xls"_s));
    QVERIFY(!QFile::exists(from));
    QCOMPARE(read(path(u"Ω.xls"_s)), QByteArray("content"));
}

void TestFileSystem::movingAMissingFileFails()
{
    QCOMPARE(errorOf([&] { toolkit::moveFile(path(u"gone"_s), path(u"b"_s)); }), 53);
    QCOMPARE(errorOf([&] { toolkit::moveFile(path(u"no/gone"_s), path(u"b"_s)); }), 76);
    QCOMPARE(errorOf([&] { toolkit::moveFile(m_folder->path(), path(u"b"_s)); }), 53);
}

void TestFileSystem::movingOntoAFileFails()
{
    const QString a = make(u"a"_s, "a");
    const QString b = make(u"b"_s, "b");
    QCOMPARE(errorOf([&] { toolkit::moveFile(a, b); }), 58);
    QCOMPARE(errorOf([&] { toolkit::moveFile(a, m_folder->path()); }), 58);
    QCOMPARE(errorOf([&] { toolkit::moveFile(a, a); }), 58);
    QCOMPARE(read(a), QByteArray("a"));
    QCOMPARE(read(b), QByteArray("b"));
}

void TestFileSystem::movingIntoAMissingFolderFails()
{
    const QString a = make(u"a"_s);
    QCOMPARE(errorOf([&] { toolkit::moveFile(a, path(u"no/a"_s)); }), 76);
    QVERIFY(QFile::exists(a));
}

void TestFileSystem::movingWithoutRightsFails()
{
    const QString a = make(u"a"_s);
    QVERIFY(QDir(m_folder->path()).mkdir(u"closed"_s));
    ::chmod(path(u"closed"_s).toUtf8().constData(), 0555);
    ::chmod(m_folder->path().toUtf8().constData(), 0777);
    const WithoutRoot user;
    QCOMPARE(errorOf([&] { toolkit::moveFile(a, path(u"closed/a"_s)); }), 70);
    QVERIFY(QFile::exists(a));
}

void TestFileSystem::movingToAnotherFileSystemTakesTheContentAlong()
{
    const QTemporaryDir other(u"/dev/shm/ostrand-XXXXXX"_s);
    if (!other.isValid() || deviceOf(other.path()) == deviceOf(m_folder->path()))
        QSKIP("there is no second file system");
    const QByteArray content(100000, 'x');
    const QString from = make(u"a"_s, content);
    const QString to = other.filePath(u"a"_s);
    toolkit::moveFile(from, to);
    QVERIFY(!QFile::exists(from));
    QCOMPARE(read(to), content);
}

void TestFileSystem::movingToAFullFileSystemKeepsTheFile()
{
    const QTemporaryDir other(u"/dev/shm/ostrand-XXXXXX"_s);
    if (!other.isValid() || deviceOf(other.path()) == deviceOf(m_folder->path()))
        QSKIP("there is no second file system");
    for (const qsizetype size : {500, 100000}) {
        const QByteArray content(size, 'x');
        const QString from = make(u"a"_s, content);
        const QString to = other.filePath(u"a"_s);
        {
            const FileSizeLimit full(100);
            QCOMPARE(errorOf([&] { toolkit::moveFile(from, to); }), 61);
        }
        QCOMPARE(read(from), content);
        QVERIFY(!QFile::exists(to));
    }
}

void TestFileSystem::aFileIsCopiedOverWhatIsThere()
{
    const QString from = make(u"a.xls"_s, QByteArray(3'000'000, 'x'));
    toolkit::copyFile(QString(from).replace(u'/', u'\\'), path(u"b.xls"_s));
    QVERIFY(read(path(u"b.xls"_s)) == QByteArray(3'000'000, 'x'));
    QVERIFY(read(from) == QByteArray(3'000'000, 'x'));
    toolkit::copyFile(make(u"c.xls"_s, "short"), path(u"b.xls"_s));
    QCOMPARE(read(path(u"b.xls"_s)), QByteArray("short"));
    toolkit::copyFile(make(u"empty.xls"_s, ""), path(u"b.xls"_s));
    QCOMPARE(read(path(u"b.xls"_s)), QByteArray());
}

void TestFileSystem::aReadOnlyFileIsCopiedWithItsRights()
{
    const QString from = make(u"a.xls"_s);
    QFile::setPermissions(from, QFile::ReadOwner);
    toolkit::copyFile(from, path(u"b.xls"_s));
    QCOMPARE(read(path(u"b.xls"_s)), QByteArray("content"));
    QVERIFY(!(QFile::permissions(path(u"b.xls"_s)) & QFile::WriteOwner));
}

void TestFileSystem::copyingAMissingFileFails()
{
    QCOMPARE(errorOf([&] { toolkit::copyFile(path(u"no.xls"_s), path(u"b.xls"_s)); }), 53);
    QCOMPARE(errorOf([&] { toolkit::copyFile(m_folder->path(), path(u"b.xls"_s)); }), 53);
    QCOMPARE(errorOf([&] { toolkit::copyFile(path(u"no/a.xls"_s), path(u"b.xls"_s)); }), 76);
    QVERIFY(QDir(m_folder->path()).isEmpty());
}

void TestFileSystem::copyingIntoAMissingFolderFails()
{
    const QString from = make(u"a.xls"_s);
    QCOMPARE(errorOf([&] { toolkit::copyFile(from, path(u"no/b.xls"_s)); }), 76);
}

void TestFileSystem::copyingWithoutRightsFails()
{
    const QString from = make(u"a.xls"_s);
    QFile::setPermissions(m_folder->path(),
                          QFile::ReadOwner | QFile::ExeOwner | QFile::ReadGroup | QFile::ExeGroup
                              | QFile::ReadOther | QFile::ExeOther);
    {
        const WithoutRoot user;
        QCOMPARE(errorOf([&] { toolkit::copyFile(from, path(u"b.xls"_s)); }), 70);
    }
    QFile::setPermissions(from, QFile::Permissions());
    {
        const WithoutRoot user;
        QCOMPARE(errorOf([&] { toolkit::copyFile(from, path(u"b.xls"_s)); }), 70);
    }
    QFile::setPermissions(m_folder->path(), QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    QVERIFY(!QFile::exists(path(u"b.xls"_s)));
}

void TestFileSystem::copyingToAFullFileSystemKeepsTheOldTarget()
{
    // The last one stays in a buffer until the end.
    for (const auto& [size, room] :
         {std::pair<qsizetype, rlim_t>{3'000'000, 2'000'000}, {500, 100}}) {
        const QString from = make(u"a.xls"_s, QByteArray(size, 'x'));
        const QString to = make(u"b.xls"_s, "old");
        {
            const FileSizeLimit limit(room);
            QCOMPARE(errorOf([&] { toolkit::copyFile(from, to); }), 61);
        }
        QCOMPARE(read(to), QByteArray("old"));
    }
    QCOMPARE(QDir(m_folder->path()).entryList(QDir::Files), (QStringList{u"a.xls"_s, u"b.xls"_s}));
}

void TestFileSystem::aFileIsDeleted()
{
    const QString a = make(u"a"_s);
    toolkit::deleteFile(a);
    QVERIFY(!QFile::exists(a));
}

void TestFileSystem::deletingAMissingFileFails()
{
    QCOMPARE(errorOf([&] { toolkit::deleteFile(path(u"gone"_s)); }), 53);
    QCOMPARE(errorOf([&] { toolkit::deleteFile(path(u"no/gone"_s)); }), 76);
    QCOMPARE(errorOf([&] { toolkit::deleteFile(m_folder->path()); }), 53);
}

void TestFileSystem::deletingAReadOnlyFileFails()
{
    const QString a = make(u"a"_s);
    QVERIFY(QFile::setPermissions(a, QFile::ReadOwner));
    QCOMPARE(errorOf([&] { toolkit::deleteFile(a); }), 70);
    QVERIFY(QFile::exists(a));
}

void TestFileSystem::deletingWithoutRightsFails()
{
    const QString a = make(u"a"_s);
    ::chmod(m_folder->path().toUtf8().constData(), 0555);
    {
        const WithoutRoot user;
        QCOMPARE(errorOf([&] { toolkit::deleteFile(a); }), 70);
    }
    QVERIFY(QFile::exists(a));
    ::chmod(m_folder->path().toUtf8().constData(), 0700);
}

QTEST_GUILESS_MAIN(TestFileSystem)
#include "tst_file_system.moc"
