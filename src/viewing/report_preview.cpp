// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "viewing/report_preview.h"

#include "viewing/report_search.h"
#include "viewing/reports/pages.h"

#include <QKeyEvent>
#include <QPaintEvent>
#include <QPainter>
#include <QScrollBar>
#include <QWheelEvent>

#include <algorithm>
#include <cmath>
#include <memory>

using namespace Qt::StringLiterals;

namespace ostrand::viewing {
namespace {

// Pixels.
constexpr int deskMargin = 14;
constexpr int pageGap = 14;
constexpr int lineStep = 48;
constexpr int overlap = 40;

constexpr double pointsPerInch = 72;
/// All pictures of pages together, and one of them, in KB. A larger page is painted where it shows.
constexpr int picturesLimit = 48 * 1024;
constexpr int pictureLimit = 16 * 1024;

constexpr int deskShade = 125; ///< per cent darker than a window
constexpr int shadowSteps = 4;
constexpr int shadowAlpha = 22;
constexpr int placeAlpha = 70;
constexpr int currentPlaceAlpha = 130;
constexpr QMarginsF placeMargins(1, 1, 1, 1); ///< points
/// Kept free around a place that is looked for.
constexpr QMarginsF placeRoom(24, 24, 24, 24);
constexpr int leastHeight = 160;

} // namespace

ReportPreview::ReportPreview(QWidget* parent)
    : QAbstractScrollArea(parent),
      m_pictures(picturesLimit)
{
    setFocusPolicy(Qt::StrongFocus);
    // A bar that came and went with the zoom would change the width that the zoom fits.
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
    setFrameShape(QFrame::NoFrame);
    setMinimumHeight(leastHeight);
    verticalScrollBar()->setSingleStep(lineStep);
    horizontalScrollBar()->setSingleStep(lineStep);
    viewport()->setCursor(Qt::OpenHandCursor);
}

// ---- the pages and their places

void ReportPreview::setPages(const reports::Pages* pages)
{
    m_pages = pages;
    m_pictures.clear();
    m_current = 0;
    rescale(std::nullopt);
    m_isJumping = true;
    verticalScrollBar()->setValue(0);
    m_isJumping = false;
    Q_EMIT currentPageChanged(m_current);
}

/// The pages so far lack the number of all pages, which the last one brings.
void ReportPreview::growPages()
{
    if (m_pages && m_pages->complete())
        m_pictures.clear();
    if (m_pages && m_pages->count() == 1)
        rescale(std::nullopt);
    updateBars();
    viewport()->update();
}

int ReportPreview::pageCount() const
{
    return m_pages ? m_pages->count() : 0;
}

QSize ReportPreview::pageSize() const
{
    return m_pages ? (m_pages->size() * m_scale).toSize() : QSize();
}

int ReportPreview::pageStride() const
{
    return pageSize().height() + pageGap;
}

int ReportPreview::pageTop(int page) const
{
    return deskMargin + page * pageStride();
}

/// In the view.
QRect ReportPreview::pageRect(int page) const
{
    const QSize size = pageSize();
    const int room = viewport()->width() - size.width();
    const int left =
        room >= 2 * deskMargin ? room / 2 : deskMargin - horizontalScrollBar()->value();
    return {QPoint(left, pageTop(page) - verticalScrollBar()->value()), size};
}

/// The page at, or below, a height of the view.
int ReportPreview::pageAt(int y) const
{
    const int above = y + verticalScrollBar()->value() - deskMargin + pageGap;
    return std::clamp(above / std::max(1, pageStride()), 0, std::max(0, pageCount() - 1));
}

/// The page that shows most of itself, the upper one of equals.
int ReportPreview::fullestPage() const
{
    int fullest = pageAt(0);
    int most = 0;
    for (int page = fullest; page <= pageAt(viewport()->height()); ++page) {
        const int shown = pageRect(page).intersected(viewport()->rect()).height();
        if (shown > most) {
            most = shown;
            fullest = page;
        }
    }
    return fullest;
}

QRectF ReportPreview::inView(int page, const QRectF& place) const
{
    const QPointF corner = pageRect(page).topLeft();
    return {corner + place.topLeft() * m_scale, place.size() * m_scale};
}

// ---- moving about

void ReportPreview::follow(int page)
{
    if (page == m_current)
        return;
    m_current = page;
    Q_EMIT currentPageChanged(page);
}

void ReportPreview::goToPage(int page)
{
    if (pageCount() == 0)
        return;
    const int wanted = std::clamp(page, 0, pageCount() - 1);
    // The page that was asked for is the current one, also where the desk's end keeps it low.
    m_isJumping = true;
    verticalScrollBar()->setValue(pageTop(wanted) - deskMargin);
    m_isJumping = false;
    follow(wanted);
}

/// The view stays where it is as long as it shows the place.
void ReportPreview::goToPlace(int page, const QRectF& place)
{
    const QRectF shown = inView(page, place);
    const QRectF inside = QRectF(viewport()->rect()).marginsRemoved(placeRoom);
    m_isJumping = true;
    if (shown.top() < inside.top() || shown.bottom() > inside.bottom())
        verticalScrollBar()->setValue(verticalScrollBar()->value()
                                      + qRound(shown.center().y() - inside.height() / 3));
    if (shown.left() < inside.left() || shown.right() > inside.right())
        horizontalScrollBar()->setValue(horizontalScrollBar()->value()
                                        + qRound(shown.center().x() - inside.width() / 2));
    m_isJumping = false;
    follow(page);
    viewport()->update();
}

void ReportPreview::scrollContentsBy(int dx, int dy)
{
    // Between the pixels of the screen nothing can be moved as it is.
    if (devicePixelRatioF() == std::floor(devicePixelRatioF()))
        viewport()->scroll(dx, dy);
    else
        viewport()->update();
    if (!m_isJumping)
        follow(fullestPage());
}

void ReportPreview::updateBars()
{
    const QSize view = viewport()->size();
    const QSize page = pageSize();
    const int height = pageCount() ? pageTop(pageCount()) - pageGap + deskMargin : 0;
    m_isJumping = true;
    verticalScrollBar()->setRange(0, std::max(0, height - view.height()));
    verticalScrollBar()->setPageStep(std::max(1, view.height() - overlap));
    horizontalScrollBar()->setRange(0, std::max(0, page.width() + 2 * deskMargin - view.width()));
    horizontalScrollBar()->setPageStep(std::max(1, view.width() - overlap));
    m_isJumping = false;
}

// ---- zoom

double ReportPreview::percent() const
{
    return m_scale * pointsPerInch / logicalDpiX() * 100;
}

double ReportPreview::fittingScale() const
{
    if (m_zoom.kind == Zoom::Kind::Percent)
        return m_zoom.percent / 100 * logicalDpiX() / pointsPerInch;
    if (!m_pages)
        return m_scale;
    const QSizeF page = m_pages->size();
    const double least = Zoom::smallest / 100.0 * logicalDpiX() / pointsPerInch;
    const QSizeF room = viewport()->size() - QSize(2 * deskMargin, 2 * deskMargin);
    const double width = room.width() / page.width();
    if (m_zoom.kind == Zoom::Kind::FitWidth)
        return std::max(least, width);
    return std::max(least, std::min(width, room.height() / page.height()));
}

void ReportPreview::setZoom(const Zoom& zoom)
{
    const Anchor anchor = anchorAt(QPointF(viewport()->width() / 2.0, 0));
    m_zoom = zoom;
    rescale(anchor);
    if (zoom.kind == Zoom::Kind::WholePage)
        goToPage(m_current);
}

void ReportPreview::zoomStep(bool larger, std::optional<QPointF> about)
{
    const QPointF centre = QRectF(viewport()->rect()).center();
    const Anchor anchor = anchorAt(about.value_or(centre));
    m_zoom = {Zoom::Kind::Percent, nextZoom(percent(), larger)};
    rescale(anchor);
}

ReportPreview::Anchor ReportPreview::anchorAt(const QPointF& inView) const
{
    const int page = pageAt(qRound(inView.y()));
    const QPointF onPage = (inView - pageRect(page).topLeft()) / m_scale;
    return {page, onPage, inView};
}

void ReportPreview::restore(const Anchor& anchor)
{
    const QPointF now = inView(anchor.page, QRectF(anchor.onPage, QSizeF())).topLeft();
    const QPoint way = (now - anchor.inView).toPoint();
    horizontalScrollBar()->setValue(horizontalScrollBar()->value() + way.x());
    verticalScrollBar()->setValue(verticalScrollBar()->value() + way.y());
}

void ReportPreview::rescale(const std::optional<Anchor>& anchor)
{
    const double scale = fittingScale();
    if (scale != m_scale) {
        m_scale = scale;
        m_pictures.clear();
    }
    updateBars();
    m_isJumping = true;
    if (anchor && m_pages)
        restore(*anchor);
    m_isJumping = false;
    viewport()->update();
    Q_EMIT zoomChanged();
}

void ReportPreview::resizeEvent(QResizeEvent* event)
{
    // With the former scale, and the desk's margin in the middle of what it was.
    const Anchor anchor = anchorAt(QPointF(event->oldSize().width() / 2.0, 0));
    rescale(event->oldSize().isEmpty() ? std::nullopt : std::optional(anchor));
}

void ReportPreview::changeEvent(QEvent* event)
{
    QAbstractScrollArea::changeEvent(event);
    if (event->type() == QEvent::PaletteChange || event->type() == QEvent::StyleChange)
        viewport()->update();
}

// ---- painting

const QPixmap* ReportPreview::picture(int page)
{
    if (const QPixmap* kept = m_pictures.object(page);
        kept && kept->devicePixelRatio() == devicePixelRatioF())
        return kept;
    const QSize size = (QSizeF(pageSize()) * devicePixelRatioF()).toSize();
    const qsizetype kilobytes = qsizetype(size.width()) * size.height() * 4 / 1024;
    if (kilobytes > pictureLimit)
        return nullptr;
    auto made = std::make_unique<QPixmap>(size);
    made->setDevicePixelRatio(devicePixelRatioF());
    made->fill(Qt::white);
    {
        QPainter painter(made.get());
        painter.setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing
                               | QPainter::SmoothPixmapTransform);
        painter.scale(m_scale, m_scale);
        m_pages->draw(painter, page);
    }
    m_pictures.insert(page, made.release(), std::max<qsizetype>(1, kilobytes));
    return m_pictures.object(page);
}

void ReportPreview::paintPage(QPainter& painter, int page, const QRect& exposed)
{
    const QRect sheet = pageRect(page);
    for (int step = shadowSteps; step > 0; --step)
        painter.fillRect(sheet.translated(step, step), QColor(0, 0, 0, shadowAlpha));
    if (const QPixmap* kept = picture(page)) {
        painter.drawPixmap(sheet.topLeft(), *kept);
    } else {
        painter.save();
        painter.setClipRect(sheet.intersected(exposed));
        painter.fillRect(sheet, Qt::white);
        painter.setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing
                               | QPainter::SmoothPixmapTransform);
        painter.translate(sheet.topLeft());
        painter.scale(m_scale, m_scale);
        m_pages->draw(painter, page);
        painter.restore();
    }
    paintPlaces(painter, page);
}

void ReportPreview::paintPlaces(QPainter& painter, int page) const
{
    if (!m_search)
        return;
    const auto& current = m_search->current();
    const std::vector<reports::Hit>& hits = m_search->on(page);
    for (std::size_t i = 0; i < hits.size(); ++i) {
        const bool isCurrent =
            current && current->page == page && current->index == static_cast<int>(i);
        for (const QRectF& place : hits[i].places)
            paintPlace(painter, inView(page, place.marginsAdded(placeMargins)), isCurrent);
    }
}

void ReportPreview::paintPlace(QPainter& painter, const QRectF& place, bool isCurrent) const
{
    QColor colour = palette().color(QPalette::Highlight);
    colour.setAlpha(isCurrent ? currentPlaceAlpha : placeAlpha);
    painter.fillRect(place, colour);
    if (isCurrent) {
        painter.setPen(palette().color(QPalette::Highlight));
        painter.drawRect(place);
    }
}

void ReportPreview::paintEvent(QPaintEvent* event)
{
    QPainter painter(viewport());
    painter.fillRect(event->rect(), palette().color(QPalette::Window).darker(deskShade));
    if (pageCount() == 0)
        return;
    const QRect exposed = event->rect();
    const int last = pageAt(exposed.bottom());
    for (int page = pageAt(exposed.top() - shadowSteps); page <= last; ++page)
        paintPage(painter, page, exposed);
}

// ---- mouse and keys

void ReportPreview::wheelEvent(QWheelEvent* event)
{
    if (event->modifiers().testFlag(Qt::ControlModifier)) {
        if (event->angleDelta().y() != 0)
            zoomStep(event->angleDelta().y() > 0, event->position());
        event->accept();
        return;
    }
    QAbstractScrollArea::wheelEvent(event);
}

void ReportPreview::keyPressEvent(QKeyEvent* event)
{
    const bool withControl = event->modifiers().testFlag(Qt::ControlModifier);
    const bool withShift = event->modifiers().testFlag(Qt::ShiftModifier);
    switch (event->key()) {
    case Qt::Key_PageUp:
    case Qt::Key_PageDown: {
        const int step = event->key() == Qt::Key_PageDown ? 1 : -1;
        if (withControl)
            goToPage(m_current + step);
        else
            turn(step);
        return;
    }
    case Qt::Key_Space:
        turn(withShift ? -1 : 1);
        return;
    default:
        QAbstractScrollArea::keyPressEvent(event);
    }
}

/// By what is in sight: a whole page, or a screenful.
void ReportPreview::turn(int step)
{
    if (m_zoom.kind == Zoom::Kind::WholePage)
        goToPage(m_current + step);
    else
        verticalScrollBar()->triggerAction(step > 0 ? QScrollBar::SliderPageStepAdd
                                                    : QScrollBar::SliderPageStepSub);
}

void ReportPreview::mousePressEvent(QMouseEvent* event)
{
    if (event->button() != Qt::LeftButton)
        return;
    m_grip = event->position().toPoint();
    viewport()->setCursor(Qt::ClosedHandCursor);
}

void ReportPreview::mouseMoveEvent(QMouseEvent* event)
{
    if (!m_grip)
        return;
    const QPoint way = event->position().toPoint() - *m_grip;
    m_grip = event->position().toPoint();
    horizontalScrollBar()->setValue(horizontalScrollBar()->value() - way.x());
    verticalScrollBar()->setValue(verticalScrollBar()->value() - way.y());
}

void ReportPreview::mouseReleaseEvent(QMouseEvent* /*event*/)
{
    m_grip.reset();
    viewport()->setCursor(Qt::OpenHandCursor);
}

} // namespace ostrand::viewing
