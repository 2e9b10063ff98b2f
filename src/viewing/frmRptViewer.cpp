// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "viewing/frmRptViewer.h"

#include "app/help.h"
#include "app/state.h"
#include "datasheets/failure.h"
#include "toolkit/busy_pointer.h"
#include "toolkit/named.h"
#include "toolkit/prompts.h"
#include "toolkit/twips.h"
#include "viewing/reports/definitions/definitions.h"

#include <QHideEvent>
#include <QScreen>
#include <QSettings>
#include <QShortcut>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;
using ostrand::datasheets::currentFailure;
using ostrand::store::Error;
using ostrand::toolkit::named;
using ostrand::toolkit::px;

namespace ostrand::viewing {
namespace {

constexpr int designWidth = 15000;
constexpr int designHeight = 11000;
constexpr int firstReport = 1;
constexpr int lastReport = 4;
constexpr int alreadyShown = 400;
/// Left free around the window on a screen that is smaller than the design.
constexpr QSize screenMargin(40, 80);
const QString geometryKey = u"Windows/frmRptViewer"_s;

} // namespace

frmRptViewer::frmRptViewer(QWidget* parent)
    : QDialog(parent),
      m_CRViewer1(named(new ReportViewer(this), u"CRViewer1"_s))
{
    setObjectName(u"frmRptViewer"_s);
    setWindowTitle(tr("Report Viewer"));
    setWindowFlag(Qt::WindowMaximizeButtonHint);
    setModal(true);
    // Its minimum follows the viewer's, which another report may change.
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_CRViewer1);
    const auto* help = new QShortcut(QKeySequence(u"F1"_s), this);
    connect(help, &QShortcut::activated, this, [this] {
        app::ShowHelpTopic(this, app::helpTopicManual(), true);
    });
    restoreKeptGeometry();
}

void frmRptViewer::ShowInfo(int number)
{
    try {
        if (isVisible())
            throw Error(alreadyShown, tr("The window is shown already."));
        m_report.reset();
        if (number >= firstReport && number <= lastReport)
            m_report = std::make_shared<Report>(reports::reportForms(number));
        load();
        exec();
    } catch (...) {
        toolkit::showFailure(
            toolkit::formA(tr("Error while loading documet reference window."), currentFailure()));
    }
}

void frmRptViewer::load()
{
    try {
        m_CRViewer1->clear();
        if (!m_report)
            throw Error(store::errors::objectNotSet,
                        tr("Object variable or With block variable not set"));
        for (reports::Description& form : *m_report)
            reports::setLocation(form, app::g_strIndexFile);
        const toolkit::BusyPointer hourglass;
        m_CRViewer1->setReportSource(m_report);
        m_CRViewer1->ViewReport();
    } catch (...) {
        toolkit::showFailure(
            toolkit::formB(tr("Error while loading report viewer. "), currentFailure()));
    }
}

/// A report lives as long as it is seen.
void frmRptViewer::hideEvent(QHideEvent* event)
{
    QDialog::hideEvent(event);
    if (event->spontaneous())
        return;
    QSettings().setValue(geometryKey, saveGeometry());
    m_CRViewer1->clear();
    m_report.reset();
}

void frmRptViewer::restoreKeptGeometry()
{
    // Qt pulls a window back that would open off the screens of today.
    if (restoreGeometry(QSettings().value(geometryKey).toByteArray()))
        return;
    const QSize room = screen()->availableSize() - screenMargin;
    resize(QSize(px(designWidth, this), px(designHeight, this)).boundedTo(room));
}

} // namespace ostrand::viewing
