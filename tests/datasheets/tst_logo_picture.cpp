// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
//
// Which files of a logo are good enough for many workbooks.
#include "datasheets/logo_picture.h"
#include "spreadsheet/error.h"

#include <QFile>
#include <QImage>
#include <QTemporaryDir>
#include <QTest>

using namespace Qt::StringLiterals;
using namespace ostrand;
using datasheets::LogoPicture;
using datasheets::scaleToFit;

namespace {

/// 8 by 8 pixels with a palette of two colours.
const QByteArray gif =
    QByteArray::fromHex("47494638396108000800800000000000ffffff2c00000000080008000002"
                        "07848fa9cbed5d00003b");

bool isTaken(LogoPicture& picture, const QString& file)
{
    try {
        picture.require(file);
        return true;
    } catch (const spreadsheet::Error& error) {
        if (error.number() != 1004 || !error.description().contains(file))
            qFatal("%s", error.what());
        return false;
    }
}

} // namespace

class TestLogoPicture : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void picturesOfTheUsualKindsAreTaken_data() { kinds(); }
    void picturesOfTheUsualKindsAreTaken();
    void halfAPictureIsRefused_data() { kinds(); }
    void halfAPictureIsRefused();
    void aPictureWithoutItsEndIsRefused();
    void whatCannotBeReadHereIsLeftToTheApplication();
    void whatIsNoFileIsRefused();
    void aPictureThatIsFarTooLargeIsRefused();
    void aFileThatChangesIsLookedAtAgain();
    void aLargePictureIsScaledByItsTighterSide();

private:
    static void kinds()
    {
        QTest::addColumn<QString>("name");
        for (const char* name : {"a.jpg", "a.png", "a.bmp", "a.gif"})
            QTest::newRow(name) << QString::fromLatin1(name);
    }
    QString write(const QString& name, const QByteArray& content) const
    {
        QFile file(m_folder.filePath(name));
        if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size())
            qFatal("the file was not written");
        return file.fileName();
    }
    QByteArray contentOf(const QString& name) const
    {
        if (name.endsWith(u".gif"_s))
            return gif;
        QImage image(120, 80, QImage::Format_RGB32);
        for (int x = 0; x < image.width(); ++x) {
            for (int y = 0; y < image.height(); ++y)
                image.setPixel(x, y, qRgb(x * y % 256, x * 7 % 256, y * 13 % 256));
        }
        QFile file(m_folder.filePath(u"whole-"_s + name));
        if (!image.save(file.fileName()) || !file.open(QIODevice::ReadOnly))
            qFatal("the picture was not written");
        return file.readAll();
    }

    QTemporaryDir m_folder;
};

void TestLogoPicture::picturesOfTheUsualKindsAreTaken()
{
    QFETCH(QString, name);
    LogoPicture picture;
    QVERIFY(isTaken(picture, write(name, contentOf(name))));
}

/// A bitmap's half is left to the spreadsheet application, which refuses it.
void TestLogoPicture::halfAPictureIsRefused()
{
    QFETCH(QString, name);
    if (name == u"a.bmp"_s)
        return;
    const QByteArray whole = contentOf(name);
    LogoPicture picture;
    QVERIFY(!isTaken(picture, write(name, whole.left(whole.size() / 2))));
    QVERIFY(!isTaken(picture, write(name, {})));
}

void TestLogoPicture::aPictureWithoutItsEndIsRefused()
{
    for (const QString& name : {u"a.jpg"_s, u"a.gif"_s}) {
        const QByteArray whole = contentOf(name);
        LogoPicture picture;
        QVERIFY(!isTaken(picture, write(name, whole.left(whole.size() - 1))));
        QVERIFY(isTaken(picture, write(name, whole + QByteArray(40, '\0'))));
    }
}

void TestLogoPicture::whatCannotBeReadHereIsLeftToTheApplication()
{
    LogoPicture picture;
    QVERIFY(isTaken(picture, write(u"text.gif"_s, "no picture at all")));
}

void TestLogoPicture::whatIsNoFileIsRefused()
{
    LogoPicture picture;
    QVERIFY(!isTaken(picture, m_folder.path()));
    QVERIFY(!isTaken(picture, m_folder.filePath(u"missing.png"_s)));
    QVERIFY(!isTaken(picture, QString()));
}

void TestLogoPicture::aPictureThatIsFarTooLargeIsRefused()
{
    const QString file = m_folder.filePath(u"large.png"_s);
    {
        QImage image(20000, 20000, QImage::Format_Mono);
        image.fill(1);
        QVERIFY(image.save(file));
    }
    LogoPicture picture;
    QVERIFY(!isTaken(picture, file));
    QVERIFY(!isTaken(picture, write(u"fat.gif"_s, gif + QByteArray(65 << 20, ' '))));
}

void TestLogoPicture::aFileThatChangesIsLookedAtAgain()
{
    LogoPicture picture;
    const QByteArray whole = contentOf(u"a.jpg"_s);
    const QString file = write(u"a.jpg"_s, whole);
    QVERIFY(isTaken(picture, file));
    write(u"a.jpg"_s, whole.left(whole.size() / 2));
    QVERIFY(!isTaken(picture, file));
    QVERIFY(!isTaken(picture, file));
    write(u"a.jpg"_s, whole);
    QVERIFY(isTaken(picture, file));
    QFile::remove(file);
    QVERIFY(!isTaken(picture, file));
}

void TestLogoPicture::aLargePictureIsScaledByItsTighterSide()
{
    QCOMPARE(scaleToFit({400, 40}, {200, 40}), 0.5);
    QCOMPARE(scaleToFit({400, 400}, {200, 40}), 0.1);
    QCOMPARE(scaleToFit({200, 40}, {200, 40}), 1.0);
    QCOMPARE(scaleToFit({10, 10}, {200, 40}), 1.0);
    QCOMPARE(scaleToFit({0, 10}, {200, 40}), 1.0);
}

QTEST_GUILESS_MAIN(TestLogoPicture)
#include "tst_logo_picture.moc"
