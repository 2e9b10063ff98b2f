// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "spreadsheet/libreoffice/office_profile.h"

#include "spreadsheet/error.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QXmlStreamWriter>

using namespace Qt::StringLiterals;

namespace ostrand::spreadsheet::libreoffice {
namespace {

const QString namePrefix = u"ostrand-datasheets-"_s;

struct Setting
{
    const char* path;
    const char* name;
    const char* value;
};

constexpr Setting settings[] = {
    // Macros never run and links are never followed, whatever a workbook says.
    {"/org.openoffice.Office.Common/Security/Scripting", "DisableMacrosExecution", "true"},
    {"/org.openoffice.Office.Common/Security/Scripting", "MacroSecurityLevel", "3"},
    {"/org.openoffice.Office.Calc/Content/Update", "Link", "2"},
    // What is typed stays as it was typed.
    {"/org.openoffice.Office.Common/AutoCorrect", "CapitalAtStartSentence", "false"},
    {"/org.openoffice.Office.Common/AutoCorrect", "TwoCapitalsAtStart", "false"},
    {"/org.openoffice.Office.Common/AutoCorrect", "UseReplacementTable", "false"},
    {"/org.openoffice.Office.Common/AutoCorrect", "ReplaceSingleQuote", "false"},
    {"/org.openoffice.Office.Common/AutoCorrect", "ReplaceDoubleQuote", "false"},
    {"/org.openoffice.Office.Common/AutoCorrect", "ChangeDash", "false"},
    {"/org.openoffice.Office.Common/AutoCorrect", "SetInetAttribute", "false"},
    // Workbooks are saved in their own format without a question.
    {"/org.openoffice.Office.Common/Save/Document", "WarnAlienFormat", "false"},
    {"/org.openoffice.Office.Common/Save/Document", "GenerateThumbnail", "false"},
    {"/org.openoffice.Office.Recovery/AutoSave", "Enabled", "false"},
    {"/org.openoffice.Office.Recovery/RecoveryInfo", "Enabled", "false"},
    // No greetings.
    {"/org.openoffice.Office.Common/Misc", "ShowTipOfTheDay", "false"},
    {"/org.openoffice.Office.Common/Misc", "FirstRun", "false"},
    {"/org.openoffice.Setup/Product", "ooSetupLastVersion", "99.9"},
    {"/org.openoffice.Setup/Product", "LastTimeGetInvolvedShown", "4102444800"},
    {"/org.openoffice.Setup/Product", "LastTimeDonateShown", "4102444800"},
    {"/org.openoffice.Office.Java/VirtualMachine", "Enable", "false"},
};

void writeSettings(QIODevice& file)
{
    const QString oor = u"http://openoffice.org/2001/registry"_s;
    QXmlStreamWriter xml(&file);
    xml.writeStartDocument();
    xml.writeNamespace(oor, u"oor"_s);
    xml.writeStartElement(oor, u"items"_s);
    for (const Setting& setting : settings) {
        xml.writeStartElement(u"item"_s);
        xml.writeAttribute(oor, u"path"_s, QString::fromLatin1(setting.path));
        xml.writeStartElement(u"prop"_s);
        xml.writeAttribute(oor, u"name"_s, QString::fromLatin1(setting.name));
        xml.writeAttribute(oor, u"op"_s, u"fuse"_s);
        xml.writeTextElement(u"value"_s, QString::fromLatin1(setting.value));
        xml.writeEndElement();
        xml.writeEndElement();
    }
    xml.writeEndDocument();
}

} // namespace

OfficeProfile::OfficeProfile()
    : m_folder(QDir::tempPath() + u'/' + namePrefix + u"XXXXXX"_s)
{
    QFile file(m_folder.filePath(u"user/registrymodifications.xcu"_s));
    if (!m_folder.isValid() || !QDir(m_folder.path()).mkpath(u"user"_s)
        || !file.open(QIODevice::WriteOnly)) {
        throw Error(errors::cannotCreateObject,
                    QCoreApplication::translate(
                        "spreadsheet",
                        "There is no place for the spreadsheet application's private folder."));
    }
    writeSettings(file);
}

bool OfficeProfile::isOurs(const QString& folder)
{
    return QDir(folder).dirName().startsWith(namePrefix);
}

} // namespace ostrand::spreadsheet::libreoffice
