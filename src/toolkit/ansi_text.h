// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QString>

#include <optional>

namespace ostrand::toolkit {

/// Text of a file without a byte order mark: UTF-8 where all of it is, else Windows-1252.
QString decodeText(const QByteArray& bytes);

/// A text as Windows-1252, the code page of files that other programs read as ANSI. Nothing where
/// it has a character that the code page lacks.
std::optional<QByteArray> encodeAnsi(const QString& text);

} // namespace ostrand::toolkit
