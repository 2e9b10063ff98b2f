// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "app/project_attributes.h"

#include <QCoreApplication>

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

namespace ostrand::app {
namespace {

struct Refusal
{
    const char* attribute;
    const char* typing;
    const char* deleting;
};

constexpr std::array refusals{
    Refusal{"DefaultP&IDDatabase",
            QT_TRANSLATE_NOOP("project_attributes", "Please locate P&ID database path  "),
            QT_TRANSLATE_NOOP("project_attributes", "Please locate P&ID database path  ")},
    Refusal{"logo file",
            QT_TRANSLATE_NOOP("project_attributes", "Please locate the logo  "),
            QT_TRANSLATE_NOOP("project_attributes", "Please locate the logo  ")},
    Refusal{"DefaultDatasheetFolder",
            QT_TRANSLATE_NOOP("project_attributes", "Please locate datasheet folder  "),
            QT_TRANSLATE_NOOP("project_attributes", "Please locate datasheet folder ")},
    Refusal{"DefaultTemplateFolder",
            QT_TRANSLATE_NOOP("project_attributes", "Please locate template folder  "),
            QT_TRANSLATE_NOOP("project_attributes", "Please locate template folder ")},
};

std::optional<QString> refusal(const QString& attribute, const char* Refusal::*text)
{
    const auto* found = std::find_if(refusals.begin(), refusals.end(), [&](const Refusal& each) {
        return attribute == QLatin1StringView(each.attribute);
    });
    if (found == refusals.end())
        return std::nullopt;
    return QCoreApplication::translate("project_attributes", found->*text) + u"\r\n"_s
           + QCoreApplication::translate("project_attributes", "using 'Browse' command button");
}

} // namespace

std::optional<QString> typingRefusal(const QString& attribute)
{
    return refusal(attribute, &Refusal::typing);
}

std::optional<QString> deletingRefusal(const QString& attribute)
{
    return refusal(attribute, &Refusal::deleting);
}

} // namespace ostrand::app
