// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#pragma once

#include "spreadsheet/cell_value.h"

#include <QString>

#include <functional>
#include <memory>
#include <optional>
#include <vector>

namespace ostrand::spreadsheet {

class SheetDesign;

/// Points.
struct Extent
{
    double width = 0;
    double height = 0;
};

/// A cell, or a block of cells.
class Range
{
public:
    virtual ~Range() = default;

    /// The value of a single cell; ManyCells for a block.
    virtual CellValue Value() const = 0;
    /// Writes a text letter for letter: "0012", "1E5" and "=1+1" stay texts, and the cell keeps its
    /// number format, so that what the user types there later has its own type. "" empties the
    /// cell. Raises the sheet's `Change` event, as every change does.
    virtual void setValue(const QString& text) = 0;

    /// Selects the range, and makes it the current cell, on the sheet in front.
    virtual void Select() = 0;
    virtual void Activate() = 0;

    /// The extent of the merged block that the first cell belongs to; nothing where it stands
    /// alone.
    virtual std::optional<Extent> MergeArea() const = 0;
};

/// A check box or a text box that lies on a sheet.
class Control
{
public:
    virtual ~Control() = default;

    /// bool for a check box, a text for a text box.
    virtual CellValue Value() const = 0;
    virtual void setValue(const QString& text) = 0;
    virtual void setValue(bool checked) = 0;
};

/// A picture or another drawing on a sheet. Measures are points (72 to the inch), from the upper
/// left corner of the sheet.
class Shape
{
public:
    virtual ~Shape() = default;

    virtual QString Name() const = 0;
    virtual void setName(const QString& name) = 0;
    virtual void Delete() = 0;
    virtual double Left() const = 0;
    virtual double Top() const = 0;
    virtual Extent Size() const = 0;
    virtual void setPosition(double left, double top) = 0;
    virtual void setSize(const Extent& size) = 0;
};

class Worksheet
{
public:
    virtual ~Worksheet() = default;

    virtual QString Name() const = 0;

    /// The cells of a reference such as "D11" or "A1:C4". Raises 1004 for what is no reference.
    virtual std::unique_ptr<ostrand::spreadsheet::Range> Range(const QString& reference) = 0;
    /// The values of a block such as "A1:E100", read in one call: texts, numbers, errors and empty
    /// cells. A date or a truth value comes as the number that it is.
    virtual CellValues Values(const QString& block) = 0;
    /// Writes many cells in few calls, each as `Range::setValue` does it; numbers, dates and truth
    /// values keep their type. Raises 1004 for what is no cell, and `Change` once.
    virtual void write(const std::vector<CellWrite>& cells) = 0;
    /// The embedded control of that name. Raises 9 where there is none.
    virtual std::unique_ptr<Control> OLEObjects(const QString& name) = 0;

    virtual void Activate() = 0;
    /// Without a password. Unprotecting a sheet that has one raises 1004.
    virtual void Protect() = 0;
    virtual void Unprotect() = 0;

    /// Its drawings, from the back to the front.
    virtual std::vector<std::unique_ptr<Shape>> Shapes() = 0;
    /// Puts a picture at the selected cell. Raises 1004 when the file can't be read.
    virtual std::unique_ptr<Shape> InsertPicture(const QString& file) = 0;

    /// How the sheet looks and prints.
    virtual SheetDesign& design() = 0;

    /// Calls `Change` after every change of a cell of this sheet, by the user or by the program.
    /// An empty function ends the subscription; so does the end of this object.
    virtual void subscribe(std::function<void()> Change) = 0;
};

/// What a workbook tells about its user. All are called on the main thread, one after another: one
/// that arrives while another is handled waits, unless the handler's own call raises it.
struct WorkbookEvents
{
    /// The workbook is about to close; set `Cancel` to keep it open.
    std::function<void(bool& Cancel)> BeforeClose = {};
    /// The workbook is about to be saved, under another name when SaveAsUI is set; set `Cancel` to
    /// keep it from being so.
    std::function<void(bool SaveAsUI, bool& Cancel)> BeforeSave = {};
    /// Another cell or another sheet was selected.
    std::function<void()> SheetSelectionChange = {};
    /// The application has ended by itself, and the workbook with it. No call reaches it any more.
    std::function<void()> Lost = {};
};

enum class FileFormat {
    Workbook,
    Template, ///< format 17
};

enum class SaveChanges {
    Ask, ///< the application asks its user
    Yes,
    No,
};

class Application;

/// An open workbook. The end of the object ends the subscription to its events; a workbook whose
/// application ends its life is closed without being saved and without a question.
class Workbook
{
public:
    virtual ~Workbook() = default;

    virtual ostrand::spreadsheet::Application& Application() = 0;
    /// File name without folder.
    virtual QString Name() const = 0;

    virtual int SheetCount() const = 0;
    /// A sheet by its place, counted from 1, or by its name, whatever its case. Raise 9 where there
    /// is none.
    virtual std::shared_ptr<Worksheet> Worksheets(int index) = 0;
    virtual std::shared_ptr<Worksheet> Worksheets(const QString& name) = 0;
    /// The sheet in front.
    virtual std::shared_ptr<Worksheet> ActiveSheet() = 0;
    /// Adds an empty sheet behind the others.
    virtual std::shared_ptr<Worksheet> AddSheet(const QString& name) = 0;

    /// The text of a custom document property. Raises 5 where there is none.
    virtual QString CustomDocumentProperty(const QString& name) const = 0;
    virtual void setCustomDocumentProperty(const QString& name, const QString& value) = 0;

    /// Saves under the current name; raises `BeforeSave` first, and does nothing when that cancels.
    /// Raises 70 when the file is read-only or locked, 1004 when it can't be written; the workbook
    /// stays as it is then.
    virtual void Save() = 0;
    /// Saves under a name and format, which the workbook has from then on.
    virtual void SaveAs(const QString& path, FileFormat format) = 0;
    /// Writes a copy over whatever has that name, and leaves the open workbook as it was. Raises
    /// 70, 76 or 1004.
    virtual void SaveCopyAs(const QString& path) = 0;
    /// Closes; raises `BeforeClose` first, and does nothing when that cancels.
    virtual void Close(SaveChanges changes) = 0;

    /// To be called by a `BeforeClose` handler once it has no objection: settles what is unsaved as
    /// the close in progress wants it, in that the application asks its user where it has to. False
    /// when the user goes on working; the handler then sets `Cancel`.
    virtual bool confirmClose() = 0;

    virtual void subscribe(WorkbookEvents events) = 0;
};

/// A live link to the spreadsheet application, invisible at first.
class Application
{
public:
    virtual ~Application() = default;

    /// Opens a file. Macros don't run and links are not followed. Raises 1004 when the file is not
    /// there, 321 when it is no workbook, 70 when it can't be read or wants a password.
    virtual std::shared_ptr<Workbook> Open(const QString& path) = 0;
    /// A new workbook with one empty sheet.
    virtual std::shared_ptr<Workbook> Add() = 0;

    /// False once the application has ended, also while the news of it waits to be told.
    virtual bool isRunning() const = 0;

    /// Shows or hides the windows of the workbooks that this link has opened, and of those to come.
    virtual void setVisible(bool visible) = 0;
    /// From now on the windows of its workbooks are there to be looked at: what the user types or
    /// clicks there is dropped, and none is brought to the front. To be called before one shows.
    virtual void refuseInput() = 0;
    /// Closes its workbooks without saving, and ends the application unless another link has a
    /// workbook open.
    virtual void Quit() = 0;
};

} // namespace ostrand::spreadsheet
