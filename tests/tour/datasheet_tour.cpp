// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "datasheet_tour.h"

#include "camera.h"
#include "datasheets/cXlHndlr.h"
#include "index/frmIndex.h"
#include "office/office_display.h"
#include "toolkit/data_grid.h"

#include <QDir>
#include <QMessageBox>
#include <QProcess>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTest>
#include <QUrl>

using namespace Qt::StringLiterals;
using ostrand::tests::OfficeDisplay;

namespace ostrand::tour {
namespace {

constexpr int patienceMs = 30000;
constexpr int paintingMs = 1500;
const QString windowTitle = u"LibreOffice Calc"_s;
const QString tag = u"PT-1001"_s;
const QString editedCell = u"DATASHEET.D60"_s; ///< the manufacturer
constexpr int makerColumn = 6;                 ///< of the grid
const QString newMaker = u"Halden Instruments"_s;

void require(bool done, const char* what)
{
    if (!done)
        qFatal("the tour waited in vain: %s", what);
}

class DatasheetTour
{
public:
    DatasheetTour(const Camera& camera, index::frmIndex& window)
        : m_camera(camera),
          m_window(window),
          m_grid(*window.findChild<toolkit::DataGrid*>(u"GridIndex"_s)),
          m_button(*window.findChild<QPushButton*>(u"cmdDatasheet"_s))
    {
        m_window.dbIndex().Recordset().FindFirst(u"[Tag] = '"_s + tag + u"'"_s);
        Camera::settle();
    }

    void chooseType()
    {
        m_camera.takeModal(u"datasheet-type"_s, [this] { m_button.click(); });
    }

    void makeAndOpen()
    {
        m_camera.pictureOfNextModal(u"datasheet-type"_s, [](QDialog& modal) {
            modal.findChild<QPushButton*>(u"cmdSelect"_s)->click();
        });
        m_button.click();
        require(datasheets::xlHndlr().XlAlreadyOpen(), "the datasheet opens");
        QTest::qWait(paintingMs);
        m_camera.takeScreen(u"datasheet"_s);
    }

    void editAndSave()
    {
        OfficeDisplay::bringUp(windowTitle);
        OfficeDisplay::press({u"ctrl+shift+t"_s, u"ctrl+a"_s});
        OfficeDisplay::type(editedCell);
        OfficeDisplay::press({u"Return"_s});
        OfficeDisplay::type(newMaker);
        OfficeDisplay::press({u"Return"_s});
        QTest::qWait(paintingMs);
        m_camera.takeScreen(u"datasheet-edited"_s);

        bool answered = false;
        m_camera.pictureOfNextModal(u"datasheet-question"_s, [&answered](QDialog& modal) {
            answered = true;
            qobject_cast<QMessageBox*>(&modal)->button(QMessageBox::Yes)->click();
        });
        OfficeDisplay::press({u"ctrl+s"_s});
        require(QTest::qWaitFor([&answered] { return answered; }, patienceMs), "the question");
        QTest::qWait(paintingMs);
        m_camera.takeScreen(u"datasheet-saved"_s);
    }

    void close()
    {
        OfficeDisplay::bringUp(windowTitle);
        OfficeDisplay::press({u"ctrl+w"_s});
        require(QTest::qWaitFor([] { return !datasheets::xlHndlr().XlAlreadyOpen(); }, patienceMs),
                "the datasheet closes");
        m_grid.setCurrentIndex(m_grid.model()->index(m_grid.currentIndex().row(), makerColumn));
        Camera::settle();
        m_camera.take(u"index-after-datasheet"_s, &m_window);
    }

private:
    const Camera& m_camera;
    index::frmIndex& m_window;
    toolkit::DataGrid& m_grid;
    QPushButton& m_button;
};

void runProgram(const QString& program, const QStringList& words)
{
    QProcess process;
    process.setStandardOutputFile(QProcess::nullDevice());
    process.setStandardErrorFile(QProcess::nullDevice());
    process.start(program, words);
    require(process.waitForFinished(4 * patienceMs) && process.exitCode() == 0,
            qPrintable(program));
}

/// The templates as they print, and a picture of each first page.
void printTemplates(const Camera& camera)
{
    const QDir templates(QCoreApplication::applicationDirPath() + u"/Templates"_s);
    const QDir prints(camera.folder() + u"/templates"_s);
    const QTemporaryDir profile;
    QStringList words{u"-env:UserInstallation="_s
                          + QUrl::fromLocalFile(profile.path()).toString(QUrl::FullyEncoded),
                      u"--headless"_s,
                      u"--convert-to"_s,
                      u"pdf"_s,
                      u"--outdir"_s,
                      prints.path()};
    for (const QFileInfo& file : templates.entryInfoList({u"*.xlt"_s}))
        words << file.filePath();
    runProgram(u"" OSTRAND_LIBREOFFICE "/program/soffice"_s, words);
    for (const QFileInfo& pdf : prints.entryInfoList({u"*.pdf"_s})) {
        runProgram(u"pdftoppm"_s,
                   {u"-png"_s,
                    u"-r"_s,
                    u"80"_s,
                    u"-singlefile"_s,
                    pdf.filePath(),
                    prints.filePath(pdf.baseName())});
    }
}

} // namespace

void tourDatasheet(const Camera& camera, index::frmIndex& window)
{
    DatasheetTour tour(camera, window);
    if (!camera.isFirst()) {
        tour.chooseType();
        return;
    }
    tour.makeAndOpen();
    tour.editAndSave();
    tour.close();
    printTemplates(camera);
}

} // namespace ostrand::tour
