// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "spreadsheet/libreoffice/lo_application.h"

#include "spreadsheet/libreoffice/file_signature.h"
#include "spreadsheet/libreoffice/lo_workbook.h"
#include "spreadsheet/libreoffice/lock_file.h"
#include "spreadsheet/libreoffice/properties.h"
#include "spreadsheet/libreoffice/uno_errors.h"
#include "spreadsheet/libreoffice/uno_text.h"
#include "spreadsheet/libreoffice/window.h"

#include <QCoreApplication>

#include <com/sun/star/document/MacroExecMode.hpp>
#include <com/sun/star/document/UpdateDocMode.hpp>
#include <com/sun/star/sheet/XSpreadsheetDocument.hpp>
#include <com/sun/star/util/XCloseable.hpp>

namespace css = com::sun::star;
using css::uno::Any;
using css::uno::Reference;

namespace ostrand::spreadsheet::libreoffice {
namespace {

/// Ends a document that is not a spreadsheet, such as a letter with the name of one.
void discard(const Reference<css::lang::XComponent>& document)
{
    const Reference<css::util::XCloseable> closeable(document, css::uno::UNO_QUERY);
    if (closeable.is())
        closeable->close(true);
}

/// Nobody sees a window of the headless application. It would be painted all the same after each
/// change, which keeps the calls of the program waiting.
void stopPainting(const LoWorkbook& workbook)
{
    hideWindow(workbook.controller()->getFrame());
}

} // namespace

LoApplication::LoApplication(std::shared_ptr<Office> office)
    : m_office(std::move(office))
{
}

std::shared_ptr<Workbook> LoApplication::Open(const QString& path)
{
    checkWorkbookFile(path);
    removeStaleLock(path);
    return load(path, fileUrl(path));
}

std::shared_ptr<Workbook> LoApplication::Add()
{
    return load({}, "private:factory/scalc");
}

Reference<css::lang::XComponent> LoApplication::loadDocument(const rtl::OUString& url,
                                                             bool readOnly)
{
    // A window that loads in sight would take input until it is told not to.
    const bool showsAtOnce = m_visible && m_takesInput;
    css::uno::Sequence<css::beans::PropertyValue> how = arguments({
        // What never shows needs no hiding; a hidden document forgets its sheet in front.
        {"Hidden", Any(!showsAtOnce && !m_office->settings().headless)},
        {"AsTemplate", Any(false)},
        {"MacroExecutionMode", Any(css::document::MacroExecMode::NEVER_EXECUTE)},
        {"UpdateDocMode", Any(css::document::UpdateDocMode::NO_UPDATE)},
        {"ReadOnly", Any(true)},
    });
    // False would ask for writing, which fails for a file without rights.
    if (!readOnly)
        how.realloc(how.getLength() - 1);
    return guarded(
        [&] { return m_office->desktop()->loadComponentFromURL(url, "_blank", 0, how); });
}

std::shared_ptr<Workbook> LoApplication::load(const QString& path, const rtl::OUString& url)
{
    Reference<css::lang::XComponent> document = loadDocument(url, false);
    // It gives nothing, and says nothing, for a file that the same user has open in another
    // application (one of another user it opens as read-only), and for one that wants a password.
    if (!document.is())
        document = loadDocument(url, isLocked(path));
    if (!document.is()) {
        throw Error(errors::permissionDenied,
                    QCoreApplication::translate(
                        "spreadsheet", "The file %1 can't be read, or is protected by a password.")
                        .arg(path));
    }
    const Reference<css::sheet::XSpreadsheetDocument> spreadsheet(document, css::uno::UNO_QUERY);
    if (!spreadsheet.is()) {
        guarded([&] { discard(document); });
        throw Error(
            errors::invalidFileFormat,
            QCoreApplication::translate("spreadsheet", "The file %1 is no workbook.").arg(path));
    }
    auto workbook =
        guarded([&] { return std::make_shared<LoWorkbook>(shared_from_this(), spreadsheet); });
    std::erase_if(m_workbooks, [](const auto& old) { return old.expired(); });
    m_workbooks.push_back(workbook);
    if (m_office->settings().headless)
        guarded([&] { stopPainting(*workbook); });
    if (m_visible)
        workbook->setVisible(true); // its window is there; it gets what all have
    return workbook;
}

std::vector<std::shared_ptr<LoWorkbook>> LoApplication::workbooks()
{
    std::vector<std::shared_ptr<LoWorkbook>> alive;
    for (const std::weak_ptr<LoWorkbook>& workbook : m_workbooks) {
        if (std::shared_ptr<LoWorkbook> open = workbook.lock())
            alive.push_back(std::move(open));
    }
    return alive;
}

void LoApplication::setVisible(bool visible)
{
    m_visible = visible;
    for (const std::shared_ptr<LoWorkbook>& workbook : workbooks())
        workbook->setVisible(visible);
}

void LoApplication::Quit()
{
    for (const std::shared_ptr<LoWorkbook>& workbook : workbooks())
        workbook->discard();
    if (m_office->workbooks() == 0)
        m_office->end();
}

} // namespace ostrand::spreadsheet::libreoffice
