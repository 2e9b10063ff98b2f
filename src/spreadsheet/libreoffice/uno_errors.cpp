// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "spreadsheet/libreoffice/uno_errors.h"

#include "spreadsheet/libreoffice/uno_text.h"

#include <QCoreApplication>
#include <QRegularExpression>

#include <com/sun/star/container/NoSuchElementException.hpp>
#include <com/sun/star/lang/DisposedException.hpp>
#include <com/sun/star/lang/IndexOutOfBoundsException.hpp>

namespace css = com::sun::star;
using namespace Qt::StringLiterals;

namespace ostrand::spreadsheet::libreoffice {
namespace {

/// What an exception says, without the place in the application's own source that it puts behind.
QString wordsOf(const css::uno::Exception& exception)
{
    static const QRegularExpression place(uR"((^|\s)at \S+\.[ch]xx:\d+\s*$)"_s);
    return qtText(exception.Message).remove(place).trimmed();
}

} // namespace

void raiseAsError(int number)
{
    const auto text = [](const char* words) {
        return QCoreApplication::translate("spreadsheet", words);
    };
    try {
        throw;
    } catch (const Error&) {
        throw;
    } catch (const css::lang::DisposedException&) {
        throw Error(errors::serverGone, text("The spreadsheet application has ended."));
    } catch (const css::container::NoSuchElementException&) {
        throw Error(errors::subscriptOutOfRange, text("Subscript out of range"));
    } catch (const css::lang::IndexOutOfBoundsException&) {
        throw Error(errors::subscriptOutOfRange, text("Subscript out of range"));
    } catch (const css::uno::Exception& exception) {
        const QString words = wordsOf(exception);
        throw Error(number,
                    words.isEmpty() ? text("The spreadsheet application refused the command.")
                                    : words);
    }
}

} // namespace ostrand::spreadsheet::libreoffice
