// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
//
// The logo of 100 datasheets. The floor loads and stores the same files in one instance of the
// spreadsheet application that is running already, while ours starts its own and ends it. Once
// more with windows on a display, as the user sees it, which the floor then has too.
#include "app/program.h"
#include "app/state.h"
#include "bench_data.h"
#include "datasheets/logo_run.h"
#include "index/frmIndex.h"
#include "measure.h"
#include "office/office_display.h"
#include "spreadsheet/host.h"
#include "store/database.h"
#include "support/scripted_prompts.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QImage>
#include <QTemporaryDir>
#include <QTest>

using namespace Qt::StringLiterals;
using ostrand::spreadsheet::SaveChanges;

namespace ostrand::bench {
namespace {

constexpr int tagCount = 10'000;
constexpr int sheetCount = 100;
constexpr int runs = 3;
const QString templateName = u"Templates/DS_PT.xlt"_s;

class Logos
{
public:
    explicit Logos(bool headless)
        : m_prompts(tests::installScriptedPrompts()),
          m_headless(headless)
    {
        const QDir bin(QCoreApplication::applicationDirPath());
        spreadsheet::setHostSettings({.folder = bin.path(), .headless = headless});
        const QString project = m_folder.filePath(u"project.mdb"_s);
        if (!QFile::copy(projectOf(tagCount), project))
            qFatal("cannot copy the project");
        QDir(m_folder.path()).mkdir(u"sheets"_s);
        makeSheets(bin.filePath(templateName));
        nameFiles(project);
        auto window = std::make_unique<index::frmIndex>();
        window->show();
        window->OpenIndex(project);
        app::g_frmIndex = std::move(window);
        QTest::qWait(100);
    }
    ~Logos()
    {
        app::g_frmIndex.reset();
        spreadsheet::endHost();
    }
    Logos(const Logos&) = delete;
    Logos& operator=(const Logos&) = delete;

    double replace()
    {
        const double taken = millisecondsOf([] { datasheets::mnuSetupDatasheets({}); });
        const QStringList texts = m_prompts.takeTexts();
        if (texts != QStringList{u"Datasheet logo operation completed"_s})
            qFatal("%s", qPrintable(texts.join(u'\n')));
        return taken;
    }

    double floor() const
    {
        const auto application = spreadsheet::CreateObject();
        application->setVisible(!m_headless);
        const double taken = millisecondsOf([&] {
            for (int i = 0; i < sheetCount; ++i) {
                const auto book = application->Open(sheetFile(i));
                book->Save();
                book->Close(SaveChanges::No);
            }
        });
        application->Quit();
        return taken;
    }

private:
    QString sheetFile(int number) const
    {
        return m_folder.filePath(u"sheets/PT-%1.xls"_s.arg(1000 + number));
    }

    void makeSheets(const QString& made) const
    {
        const auto application = spreadsheet::CreateObject();
        const auto book = application->Open(made);
        book->SaveCopyAs(sheetFile(0));
        book->Close(SaveChanges::No);
        application->Quit();
        for (int i = 1; i < sheetCount; ++i)
            QFile::copy(sheetFile(0), sheetFile(i));
    }

    /// The logo is as large a picture as the one that lies in the templates.
    void nameFiles(const QString& project) const
    {
        const QString logo = m_folder.filePath(u"logo.png"_s);
        QImage image(800, 160, QImage::Format_RGB32);
        for (int x = 0; x < image.width(); ++x) {
            for (int y = 0; y < image.height(); ++y)
                image.setPixel(x, y, qRgb(x / 4, y, 120));
        }
        if (!image.save(logo))
            qFatal("the logo was not written");
        const auto database = store::DBEngine::OpenDatabase(project);
        const auto attribute = [&](const QString& name, const QString& value) {
            database.Execute(u"update qryProjectInfo set attributeValue = '"_s + value
                             + u"' where attributeName = '"_s + name + u'\'');
        };
        attribute(u"DefaultDatasheetFolder"_s, m_folder.filePath(u"sheets"_s));
        attribute(u"Logo file"_s, logo);
    }

    tests::ScriptedPrompts& m_prompts;
    bool m_headless;
    QTemporaryDir m_folder;
};

void compare(const QString& bench, bool headless)
{
    Logos logos(headless);
    logos.floor(); // what is read for the first time
    const Pair pair = middleOf(
        runs, [&] { return logos.replace(); }, [&] { return logos.floor(); });
    report(bench, pair, u"ms"_s);
}

} // namespace

void runLogoBenches(const QString& only)
{
    if (asked(only, u"logo-100"_s))
        compare(u"logo-100"_s, true);
    if (asked(only, u"logo-100-shown"_s)) {
        const tests::OfficeDisplay display;
        compare(u"logo-100-shown"_s, false);
    }
}

} // namespace ostrand::bench
