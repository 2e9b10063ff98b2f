// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "documents/document_file.h"

#include "app/main_window.h"
#include "app/modText.h"
#include "app/state.h"
#include "toolkit/prompts.h"

#include <QCoreApplication>

using namespace Qt::StringLiterals;

namespace ostrand::documents {
namespace {

QString tr(const char* text)
{
    return QCoreApplication::translate("document_file", text);
}

} // namespace

void pickDocumentFile(
    const std::function<void(const QString& folder, const QString& name)>& takePlace)
{
    const QString chosen = toolkit::chooseFile({.title = tr("Locate File"),
                                                .filter = tr("All Files (*.*)|*.*"),
                                                .folder = app::mainWindow().FolderDatasheets()});
    QString folder;
    QString name;
    if (app::SeparateFileDir(chosen, folder, name))
        takePlace(folder, name);
    else
        toolkit::showFailure(tr("Error getting file and path name for document"));
}

void mapDocument(const std::function<void()>& command)
{
    try {
        command();
    } catch (const store::Error& error) {
        if (error.number() != toolkit::cancelledDialog)
            toolkit::showFailure(
                toolkit::formB(tr("Error while maping file to document. "), error));
    }
}

bool isDatasheetKind(const QString& docType)
{
    return docType.compare("DATASHEET"_L1, Qt::CaseInsensitive) == 0;
}

} // namespace ostrand::documents
