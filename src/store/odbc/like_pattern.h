// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QStringView>

namespace ostrand::store::odbc {

/// How a server can compare with a pattern that has digits or classes in it.
enum class PatternForm {
    LikeOnly,    ///< only with % and _: a digit or class becomes any one character
    LikeClasses, ///< LIKE takes [a-z] and [^a-z]
    SimilarTo,   ///< SIMILAR TO takes them
    Glob         ///< GLOB takes them
};

/// "LIKE '...'" as the server writes it for a pattern with * ? # [a-z] [!a-z].
QString likeClause(QStringView pattern, PatternForm form);

} // namespace ostrand::store::odbc
