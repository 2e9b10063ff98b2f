// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#pragma once

#include "toolkit/grid_window.h"

#include <QPointer>
#include <QString>

namespace ostrand::toolkit {
class DataDropDown;
} // namespace ostrand::toolkit

namespace ostrand::documents {

/// The documents tied to one tag. A tie may be made to any document of the register that has none
/// yet; columns of the document itself change it for all tags.
class frmDocXref final : public toolkit::GridWindow
{
    Q_OBJECT

public:
    explicit frmDocXref(QWidget* parent = nullptr);

    /// Fills the window for a tag and shows it until it is closed.
    void ShowInfo(const QString& tag);
    /// Opens the tag's datasheet workbook; nothing where the tag has none.
    void OpenDatasheet();

protected:
    void load() override;
    QString sortedSource(const QString& column) const override;
    QString deleteQuestion() const override;
    void beforeUpdate(bool& cancel) override;
    void checkRecord(bool& save) override;

private:
    void cmdMap();
    void cmdView();
    void cmdReference();
    void SaveDocRef();
    bool ValidateDocRef() const;

    void acceptColumn(int column, bool& cancel);
    void showPickedDocument();
    void takeTag();

    QString m_tag;
    bool m_savingContext = false; ///< the row is written by a command that renews its context
    toolkit::DataControl* m_dbDoc;
    toolkit::DataControl* m_dbDocType;
    toolkit::DataDropDown* m_cmbDoc;
    toolkit::DataDropDown* m_cmbDocType;
};

/// The window while it is open; it belongs to the main window.
extern QPointer<frmDocXref> g_frmDocXref;

/// Shows the documents of a tag over the main window. Nothing while they are shown already.
void showTagDocuments(QWidget* owner, const QString& tag);

} // namespace ostrand::documents
