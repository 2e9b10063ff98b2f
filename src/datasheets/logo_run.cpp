// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "datasheets/logo_run.h"

#include "app/main_window.h"
#include "app/state.h"
#include "datasheets/CLogoChg.h"
#include "datasheets/failure.h"
#include "datasheets/logo_files.h"
#include "spreadsheet/repaint.h"
#include "toolkit/busy_pointer.h"

#include <optional>
#include <utility>

using ostrand::app::mainWindow;
using ostrand::spreadsheet::repaint;

namespace ostrand::datasheets {
namespace {

struct RunWords
{
    QString wait;
    QString completed;
    QString failure;
};

QString words(const char* text)
{
    return QCoreApplication::translate("logo_run", text);
}

/// `g_intLogoTarget` as long as a run lasts.
class TargetScope
{
public:
    explicit TargetScope(int target) { app::g_intLogoTarget = target; }
    ~TargetScope() { app::g_intLogoTarget = 0; }
    TargetScope(const TargetScope&) = delete;
    TargetScope& operator=(const TargetScope&) = delete;
};

class LogoRun
{
public:
    LogoRun(int target, RunWords words, std::function<void()> ShowProjectInfo)
        : m_target(target),
          m_words(std::move(words)),
          m_ShowProjectInfo(std::move(ShowProjectInfo))
    {
    }

    void run()
    {
        const TargetScope scope(m_target);
        mainWindow().setPanelText(1, m_words.wait);
        setHourglass(true);
        bool cancelled = false;
        try {
            cancelled = changeAll();
        } catch (...) {
            showOverMainWindow({.text = toolkit::formB(m_words.failure, currentFailure())});
        }
        repaint();
        mainWindow().setProgress(0, 0);
        mainWindow().showRecordCounter();
        setHourglass(false);
        if (cancelled)
            showOverMainWindow({.text = words("Operation was cancelled by the user")});
        else
            showOverMainWindow({.text = m_words.completed, .icon = toolkit::BoxIcon::Information});
    }

private:
    /// True when the user has ended the run.
    bool changeAll()
    {
        repaint();
        CLogoChg logo({.ShowProjectInfo = m_ShowProjectInfo,
                       .setHourglass = [this](bool on) { setHourglass(on); }});
        const QStringList files = logoFiles(logoFolder());
        const auto count = static_cast<int>(files.size());
        for (int i = 0; i < count; ++i) {
            mainWindow().setProgress(i, count);
            repaint();
            int cancelled = 0;
            logo.ChangeLogo(files[i],
                            logoFolder(),
                            mainWindow().DatasheetLogoFile(),
                            m_target == logoTarget::templates,
                            cancelled);
            if (cancelled == 1)
                return true;
        }
        return false;
    }

    void setHourglass(bool on)
    {
        if (!on)
            m_hourglass.reset();
        else if (!m_hourglass)
            m_hourglass.emplace();
    }

    int m_target;
    RunWords m_words;
    std::function<void()> m_ShowProjectInfo;
    std::optional<toolkit::BusyPointer> m_hourglass;
};

} // namespace

void mnuSetupDatasheets(const std::function<void()>& ShowProjectInfo)
{
    LogoRun(logoTarget::datasheets,
            {.wait = words("Please wait changing the datasheet logo"),
             .completed = words("Datasheet logo operation completed"),
             .failure = words("Error while changing datasheet logo. ")},
            ShowProjectInfo)
        .run();
}

void mnuSetupTemplates(const std::function<void()>& ShowProjectInfo)
{
    LogoRun(logoTarget::templates,
            {.wait = words("Please wait changing the template logo"),
             .completed = words("Template logo operation completed"),
             .failure = words("Error while changing template logo. ")},
            ShowProjectInfo)
        .run();
}

} // namespace ostrand::datasheets
