// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

namespace ostrand::app {

/// A page as text, in the encoding that it tells itself.
QString decodeHelpPage(const QByteArray& bytes);

/// The title of a page; "" for none.
QString helpPageTitle(const QString& html);

/// The text of a page. Nothing that it names is loaded.
QString helpPageText(const QString& html);

/// False for a page so large, or with elements so deep within each other, that laying it out would
/// hold up the program.
bool isShowablePage(const QString& html);

} // namespace ostrand::app
