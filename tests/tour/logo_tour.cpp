// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "logo_tour.h"

#include "app/state.h"
#include "camera.h"
#include "datasheets/cXlHndlr.h"
#include "index/frmIndex.h"
#include "office/office_display.h"
#include "spreadsheet/host.h"
#include "store/database.h"
#include "toolkit/paths.h"

#include <QAction>
#include <QDir>
#include <QImage>
#include <QMessageBox>
#include <QPainter>
#include <QProgressBar>
#include <QPushButton>
#include <QTest>
#include <QTimer>

using namespace Qt::StringLiterals;

namespace ostrand::tour {
namespace {

constexpr int paintingMs = 1500;
const QStringList tags{u"LOGO-1"_s, u"LOGO-2"_s, u"LOGO-3"_s, u"LOGO-4"_s};

void setLogo(const QString& file)
{
    store::DBEngine::OpenDatabase(app::g_strIndexFile)
        .Execute(u"update qryProjectInfo set attributeValue = '"_s + file
                 + u"' where attributeName = 'Logo file'"_s);
}

/// A company's logo, wider than its room.
QString paintLogo(const QString& folder)
{
    QImage image(1600, 300, QImage::Format_RGB32);
    image.fill(Qt::white);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setBrush(QColor(0xb0, 0x3a, 0x2e));
    painter.setPen(Qt::NoPen);
    painter.drawPolygon(QPolygon({{40, 260}, {170, 30}, {300, 260}}));
    QFont font = painter.font();
    font.setPixelSize(150);
    font.setBold(true);
    painter.setFont(font);
    painter.setPen(QColor(0x33, 0x33, 0x33));
    painter.drawText(QRect(360, 0, 1200, 300), Qt::AlignVCenter, u"CORMORANT"_s);
    painter.end();
    QString file = folder + u"/cormorant.jpg"_s;
    if (!image.save(file))
        qFatal("the logo could not be written");
    return file;
}

class LogoTour
{
public:
    LogoTour(const Camera& camera, index::frmIndex& window)
        : m_camera(camera),
          m_window(window),
          m_folder(toolkit::filePath(window.FolderDatasheets()))
    {
    }

    void ask()
    {
        setLogo(m_folder + u"/nowhere.gif"_s);
        m_camera.pictureOfNextModal(u"logo-question"_s, [this](QDialog& modal) {
            m_camera.pictureOfNextModal(u"logo-cancelled"_s, [](QDialog& box) { box.reject(); });
            qobject_cast<QMessageBox*>(&modal)->button(QMessageBox::Cancel)->click();
        });
        replace();
    }

    void makeDatasheets() const
    {
        for (const QString& tag : tags) {
            if (!datasheets::xlHndlr().CopySprSht(u"DS_PT.xlt"_s, sheetFile(tag)))
                qFatal("no datasheet could be made");
        }
    }

    void show(const QString& name) const
    {
        const auto application = spreadsheet::CreateObject();
        application->setVisible(true);
        const auto book = application->Open(sheetFile(tags.front()));
        QTest::qWait(paintingMs);
        m_camera.takeScreen(name);
        book->Close(spreadsheet::SaveChanges::No);
    }

    /// Pictures between two workbooks, with one open, and of the closing message.
    void run()
    {
        setLogo(paintLogo(m_camera.folder()));
        auto* progress = m_window.findChild<QProgressBar*>(u"Progress"_s);
        QObject meanwhile; // ends the watch with the run
        QObject::connect(progress, &QProgressBar::valueChanged, &meanwhile, [&](int value) {
            if (value == 1)
                QTimer::singleShot(
                    0, &meanwhile, [this] { m_camera.take(u"logo-running"_s, &m_window); });
        });
        QTimer look;
        look.callOnTimeout(&meanwhile, [this] { takeWorkbook(); });
        look.start(50);
        m_camera.takeModal(u"logo-done"_s, [this] { replace(); });
    }

    void dropDatasheets() const
    {
        for (const QString& tag : tags)
            QFile::remove(sheetFile(tag));
    }

private:
    QString sheetFile(const QString& tag) const { return m_folder + u'/' + tag + u".xls"_s; }
    /// The window of a workbook that the run has open, when it shows.
    void takeWorkbook()
    {
        if (m_hasTaken || !tests::OfficeDisplay::windows().join(u'\n').contains(tags[2]))
            return;
        m_hasTaken = true;
        QTest::qWait(paintingMs);
        m_camera.takeScreen(u"logo-workbook"_s);
    }
    void replace() { m_window.findChild<QAction*>(u"mnuSetupDatasheets"_s)->trigger(); }

    const Camera& m_camera;
    index::frmIndex& m_window;
    QString m_folder;
    bool m_hasTaken = false;
};

} // namespace

void tourLogo(const Camera& camera, index::frmIndex& window)
{
    LogoTour tour(camera, window);
    tour.makeDatasheets();
    tour.ask();
    if (camera.isFirst()) {
        tour.show(u"logo-before"_s);
        tour.run();
        tour.show(u"logo-after"_s);
    }
    tour.dropDatasheets();
}

} // namespace ostrand::tour
