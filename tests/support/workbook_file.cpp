// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "support/workbook_file.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

using namespace Qt::StringLiterals;
using ostrand::spreadsheet::CellError;
using ostrand::spreadsheet::CellValue;
using ostrand::spreadsheet::Error;

namespace ostrand::tests {
namespace {

const QString fileKind = u"memory workbook"_s;

QJsonObject toJson(const CellValue& value)
{
    if (const auto* text = std::get_if<QString>(&value))
        return {{u"text"_s, *text}};
    if (const auto* number = std::get_if<double>(&value))
        return {{u"number"_s, *number}};
    if (const auto* flag = std::get_if<bool>(&value))
        return {{u"flag"_s, *flag}};
    if (const auto* moment = std::get_if<QDateTime>(&value))
        return {{u"moment"_s, moment->toString(Qt::ISODate)}};
    if (const auto* error = std::get_if<CellError>(&value))
        return {{u"error"_s, error->text}};
    return {};
}

CellValue cellFrom(const QJsonObject& json)
{
    if (json.contains(u"text"_s))
        return json[u"text"_s].toString();
    if (json.contains(u"number"_s))
        return json[u"number"_s].toDouble();
    if (json.contains(u"flag"_s))
        return json[u"flag"_s].toBool();
    if (json.contains(u"moment"_s))
        return QDateTime::fromString(json[u"moment"_s].toString(), Qt::ISODate);
    if (json.contains(u"error"_s))
        return CellError{json[u"error"_s].toString()};
    return {};
}

QJsonObject toJson(const std::map<QString, CellValue>& cells)
{
    QJsonObject json;
    for (const auto& [name, value] : cells)
        json[name] = toJson(value);
    return json;
}

std::map<QString, CellValue> cellsFrom(const QJsonObject& json)
{
    std::map<QString, CellValue> cells;
    for (auto each = json.begin(); each != json.end(); ++each)
        cells[each.key()] = cellFrom(each->toObject());
    return cells;
}

QJsonArray toJson(const std::vector<PictureContent>& pictures)
{
    QJsonArray json;
    for (const PictureContent& picture : pictures) {
        json.append(QJsonObject{{u"name"_s, picture.name},
                                {u"file"_s, picture.file},
                                {u"anchor"_s, picture.anchor},
                                {u"left"_s, picture.left},
                                {u"top"_s, picture.top},
                                {u"width"_s, picture.width},
                                {u"height"_s, picture.height}});
    }
    return json;
}

std::vector<PictureContent> picturesFrom(const QJsonArray& json)
{
    std::vector<PictureContent> pictures;
    for (const QJsonValue& each : json) {
        pictures.push_back({.name = each[u"name"_s].toString(),
                            .file = each[u"file"_s].toString(),
                            .anchor = each[u"anchor"_s].toString(),
                            .left = each[u"left"_s].toDouble(),
                            .top = each[u"top"_s].toDouble(),
                            .width = each[u"width"_s].toDouble(),
                            .height = each[u"height"_s].toDouble()});
    }
    return pictures;
}

} // namespace

std::optional<WorkbookContent> readWorkbook(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return std::nullopt;
    const QJsonObject json = QJsonDocument::fromJson(file.readAll()).object();
    if (json[u"kind"_s].toString() != fileKind)
        return std::nullopt;
    WorkbookContent content;
    const QJsonObject properties = json[u"properties"_s].toObject();
    for (auto each = properties.begin(); each != properties.end(); ++each)
        content.properties[each.key()] = each->toString();
    for (const QJsonValue& each : json[u"sheets"_s].toArray()) {
        content.sheets.push_back({.name = each[u"name"_s].toString(),
                                  .cells = cellsFrom(each[u"cells"_s].toObject()),
                                  .controls = cellsFrom(each[u"controls"_s].toObject()),
                                  .pictures = picturesFrom(each[u"pictures"_s].toArray()),
                                  .isProtected = each[u"protected"_s].toBool(),
                                  .password = each[u"password"_s].toString(),
                                  .currentCell = each[u"current"_s].toString()});
    }
    content.active = json[u"active"_s].toInt();
    content.isTemplate = json[u"template"_s].toBool();
    return content;
}

void writeWorkbook(const QString& path, const WorkbookContent& content)
{
    const QFileInfo target(path);
    if (!target.dir().exists())
        throw Error(76, u"Path not found"_s);
    if (target.exists() && !(QFile::permissions(path) & QFile::WriteOwner))
        throw Error(spreadsheet::errors::permissionDenied, u"Permission denied"_s);
    QJsonArray sheets;
    for (const SheetContent& sheet : content.sheets) {
        sheets.append(QJsonObject{{u"name"_s, sheet.name},
                                  {u"cells"_s, toJson(sheet.cells)},
                                  {u"controls"_s, toJson(sheet.controls)},
                                  {u"pictures"_s, toJson(sheet.pictures)},
                                  {u"protected"_s, sheet.isProtected},
                                  {u"password"_s, sheet.password},
                                  {u"current"_s, sheet.currentCell}});
    }
    QJsonObject properties;
    for (auto each = content.properties.begin(); each != content.properties.end(); ++each)
        properties[each.key()] = *each;
    const QByteArray bytes = QJsonDocument(QJsonObject{{u"kind"_s, fileKind},
                                                       {u"properties"_s, properties},
                                                       {u"sheets"_s, sheets},
                                                       {u"active"_s, content.active},
                                                       {u"template"_s, content.isTemplate}})
                                 .toJson();
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
        throw Error(spreadsheet::errors::applicationError, u"The workbook can't be written"_s);
}

} // namespace ostrand::tests
