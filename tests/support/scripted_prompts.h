// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#pragma once

#include "toolkit/prompts.h"

#include <QString>
#include <QStringList>

#include <deque>
#include <functional>
#include <optional>
#include <vector>

namespace ostrand::tests {

/// Answers prompts by a script, and remembers what was shown. An unexpected file dialog counts as
/// cancelled, an unexpected question as answered with No.
class ScriptedPrompts final : public toolkit::PromptHost
{
public:
    toolkit::Answer messageBox(const toolkit::Box& box) override;
    std::optional<QString> inputBox(const QString& prompt, const QString& title) override;
    std::optional<QString> fileDialog(const toolkit::FileRequest& request) override;
    std::optional<QString> folderDialog(QWidget* owner, const QString& title) override;
    void openAddress(const QString& url) override { addresses << url; }

    /// The texts of the boxes shown since the last call.
    QStringList takeTexts();

    std::vector<toolkit::Box> boxes;
    std::vector<toolkit::FileRequest> fileRequests;
    QStringList folderTitles;
    std::vector<QWidget*> folderOwners;
    QStringList addresses;

    std::deque<toolkit::Answer> answers;
    std::deque<std::optional<QString>> files;
    std::deque<std::optional<QString>> folders;
    std::deque<std::optional<QString>> inputs;
    /// Runs while a box is open, before it is answered.
    std::function<void(const toolkit::Box&)> whileOpen;
};

/// Makes a new scripted host the program's host, and gives it.
ScriptedPrompts& installScriptedPrompts();

} // namespace ostrand::tests
