// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "support/memory_workbook.h"

#include "spreadsheet/host.h"

#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>

#include <utility>

using namespace Qt::StringLiterals;
using ostrand::spreadsheet::CellValue;
using ostrand::spreadsheet::Error;
using ostrand::spreadsheet::SaveChanges;
namespace errors = ostrand::spreadsheet::errors;

namespace ostrand::tests {

namespace {

bool isPicture(const QByteArray& start)
{
    return start.startsWith("GIF8") || start.startsWith("BM") || start.startsWith("\x89PNG")
           || start.startsWith("\xff\xd8");
}

} // namespace

// ---- the places of a sheet

class MemoryCell final : public spreadsheet::Range
{
public:
    MemoryCell(MemorySheet& sheet, QString reference)
        : m_sheet(sheet),
          m_reference(std::move(reference))
    {
    }

    CellValue Value() const override
    {
        if (m_reference.contains(u':'))
            return spreadsheet::ManyCells();
        const auto& cells = m_sheet.content().cells;
        const auto found = cells.find(m_reference);
        return found == cells.end() ? CellValue() : found->second;
    }

    void setValue(const QString& text) override
    {
        auto& cells = m_sheet.content().cells;
        if (text.isEmpty())
            cells.erase(m_reference);
        else
            cells[m_reference] = text;
        m_sheet.changed();
    }

    void Select() override { m_sheet.content().currentCell = m_reference; }
    void Activate() override { Select(); }
    std::optional<spreadsheet::Extent> MergeArea() const override { return std::nullopt; }

private:
    MemorySheet& m_sheet;
    QString m_reference;
};

class MemoryControl final : public spreadsheet::Control
{
public:
    MemoryControl(MemorySheet& sheet, QString name)
        : m_sheet(sheet),
          m_name(std::move(name))
    {
    }

    CellValue Value() const override { return m_sheet.content().controls.at(m_name); }
    void setValue(const QString& text) override { m_sheet.content().controls[m_name] = text; }
    void setValue(bool checked) override { m_sheet.content().controls[m_name] = checked; }

private:
    MemorySheet& m_sheet;
    QString m_name;
};

/// A picture, by its place among the others; one that is deleted leaves its place empty until the
/// sheet is asked for its pictures again.
class MemoryShape final : public spreadsheet::Shape
{
public:
    MemoryShape(MemorySheet& sheet, std::size_t index)
        : m_sheet(sheet),
          m_index(index)
    {
    }

    QString Name() const override { return picture().name; }
    void setName(const QString& name) override { picture().name = name; }
    void Delete() override
    {
        m_sheet.requireUnprotected();
        auto& pictures = m_sheet.content().pictures;
        pictures.erase(pictures.begin() + static_cast<std::ptrdiff_t>(m_index));
    }
    double Left() const override { return picture().left; }
    double Top() const override { return picture().top; }
    spreadsheet::Extent Size() const override { return {picture().width, picture().height}; }
    void setPosition(double left, double top) override
    {
        picture().left = left;
        picture().top = top;
    }
    void setSize(const spreadsheet::Extent& size) override
    {
        picture().width = size.width;
        picture().height = size.height;
    }

private:
    PictureContent& picture() const { return m_sheet.content().pictures[m_index]; }

    MemorySheet& m_sheet;
    std::size_t m_index;
};

// ---- sheets

SheetContent& MemorySheet::content() const
{
    if (!m_book)
        throw Error(errors::objectNotSet, u"The workbook is closed"_s);
    m_book->requireAlive();
    return m_book->m_content.sheets[m_index];
}

void MemorySheet::changed() const
{
    m_book->m_modified = true;
    const auto office = m_book->m_application->m_office;
    if (const auto handler = m_change)
        handler();
    if (const auto watcher = office->whenWritten)
        watcher();
}

QString MemorySheet::Name() const
{
    return content().name;
}

std::unique_ptr<spreadsheet::Range> MemorySheet::Range(const QString& reference)
{
    static const QRegularExpression form(u"^[A-Z]{1,3}[1-9][0-9]*(:[A-Z]{1,3}[1-9][0-9]*)?$"_s);
    content();
    const QString upper = QString(reference).remove(u'$').toUpper();
    if (!form.match(upper).hasMatch())
        throw Error(errors::applicationError, u"The reference is not valid"_s);
    if (const auto watcher = m_book->m_application->m_office->whenAsked)
        watcher(upper);
    return std::make_unique<MemoryCell>(*this, upper);
}

/// A block such as "A1:E100".
spreadsheet::CellValues MemorySheet::Values(const QString& block)
{
    static const QRegularExpression form(u"^([A-Z])([0-9]+):([A-Z])([0-9]+)$"_s);
    const QRegularExpressionMatch match = form.match(block);
    if (!match.hasMatch())
        throw Error(errors::applicationError, u"The reference is not valid"_s);
    spreadsheet::CellValues values;
    for (int row = match.captured(2).toInt(); row <= match.captured(4).toInt(); ++row) {
        auto& line = values.emplace_back();
        const char16_t last = match.captured(3).front().unicode();
        for (char16_t column = match.captured(1).front().unicode(); column <= last; ++column)
            line.push_back(Range(QChar(column) + QString::number(row))->Value());
    }
    return values;
}

void MemorySheet::write(const std::vector<spreadsheet::CellWrite>& cells)
{
    for (const spreadsheet::CellWrite& write : cells) {
        const auto range = Range(write.cell);
        const auto* text = std::get_if<QString>(&write.value);
        if (text || std::holds_alternative<std::monostate>(write.value))
            range->setValue(text ? *text : QString());
        else
            content().cells[write.cell.toUpper()] = write.value;
    }
    m_book->m_modified = true;
}

std::unique_ptr<spreadsheet::Control> MemorySheet::OLEObjects(const QString& name)
{
    if (!content().controls.contains(name))
        throw Error(errors::subscriptOutOfRange, u"Subscript out of range"_s);
    return std::make_unique<MemoryControl>(*this, name);
}

void MemorySheet::Activate()
{
    content();
    m_book->m_active = m_index;
}

void MemorySheet::Protect()
{
    content().isProtected = true;
}

void MemorySheet::Unprotect()
{
    if (!content().password.isEmpty())
        throw Error(errors::applicationError, u"The password is not correct"_s);
    content().isProtected = false;
}

void MemorySheet::requireUnprotected() const
{
    if (content().isProtected)
        throw Error(errors::applicationError, u"The sheet is protected"_s);
}

std::vector<std::unique_ptr<spreadsheet::Shape>> MemorySheet::Shapes()
{
    std::vector<std::unique_ptr<spreadsheet::Shape>> shapes;
    for (std::size_t i = 0; i < content().pictures.size(); ++i)
        shapes.push_back(std::make_unique<MemoryShape>(*this, i));
    return shapes;
}

std::unique_ptr<spreadsheet::Shape> MemorySheet::InsertPicture(const QString& file)
{
    requireUnprotected();
    const MemoryOffice& office = *m_book->m_application->m_office;
    if (office.whenInserted)
        office.whenInserted(file);
    QFile picture(file);
    if (!picture.open(QIODevice::ReadOnly) || !isPicture(picture.peek(4)))
        throw Error(errors::applicationError, u"The picture can't be read"_s);
    content().pictures.push_back({.name = u"Picture"_s,
                                  .file = file,
                                  .anchor = content().currentCell,
                                  .width = office.pictureSize.width,
                                  .height = office.pictureSize.height});
    return std::make_unique<MemoryShape>(*this, content().pictures.size() - 1);
}

void MemorySheet::addControl(const QString& name, const CellValue& value)
{
    content().controls[name] = value;
}

void MemorySheet::setName(const QString& name)
{
    content().name = name;
}

void MemorySheet::setText(const QString& cell, const QString& text)
{
    content().cells[cell] = text;
}

// ---- workbooks

MemoryWorkbook::MemoryWorkbook(MemoryApplication& application,
                               WorkbookContent content,
                               const QString& path)
    : m_application(&application),
      m_content(std::move(content)),
      m_path(path),
      m_active(static_cast<std::size_t>(m_content.active))
{
    for (std::size_t i = 0; i < m_content.sheets.size(); ++i)
        m_sheets.push_back(std::make_shared<MemorySheet>(*this, i));
}

MemoryWorkbook::~MemoryWorkbook()
{
    drop();
}

void MemoryWorkbook::requireAlive() const
{
    if (!m_application || m_closed)
        throw Error(errors::objectNotSet, u"The workbook is closed"_s);
    m_application->requireAlive();
}

void MemoryWorkbook::drop()
{
    m_closed = true;
    for (const auto& sheet : m_sheets)
        sheet->m_book = nullptr;
}

spreadsheet::Application& MemoryWorkbook::Application()
{
    requireAlive();
    return *m_application;
}

QString MemoryWorkbook::Name() const
{
    requireAlive();
    return QFileInfo(m_path).fileName();
}

int MemoryWorkbook::SheetCount() const
{
    requireAlive();
    return static_cast<int>(m_sheets.size());
}

std::shared_ptr<spreadsheet::Worksheet> MemoryWorkbook::Worksheets(int index)
{
    requireAlive();
    if (index < 1 || index > SheetCount())
        throw Error(errors::subscriptOutOfRange, u"Subscript out of range"_s);
    return m_sheets[static_cast<std::size_t>(index - 1)];
}

std::shared_ptr<spreadsheet::Worksheet> MemoryWorkbook::Worksheets(const QString& name)
{
    requireAlive();
    for (const auto& sheet : m_sheets) {
        if (sheet->Name().compare(name, Qt::CaseInsensitive) == 0)
            return sheet;
    }
    throw Error(errors::subscriptOutOfRange, u"Subscript out of range"_s);
}

std::shared_ptr<spreadsheet::Worksheet> MemoryWorkbook::ActiveSheet()
{
    requireAlive();
    auto& failure = m_application->m_office->m_selectionFailure;
    if (failure)
        throw Error(*std::exchange(failure, std::nullopt));
    return m_sheets[m_active];
}

std::shared_ptr<spreadsheet::Worksheet> MemoryWorkbook::AddSheet(const QString& name)
{
    requireAlive();
    m_content.sheets.push_back({.name = name});
    m_sheets.push_back(std::make_shared<MemorySheet>(*this, m_sheets.size()));
    return m_sheets.back();
}

QString MemoryWorkbook::CustomDocumentProperty(const QString& name) const
{
    requireAlive();
    if (const auto watcher = m_application->m_office->whenAsked)
        watcher(name);
    if (!m_content.properties.contains(name))
        throw Error(errors::invalidCall, u"There is no such property"_s);
    return m_content.properties[name];
}

void MemoryWorkbook::setCustomDocumentProperty(const QString& name, const QString& value)
{
    requireAlive();
    m_content.properties[name] = value;
}

void MemoryWorkbook::store(const QString& path)
{
    m_content.active = static_cast<int>(m_active);
    writeWorkbook(path, m_content);
    m_modified = false;
}

void MemoryWorkbook::Save()
{
    requireAlive();
    const auto keep = shared_from_this();
    bool cancel = false;
    if (const auto handler = m_events.BeforeSave)
        handler(false, cancel);
    if (cancel)
        return;
    if (const auto watcher = m_application->m_office->whenSaved)
        watcher(m_path, m_sheets[m_active]->Name());
    store(m_path);
}

void MemoryWorkbook::SaveAs(const QString& path, spreadsheet::FileFormat format)
{
    requireAlive();
    if (const auto watcher = m_application->m_office->whenSaved)
        watcher(path, m_sheets[m_active]->Name());
    m_content.isTemplate = format == spreadsheet::FileFormat::Template;
    store(path);
    m_path = path;
}

void MemoryWorkbook::SaveCopyAs(const QString& path)
{
    requireAlive();
    writeWorkbook(path, m_content);
}

void MemoryWorkbook::Close(SaveChanges changes)
{
    requireAlive();
    auto& failure = m_application->m_office->closeFailure;
    if (failure)
        throw Error(*std::exchange(failure, std::nullopt));
    const auto keep = shared_from_this();
    m_closing = changes;
    m_confirmed = false;
    bool cancel = false;
    if (const auto handler = m_events.BeforeClose)
        handler(cancel);
    // The handler may have closed it already, in one way or another.
    if (!m_closed && !cancel && (m_confirmed || confirmClose()))
        drop();
}

bool MemoryWorkbook::confirmClose()
{
    requireAlive();
    m_confirmed = true;
    if (!m_modified || m_closing == SaveChanges::No)
        return true;
    if (m_closing == SaveChanges::Ask)
        return askUser();
    store(m_path);
    return true;
}

bool MemoryWorkbook::askUser()
{
    MemoryOffice& office = *m_application->m_office;
    ++office.questions;
    UnsavedAnswer answer = UnsavedAnswer::Cancel;
    if (!office.answers.empty()) {
        answer = office.answers.front();
        office.answers.pop_front();
    }
    if (answer == UnsavedAnswer::Death) {
        office.kill();
        requireAlive();
    }
    if (answer != UnsavedAnswer::Save)
        return answer == UnsavedAnswer::Discard;
    try {
        store(m_path);
        return true;
    } catch (const Error& error) {
        office.messages << error.description();
        return false;
    }
}

// ---- applications

MemoryApplication::MemoryApplication(MemoryOffice& office)
    : m_office(&office)
{
    office.m_applications.push_back(this);
}

MemoryApplication::~MemoryApplication()
{
    for (const auto& each : m_books) {
        if (const auto book = each.lock()) {
            book->drop();
            book->m_application = nullptr;
        }
    }
    if (m_office)
        std::erase(m_office->m_applications, this);
}

void MemoryApplication::requireAlive() const
{
    if (m_dead || !m_office)
        throw Error(errors::serverGone, u"The spreadsheet application has ended"_s);
}

std::shared_ptr<spreadsheet::Workbook> MemoryApplication::Open(const QString& path)
{
    requireAlive();
    if (!QFileInfo(path).isFile())
        throw Error(errors::applicationError, u"The file was not found"_s);
    if (m_office->whenOpened)
        m_office->whenOpened(path);
    auto content = readWorkbook(path);
    if (!content)
        throw Error(errors::invalidFileFormat, u"The file is no workbook"_s);
    auto book = std::make_shared<MemoryWorkbook>(*this, std::move(*content), path);
    m_books.push_back(book);
    return book;
}

std::shared_ptr<spreadsheet::Workbook> MemoryApplication::Add()
{
    requireAlive();
    auto book = std::make_shared<MemoryWorkbook>(
        *this, WorkbookContent{.properties = {}, .sheets = {{.name = u"Sheet1"_s}}}, QString());
    m_books.push_back(book);
    return book;
}

void MemoryApplication::setVisible(bool visible)
{
    requireAlive();
    m_visible = visible;
    if (visible && !m_books.empty())
        m_office->m_shown = m_books.back();
}

void MemoryApplication::Quit()
{
    requireAlive();
    ++m_office->quits;
    for (const auto& each : m_books) {
        if (const auto book = each.lock())
            book->drop();
    }
}

// ---- the user and the faults

MemoryOffice::MemoryOffice()
{
    spreadsheet::setApplicationFactory([this]() -> std::shared_ptr<spreadsheet::Application> {
        if (!isInstalled)
            throw Error(errors::cannotCreateObject, u"ActiveX component can't create object"_s);
        return std::make_shared<MemoryApplication>(*this);
    });
}

MemoryOffice::~MemoryOffice()
{
    spreadsheet::setApplicationFactory({});
    for (MemoryApplication* application : m_applications)
        application->m_office = nullptr;
}

std::shared_ptr<MemoryWorkbook> MemoryOffice::current() const
{
    auto book = m_shown.lock();
    if (!book || book->m_closed || !book->m_application || book->m_application->m_dead)
        return nullptr;
    return book;
}

bool MemoryOffice::hasWorkbook() const
{
    return current() != nullptr;
}

bool MemoryOffice::isVisible() const
{
    const auto book = current();
    return book && book->m_application->m_visible;
}

void MemoryOffice::select(const QString& sheet)
{
    const auto book = current();
    book->Worksheets(sheet)->Activate();
    if (const auto handler = book->m_events.SheetSelectionChange)
        handler();
}

void MemoryOffice::typeIn(const QString& sheet, const QString& cell, const CellValue& value)
{
    if (!current()->m_application->m_takesInput)
        return;
    select(sheet);
    const auto book = current();
    const auto& target = *book->m_sheets[book->m_active];
    if (std::holds_alternative<std::monostate>(value))
        target.content().cells.erase(cell);
    else
        target.content().cells[cell] = value;
    book->m_modified = true;
    if (const auto handler = target.m_change)
        handler();
}

void MemoryOffice::pressSave()
{
    try {
        current()->Save();
    } catch (const Error& error) {
        messages << error.description();
    }
}

void MemoryOffice::pressSaveAs(const QString& path)
{
    const auto book = current();
    bool cancel = false;
    if (const auto handler = book->m_events.BeforeSave)
        handler(true, cancel);
    if (cancel)
        return;
    try {
        book->SaveAs(path, spreadsheet::FileFormat::Workbook);
    } catch (const Error& error) {
        messages << error.description();
    }
}

void MemoryOffice::pressClose()
{
    current()->Close(SaveChanges::Ask);
}

QString MemoryOffice::cellText(const QString& sheet, const QString& cell) const
{
    const CellValue value = current()->Worksheets(sheet)->Range(cell)->Value();
    if (const auto* text = std::get_if<QString>(&value))
        return *text;
    if (const auto* number = std::get_if<double>(&value))
        return QString::number(*number, 'G', 15);
    if (const auto* flag = std::get_if<bool>(&value))
        return *flag ? u"TRUE"_s : u"FALSE"_s;
    if (const auto* moment = std::get_if<QDateTime>(&value))
        return moment->toString(u"yyyy-MM-dd"_s);
    if (const auto* error = std::get_if<spreadsheet::CellError>(&value))
        return error->text;
    return {};
}

void MemoryOffice::kill()
{
    for (MemoryApplication* application : m_applications)
        application->m_dead = true;
}

void MemoryOffice::tellLost()
{
    const auto book = m_shown.lock();
    if (!book)
        return;
    if (const auto handler = book->m_events.Lost)
        handler();
}

void MemoryOffice::failSelection(const Error& error)
{
    m_selectionFailure = error;
}

} // namespace ostrand::tests
