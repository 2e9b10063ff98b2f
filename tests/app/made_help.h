// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QMap>
#include <QString>

namespace ostrand::tests {

/// Files of a help file by their names in it.
using HelpSources = QMap<QString, QByteArray>;

/// A page with a title and a body.
QByteArray htmlPage(const QString& title, const QString& body);
/// A contents file with one entry for each pair of title and page.
QByteArray contentsFile(const QList<std::pair<QString, QString>>& entries);
/// Compiles the sources in the folder; the result takes the place of `folder`/`name`.chm.
void compileHelp(const QString& folder, const QString& name, const HelpSources& sources);

/// Writes the digest that a help file is shown with.
void writeDigest(const QString& helpFile);

} // namespace ostrand::tests
