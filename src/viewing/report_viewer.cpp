// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "viewing/report_viewer.h"

#include "datasheets/failure.h"
#include "toolkit/busy_pointer.h"
#include "toolkit/named.h"
#include "toolkit/prompts.h"
#include "viewing/page_flow.h"
#include "viewing/report_preview.h"
#include "viewing/report_search.h"
#include "viewing/report_toolbar.h"
#include "viewing/search_bar.h"
#include "viewing/spoken_label.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QProgressBar>
#include <QShortcut>
#include <QVBoxLayout>

#include <limits>

using namespace Qt::StringLiterals;
using ostrand::toolkit::named;

namespace ostrand::viewing {
namespace {

constexpr int barMargin = 6;
constexpr int progressCharacters = 14;
constexpr int firstTurnMs = 20;

} // namespace

ReportViewer::ReportViewer(QWidget* parent)
    : QWidget(parent),
      m_flow(new PageFlow(this)),
      m_search(new ReportSearch(this)),
      m_toolBar(named(new ReportToolBar({.print = [this] { print(); },
                                         .savePdf = [this] { savePdf(); },
                                         .firstPage = [this] { m_preview->goToPage(0); },
                                         .lastPage = [this] { goToLastPage(); },
                                         .goToPage = [this](int page) { goToPage(page); },
                                         .zoomStep = [this](bool on) { m_preview->zoomStep(on); },
                                         .showForm = [this](int form) { chooseForm(form); }},
                                        this),
                      u"ToolBar"_s)),
      m_preview(named(new ReportPreview(this), u"Pages"_s)),
      m_searchBar(named(new SearchBar(
                            *m_search, [this] { return m_preview->currentPage(); }, this),
                        u"SearchBar"_s)),
      m_lblStatus(named(new QLabel(this), u"lblStatus"_s)),
      m_progress(named(new QProgressBar(this), u"Progress"_s)),
      m_output(*m_flow, this)
{
    build();
    connectParts();
    addShortcuts();
    say(QString());
}

ReportViewer::~ReportViewer() = default;

void ReportViewer::build()
{
    m_preview->setAccessibleName(tr("Pages of the report"));
    m_preview->setSearch(m_search);
    m_lblStatus->setTextFormat(Qt::PlainText);
    m_lblStatus->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    m_lblStatus->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    m_progress->setAccessibleName(tr("Progress"));
    m_progress->setRange(0, 0);
    m_progress->setTextVisible(false);
    m_progress->setFixedWidth(fontMetrics().averageCharWidth() * progressCharacters);
    m_progress->hide();

    auto* below = new QHBoxLayout;
    below->setContentsMargins(barMargin, barMargin, barMargin, barMargin);
    below->addWidget(m_searchBar);
    below->addSpacing(barMargin);
    below->addWidget(m_lblStatus, 1);
    below->addWidget(m_progress);
    m_toolBar->layout()->setContentsMargins(barMargin, barMargin, barMargin, barMargin);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(m_toolBar);
    layout->addWidget(m_preview, 1);
    layout->addLayout(below);
    m_preview->setFocus();
}

void ReportViewer::connectParts()
{
    connect(m_flow, &PageFlow::grown, this, &ReportViewer::showPages);
    connect(m_flow, &PageFlow::failed, this, &ReportViewer::layoutFailed);
    connect(m_search, &ReportSearch::arrived, this, &ReportViewer::showHit);
    connect(m_search, &ReportSearch::changed, m_preview, &ReportPreview::showPlaces);
    const auto goToPages = [this] { m_preview->setFocus(); };
    connect(m_searchBar, &SearchBar::left, this, goToPages);
    connect(m_toolBar, &ReportToolBar::left, this, goToPages);
    connect(m_preview, &ReportPreview::currentPageChanged, this, &ReportViewer::showPageNumber);
    connect(m_preview, &ReportPreview::zoomChanged, this, &ReportViewer::showZoom);
    connect(&m_toolBar->zoomBox(), &ZoomBox::chosen, m_preview, &ReportPreview::setZoom);
}

void ReportViewer::addShortcuts()
{
    const auto onKeys = [this](const QString& keys, auto handler) {
        auto* shortcut = new QShortcut(QKeySequence(keys), this);
        connect(shortcut, &QShortcut::activated, this, handler);
    };
    onKeys(u"Ctrl+F"_s, [this] { m_searchBar->start(); });
    onKeys(u"Ctrl+0"_s, [this] { m_preview->setZoom({Zoom::Kind::Percent}); });
}

// ---- the report

void ReportViewer::setReportSource(std::shared_ptr<const Report> report)
{
    clear();
    m_report = std::move(report);
    QStringList forms;
    for (const reports::Description& form : *m_report)
        forms << form.form;
    m_toolBar->setForms(forms);
}

void ReportViewer::ViewReport()
{
    readForm(0);
}

void ReportViewer::clear()
{
    m_preview->setPages(nullptr);
    m_search->setPages(nullptr);
    m_flow->start(nullptr);
    m_report.reset();
    m_form = 0;
    m_toolBar->setForms({});
    say(QString());
    showPages();
}

void ReportViewer::readForm(std::size_t form)
{
    const std::shared_ptr<const reports::Description> description(m_report, &m_report->at(form));
    auto pages = std::make_unique<reports::Pages>(description, reports::read(*description));
    while (pages->count() == 0 && pages->layOutMore(firstTurnMs)) {
    }
    m_preview->setPages(nullptr);
    m_search->setPages(nullptr);
    m_flow->start(std::move(pages));
    m_form = form;
    m_preview->setPages(m_flow->pages());
    m_search->setPages(m_flow->pages());
    say(QString());
    showPages();
}

/// The form before stays where the other one cannot be read. Where there is none in sight, the
/// same form is read again.
void ReportViewer::chooseForm(int form)
{
    const auto wanted = static_cast<std::size_t>(form);
    const bool isShown = m_flow->pages() && wanted == m_form;
    if (!m_report || wanted >= m_report->size() || isShown)
        return;
    try {
        const toolkit::BusyPointer hourglass;
        readForm(wanted);
    } catch (...) {
        layoutFailed(datasheets::currentFailure());
    }
    m_toolBar->showForm(static_cast<int>(m_form));
}

void ReportViewer::layoutFailed(const store::Error& error)
{
    toolkit::showFailure(toolkit::formB(tr("Error while loading report viewer. "), error));
}

// ---- the pages

void ReportViewer::showPages()
{
    m_preview->growPages();
    m_search->growPages();
    m_progress->setVisible(m_flow->pages() && !m_flow->complete());
    showPageNumber();
    showZoom();
}

void ReportViewer::showPageNumber()
{
    m_toolBar->showPage(
        m_preview->currentPage(), m_flow->count(), !m_flow->pages() || m_flow->complete());
}

void ReportViewer::showZoom()
{
    m_toolBar->zoomBox().showZoom(m_preview->zoom());
}

/// A page beyond those that are laid out waits for the last one.
void ReportViewer::goToPage(int page)
{
    if (page >= m_flow->count() && !finishPages())
        return;
    m_preview->goToPage(page);
    m_preview->setFocus();
}

void ReportViewer::goToLastPage()
{
    goToPage(std::numeric_limits<int>::max());
}

bool ReportViewer::finishPages()
{
    try {
        return m_flow->pages() && m_output.finishPages();
    } catch (...) {
        layoutFailed(datasheets::currentFailure());
        return false;
    }
}

void ReportViewer::showHit(const Hit& hit)
{
    const auto& found = m_search->on(hit.page).at(static_cast<std::size_t>(hit.index));
    m_preview->goToPlace(hit.page, found.places.front());
}

// ---- commands

void ReportViewer::print()
{
    say(m_output.print(m_report->at(m_form).title, m_preview->currentPage()));
}

void ReportViewer::savePdf()
{
    const reports::Description& form = m_report->at(m_form);
    const QString name = m_report->size() > 1 ? form.title + u' ' + form.form : form.title;
    say(m_output.savePdf(name, form.source.location));
}

void ReportViewer::say(const QString& text)
{
    showLabel(*m_lblStatus, tr("Status"), text);
    m_lblStatus->setToolTip(text);
}

/// Keys that no other control has a use for move the pages.
void ReportViewer::keyPressEvent(QKeyEvent* event)
{
    switch (event->key()) {
    case Qt::Key_PageUp:
    case Qt::Key_PageDown:
    case Qt::Key_Up:
    case Qt::Key_Down:
        QCoreApplication::sendEvent(m_preview, event);
        return;
    default:
        QWidget::keyPressEvent(event);
    }
}

} // namespace ostrand::viewing
