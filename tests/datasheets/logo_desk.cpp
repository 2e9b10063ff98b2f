// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "datasheets/logo_desk.h"

#include <QDir>
#include <QFileInfo>
#include <QImage>
#include <QProgressBar>

using namespace Qt::StringLiterals;

namespace ostrand::tests {

LogoDesk::LogoDesk()
{
    for (const QString& folder : {u"sheets"_s, u"templates"_s})
        QDir(path(QString())).mkdir(folder);
    project = emptyProject();
    setAttribute(u"DefaultDatasheetFolder"_s, path(u"sheets"_s));
    setAttribute(u"DefaultTemplateFolder"_s, path(u"templates"_s));
    setLogo(picture(u"new.png"_s));
    dropRows();
    addRow(u"'DATASHEET', 'A1', 2, 3, 'D11', True"_s);
    addRow(u"'NOTES', 'B2', 4.5, 5, 'B14', False"_s);
    open(project);
}

QString LogoDesk::picture(const QString& name) const
{
    QImage image(60, 20, QImage::Format_RGB32);
    image.fill(Qt::darkGreen);
    if (!image.save(path(name)))
        qFatal("the picture was not written");
    return path(name);
}

void LogoDesk::setAttribute(const QString& name, const QString& value) const
{
    execute(project,
            u"update qryProjectInfo set attributeValue = '"_s + value
                + u"' where attributeName = '"_s + name + u'\'');
}

void LogoDesk::addRow(const QString& values) const
{
    execute(project,
            u"insert into DtShtWorksheets (DatasheetType, WorkSheet, LogoAnchor, DeltaX, DeltaY, "
            u"DefaultCell, DefaultSheet) values ('"_s
                + type + u"', "_s + values + u')');
}

void LogoDesk::dropRows() const
{
    execute(project, u"delete from DtShtWorksheets where DatasheetType = '"_s + type + u'\'');
}

WorkbookContent LogoDesk::usual(const QString& bookType)
{
    const auto sheet = [](const QString& name) {
        return SheetContent{.name = name,
                            .cells = {{u"D12"_s, u"kept"_s}},
                            .pictures = {{.name = u"LOGO"_s, .file = u"old"_s}},
                            .isProtected = true};
    };
    return {.properties = {{u"DatasheetType"_s, bookType}},
            .sheets = {sheet(front), sheet(notes)},
            .active = 1};
}

void LogoDesk::giveSheets(const QStringList& names) const
{
    for (const QString& name : names)
        writeWorkbook(sheetFile(name), usual());
}

QStringList LogoDesk::run(const QString& entry)
{
    const int quits = office.quits;
    choose(entry);
    [&] {
        QVERIFY(!QGuiApplication::overrideCursor());
        QVERIFY(!window.findChild<QProgressBar*>(u"Progress"_s)->isVisible());
        QCOMPARE(panel(1),
                 u"Record: "_s + QString::number(tags().AbsolutePosition() + 1) + u" of "_s
                     + QString::number(tags().RecordCount()));
        QVERIFY(grid().isEnabled());
        QCOMPARE(office.applications(), 0);
        QVERIFY(office.quits <= quits + 1);
        QVERIFY(!office.hasWorkbook());
        QCOMPARE(app::g_intLogoTarget, 0);
    }();
    return texts();
}

WorkbookContent LogoDesk::book(const QString& file)
{
    const auto content = readWorkbook(file);
    return content ? *content : WorkbookContent();
}

QStringList LogoDesk::pictures(const QString& file, int sheet)
{
    QStringList all;
    const WorkbookContent content = book(file);
    for (const PictureContent& each : content.sheets.at(static_cast<std::size_t>(sheet)).pictures) {
        all << u"%1 %2 at %3, %4"_s.arg(each.name, QFileInfo(each.file).fileName())
                   .arg(each.left)
                   .arg(each.top);
    }
    return all;
}

bool LogoDesk::hasNewLogo(const QString& name) const
{
    return pictures(sheetFile(name)) == QStringList{u"logo new.png at 2, 3"_s};
}

} // namespace ostrand::tests
