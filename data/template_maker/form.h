// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <filesystem>
#include <vector>

namespace ostrand::template_maker {

/// A numbered line of a form.
struct Line
{
    QString section;
    int number; ///< counted from 1
    QString label;
    QString unit;
    int valueCells; ///< 1 to 3
};

/// A row of the sheet that ties fields of the P&ID database to cells.
struct PidRow
{
    QString table;
    QString field;
    QString worksheet;
    QString column;
    int row;
};

/// A sheet with a logo, and the cell that is current on it.
struct LogoSheet
{
    QString worksheet;
    QString anchor;
    double deltaX; ///< points
    double deltaY;
    QString defaultCell;
    bool isDefault; ///< in front when the workbook opens
};

struct Place
{
    QString worksheet;
    QString cell;
    bool operator==(const Place&) const = default;
};

/// A place that shows what stands at another one, for a value that is entered once.
struct Echo
{
    Place place;
    Place source;
};

/// What the template of one datasheet type holds.
struct Form
{
    int number;
    QString type;
    QString fileName;
    std::vector<Line> lines;
    std::vector<PidRow> pidRows;
    std::vector<LogoSheet> logoSheets;
    std::vector<Echo> echoes;
};

/// The forms of all datasheet types, from the folder of the data files. Raises maker::InputError
/// for a faulty file.
std::vector<Form> readForms(const std::filesystem::path& data);

} // namespace ostrand::template_maker
