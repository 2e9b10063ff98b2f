// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <optional>

/// The attributes of a project that hold paths.
namespace ostrand::app {

inline const QString attributeDatasheetFolder = QStringLiteral("DefaultDatasheetFolder");
inline const QString attributeTemplateFolder = QStringLiteral("DefaultTemplateFolder");
inline const QString attributePidDatabase = QStringLiteral("DefaultP&IDDatabase");

/// Columns of the window that shows the attributes.
namespace infoColumn {
inline constexpr int name = 0;
inline constexpr int value = 1;
} // namespace infoColumn

/// What the user is told who types on an attribute of this name, or presses Delete there; nothing
/// for an attribute that he may type. Names are told apart by case.
std::optional<QString> typingRefusal(const QString& attribute);
std::optional<QString> deletingRefusal(const QString& attribute);

} // namespace ostrand::app
