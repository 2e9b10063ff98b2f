// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "viewing/zoom_box.h"

#include <QLineEdit>

#include <algorithm>
#include <array>
#include <cmath>

using namespace Qt::StringLiterals;

namespace ostrand::viewing {
namespace {

constexpr std::array percentages{25, 33, 50, 67, 75, 100, 125, 150, 200, 300, 400};
/// Two percentages closer than this are the same.
constexpr double tolerance = 0.5;

QString percentText(double percent)
{
    return QString::number(qRound(percent)) + u" %"_s;
}

} // namespace

double nextZoom(double percent, bool larger)
{
    if (larger) {
        const auto* above = std::find_if(percentages.begin(), percentages.end(), [&](int step) {
            return step > percent + tolerance;
        });
        return above == percentages.end() ? Zoom::largest : *above;
    }
    const auto below = std::find_if(percentages.rbegin(), percentages.rend(), [&](int step) {
        return step < percent - tolerance;
    });
    return below == percentages.rend() ? Zoom::smallest : *below;
}

ZoomBox::ZoomBox(QWidget* parent)
    : ChoiceBox(parent)
{
    setEditable(true);
    setInsertPolicy(QComboBox::NoInsert);
    setCompleter(nullptr);
    setMaxVisibleItems(static_cast<int>(percentages.size()) + 2);
    addItem(tr("Fit width"));
    addItem(tr("Whole page"));
    for (const int percent : percentages)
        addItem(percentText(percent));
    setSizeAdjustPolicy(QComboBox::AdjustToContents);
    connect(this, &QComboBox::textActivated, this, &ZoomBox::take);
    connect(lineEdit(), &QLineEdit::editingFinished, this, [this] { take(currentText()); });
    connect(lineEdit(), &QLineEdit::returnPressed, this, &ChoiceBox::left);
    showZoom({});
}

void ZoomBox::showZoom(const Zoom& zoom)
{
    m_shown = zoom;
    QString text = percentText(zoom.percent);
    if (zoom.kind == Zoom::Kind::FitWidth)
        text = itemText(0);
    else if (zoom.kind == Zoom::Kind::WholePage)
        text = itemText(1);
    const QSignalBlocker quiet(this);
    setCurrentIndex(findText(text));
    setEditText(text);
}

bool ZoomBox::revert()
{
    const QString typed = currentText();
    showZoom(m_shown);
    return currentText() != typed;
}

/// What is no zoom gives way to the one that is shown.
void ZoomBox::take(const QString& text)
{
    const std::optional<Zoom> zoom = zoomOf(text);
    const Zoom before = m_shown;
    showZoom(zoom.value_or(before));
    if (zoom && *zoom != before)
        Q_EMIT chosen(*zoom);
}

std::optional<Zoom> ZoomBox::zoomOf(const QString& text) const
{
    if (text == itemText(0))
        return Zoom{Zoom::Kind::FitWidth};
    if (text == itemText(1))
        return Zoom{Zoom::Kind::WholePage};
    bool isNumber = false;
    const double percent = locale().toDouble(QString(text).remove(u'%').trimmed(), &isNumber);
    if (!isNumber || !std::isfinite(percent))
        return std::nullopt;
    return Zoom{Zoom::Kind::Percent, std::clamp<double>(percent, Zoom::smallest, Zoom::largest)};
}

} // namespace ostrand::viewing
