// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#pragma once

#include "spreadsheet/application.h"
#include "spreadsheet/sheet_design.h"
#include "support/unsaved_answer.h"
#include "support/workbook_file.h"

#include <QStringList>

#include <deque>
#include <memory>
#include <optional>
#include <vector>

namespace ostrand::tests {

class MemoryApplication;
class MemoryOffice;
class MemoryWorkbook;

class MemorySheet final : public spreadsheet::Worksheet, private spreadsheet::SheetDesign
{
public:
    MemorySheet(MemoryWorkbook& book, std::size_t index)
        : m_book(&book),
          m_index(index)
    {
    }

    QString Name() const override;
    std::unique_ptr<spreadsheet::Range> Range(const QString& reference) override;
    spreadsheet::CellValues Values(const QString& block) override;
    void write(const std::vector<spreadsheet::CellWrite>& cells) override;
    std::unique_ptr<spreadsheet::Control> OLEObjects(const QString& name) override;
    void Activate() override;
    void Protect() override;
    void Unprotect() override;
    std::vector<std::unique_ptr<spreadsheet::Shape>> Shapes() override;
    std::unique_ptr<spreadsheet::Shape> InsertPicture(const QString& file) override;
    spreadsheet::SheetDesign& design() override { return *this; }
    void subscribe(std::function<void()> Change) override { m_change = std::move(Change); }

    void addControl(const QString& name, const spreadsheet::CellValue& value);

private:
    friend class MemoryCell;
    friend class MemoryControl;
    friend class MemoryOffice;
    friend class MemoryShape;
    friend class MemoryWorkbook;

    void requireUnprotected() const;
    void setName(const QString& name) override;
    void setText(const QString& cell, const QString& text) override;
    void setEntries(const QString&,
                    const std::vector<std::vector<spreadsheet::CellEntry>>&) override
    {
    }
    /// Nothing is reckoned: the cell holds the formula as a text.
    void setFormula(const QString& cell, const QString& formula) override
    {
        setText(cell, formula);
    }
    void setStyle(const QString&, const spreadsheet::CellStyle&) override {}
    void merge(const QString&) override {}
    void setColumnWidth(const QString&, double) override {}
    void setRowHeight(int, int, double) override {}
    void setPage(const spreadsheet::PageSetup&) override {}
    void setGridLines(bool) override {}

    SheetContent& content() const;
    void changed() const;

    MemoryWorkbook* m_book; ///< nullptr once the workbook is gone
    std::size_t m_index;
    std::function<void()> m_change;
};

class MemoryWorkbook final : public spreadsheet::Workbook,
                             public std::enable_shared_from_this<MemoryWorkbook>
{
public:
    MemoryWorkbook(MemoryApplication& application, WorkbookContent content, const QString& path);
    ~MemoryWorkbook() override;

    spreadsheet::Application& Application() override;
    QString Name() const override;
    int SheetCount() const override;
    std::shared_ptr<spreadsheet::Worksheet> Worksheets(int index) override;
    std::shared_ptr<spreadsheet::Worksheet> Worksheets(const QString& name) override;
    std::shared_ptr<spreadsheet::Worksheet> ActiveSheet() override;
    std::shared_ptr<spreadsheet::Worksheet> AddSheet(const QString& name) override;
    QString CustomDocumentProperty(const QString& name) const override;
    void setCustomDocumentProperty(const QString& name, const QString& value) override;
    void Save() override;
    void SaveAs(const QString& path, spreadsheet::FileFormat format) override;
    void SaveCopyAs(const QString& path) override;
    void Close(spreadsheet::SaveChanges changes) override;
    bool confirmClose() override;
    void subscribe(spreadsheet::WorkbookEvents events) override { m_events = std::move(events); }

private:
    friend class MemoryApplication;
    friend class MemoryOffice;
    friend class MemorySheet;

    void requireAlive() const;
    void store(const QString& path);
    bool askUser();
    void drop();

    MemoryApplication* m_application; ///< nullptr once it is gone
    WorkbookContent m_content;
    QString m_path;
    std::vector<std::shared_ptr<MemorySheet>> m_sheets;
    spreadsheet::WorkbookEvents m_events;
    spreadsheet::SaveChanges m_closing = spreadsheet::SaveChanges::Ask;
    std::size_t m_active = 0;
    bool m_modified = false;
    bool m_closed = false;
    bool m_confirmed = false;
};

class MemoryApplication final : public spreadsheet::Application
{
public:
    explicit MemoryApplication(MemoryOffice& office);
    ~MemoryApplication() override;
    MemoryApplication(const MemoryApplication&) = delete;
    MemoryApplication& operator=(const MemoryApplication&) = delete;

    std::shared_ptr<spreadsheet::Workbook> Open(const QString& path) override;
    std::shared_ptr<spreadsheet::Workbook> Add() override;
    bool isRunning() const override { return !m_dead; }
    void setVisible(bool visible) override;
    void refuseInput() override { m_takesInput = false; }
    void Quit() override;

private:
    friend class MemoryOffice;
    friend class MemorySheet;
    friend class MemoryWorkbook;

    void requireAlive() const;

    MemoryOffice* m_office;
    std::vector<std::weak_ptr<MemoryWorkbook>> m_books;
    bool m_visible = false;
    bool m_takesInput = true;
    bool m_dead = false;
};

/// A spreadsheet application without windows, whose workbooks lie as small files on disk. While it
/// stands it is the one that the program starts. Its user works on the workbook opened last in a
/// visible application. Events come as the interface tells, in the middle of the call or the
/// user's action that raises them.
class MemoryOffice
{
public:
    MemoryOffice();
    ~MemoryOffice();
    MemoryOffice(const MemoryOffice&) = delete;
    MemoryOffice& operator=(const MemoryOffice&) = delete;

    // ---- the user
    /// Nothing where the application refuses input.
    void typeIn(const QString& sheet, const QString& cell, const spreadsheet::CellValue& value);
    void select(const QString& sheet);
    void pressSave();
    void pressSaveAs(const QString& path);
    void pressClose();
    /// The answers that the user gives one after the other; without one he cancels.
    std::deque<UnsavedAnswer> answers;
    int questions = 0;
    /// What the application itself had to tell its user.
    QStringList messages;

    // ---- what there is to see
    bool hasWorkbook() const;
    bool isVisible() const;
    QString cellText(const QString& sheet, const QString& cell) const;
    int applications() const { return static_cast<int>(m_applications.size()); }

    // ---- its faults
    /// Ends all applications at once: from then on every call fails. Their programs are told by
    /// `tellLost`.
    void kill();
    void tellLost();
    /// Makes the workbook's selection and its active sheet fail with an error, once.
    void failSelection(const spreadsheet::Error& error);
    /// Starting fails, as where no application is installed.
    bool isInstalled = true;
    /// The next calls that close a workbook fail with this error.
    std::optional<spreadsheet::Error> closeFailure;
    /// The size of pictures in their own right.
    spreadsheet::Extent pictureSize{100, 50};
    /// Runs before a picture is inserted; it may fail.
    std::function<void(const QString& file)> whenInserted;
    /// How many applications were told to quit.
    int quits = 0;
    /// Runs at every value that the program writes.
    std::function<void()> whenWritten;
    /// Run before a file is read, and before one is saved with a sheet in front; they may fail.
    std::function<void(const QString& path)> whenOpened;
    std::function<void(const QString& path, const QString& sheet)> whenSaved;
    /// Runs before a cell or a document property of that name is used; it may fail.
    std::function<void(const QString& name)> whenAsked;

private:
    friend class MemoryApplication;
    friend class MemorySheet;
    friend class MemoryWorkbook;

    std::shared_ptr<MemoryWorkbook> current() const;

    std::vector<MemoryApplication*> m_applications;
    std::weak_ptr<MemoryWorkbook> m_shown;
    std::optional<spreadsheet::Error> m_selectionFailure;
};

} // namespace ostrand::tests
