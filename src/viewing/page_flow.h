// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#pragma once

#include "store/error.h"
#include "viewing/reports/pages.h"

#include <QObject>
#include <QTimer>

#include <functional>
#include <memory>

namespace ostrand::viewing {

/// Lays out the pages of a report in short turns, between which the program listens to its user.
class PageFlow final : public QObject
{
    Q_OBJECT

public:
    explicit PageFlow(QObject* parent = nullptr);

    /// Takes the place of the pages before; nullptr for none.
    void start(std::unique_ptr<reports::Pages> pages);
    reports::Pages* pages() const { return m_pages.get(); }
    /// Pages to be seen so far.
    int count() const;
    bool complete() const;

    /// Lays out the rest at once, and asks after each turn with the number of pages whether to go
    /// on. False where it was told not to: the rest goes on in turns then.
    bool finish(const std::function<bool(int count)>& goOn);

Q_SIGNALS:
    /// There are more pages, or all.
    void grown();
    void finished();
    void failed(const ostrand::store::Error& error);

private:
    void turn();
    void layOut(int milliseconds);

    std::unique_ptr<reports::Pages> m_pages;
    QTimer m_turns;
};

} // namespace ostrand::viewing
