// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "spreadsheet/libreoffice/window_commands.h"

#include "spreadsheet/libreoffice/lo_workbook.h"
#include "spreadsheet/libreoffice/save_scope.h"
#include "spreadsheet/libreoffice/uno_text.h"

#include <com/sun/star/frame/FeatureStateEvent.hpp>
#include <com/sun/star/frame/XDispatch.hpp>
#include <cppuhelper/implbase1.hxx>
#include <cppuhelper/implbase2.hxx>
#include <map>
#include <memory>

namespace css = com::sun::star;
using css::uno::Reference;
using css::uno::Sequence;

namespace ostrand::spreadsheet::libreoffice {
namespace {

enum class Role { PassOn, Save, SaveAs, Close, Refuse };

Role roleOf(const rtl::OUString& command)
{
    static const std::map<QString, Role> roles{
        {QStringLiteral(".uno:Save"), Role::Save},
        {QStringLiteral(".uno:SaveAs"), Role::SaveAs},
        {QStringLiteral(".uno:CloseFrame"), Role::Close},
        {QStringLiteral(".uno:CloseWin"), Role::Close},
        {QStringLiteral(".uno:CloseDoc"), Role::Close},
        {QStringLiteral(".uno:Quit"), Role::Close},
        {QStringLiteral(".uno:NewWindow"), Role::Refuse},
        {QStringLiteral(".uno:NewDoc"), Role::Refuse},
        {QStringLiteral(".uno:AddDirect"), Role::Refuse},
        {QStringLiteral(".uno:Open"), Role::Refuse},
        {QStringLiteral(".uno:OpenFromCalc"), Role::Refuse},
        {QStringLiteral(".uno:OpenFromWriter"), Role::Refuse},
        {QStringLiteral(".uno:OpenRemote"), Role::Refuse},
        {QStringLiteral(".uno:OpenTemplate"), Role::Refuse},
        {QStringLiteral(".uno:RecentFileList"), Role::Refuse},
        {QStringLiteral(".uno:AutoPilotMenu"), Role::Refuse},
        {QStringLiteral(".uno:Reload"), Role::Refuse},
        {QStringLiteral(".uno:EditDoc"), Role::Refuse},
        {QStringLiteral(".uno:ReadOnlyDoc"), Role::Refuse},
        {QStringLiteral(".uno:SaveAll"), Role::Refuse},
        {QStringLiteral(".uno:SaveAsRemote"), Role::Refuse},
        {QStringLiteral(".uno:VersionDialog"), Role::Refuse},
        // It has an icon that saves on a click and tells nobody.
        {QStringLiteral(".uno:StatusBarVisible"), Role::Refuse},
    };
    const QString name = qtText(command).section(u'?', 0, 0);
    if (name.startsWith(u"private:factory/"))
        return Role::Refuse;
    const auto found = roles.find(name);
    return found == roles.end() ? Role::PassOn : found->second;
}

/// The arguments with one more, that has the command return only when it is done.
Sequence<css::beans::PropertyValue> untilDone(const Sequence<css::beans::PropertyValue>& arguments)
{
    Sequence<css::beans::PropertyValue> all(arguments);
    all.realloc(arguments.getLength() + 1);
    all[arguments.getLength()].Name = "SynchronMode";
    all[arguments.getLength()].Value <<= true;
    return all;
}

/// A command that is never available.
class RefusedCommand final : public cppu::WeakImplHelper1<css::frame::XDispatch>
{
public:
    explicit RefusedCommand(std::shared_ptr<ObjectKeeper> keeper)
        : m_keeper(std::move(keeper))
    {
    }

    void SAL_CALL dispatch(const css::util::URL& /*command*/,
                           const Sequence<css::beans::PropertyValue>& /*arguments*/) override
    {
    }
    void SAL_CALL addStatusListener(const Reference<css::frame::XStatusListener>& listener,
                                    const css::util::URL& command) override
    {
        css::frame::FeatureStateEvent state;
        state.FeatureURL = command;
        state.IsEnabled = false;
        m_keeper->keep(listener)->statusChanged(state);
    }
    void SAL_CALL removeStatusListener(const Reference<css::frame::XStatusListener>& listener,
                                       const css::util::URL& /*command*/) override
    {
        m_keeper->keep(listener);
    }

private:
    std::shared_ptr<ObjectKeeper> m_keeper;
};

/// A command that the program handles. It returns at once, as the application holds its lock.
class OwnCommand final : public cppu::WeakImplHelper1<css::frame::XDispatch>
{
public:
    OwnCommand(Role role,
               std::weak_ptr<LoWorkbook> workbook,
               std::shared_ptr<EventQueue> events,
               std::shared_ptr<ObjectKeeper> keeper,
               std::shared_ptr<std::atomic<int>> saves,
               const Reference<css::frame::XDispatch>& original)
        : m_role(role),
          m_workbook(std::move(workbook)),
          m_events(std::move(events)),
          m_keeper(std::move(keeper)),
          m_saves(std::move(saves)),
          m_original(original)
    {
    }

    void SAL_CALL dispatch(const css::util::URL& command,
                           const Sequence<css::beans::PropertyValue>& arguments) override
    {
        // The application saves as it closes, after its own question, on which we wait.
        if (*m_saves > 0 && m_original.is()) {
            m_original->dispatch(command, untilDone(arguments));
            return;
        }
        m_events->post(EventQueue::Kind::Command,
                       [this, self = Reference<css::frame::XDispatch>(this), command, arguments] {
                           if (const std::shared_ptr<LoWorkbook> workbook = m_workbook.lock())
                               handle(*workbook, command, arguments);
                       });
    }
    void SAL_CALL addStatusListener(const Reference<css::frame::XStatusListener>& listener,
                                    const css::util::URL& command) override
    {
        m_keeper->keep(listener);
        if (m_original.is())
            m_original->addStatusListener(listener, command);
    }
    void SAL_CALL removeStatusListener(const Reference<css::frame::XStatusListener>& listener,
                                       const css::util::URL& command) override
    {
        m_keeper->keep(listener);
        if (m_original.is())
            m_original->removeStatusListener(listener, command);
    }

private:
    void handle(LoWorkbook& workbook,
                const css::util::URL& command,
                const Sequence<css::beans::PropertyValue>& arguments)
    {
        if (m_role == Role::Close) {
            workbook.userCloses();
            return;
        }
        workbook.userSaves(m_role == Role::SaveAs, [&] {
            workbook.office().postToOffice(
                [original = m_original, saves = workbook.saves(), command, arguments] {
                    const SaveScope scope(*saves);
                    if (original.is())
                        original->dispatch(command, untilDone(arguments));
                });
        });
    }

    Role m_role;
    std::weak_ptr<LoWorkbook> m_workbook;
    std::shared_ptr<EventQueue> m_events;
    std::shared_ptr<ObjectKeeper> m_keeper;
    std::shared_ptr<std::atomic<int>> m_saves;
    Reference<css::frame::XDispatch> m_original;
};

class Interceptor final : public cppu::WeakImplHelper1<css::frame::XDispatchProviderInterceptor>
{
public:
    Interceptor(std::weak_ptr<LoWorkbook> workbook,
                std::shared_ptr<EventQueue> events,
                std::shared_ptr<ObjectKeeper> keeper,
                std::shared_ptr<std::atomic<int>> saves)
        : m_workbook(std::move(workbook)),
          m_events(std::move(events)),
          m_keeper(std::move(keeper)),
          m_saves(std::move(saves))
    {
    }

    Reference<css::frame::XDispatch> SAL_CALL queryDispatch(const css::util::URL& command,
                                                            const rtl::OUString& target,
                                                            sal_Int32 flags) override
    {
        const Role role = roleOf(command.Complete);
        if (role == Role::Refuse)
            return new RefusedCommand(m_keeper);
        Reference<css::frame::XDispatch> original;
        if (m_below.is())
            original = m_keeper->keep(m_below->queryDispatch(command, target, flags));
        if (role == Role::PassOn)
            return original;
        return new OwnCommand(role, m_workbook, m_events, m_keeper, m_saves, original);
    }
    Sequence<Reference<css::frame::XDispatch>>
        SAL_CALL queryDispatches(const Sequence<css::frame::DispatchDescriptor>& requests) override
    {
        Sequence<Reference<css::frame::XDispatch>> answers(requests.getLength());
        auto* answer = answers.getArray();
        for (sal_Int32 i = 0; i < requests.getLength(); ++i) {
            const css::frame::DispatchDescriptor& request = requests[i];
            answer[i] = queryDispatch(request.FeatureURL, request.FrameName, request.SearchFlags);
        }
        return answers;
    }

    Reference<css::frame::XDispatchProvider> SAL_CALL getSlaveDispatchProvider() override
    {
        return m_below;
    }
    void SAL_CALL
    setSlaveDispatchProvider(const Reference<css::frame::XDispatchProvider>& below) override
    {
        m_below = below;
    }
    Reference<css::frame::XDispatchProvider> SAL_CALL getMasterDispatchProvider() override
    {
        return m_above;
    }
    void SAL_CALL
    setMasterDispatchProvider(const Reference<css::frame::XDispatchProvider>& above) override
    {
        m_above = above;
    }

private:
    std::weak_ptr<LoWorkbook> m_workbook;
    std::shared_ptr<EventQueue> m_events;
    std::shared_ptr<ObjectKeeper> m_keeper;
    std::shared_ptr<std::atomic<int>> m_saves;
    Reference<css::frame::XDispatchProvider> m_below;
    Reference<css::frame::XDispatchProvider> m_above;
};

} // namespace

WindowCommands::WindowCommands(LoWorkbook& workbook)
    : m_frame(workbook.controller()->getFrame(), css::uno::UNO_QUERY_THROW),
      m_interceptor(new Interceptor(workbook.weak_from_this(),
                                    workbook.office().events(),
                                    workbook.office().keeper(),
                                    workbook.saves()))
{
    m_frame->registerDispatchProviderInterceptor(m_interceptor);
}

WindowCommands::~WindowCommands()
{
    try {
        m_frame->releaseDispatchProviderInterceptor(m_interceptor);
    } catch (const css::uno::Exception&) { // the window is gone
    }
}

} // namespace ostrand::spreadsheet::libreoffice
