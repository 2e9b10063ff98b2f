// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "app/main_window.h"
#include "app/modMain.h"
#include "app/program.h"
#include "app/state.h"
#include "store/error.h"
#include "toolkit/prompts.h"

#include <QApplication>
#include <QStringList>

using namespace Qt::StringLiterals;

namespace {

/// The last net under the handlers, each of which tells its own failures: one that got past them
/// is told here, and the program goes on.
class Program final : public QApplication
{
public:
    using QApplication::QApplication;

    bool notify(QObject* receiver, QEvent* event) override
    {
        try {
            return QApplication::notify(receiver, event);
        } catch (const ostrand::store::Error& error) {
            ostrand::toolkit::showFailure(QString::number(error.number()) + u" : "_s
                                          + error.description());
            return true;
        }
    }
};

} // namespace

int main(int argc, char* argv[])
{
    const Program application(argc, argv);
    ostrand::app::nameApplication();
    QApplication::setQuitOnLastWindowClosed(false);
    ostrand::app::Main(QApplication::arguments().mid(1).join(u' '));
    // The window may have been closed already while the start window was open.
    return ostrand::app::g_frmIndex ? QApplication::exec() : 0;
}
