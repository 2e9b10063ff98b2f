// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#pragma once

#include "viewing/reports/description.h"

#include <QHash>

#include <memory>

namespace ostrand::viewing::reports {

/// The fields of a select: their names, looked up in any case.
class Fields
{
public:
    explicit Fields(const QStringList& names);
    /// The place of a field, or -1.
    int at(const QString& name) const;

private:
    QHash<QString, int> m_places;
};

/// One row as read; Null is "".
class Row
{
public:
    Row(std::shared_ptr<const Fields> fields, std::vector<QString> texts);
    /// The text of a field; "" for a field that was not read.
    const QString& operator[](const QString& field) const;
    const QString& at(int place) const;
    const Fields& fields() const { return *m_fields; }

private:
    std::shared_ptr<const Fields> m_fields;
    std::vector<QString> m_texts;
};

/// What a report printed at one moment read from its project.
struct ReportData
{
    std::vector<Row> rows; ///< filtered, and sorted by the groups and the order
    QHash<QString, QHash<QString, std::vector<Row>>> subreports; ///< by name, then by key
    QString logoFile = {}; ///< the attribute `logo file` of the project, as stored
    const std::vector<Row>& of(const QString& subreport, const QString& key = {}) const;
};

/// Reads a report and its subreports from the project files of their locations, each within one
/// moment of the file. Raises what the engine refuses the file or a select for (3024, 3343, 3078,
/// 3061 ...).
ReportData read(const Description& report);

} // namespace ostrand::viewing::reports
