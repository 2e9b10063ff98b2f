// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
//
// An open document: its sheets, its properties, its files. What its window does stands in
// lo_workbook_window.cpp, closing in lo_workbook_close.cpp.
#include "spreadsheet/libreoffice/lo_workbook.h"

#include "spreadsheet/libreoffice/interaction.h"
#include "spreadsheet/libreoffice/lo_worksheet.h"
#include "spreadsheet/libreoffice/number_formats.h"
#include "spreadsheet/libreoffice/properties.h"
#include "spreadsheet/libreoffice/uno_errors.h"
#include "spreadsheet/libreoffice/uno_text.h"
#include "spreadsheet/libreoffice/window_commands.h"
#include "spreadsheet/libreoffice/workbook_listener.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <com/sun/star/beans/PropertyAttribute.hpp>
#include <com/sun/star/beans/XPropertyContainer.hpp>
#include <com/sun/star/container/XIndexAccess.hpp>
#include <com/sun/star/document/XDocumentPropertiesSupplier.hpp>
#include <com/sun/star/document/XUndoManagerSupplier.hpp>
#include <com/sun/star/sheet/XSpreadsheetView.hpp>
#include <filesystem>

namespace css = com::sun::star;
using css::uno::Any;
using css::uno::Reference;
using css::uno::UNO_QUERY_THROW;
using namespace Qt::StringLiterals;

namespace ostrand::spreadsheet::libreoffice {
namespace {

constexpr auto workbookFilter = "MS Excel 97";
constexpr auto templateFilter = "MS Excel 97 Vorlage/Template";

QString tr(const char* text)
{
    return QCoreApplication::translate("spreadsheet", text);
}

/// What the application would do by itself is to make the folder.
void requireWritable(const QString& path)
{
    constexpr int pathNotFound = 76;
    const QFileInfo file(path);
    if (!file.dir().exists())
        throw Error(pathNotFound, tr("The folder of %1 was not found.").arg(path));
    if (file.exists() && !file.isWritable())
        throw Error(errors::permissionDenied, tr("The file %1 is read-only.").arg(path));
}

/// The user properties of a document.
template <typename Interface>
Reference<Interface> userProperties(const Reference<css::sheet::XSpreadsheetDocument>& document,
                                    ObjectKeeper& keeper)
{
    const auto properties =
        keeper.keep(Reference<css::document::XDocumentPropertiesSupplier>(document, UNO_QUERY_THROW)
                        ->getDocumentProperties());
    return {keeper.keep(properties->getUserDefinedProperties()), UNO_QUERY_THROW};
}

} // namespace

LoWorkbook::LoWorkbook(std::shared_ptr<LoApplication> application,
                       const Reference<css::sheet::XSpreadsheetDocument>& document)
    : m_application(std::move(application)),
      m_document(document),
      m_sheets(office().keeper()->keep(m_document->getSheets())),
      m_model(m_document, UNO_QUERY_THROW),
      m_storable(m_document, UNO_QUERY_THROW),
      m_modifiable(m_document, UNO_QUERY_THROW),
      m_undo(Reference<css::document::XUndoManagerSupplier>(m_document, UNO_QUERY_THROW)
                 ->getUndoManager()),
      m_numberFormats(std::make_unique<NumberFormats>(m_document, office().keeper()))
{
    office().noteOpened();
}

LoWorkbook::~LoWorkbook()
{
    discard();
}

void LoWorkbook::requireOpen() const
{
    if (!m_open)
        throw Error(errors::objectNotSet, tr("The workbook is closed."));
}

Reference<css::frame::XController> LoWorkbook::controller() const
{
    return office().keeper()->keep(m_model->getCurrentController());
}

QString LoWorkbook::Name() const
{
    requireOpen();
    return guarded([&] { return QFileInfo(filePathOf(m_model->getURL())).fileName(); });
}

int LoWorkbook::SheetCount() const
{
    requireOpen();
    return guarded([&] {
        return Reference<css::container::XIndexAccess>(m_sheets, UNO_QUERY_THROW)->getCount();
    });
}

std::shared_ptr<Worksheet> LoWorkbook::Worksheets(int index)
{
    requireOpen();
    return guarded([&] {
        const auto all = office().keeper()->as<css::container::XIndexAccess>(m_sheets);
        return std::make_shared<LoWorksheet>(
            shared_from_this(),
            Reference<css::sheet::XSpreadsheet>(all->getByIndex(index - 1), UNO_QUERY_THROW));
    });
}

std::shared_ptr<Worksheet> LoWorkbook::Worksheets(const QString& name)
{
    requireOpen();
    return guarded([&] {
        return std::make_shared<LoWorksheet>(
            shared_from_this(),
            Reference<css::sheet::XSpreadsheet>(m_sheets->getByName(unoText(name)),
                                                UNO_QUERY_THROW));
    });
}

std::shared_ptr<Worksheet> LoWorkbook::ActiveSheet()
{
    requireOpen();
    return guarded([&] {
        const auto view = office().keeper()->as<css::sheet::XSpreadsheetView>(controller());
        return std::make_shared<LoWorksheet>(shared_from_this(), view->getActiveSheet());
    });
}

std::shared_ptr<Worksheet> LoWorkbook::AddSheet(const QString& name)
{
    requireOpen();
    guarded(
        [&] { m_sheets->insertNewByName(unoText(name), static_cast<sal_Int16>(SheetCount())); });
    return Worksheets(name);
}

QString LoWorkbook::CustomDocumentProperty(const QString& name) const
{
    requireOpen();
    return guarded([&] {
        const auto properties =
            userProperties<css::beans::XPropertySet>(m_document, *office().keeper());
        try {
            rtl::OUString text;
            properties->getPropertyValue(unoText(name)) >>= text;
            return qtText(text);
        } catch (const css::beans::UnknownPropertyException&) {
            throw Error(errors::invalidCall,
                        tr("The workbook has no document property %1.").arg(name));
        }
    });
}

void LoWorkbook::setCustomDocumentProperty(const QString& name, const QString& value)
{
    requireOpen();
    guarded([&] {
        const auto properties =
            userProperties<css::beans::XPropertySet>(m_document, *office().keeper());
        if (properties->getPropertySetInfo()->hasPropertyByName(unoText(name))) {
            properties->setPropertyValue(unoText(name), Any(unoText(value)));
        } else {
            userProperties<css::beans::XPropertyContainer>(m_document, *office().keeper())
                ->addProperty(
                    unoText(name), css::beans::PropertyAttribute::REMOVABLE, Any(unoText(value)));
        }
    });
}

void LoWorkbook::store()
{
    endWriting(); // afterwards it would count as a change
    const QString path = filePathOf(m_model->getURL());
    if (m_storable->isReadonly())
        throw Error(errors::permissionDenied, tr("The file %1 is read-only.").arg(path));
    if (!path.isEmpty())
        requireWritable(path);
    guarded([&] {
        m_storable->storeSelf(arguments({{"InteractionHandler", Any(abortingInteraction())}}));
    });
}

void LoWorkbook::Save()
{
    requireOpen();
    const EventQueue::Hold hold(*office().events());
    bool cancel = false;
    if (m_events.BeforeSave)
        m_events.BeforeSave(false, cancel);
    if (!cancel && m_open)
        guarded([this] { store(); });
}

void LoWorkbook::SaveAs(const QString& path, FileFormat format)
{
    requireOpen();
    endWriting();
    requireWritable(path);
    const char* filter = format == FileFormat::Template ? templateFilter : workbookFilter;
    guarded([&] {
        // By another name's way the application would write over what somebody else has open.
        if (m_storable->isReadonly() && m_model->getURL() == fileUrl(path))
            throw Error(errors::permissionDenied, tr("The file %1 is read-only.").arg(path));
        m_storable->storeAsURL(
            fileUrl(path),
            arguments({{"FilterName", Any(rtl::OUString::createFromAscii(filter))}}));
    });
}

void LoWorkbook::SaveCopyAs(const QString& path)
{
    requireOpen();
    endWriting();
    requireWritable(path);
    // The copy takes its place as a whole, so that a failure leaves what was there.
    const QString whole = path + u".part"_s;
    try {
        guarded([&] {
            m_storable->storeToURL(
                fileUrl(whole),
                arguments({{"FilterName", Any(rtl::OUString::createFromAscii(workbookFilter))}}));
        });
        std::filesystem::rename(whole.toStdString(), path.toStdString());
    } catch (const std::filesystem::filesystem_error& failure) {
        QFile::remove(whole);
        throw Error(errors::applicationError, QString::fromStdString(failure.code().message()));
    } catch (const Error&) {
        QFile::remove(whole);
        throw;
    }
}

} // namespace ostrand::spreadsheet::libreoffice
