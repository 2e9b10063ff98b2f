// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <exception>

namespace ostrand::store {

/// A failure of the database engine: the number that callers test and words for the user.
class Error : public std::exception
{
public:
    Error(int number, const QString& description);

    int number() const { return m_number; }
    const QString& description() const { return m_description; }
    const char* what() const noexcept override { return m_utf8.constData(); }

private:
    int m_number;
    QString m_description;
    QByteArray m_utf8;
};

/// The engine's error numbers that this program raises or tests. The values are those of the
/// engine that older projects were made with; users and maintainers know failures by them.
namespace errors {
inline constexpr int invalidCall = 5; ///< an argument that the operation cannot take
inline constexpr int permissionDenied = 70;
inline constexpr int objectNotSet = 91;
inline constexpr int refreshWhileEditing = 444;
inline constexpr int invalidArgument = 3001;
inline constexpr int updateWithoutEdit = 3020;
inline constexpr int noCurrentRecord = 3021;
inline constexpr int duplicateKey = 3022;
inline constexpr int fileNotFound = 3024;
inline constexpr int diskFull = 3026;
inline constexpr int notUpdatable = 3027;
inline constexpr int diskError = 3043;
inline constexpr int invalidPath = 3044;
inline constexpr int damagedFile = 3049;
inline constexpr int readOnly = 3051;
inline constexpr int outOfMemory = 3035;
inline constexpr int loginCancelled = 3059;
inline constexpr int missingParameter = 3061; ///< also: a name that no table of the statement has
inline constexpr int queryNotUpdatable = 3073;
inline constexpr int cannotExecuteSelect = 3065;
inline constexpr int invalidExpression = 3075;
inline constexpr int tableNotFound = 3078;
inline constexpr int ambiguousName = 3079;
inline constexpr int undefinedFunction = 3085;
inline constexpr int unknownField = 3127;
inline constexpr int notAStatement = 3129;
inline constexpr int syntaxInFrom = 3131;
inline constexpr int syntaxInInsert = 3134;
inline constexpr int syntaxInSelect = 3141;
inline constexpr int syntaxInUpdate = 3144;
inline constexpr int odbcCallFailed = 3146;
inline constexpr int odbcConnectionFailed = 3151;
inline constexpr int invalidBookmark = 3159;
inline constexpr int valueTooLong = 3163;
inline constexpr int fieldNotUpdatable = 3164;
inline constexpr int recordDeleted = 3167;
inline constexpr int parentHasChildren = 3200;
inline constexpr int parentMissing = 3201;
inline constexpr int notSupported = 3251;
inline constexpr int locked = 3260;
inline constexpr int itemNotFound = 3265;
inline constexpr int nullNotAllowed = 3314;
inline constexpr int zeroLengthNotAllowed = 3315;
inline constexpr int valueRefused = 3317;
inline constexpr int unrecognizedFormat = 3343;
inline constexpr int valueCountDiffers = 3346;
inline constexpr int objectClosed = 3420;
inline constexpr int typeMismatch = 3421;
} // namespace errors

} // namespace ostrand::store
