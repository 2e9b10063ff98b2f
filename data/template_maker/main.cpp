// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
//
// ostrand-make-templates: makes the template workbooks of all datasheet types with the spreadsheet
// application.
#include "maker/csv.h"
#include "spreadsheet/host.h"
#include "template_maker/logo.h"
#include "template_maker/template_file.h"

#include <QCoreApplication>
#include <QDir>
#include <QTemporaryDir>

#include <iostream>

using namespace Qt::StringLiterals;

namespace {

using namespace ostrand;
using namespace ostrand::template_maker;

constexpr const char* usage =
    "usage: ostrand-make-templates DATA OUT\n"
    "\n"
    "Makes a template workbook in the folder OUT for every datasheet type "
    "of the data files in\n"
    "the folder DATA.\n";

/// Makes all templates; then they take their places, or none does.
void makeAll(const std::filesystem::path& data, const QDir& out)
{
    const std::vector<Form> forms = readForms(data);
    const QTemporaryDir scratch(out.filePath(u".making-XXXXXX"_s));
    const QString logo = scratch.filePath(u"logo.png"_s);
    if (!scratch.isValid() || !writeLogo(logo))
        throw std::runtime_error("the folder " + out.path().toStdString() + " can't be written");
    const auto application = spreadsheet::CreateObject();
    for (const Form& form : forms)
        makeTemplate(*application, form, logo, scratch.filePath(form.fileName));
    for (const Form& form : forms) {
        std::filesystem::rename(scratch.filePath(form.fileName).toStdString(),
                                out.filePath(form.fileName).toStdString());
    }
}

} // namespace

int main(int argc, char* argv[])
{
    const QCoreApplication program(argc, argv);
    const QStringList words = QCoreApplication::arguments();
    if (words.size() != 3) {
        std::cerr << usage;
        return 2;
    }
    int result = 0;
    try {
        spreadsheet::setHostSettings({.headless = true});
        makeAll(words[1].toStdString(), QDir(words[2]));
    } catch (const std::exception& error) {
        std::cerr << "ostrand-make-templates: " << error.what() << '\n';
        result = 1;
    }
    spreadsheet::endHost();
    return result;
}
