// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#pragma once

#include "viewing/choice_box.h"

#include <optional>

namespace ostrand::viewing {

/// How large pages are shown.
struct Zoom
{
    enum class Kind { FitWidth, WholePage, Percent };

    static constexpr int smallest = 25;
    static constexpr int largest = 400;

    Kind kind = Kind::FitWidth;
    double percent = 100; ///< counts with `Percent` alone

    friend bool operator==(const Zoom&, const Zoom&) = default;
};

/// The step of the zoom above or below a percentage; the limit where there is none.
double nextZoom(double percent, bool larger);

/// Shows the zoom, and takes another from its list or by typing.
class ZoomBox final : public ChoiceBox
{
    Q_OBJECT

public:
    explicit ZoomBox(QWidget* parent = nullptr);

    void showZoom(const Zoom& zoom);

Q_SIGNALS:
    void chosen(const ostrand::viewing::Zoom& zoom);

protected:
    bool revert() override;

private:
    void take(const QString& text);
    std::optional<Zoom> zoomOf(const QString& text) const;

    Zoom m_shown;
};

} // namespace ostrand::viewing
