// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#pragma once

#include "viewing/zoom_box.h"

#include <QAbstractScrollArea>
#include <QCache>
#include <QPixmap>

#include <optional>

namespace ostrand::viewing::reports {
class Pages;
} // namespace ostrand::viewing::reports

namespace ostrand::viewing {

class ReportSearch;

/// The pages of a report one below the other, as sheets of paper on a desk. Pages are counted from
/// 0. Only what is in sight is painted, and the pictures of pages that are kept have a bound.
class ReportPreview final : public QAbstractScrollArea
{
    Q_OBJECT

public:
    explicit ReportPreview(QWidget* parent = nullptr);

    /// Shows other pages from the first one on; nullptr for none.
    void setPages(const reports::Pages* pages);
    /// More pages of the same report are there, or all.
    void growPages();
    /// Marks the places that a search has found.
    void setSearch(const ReportSearch* search) { m_search = search; }
    void showPlaces() { viewport()->update(); }

    int currentPage() const { return m_current; }
    /// Brings the top of a page, or a place on a page in points, into sight.
    void goToPage(int page);
    void goToPlace(int page, const QRectF& place);

    void setZoom(const Zoom& zoom);
    const Zoom& zoom() const { return m_zoom; }
    /// The zoom as it comes out, also of one that fits the window.
    double percent() const;
    /// A step larger or smaller about a point of the view.
    void zoomStep(bool larger, std::optional<QPointF> about = std::nullopt);

    /// A place on a page in points, as it lies in the view.
    QRectF inView(int page, const QRectF& place) const;

Q_SIGNALS:
    void currentPageChanged(int page);
    void zoomChanged();

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void scrollContentsBy(int dx, int dy) override;
    void wheelEvent(QWheelEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    /// A point of a page, in points, and where it lies in the view.
    struct Anchor
    {
        int page;
        QPointF onPage;
        QPointF inView;
    };

    int pageCount() const;
    QSize pageSize() const;
    int pageStride() const;
    int pageTop(int page) const;
    QRect pageRect(int page) const;
    int pageAt(int y) const;
    int fullestPage() const;
    Anchor anchorAt(const QPointF& inView) const;
    void restore(const Anchor& anchor);
    double fittingScale() const;
    void rescale(const std::optional<Anchor>& anchor);
    void updateBars();
    void follow(int page);
    void turn(int step);
    void paintPage(QPainter& painter, int page, const QRect& exposed);
    void paintPlaces(QPainter& painter, int page) const;
    void paintPlace(QPainter& painter, const QRectF& place, bool isCurrent) const;
    const QPixmap* picture(int page);

    const reports::Pages* m_pages = nullptr;
    const ReportSearch* m_search = nullptr;
    Zoom m_zoom;
    double m_scale = 1; ///< pixels of the view for a point
    int m_current = 0;
    bool m_isJumping = false;
    std::optional<QPoint> m_grip; ///< where the mouse holds the paper
    QCache<int, QPixmap> m_pictures;
};

} // namespace ostrand::viewing
