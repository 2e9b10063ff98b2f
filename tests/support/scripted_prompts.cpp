// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "support/scripted_prompts.h"

namespace ostrand::tests {
namespace {

template <typename Item>
Item takeNext(std::deque<Item>& items, const Item& otherwise)
{
    if (items.empty())
        return otherwise;
    Item item = std::move(items.front());
    items.pop_front();
    return item;
}

} // namespace

toolkit::Answer ScriptedPrompts::messageBox(const toolkit::Box& box)
{
    boxes.push_back(box);
    if (whileOpen)
        whileOpen(box);
    if (box.buttons == toolkit::BoxButtons::Ok)
        return toolkit::Answer::Ok;
    return takeNext(answers, toolkit::Answer::No);
}

std::optional<QString> ScriptedPrompts::inputBox(const QString& prompt, const QString& title)
{
    boxes.push_back({.text = prompt, .icon = toolkit::BoxIcon::None, .title = title});
    return takeNext(inputs, {});
}

std::optional<QString> ScriptedPrompts::fileDialog(const toolkit::FileRequest& request)
{
    fileRequests.push_back(request);
    return takeNext(files, {});
}

std::optional<QString> ScriptedPrompts::folderDialog(QWidget* owner, const QString& title)
{
    folderOwners.push_back(owner);
    folderTitles << title;
    return takeNext(folders, {});
}

QStringList ScriptedPrompts::takeTexts()
{
    QStringList texts;
    for (const toolkit::Box& box : boxes)
        texts << box.text;
    boxes.clear();
    return texts;
}

ScriptedPrompts& installScriptedPrompts()
{
    auto host = std::make_unique<ScriptedPrompts>();
    ScriptedPrompts& reference = *host;
    toolkit::setPromptHost(std::move(host));
    return reference;
}

} // namespace ostrand::tests
