// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

namespace ostrand::bench {

/// The path of a project of so many generated tags, made on first use and kept beside the build.
QString projectOf(int tags);
/// The same with an empty index and so many documents.
QString projectOfDocuments(int documents);

} // namespace ostrand::bench
