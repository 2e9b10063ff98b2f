// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "measure.h"

#include <QAbstractItemView>
#include <QCoreApplication>
#include <QElapsedTimer>
#include <QEvent>
#include <QFile>
#include <QJsonDocument>
#include <QJsonObject>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <vector>

using namespace Qt::StringLiterals;

namespace ostrand::bench {
namespace {

/// Stops the time when the watched widget has painted; what the program then does in a quiet
/// moment does not keep the user waiting.
class PaintWatch final : public QObject
{
public:
    bool painted = false;
    qint64 nanoseconds = 0;
    QElapsedTimer timer;

    bool eventFilter(QObject* watched, QEvent* event) override
    {
        if (event->type() != QEvent::Paint)
            return false;
        // The event is handed on here, so that the mark comes behind the painting.
        watched->removeEventFilter(this);
        QCoreApplication::sendEvent(watched, event);
        watched->installEventFilter(this);
        if (!painted)
            nanoseconds = timer.nsecsElapsed();
        painted = true;
        return true;
    }
};

double middle(std::vector<double> values)
{
    std::sort(values.begin(), values.end());
    return values[values.size() / 2];
}

} // namespace

double millisecondsOf(const std::function<void()>& action)
{
    QElapsedTimer timer;
    timer.start();
    action();
    return static_cast<double>(timer.nsecsElapsed()) / 1e6;
}

double statusMegabytes(const QByteArray& name)
{
    QFile status(u"/proc/self/status"_s);
    if (!status.open(QIODevice::ReadOnly))
        qFatal("the resident set cannot be read");
    for (const QByteArray& line : status.readAll().split('\n')) {
        if (line.startsWith(name))
            return line.simplified().split(' ')[1].toDouble() / 1024;
    }
    return 0;
}

double untilPainted(QAbstractItemView& view, const std::function<void()>& action)
{
    PaintWatch watch;
    view.viewport()->installEventFilter(&watch);
    watch.timer.start();
    action();
    while (!watch.painted)
        QCoreApplication::processEvents(QEventLoop::AllEvents);
    return static_cast<double>(watch.nanoseconds) / 1e6;
}

Pair middleOf(int runs, const std::function<double()>& ours, const std::function<double()>& floor)
{
    std::vector<double> first;
    std::vector<double> second;
    for (int run = 0; run < runs; ++run) {
        first.push_back(ours());
        second.push_back(floor());
    }
    return {middle(first), middle(second)};
}

void report(const QString& bench, Pair pair, const QString& unit)
{
    const auto rounded = [](double value) { return std::round(value * 100) / 100; };
    const QJsonObject line{{u"bench"_s, bench},
                           {u"ours"_s, rounded(pair.ours)},
                           {u"floor"_s, rounded(pair.floor)},
                           {u"ratio"_s, rounded(pair.ours / pair.floor)},
                           {u"unit"_s, unit}};
    std::puts(QJsonDocument(line).toJson(QJsonDocument::Compact).constData());
    std::fflush(stdout);
}

} // namespace ostrand::bench
