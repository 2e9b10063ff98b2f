// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "office/office_desk.h"

#include "office/office_display.h"
#include "support/shown_cell.h"

#include <QTest>

#include <csignal>
#include <tuple>

using namespace Qt::StringLiterals;

namespace ostrand::tests {
namespace {

const QString windowTitle = u"LibreOffice Calc"_s;
const QString questionTitle = u"Save Document?"_s;
const QString saveAsTitle = u"Save as"_s;
constexpr int lookInterval = 200;
constexpr int keyTime = 5000;   ///< milliseconds for what was typed to reach a cell
constexpr int patience = 30000; ///< milliseconds for an effect of another process

bool shows(const QString& title)
{
    return OfficeDisplay::windows().join(u'\n').contains(title);
}

} // namespace

OfficeDesk::OfficeDesk()
{
    m_onlooker.callOnTimeout(&m_onlooker, [this] { answerQuestion(); });
    m_onlooker.start(lookInterval);
}

OfficeDesk::~OfficeDesk()
{
    m_answers = {UnsavedAnswer::Discard, UnsavedAnswer::Discard};
    clear();
}

void OfficeDesk::press(const QStringList& keys)
{
    OfficeDisplay::bringUp(windowTitle);
    OfficeDisplay::press(keys);
}

void OfficeDesk::goTo(const QString& sheet, const QString& cell)
{
    // The box beside the formula line takes the name of a cell.
    press({u"ctrl+shift+t"_s, u"ctrl+a"_s});
    OfficeDisplay::type(sheet + u'.' + cell);
    OfficeDisplay::press({u"Return"_s});
}

void OfficeDesk::typeIn(const QString& sheet, const QString& cell, const QString& text)
{
    const QString before = cellText(sheet, cell);
    goTo(sheet, cell);
    if (text.isEmpty()) {
        OfficeDisplay::press({u"Delete"_s});
    } else {
        OfficeDisplay::type(text);
        OfficeDisplay::press({u"Return"_s});
    }
    // On a busy machine the keys take their time. Some cells keep their value: nothing is asked.
    std::ignore = QTest::qWaitFor([&] { return cellText(sheet, cell) != before; }, keyTime);
    settle();
}

void OfficeDesk::beginTyping(const QString& sheet, const QString& cell, const QString& text)
{
    goTo(sheet, cell);
    OfficeDisplay::type(text);
}

void OfficeDesk::saveAs(const QString& file)
{
    press({u"ctrl+shift+s"_s});
    QTRY_VERIFY_WITH_TIMEOUT(shows(saveAsTitle), patience);
    OfficeDisplay::bringUp(saveAsTitle);
    OfficeDisplay::press({u"ctrl+a"_s});
    OfficeDisplay::type(file);
    OfficeDisplay::press({u"Return"_s});
    QTRY_VERIFY_WITH_TIMEOUT(!shows(saveAsTitle), patience);
}

void OfficeDesk::closeWindow()
{
    press({u"alt+F4"_s}); // the window manager's own key, which does what its button does
}

void OfficeDesk::answerQuestion()
{
    if (m_answers.empty() || !OfficeDisplay::activate(questionTitle))
        return;
    ++m_questions;
    const UnsavedAnswer answer = m_answers.front();
    m_answers.pop_front();
    switch (answer) {
    case UnsavedAnswer::Save:
        OfficeDisplay::press({u"alt+s"_s});
        break;
    case UnsavedAnswer::Discard:
        OfficeDisplay::press({u"alt+n"_s});
        break;
    case UnsavedAnswer::Cancel:
        OfficeDisplay::press({u"Escape"_s});
        break;
    case UnsavedAnswer::Death:
        kill();
        break;
    }
}

QString OfficeDesk::cellText(const QString& sheet, const QString& cell)
{
    const auto workbook = m_application.workbook();
    if (!workbook)
        return {};
    return shownText(workbook->Worksheets(sheet)->Range(cell)->Value());
}

bool OfficeDesk::isWindowVisible()
{
    return shows(windowTitle);
}

void OfficeDesk::kill()
{
    ::kill(static_cast<pid_t>(-spreadsheet::hostProcess()), SIGKILL);
}

void OfficeDesk::settle()
{
    constexpr int moment = 350;
    QTest::qWait(moment);
}

} // namespace ostrand::tests
