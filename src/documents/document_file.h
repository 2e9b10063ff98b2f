// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <functional>

namespace ostrand::documents {

/// Has the user pick the file of a document, beginning in the default datasheet folder, and passes
/// its folder and its name on. A path that cannot be split is told instead. Raises 32755 when the
/// user cancels.
void pickDocumentFile(
    const std::function<void(const QString& folder, const QString& name)>& takePlace);

/// Runs a command that maps a file to a document, and tells its failure. A cancelled dialog is
/// none.
void mapDocument(const std::function<void()>& command);

/// The kind of documents that stand for datasheets and have no file of their own.
bool isDatasheetKind(const QString& docType);

} // namespace ostrand::documents
