// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "app/project_cfg.h"

#include "toolkit/file_system.h"
#include "toolkit/prompts.h"
#include "toolkit/text_lines.h"

#include <QCoreApplication>

using namespace Qt::StringLiterals;

namespace ostrand::app {
namespace {

// The keys are not read, only passed over.
constexpr qsizetype typeKeyLength = 13;
constexpr qsizetype schemaKeyLength = 7;

struct Configuration
{
    QString type;
    QString schema;

    bool isValid() const { return type.toLower() == "sql server"_L1 && !schema.isEmpty(); }
};

bool findSection(toolkit::TextLines& lines)
{
    while (!lines.atEnd()) {
        if (lines.readLine().toLower() == "[process database]"_L1)
            return true;
    }
    return false;
}

QString readValue(toolkit::TextLines& lines, qsizetype keyLength)
{
    const QString line = lines.readLine();
    if (line.size() < keyLength || lines.wasCut()) {
        throw store::Error(
            store::errors::invalidCall,
            QCoreApplication::translate("project_cfg", "Invalid procedure call or argument"));
    }
    return line.sliced(keyLength);
}

Configuration readConfiguration(const QString& path)
{
    if (!toolkit::fileExists(path))
        return {};
    toolkit::TextLines lines(path);
    if (!findSection(lines))
        return {};
    Configuration configuration;
    configuration.type = readValue(lines, typeKeyLength);
    configuration.schema = readValue(lines, schemaKeyLength);
    return configuration;
}

} // namespace

QString ReadProjectCfg(const QString& path)
{
    const Configuration configuration = readConfiguration(path);
    if (!configuration.isValid()) {
        toolkit::showFailure(
            QCoreApplication::translate("project_cfg", "Please check the configuration file ")
            + u"\r\n"_s
            + QCoreApplication::translate("project_cfg",
                                          " make sure the database type and schema are valid"));
    }
    return configuration.schema;
}

} // namespace ostrand::app
