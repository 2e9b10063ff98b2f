// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "populate_tour.h"

#include "camera.h"
#include "pid/populating.h"

#include <QDialog>
#include <QItemSelectionModel>
#include <QListView>
#include <QPushButton>

using namespace Qt::StringLiterals;

namespace ostrand::tour {
namespace {

void choose(const QListView& list, const QStringList& lines)
{
    for (const QString& line : lines) {
        const auto found = list.model()->match(
            list.model()->index(0, 0), Qt::DisplayRole, line, 1, Qt::MatchExactly);
        if (found.isEmpty())
            qFatal("the sample has no %s", qPrintable(line));
        list.selectionModel()->select(found.first(), QItemSelectionModel::Select);
    }
}

} // namespace

void tourPopulate(const Camera& camera)
{
    camera.pictureOfNextModal(u"populate"_s, [&camera](QDialog& window) {
        auto* list = window.findChild<QListView*>(u"lstPopulate"_s);
        choose(*list, {u"SDV-1011(1)"_s, u"LIC-3005(1)"_s, u"PSV-7096A"_s});
        list->scrollTo(list->selectionModel()->selectedRows().first());
        camera.take(u"populate-chosen"_s, &window);
        camera.pictureOfNextModal(u"populate-report"_s, [](QDialog& report) { report.reject(); });
        window.findChild<QPushButton*>(u"CmdOk"_s)->click();
    });
    pid::cmdTag();
}

} // namespace ostrand::tour
