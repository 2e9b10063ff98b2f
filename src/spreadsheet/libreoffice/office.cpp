// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "spreadsheet/libreoffice/office.h"

#include "spreadsheet/libreoffice/patience.h"
#include "spreadsheet/libreoffice/uno_errors.h"

#include <QCoreApplication>

#include <com/sun/star/awt/AsyncCallback.hpp>
#include <com/sun/star/awt/XCallback.hpp>
#include <com/sun/star/frame/Desktop.hpp>
#include <com/sun/star/lang/DisposedException.hpp>
#include <cppuhelper/implbase1.hxx>
#include <future>
#include <thread>

namespace css = com::sun::star;

namespace ostrand::spreadsheet::libreoffice {
namespace {

constexpr int connectInterval = 20;
constexpr int endTimeout = 5000;
constexpr std::chrono::seconds answerTimeout{4};

class Callback final : public cppu::WeakImplHelper1<css::awt::XCallback>
{
public:
    explicit Callback(std::function<void()> calls)
        : m_calls(std::move(calls))
    {
    }
    void SAL_CALL notify(const css::uno::Any& /*data*/) override { m_calls(); }

private:
    std::function<void()> m_calls;
};

QString tr(const char* text)
{
    return QCoreApplication::translate("spreadsheet", text);
}

} // namespace

std::shared_ptr<Office> Office::start(const HostSettings& settings)
{
    auto office = std::make_shared<Office>(settings);
    office->m_connection.onEnd(
        [alive = office->m_alive, events = office->m_events, weak = office->weak_from_this()] {
            *alive = false;
            events->post(EventQueue::Kind::Command, [weak] {
                if (const std::shared_ptr<Office> ended = weak.lock())
                    ended->noticeEnd();
            });
        });
    return office;
}

Office::Office(const HostSettings& settings)
    : m_settings(settings),
      m_process(settings),
      m_watch(settings.answerTimeout, [this] { m_process.killGroup(); })
{
    connect();
    m_process.group(); // for the watch, which must not ask
    m_desktop = guarded([this] { return css::frame::Desktop::create(m_connection.remote()); });
    *m_alive = true;
}

Office::~Office()
{
    end();
    m_keeper->clear();
    m_pictures.clear();
    m_desktop.clear();
    m_connection.close();
}

void Office::connect()
{
    std::atomic<bool> givenUp = false;
    // The first call waits until the application is ready for it.
    std::future<bool> connected =
        std::async(std::launch::async, [this, &givenUp, pipe = m_process.pipe()] {
            while (!givenUp) {
                if (m_connection.open(pipe))
                    return true;
                std::this_thread::sleep_for(std::chrono::milliseconds(connectInterval));
            }
            return false;
        });
    const auto isReady = [&] {
        return connected.wait_for(std::chrono::seconds(0)) == std::future_status::ready;
    };
    const bool answered =
        waitPatiently([&] { return isReady() || !m_process.isRunning(); }, m_settings.startTimeout);
    if (isReady() && guarded([&] { return connected.get(); }, errors::cannotCreateObject))
        return;
    givenUp = true;
    if (answered) {
        throw Error(errors::cannotCreateObject,
                    tr("The spreadsheet application has ended while it started. %1")
                        .arg(m_process.lastWords())
                        .trimmed());
    }
    m_process.kill();
    throw Error(errors::cannotCreateObject,
                tr("The spreadsheet application takes too long to start."));
}

/// True when it goes, which it does not while it has a dialog open. The line is cut by it then.
bool Office::terminate()
{
    bool goes = false;
    callBriefly([&] {
        try {
            goes = m_desktop->terminate();
        } catch (const css::lang::DisposedException&) { // it went before it could answer
            goes = true;
        } catch (const css::uno::Exception&) { // nothing else makes it go
        }
    });
    return goes && m_process.waitForEnd(endTimeout);
}

void Office::end()
{
    // It would ask about what is unsaved.
    if (isAlive() && (m_workbooks > 0 || !terminate()))
        kill();
}

void Office::callBriefly(const std::function<void()>& calls)
{
    if (!isAlive())
        return;
    const std::future<void> done = std::async(std::launch::async, calls);
    if (done.wait_for(answerTimeout) != std::future_status::ready)
        kill();
}

bool Office::answers() const
{
    if (!isAlive())
        return false;
    try {
        return guarded([this] { return context()->getServiceManager().is(); });
    } catch (const Error&) {
        return false;
    }
}

void Office::kill()
{
    *m_alive = false;
    m_process.kill();
}

void Office::noticeEnd()
{
    const std::vector<EndHandler> handlers = std::move(m_endHandlers);
    m_endHandlers.clear();
    for (const EndHandler& handler : handlers) {
        if (const std::shared_ptr<void> kept = handler.keeper.lock())
            handler.ended();
    }
}

void Office::onEnd(const std::weak_ptr<void>& keeper, std::function<void()> ended)
{
    std::erase_if(m_endHandlers, [](const EndHandler& old) { return old.keeper.expired(); });
    m_endHandlers.push_back({keeper, std::move(ended)});
}

void Office::postToOffice(std::function<void()> calls) const
{
    if (!isAlive())
        return;
    try {
        css::awt::AsyncCallback::create(context())->addCallback(new Callback(std::move(calls)), {});
    } catch (const css::lang::DisposedException&) { // told by the line's end
    }
}

void Office::callInOffice(const std::function<void()>& calls) const
{
    struct Call
    {
        std::atomic<bool> done = false;
        std::exception_ptr failure;
    };
    const auto call = std::make_shared<Call>();
    guarded([&] {
        css::awt::AsyncCallback::create(context())->addCallback(
            new Callback([call, calls] {
                try {
                    calls();
                } catch (...) {
                    call->failure = std::current_exception();
                }
                call->done = true;
            }),
            {});
    });
    waitPatiently([&] { return call->done || !isAlive(); });
    if (!call->done)
        throw Error(errors::serverGone, tr("The spreadsheet application has ended."));
    if (call->failure)
        guarded([&] { std::rethrow_exception(call->failure); });
}

} // namespace ostrand::spreadsheet::libreoffice
