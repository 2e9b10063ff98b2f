// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "report_tour.h"

#include "app/state.h"
#include "camera.h"
#include "index/frmIndex.h"
#include "viewing/page_flow.h"
#include "viewing/report_viewer.h"
#include "viewing/reports/definitions/definitions.h"
#include "viewing/reports/pages.h"
#include "viewing/reports/pdf.h"
#include "viewing/reports/report_data.h"

#include <QAction>
#include <QComboBox>
#include <QLineEdit>
#include <QTest>

using namespace Qt::StringLiterals;

namespace ostrand::tour {
namespace {

struct ReportStop
{
    const char* entry;
    const char* picture;
    int number;
};

constexpr ReportStop stops[] = {{"mnuReportIndex", "index", 2},
                                {"mnuReportAlarmSum", "alarm", 1},
                                {"mnuReportInstallationDetails", "installation", 4},
                                {"mnuReportMaintenance", "maintenance", 3}};

/// Looks for a text, at the usual size, so that its places show.
void search(QDialog& window)
{
    auto* field = window.findChild<QLineEdit*>(u"txtFind"_s);
    field->setFocus();
    QTest::keyClicks(field, u"PIC-"_s);
    QTest::keyClick(field, Qt::Key_Return);
    QTest::keyClick(&window, Qt::Key_0, Qt::ControlModifier);
    QTest::keyClick(field, Qt::Key_F3);
    Camera::settle();
}

void look(const Camera& camera, index::frmIndex& window, const ReportStop& stop)
{
    const QString picture = u"report-viewer-"_s + QString::fromLatin1(stop.picture);
    camera.pictureOfNextModal(picture, [&](QDialog& viewer) {
        if (stop.number == 2) {
            search(viewer);
            camera.take(picture + u"-search"_s, &viewer);
        }
        viewer.close();
    });
    window.findChild<QAction*>(QString::fromLatin1(stop.entry))->trigger();
}

void save(const Camera& camera, const viewing::reports::Description& form, const QString& more)
{
    auto report = std::make_shared<viewing::reports::Description>(form);
    viewing::reports::setLocation(*report, app::g_strIndexFile);
    viewing::reports::Pages pages(report, viewing::reports::read(*report));
    viewing::reports::writePdf(pages, camera.folder() + u'/' + form.title + more + u".pdf"_s);
}

} // namespace

void tourReports(const Camera& camera, index::frmIndex& window)
{
    for (const ReportStop& stop : stops) {
        look(camera, window, stop);
        if (!camera.isFirst())
            continue;
        const auto forms = viewing::reports::reportForms(stop.number);
        for (const viewing::reports::Description& form : forms)
            save(camera, form, forms.size() > 1 ? u" - "_s + form.form : QString());
    }
}

} // namespace ostrand::tour
