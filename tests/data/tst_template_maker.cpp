// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
//
// The maker of the template workbooks meets faulty input. It tells the file and the line, and
// leaves nothing.
#include <QDir>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

/// A copy of the data files, and a folder for what is made of them.
class Scratch
{
public:
    Scratch()
    {
        for (const auto& file : {u"template/seed/DatasheetTypes.csv"_s,
                                 u"template/seed/DtShtWorksheets.csv"_s,
                                 u"template/seed/Map.csv"_s,
                                 u"templates/echoes.csv"_s,
                                 u"templates/lines.csv"_s,
                                 u"templates/pid_map.csv"_s}) {
            QDir(m_folder.path()).mkpath(QFileInfo(file).path());
            QFile::copy(QStringLiteral(OSTRAND_DATA_DIR "/") + file, path(file));
            QFile::setPermissions(path(file), QFile::ReadOwner | QFile::WriteOwner);
        }
        QDir(m_folder.path()).mkdir(u"out"_s);
    }

    QString path(const QString& name) const { return m_folder.filePath(name); }

    void append(const QString& name, const QByteArray& line) const
    {
        QFile file(path(name));
        if (!file.open(QIODevice::Append) || file.write(line + '\n') < 0)
            qFatal("the data file was not written");
    }

    /// What the program complains about.
    static QString complaint(const QStringList& words, int result)
    {
        QProcess maker;
        maker.start(QStringLiteral(OSTRAND_BIN_DIR "/ostrand-make-templates"), words);
        maker.waitForFinished();
        if (maker.exitStatus() != QProcess::NormalExit || maker.exitCode() != result)
            return u"it ended with %1"_s.arg(maker.exitCode());
        return QString::fromUtf8(maker.readAllStandardError()).trimmed();
    }
    QString complaint() const { return complaint({m_folder.path(), path(u"out"_s)}, 1); }

    bool isOutEmpty() const
    {
        return QDir(path(u"out"_s)).isEmpty(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot);
    }

private:
    QTemporaryDir m_folder;
};

} // namespace

class TestTemplateMaker : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    static void faultyDataIsNamedAndNothingIsMade_data()
    {
        QTest::addColumn<QString>("file");
        QTest::addColumn<QByteArray>("line");
        QTest::addColumn<QString>("complaint");
        QTest::newRow("an unknown type")
            << u"templates/lines.csv"_s << QByteArray("SUNDIAL,GENERAL,1,Tag number,,1")
            << u"lines.csv:750: unknown datasheet type SUNDIAL"_s;
        QTest::newRow("a line out of order")
            << u"templates/lines.csv"_s << QByteArray("ANALYZER,GENERAL,5,Tag number,,1")
            << u"lines.csv:750: the lines are not numbered one by one"_s;
        QTest::newRow("a line below the form")
            << u"templates/lines.csv"_s << QByteArray("ANALYZER,GENERAL,57,Tag number,,1")
            << u"lines.csv:750: Line is out of range"_s;
        QTest::newRow("four values")
            << u"templates/lines.csv"_s << QByteArray("ANALYZER,GENERAL,48,Tag number,,4")
            << u"lines.csv:750: ValueCells is out of range"_s;
        QTest::newRow("a value with two places")
            << u"template/seed/Map.csv"_s << QByteArray("ANALYZER,NOTES,H6,REQUISITION,document")
            << u"Map.csv:476: REQUISITION is mapped a second time"_s;
        QTest::newRow("a place for a value that no cell holds")
            << u"templates/echoes.csv"_s << QByteArray("NOTES,H3,document,SKETCH")
            << u"echoes.csv:14: SKETCH is not mapped for PRESSURE TRANSMITTER"_s;
        QTest::newRow("a place that is no number")
            << u"template/seed/DtShtWorksheets.csv"_s
            << QByteArray("ANALYZER,NOTES,A1,left,2,B14,False")
            << u"DtShtWorksheets.csv:32: DeltaX is no number"_s;
    }
    static void faultyDataIsNamedAndNothingIsMade()
    {
        QFETCH(const QString, file);
        QFETCH(const QByteArray, line);
        QFETCH(const QString, complaint);
        const Scratch scratch;
        scratch.append(file, line);
        QCOMPARE(scratch.complaint(), u"ostrand-make-templates: "_s + complaint);
        QVERIFY(scratch.isOutEmpty());
    }

    static void aSheetThatIsNotThereLeavesNothing()
    {
        const Scratch scratch;
        scratch.append(u"template/seed/DtShtWorksheets.csv"_s,
                       "PRESSURE TRANSMITTER,COVER,A1,2,2,B14,False");
        QCOMPARE(scratch.complaint(), u"ostrand-make-templates: Subscript out of range"_s);
        QVERIFY(scratch.isOutEmpty());
    }

    static void aMissingFolderIsTold()
    {
        const Scratch scratch;
        const QString nowhere = scratch.path(u"nowhere"_s);
        QCOMPARE(Scratch::complaint({QStringLiteral(OSTRAND_DATA_DIR), nowhere}, 1),
                 u"ostrand-make-templates: the folder %1 can't be written"_s.arg(nowhere));
    }

    static void aCommandLineOfNoUseIsExplained()
    {
        QVERIFY(Scratch::complaint({}, 2).startsWith(u"usage: ostrand-make-templates DATA OUT"_s));
    }
};

QTEST_GUILESS_MAIN(TestTemplateMaker)
#include "tst_template_maker.moc"
