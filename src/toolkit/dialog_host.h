// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#pragma once

#include "toolkit/prompts.h"

#include <QStringList>

namespace ostrand::toolkit {

/// Shows prompts as real windows over the active one.
class DialogHost final : public PromptHost
{
public:
    Answer messageBox(const Box& box) override;
    std::optional<QString> inputBox(const QString& prompt, const QString& title) override;
    std::optional<QString> fileDialog(const FileRequest& request) override;
    std::optional<QString> folderDialog(QWidget* owner, const QString& title) override;
    void openAddress(const QString& url) override;
};

/// The name filters of a request's "caption|patterns|..." list, as Qt writes them.
QStringList nameFilters(const QString& filter);

} // namespace ostrand::toolkit
