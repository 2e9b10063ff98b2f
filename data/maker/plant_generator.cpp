// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "maker/plant_generator.h"

#include "maker/project_file.h"
#include "maker/sqlite_file.h"
#include "maker/tag_factory.h"

#include <array>
#include <unordered_set>
#include <utility>

namespace ostrand::maker {
namespace {

std::string insertTagStatement()
{
    std::string columns;
    std::string parameters;
    for (const TagField& field : tagFields) {
        columns.append(columns.empty() ? "" : ", ").append(field.first);
        parameters += parameters.empty() ? "?" : ", ?";
    }
    return "INSERT INTO \"index\" (" + columns + ") VALUES (" + parameters + ")";
}

class TagWriter
{
public:
    explicit TagWriter(const SqliteFile& file)
        : m_insert(file, insertTagStatement())
    {
    }

    void write(const GeneratedTag& tag)
    {
        int parameter = 0;
        for (const TagField& field : tagFields)
            m_insert.bindTextOrNull(parameter++, tag.*field.second);
        m_insert.run();
    }

private:
    SqliteStatement m_insert;
};

/// Registers the documents of tags, each document once, and ties the tags to them.
class DocumentWriter
{
public:
    explicit DocumentWriter(const SqliteFile& file)
        : m_document(file, "INSERT INTO document (docNo, docType, Title) VALUES (?, ?, ?)"),
          m_tie(file, "INSERT INTO itemDocXRef (PlantItemNo, docNo, context) VALUES (?, ?, ?)")
    {
    }

    void write(const Place& place, const GeneratedTag& tag)
    {
        const std::string unit = std::to_string(place.unit);
        for (const char mark : place.member.documents) {
            if (mark == 'P') {
                tie(tag,
                    "PID",
                    "GEN-" + unit + "-PID-0" + std::to_string(place.equipmentNumber),
                    "P&ID unit " + unit + ' ' + place.equipment.name);
            } else if (mark == 'D') {
                tie(tag,
                    "DATASHEET",
                    "GEN-" + unit + "-DS-" + tag.plantItemNo,
                    "Datasheet " + tag.instrumentType);
            } else if (mark == 'L') {
                tie(tag,
                    "LOOP DWG",
                    "GEN-" + unit + "-LD-" + tag.loopNumber,
                    "Loop drawing " + tag.loopNumber);
            } else if (mark == 'R') {
                const auto number = 100 + stableHash(place.member.instrumentType) % 100;
                tie(tag,
                    "REQUISITION",
                    "GEN-" + unit + "-RQ-" + std::to_string(number),
                    "Requisition " + tag.instrumentType);
            }
        }
        const std::uint64_t order = stableHash(tag.manufacturer + unit);
        if (stableHash(tag.plantItemNo) % 5 != 0) {
            tie(tag,
                "PURCHASE ORDER",
                "PO-45" + unit + '-' + std::to_string(order % 90000 + 10000),
                "Purchase order " + tag.manufacturer);
        }
    }

private:
    void tie(const GeneratedTag& tag,
             std::string_view kind,
             const std::string& number,
             const std::string& title)
    {
        if (m_known.insert(number).second) {
            m_document.bind(0, number);
            m_document.bind(1, kind);
            m_document.bind(2, title);
            m_document.run();
        }
        m_tie.bind(0, tag.plantItemNo);
        m_tie.bind(1, number);
        m_tie.bind(2, kind);
        m_tie.run();
    }

    SqliteStatement m_document;
    SqliteStatement m_tie;
    std::unordered_set<std::string> m_known;
};

void setAttributes(SqliteFile& file, int count)
{
    SqliteStatement update(file,
                           "UPDATE ProjectInfo SET attributeValue = ? WHERE attributeName = ?");
    const std::string plant = "Generated plant of " + std::to_string(count) + " tags";
    const std::array<std::pair<std::string_view, std::string_view>, 4> values{{
        {"plant", plant},
        {"company", "Ostrand"},
        {"DefaultDatasheetFolder", "Datasheets"},
        {"DefaultTemplateFolder", "Templates"},
    }};
    for (const auto& [name, value] : values) {
        update.bind(0, value);
        update.bind(1, name);
        update.run();
    }
}

} // namespace

void makeGeneratedProject(int count,
                          const std::filesystem::path& target,
                          const std::filesystem::path& data)
{
    const PlantParts parts = readPlantParts(data / "generator");
    makeProject(target, data, [&](SqliteFile& file, const Catalogue&) {
        TagWriter tags(file);
        DocumentWriter documents(file);
        walkPlant(parts, count, [&](const Place& place) {
            const GeneratedTag tag = makeTag(place, parts.makers);
            tags.write(tag);
            documents.write(place, tag);
        });
        setAttributes(file, count);
    });
}

} // namespace ostrand::maker
