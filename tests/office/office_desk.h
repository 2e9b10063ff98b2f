// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#pragma once

#include "datasheets/session_desk.h"
#include "office/watched_application.h"

#include <QTimer>

#include <deque>

namespace ostrand::tests {

/// The desk with the real application on a display of its own (an `OfficeDisplay` must stand),
/// where a user presses keys.
class OfficeDesk final : public SessionDesk
{
public:
    OfficeDesk();
    ~OfficeDesk() override;

    void typeIn(const QString& sheet, const QString& cell, const QString& text) override;
    void beginTyping(const QString& sheet, const QString& cell, const QString& text) override;
    void selectSheet(const QString& sheet) override { goTo(sheet, QStringLiteral("A1")); }
    void undo() override { press({QStringLiteral("ctrl+z")}); }
    void save() override { press({QStringLiteral("ctrl+s")}); }
    void saveAs(const QString& file) override;
    void closeWindow() override;
    void quitApplication() override { press({QStringLiteral("ctrl+q")}); }
    void answerUnsaved(UnsavedAnswer answer) override { m_answers = {answer}; }
    int unsavedQuestions() const override { return m_questions; }
    QString cellText(const QString& sheet, const QString& cell) override;
    bool isWindowVisible() override;
    void kill() override;
    void settle() override;

private:
    static void press(const QStringList& keys);
    static void goTo(const QString& sheet, const QString& cell);
    void answerQuestion();

    WatchedApplication m_application;
    QTimer m_onlooker; ///< waits for questions of the application, which block the program
    std::deque<UnsavedAnswer> m_answers;
    int m_questions = 0;
};

} // namespace ostrand::tests
