// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <exception>

namespace ostrand::spreadsheet {

/// A failure of the spreadsheet application: the number that callers test and words for the user.
class Error : public std::exception
{
public:
    Error(int number, const QString& description)
        : m_number(number),
          m_description(description),
          m_utf8(description.toUtf8())
    {
    }

    int number() const { return m_number; }
    const QString& description() const { return m_description; }
    const char* what() const noexcept override { return m_utf8.constData(); }

private:
    int m_number;
    QString m_description;
    QByteArray m_utf8;
};

/// The numbers by which callers and users tell failures of the spreadsheet application.
namespace errors {
inline constexpr int invalidCall = 5;          ///< there is no such property
inline constexpr int subscriptOutOfRange = 9;  ///< there is no such sheet or control
inline constexpr int typeMismatch = 13;        ///< a value that has no text
inline constexpr int permissionDenied = 70;    ///< read-only, locked, or behind a password
inline constexpr int objectNotSet = 91;        ///< the workbook is closed already
inline constexpr int invalidFileFormat = 321;  ///< the file is no workbook
inline constexpr int cannotCreateObject = 429; ///< the application is not installed or won't start
inline constexpr int serverGone = 462;         ///< the application has ended
inline constexpr int applicationError = 1004; ///< a file or a picture not found, a bad cell address
} // namespace errors

} // namespace ostrand::spreadsheet
