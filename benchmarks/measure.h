// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <functional>

class QAbstractItemView;

namespace ostrand::bench {

/// Milliseconds that an action takes.
double millisecondsOf(const std::function<void()>& action);
/// A figure of this process in MB: "VmRSS:", or at its highest "VmHWM:".
double statusMegabytes(const QByteArray& name);

/// Milliseconds that an action takes until the view has painted what it changed.
double untilPainted(QAbstractItemView& view, const std::function<void()>& action);

/// The middle one of several runs of ours and of the floor, taken in turns.
struct Pair
{
    double ours = 0;
    double floor = 0;
};
Pair middleOf(int runs, const std::function<double()>& ours, const std::function<double()>& floor);

/// Prints one result as a line of JSON.
void report(const QString& bench, Pair pair, const QString& unit);

/// The benchmarks, each under its name. One that a name does not ask for is not run.
void runIndexBenches(const QString& only);
void runDocumentsBenches(const QString& only);
void runDatasheetBenches(const QString& only);
void runMemoryBenches(const QString& only);
void runPopulateBenches(const QString& only);
void runLinkBenches(const QString& only);
void runLogoBenches(const QString& only);
void runReportBenches(const QString& only);
/// What a process started as "--memory TAGS" does: prints its resident set in MB.
int measureMemory(int tags);
/// What a process started as "--report-memory" does: prints by how many MB a report makes it grow.
int measureReportMemory();

inline bool asked(const QString& only, const QString& name)
{
    return only.isEmpty() || only == name;
}

} // namespace ostrand::bench
