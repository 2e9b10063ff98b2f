// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "datasheets/failure.h"

#include "app/main_window.h"
#include "app/state.h"
#include "spreadsheet/error.h"
#include "toolkit/busy_pointer.h"

#include <QWidget>

namespace ostrand::datasheets {

store::Error currentFailure()
{
    try {
        throw;
    } catch (const store::Error& error) {
        return error;
    } catch (const spreadsheet::Error& error) {
        return {error.number(), error.description()};
    } catch (const std::exception& error) {
        return {errors::internalError, QString::fromLocal8Bit(error.what())};
    }
}

void showFailure(const QString& text, const QString& title)
{
    toolkit::promptHost().messageBox({.text = text, .title = title});
}

toolkit::Answer showOverMainWindow(const toolkit::Box& box)
{
    app::mainWindow().window()->activateWindow();
    const toolkit::PointerShape arrow(Qt::ArrowCursor);
    return toolkit::promptHost().messageBox(box);
}

} // namespace ostrand::datasheets
