// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

class QWidget;

namespace ostrand::toolkit {
class DataControl;
} // namespace ostrand::toolkit

namespace ostrand::app {

/// What the other windows and units need of the main window; `frmIndex` is the one that exists.
/// They see no more than this, so that no room but the program's own top includes the main window.
class MainWindow
{
public:
    virtual ~MainWindow() = default;

    /// The tag of the current record; "" for none and for Null. It reads the record and not the
    /// grid: a tag being typed is not seen.
    virtual QString ActiveTag() const = 0;
    /// The project attributes DefaultDatasheetFolder, DefaultTemplateFolder and "logo file"; ""
    /// where the project has none.
    virtual QString FolderDatasheets() const = 0;
    virtual QString FolderTemplates() const = 0;
    virtual QString DatasheetLogoFile() const = 0;

    virtual toolkit::DataControl& dbIndex() = 0;

    /// Enables or disables what needs an open project.
    virtual void AbleForm(bool blnEnable) = 0;
    /// Enables or disables `cmdImport` and `cmdExport`.
    virtual void ableButton(bool blnEnable) = 0;
    /// Enables or disables the menu entries that make and open projects.
    virtual void ableFileMenu(bool blnEnable) = 0;

    /// Opens a project; "" has the user pick one.
    virtual void OpenIndex(const QString& path) = 0;
    /// Asks for a new file and makes it from the template.
    virtual void CreateIndex() = 0;

    /// Has the user find the current tag's datasheet file, and opens it.
    virtual void FindDatasheet() = 0;
    /// Take the place of a datasheet that was just made for the current tag; "" for none.
    virtual void setDatasheetFolder(const QString& folder) = 0;
    virtual void setDatasheetFileName(const QString& name) = 0;

    /// The text of panel 1 or 2 of the status bar.
    virtual void setPanelText(int panel, const QString& text) = 0;
    /// Puts the place in the index into panel 1.
    virtual void showRecordCounter() = 0;
    /// A bar in the status bar with the count of a long run; no total takes it away.
    virtual void setProgress(int done, int total) = 0;
    /// Reads the list of documents of a fixed kind anew; any other kind has none.
    virtual void refreshDocuments(const QString& docType) = 0;

    virtual QWidget* window() = 0;
};

} // namespace ostrand::app
