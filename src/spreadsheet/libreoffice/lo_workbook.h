// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#pragma once

#include "spreadsheet/application.h"
#include "spreadsheet/libreoffice/lo_application.h"

#include <atomic>
#include <com/sun/star/document/XUndoManager.hpp>
#include <com/sun/star/frame/XController.hpp>
#include <com/sun/star/frame/XModel.hpp>
#include <com/sun/star/frame/XStorable2.hpp>
#include <com/sun/star/sheet/XSpreadsheetDocument.hpp>
#include <com/sun/star/util/XModifiable.hpp>
#include <optional>

namespace ostrand::spreadsheet::libreoffice {

class LoWorksheet;
class NumberFormats;
class WindowCommands;
class WorkbookListener;

/// An open document of the application, with its one window.
class LoWorkbook final : public Workbook, public std::enable_shared_from_this<LoWorkbook>
{
public:
    LoWorkbook(std::shared_ptr<LoApplication> application,
               const com::sun::star::uno::Reference<com::sun::star::sheet::XSpreadsheetDocument>&
                   document);
    ~LoWorkbook() override;
    LoWorkbook(const LoWorkbook&) = delete;
    LoWorkbook& operator=(const LoWorkbook&) = delete;

    ostrand::spreadsheet::Application& Application() override { return *m_application; }
    QString Name() const override;
    int SheetCount() const override;
    std::shared_ptr<Worksheet> Worksheets(int index) override;
    std::shared_ptr<Worksheet> Worksheets(const QString& name) override;
    std::shared_ptr<Worksheet> ActiveSheet() override;
    std::shared_ptr<Worksheet> AddSheet(const QString& name) override;
    QString CustomDocumentProperty(const QString& name) const override;
    void setCustomDocumentProperty(const QString& name, const QString& value) override;
    void Save() override;
    void SaveAs(const QString& path, FileFormat format) override;
    void SaveCopyAs(const QString& path) override;
    void Close(SaveChanges changes) override;
    bool confirmClose() override;
    void subscribe(WorkbookEvents events) override;

    void setVisible(bool visible);
    /// Closes it without saving, without a question and without an event; nothing it meets is told.
    void discard() noexcept;

    Office& office() const { return m_application->office(); }
    bool takesInput() const { return m_application->takesInput(); }
    const com::sun::star::uno::Reference<com::sun::star::sheet::XSpreadsheetDocument>&
    document() const
    {
        return m_document;
    }
    com::sun::star::uno::Reference<com::sun::star::frame::XController> controller() const;
    /// Cells, or what else is selected.
    com::sun::star::uno::Reference<com::sun::star::uno::XInterface> selection() const
    {
        return office().keeper()->keep(m_model->getCurrentSelection());
    }
    NumberFormats& numberFormats() { return *m_numberFormats; }

    /// The program is about to write cells.
    void beginWriting();
    /// A cell of a sheet was changed by the program.
    void noteChange(const QString& sheet);
    /// Worksheets say by this that they want to hear of changes.
    void addSubscriber(LoWorksheet* sheet);
    void removeSubscriber(const LoWorksheet* sheet);

    /// Above 0 while the application saves, when it tells of changes that nobody made.
    const std::shared_ptr<std::atomic<int>>& saves() const { return m_saves; }

    // What the window tells, on the main thread.
    /// The user gave a command to save; `passOn` has the application carry it out.
    void userSaves(bool asUi, const std::function<void()>& passOn);
    void userCloses();
    void userSelected() const;
    /// A cell of a sheet was changed, by its name; "" when nobody knows on which.
    void userChanged(const QString& sheet);

private:
    void requireOpen() const;
    void endWriting() noexcept;
    void endCellEntry();
    void show(bool visible);
    void
    showOnScreen(const com::sun::star::uno::Reference<com::sun::star::frame::XFrame>& frame) const;
    void whenAtRest(const std::function<void(LoWorkbook&)>& action);
    void store();
    bool raiseBeforeClose(SaveChanges changes);
    bool settle(SaveChanges changes);
    bool closeAsking();
    bool tryClose() const;
    void forget();

    std::shared_ptr<LoApplication> m_application;
    com::sun::star::uno::Reference<com::sun::star::sheet::XSpreadsheetDocument> m_document;
    com::sun::star::uno::Reference<com::sun::star::sheet::XSpreadsheets> m_sheets;
    com::sun::star::uno::Reference<com::sun::star::frame::XModel> m_model;
    com::sun::star::uno::Reference<com::sun::star::frame::XStorable2> m_storable;
    com::sun::star::uno::Reference<com::sun::star::util::XModifiable> m_modifiable;
    com::sun::star::uno::Reference<com::sun::star::document::XUndoManager> m_undo;
    std::unique_ptr<NumberFormats> m_numberFormats;
    std::unique_ptr<WindowCommands> m_commands;
    std::unique_ptr<WorkbookListener> m_listener;
    std::vector<LoWorksheet*> m_subscribers;
    std::shared_ptr<std::atomic<int>> m_saves = std::make_shared<std::atomic<int>>(0);
    WorkbookEvents m_events;
    std::optional<SaveChanges> m_closing; ///< how the close in progress treats what is unsaved
    bool m_open = true;
    bool m_hasShown = false;
    bool m_showPending = false;
    bool m_hasChanged = false; ///< the application itself does not note it in a read-only document
    bool m_writing = false;
    bool m_isShown = false;
};

} // namespace ostrand::spreadsheet::libreoffice
