// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#pragma once

#include "spreadsheet/host.h"
#include "spreadsheet/libreoffice/call_watch.h"
#include "spreadsheet/libreoffice/event_queue.h"
#include "spreadsheet/libreoffice/object_keeper.h"
#include "spreadsheet/libreoffice/office_connection.h"
#include "spreadsheet/libreoffice/office_process.h"
#include "spreadsheet/libreoffice/picture_reader.h"

#include <atomic>
#include <com/sun/star/frame/XDesktop2.hpp>
#include <functional>
#include <memory>
#include <optional>
#include <vector>

namespace ostrand::spreadsheet::libreoffice {

/// One running application with its line, used for all workbooks until it ends.
class Office : public std::enable_shared_from_this<Office>
{
public:
    /// Starts it and waits for its first answer, while windows are painted but take no input.
    /// Raises 429 when that fails or takes too long.
    static std::shared_ptr<Office> start(const HostSettings& settings);
    explicit Office(const HostSettings& settings);
    ~Office();
    Office(const Office&) = delete;
    Office& operator=(const Office&) = delete;

    /// False once it has ended, by whatever cause.
    bool isAlive() const { return *m_alive; }
    /// The same by asking it, for who cannot wait until the line is found to be cut.
    bool answers() const;
    qint64 process() { return m_process.group(); }
    const HostSettings& settings() const { return m_settings; }

    /// Listeners hold the queue and the keeper, and never the application itself.
    const std::shared_ptr<EventQueue>& events() const { return m_events; }
    const std::shared_ptr<ObjectKeeper>& keeper() const { return m_keeper; }
    PictureReader& pictures() { return m_pictures; }
    const com::sun::star::uno::Reference<com::sun::star::frame::XDesktop2>& desktop() const
    {
        return m_desktop;
    }
    const com::sun::star::uno::Reference<com::sun::star::uno::XComponentContext>& context() const
    {
        return m_connection.remote();
    }

    /// Runs calls on the application's own main thread, where its windows and questions belong, and
    /// returns at once. Nothing happens when it has ended.
    void postToOffice(std::function<void()> calls) const;
    /// The same, and waits for the end, while windows are painted but take no input. Raises 462
    /// when the application ends meanwhile, and what the calls raise.
    void callInOffice(const std::function<void()>& calls) const;

    /// The same on a thread of its own, for calls that end something: they must not hold the
    /// program up, so the application is killed when it does not answer in time. The calls raise
    /// nothing.
    void callBriefly(const std::function<void()>& calls);
    /// Ends it; a workbook that is still open is closed without being saved. Not before the end has
    /// come does it return.
    void end();
    /// Ends it at once, with all that it has open.
    void kill();

    /// Whether the window that showed last filled the screen: the next one does so too. Nothing
    /// before the first.
    std::optional<bool> windowFillsScreen() const { return m_windowFillsScreen; }
    void noteWindowFillsScreen(bool fills) { m_windowFillsScreen = fills; }

    /// Counts the workbooks that are open in it.
    void noteOpened() { ++m_workbooks; }
    void noteClosed() { --m_workbooks; }
    int workbooks() const { return m_workbooks; }

    /// Is called on the main thread once the application has ended, as an event of the queue. The
    /// function is kept as long as the object of `keeper` lives.
    void onEnd(const std::weak_ptr<void>& keeper, std::function<void()> ended);

private:
    void connect();
    void noticeEnd();
    bool terminate();

    HostSettings m_settings;
    std::shared_ptr<EventQueue> m_events = std::make_shared<EventQueue>();
    std::shared_ptr<ObjectKeeper> m_keeper = std::make_shared<ObjectKeeper>();
    PictureReader m_pictures;
    OfficeProcess m_process;
    OfficeConnection m_connection;
    com::sun::star::uno::Reference<com::sun::star::frame::XDesktop2> m_desktop;
    /// The line is cut on another thread.
    std::shared_ptr<std::atomic<bool>> m_alive = std::make_shared<std::atomic<bool>>(false);

    struct EndHandler
    {
        std::weak_ptr<void> keeper;
        std::function<void()> ended;
    };
    std::vector<EndHandler> m_endHandlers;
    int m_workbooks = 0;
    std::optional<bool> m_windowFillsScreen;
    CallWatch m_watch; ///< the last, as its thread uses the others
};

} // namespace ostrand::spreadsheet::libreoffice
