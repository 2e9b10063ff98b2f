// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "maker/tag_factory.h"

#include <array>
#include <charconv>
#include <cmath>

namespace ostrand::maker {
namespace {

/// A measuring range in numbers.
struct Span
{
    double low;
    double high;
    std::string unit;

    std::string at(double share) const;
    std::string text() const;
};

std::string number(double value)
{
    std::array<char, 32> buffer{};
    const auto end = std::to_chars(
        buffer.data(), buffer.data() + buffer.size(), value, std::chars_format::general, 6);
    return {buffer.data(), end.ptr};
}

std::string padded(std::uint64_t value, std::size_t width)
{
    std::string digits = std::to_string(value);
    if (digits.size() < width)
        digits.insert(0, width - digits.size(), '0');
    return digits;
}

std::string Span::at(double share) const
{
    return number(low + share * (high - low)) + ' ' + unit;
}

std::string Span::text() const
{
    return number(low) + " to " + number(high) + ' ' + unit;
}

bool has(const std::string& marks, char mark)
{
    return marks.find(mark) != std::string::npos;
}

/// The loop's usual value in this unit of the plant: the units differ a little.
double operatingValue(const Place& place)
{
    const auto step = stableHash(place.loop.service + std::to_string(place.unit)) % 5;
    return place.loop.operating * (0.8 + 0.1 * static_cast<double>(step));
}

Span spanOf(const Place& place)
{
    const std::string& unit = place.loop.unit;
    if (unit == "%" || unit == "%LEL")
        return {0, 100, unit};
    const double low = unit == "°C" && place.loop.operating > 120 ? 50 : 0;
    return {low, nextPreferred(1.4 * operatingValue(place)), unit};
}

void setAlarms(GeneratedTag& tag, const std::string& values, const Span& span)
{
    if (has(values, 'A')) {
        tag.hh = span.at(0.92);
        tag.h = span.at(0.85);
        tag.l = span.at(0.25);
    } else if (has(values, 'K')) {
        tag.hhh = span.at(0.97);
        tag.hh = span.at(0.95);
        tag.h = span.at(0.80);
        tag.l = span.at(0.20);
        tag.ll = span.at(0.08);
        tag.lll = span.at(0.05);
    } else if (has(values, 'G')) {
        tag.hh = span.at(0.40);
        tag.h = span.at(0.20);
    }
}

void setPoints(GeneratedTag& tag, const Place& place)
{
    const std::string& values = place.member.values;
    const double operating = operatingValue(place);
    const std::string unit = ' ' + place.loop.unit;
    if (has(values, 'T')) {
        tag.processSetPoint = number(operating) + unit;
        tag.scaleSetPoint = tag.processSetPoint;
    } else if (has(values, 'R')) {
        tag.processSetPoint = number(1.15 * operating) + unit;
        tag.calibrationSetPoint = tag.processSetPoint;
    } else if (has(values, 'W')) {
        const bool rising = has(place.member.letters, 'H');
        (rising ? tag.hh : tag.ll) = number(operating) + unit;
        tag.processSetPoint = number(operating) + unit + (rising ? " rising" : " falling");
        tag.calibrationSetPoint = tag.processSetPoint;
    }
}

void setRanges(GeneratedTag& tag, const Place& place)
{
    const std::string& values = place.member.values;
    const Span span = spanOf(place);
    if (has(values, 'P')) {
        tag.processRange = span.text();
        tag.minProcess = number(span.low);
        tag.maxProcess = number(span.high);
        tag.processUnit = span.unit;
    }
    if (has(values, 'C')) {
        const bool positioner = place.member.signalType == "4-20 mA";
        const Span calibration = positioner ? Span{0.2, 1.0, "bar"} : span;
        tag.calibrationRange = calibration.text();
        tag.minCalibration = number(calibration.low);
        tag.maxCalibration = number(calibration.high);
        tag.calibrationUnit = calibration.unit;
    }
    if (has(values, 'S'))
        tag.scaleRange = span.text();
    setAlarms(tag, values, span);
}

std::string ioTypeOf(const Member& member)
{
    if (member.signalType == "24 V DC")
        return "DO";
    if (member.signalType == "24 V DC dry contact")
        return "DI";
    if (member.signalType == "-" || member.signalType == "DCS soft")
        return {};
    return member.letters.back() == 'Y' || member.letters.back() == 'V' ? "AO" : "AI";
}

void setWiring(GeneratedTag& tag, const Place& place, std::uint64_t hash)
{
    const std::string unit = std::to_string(place.unit);
    tag.signalType = place.member.signalType;
    tag.ioType = ioTypeOf(place.member);
    if (tag.ioType.empty())
        return;
    tag.junctionBox = "JB-" + unit + '-' + padded(1 + hash % 24, 2);
    tag.marshallingRack = "MR-" + unit + '-' + padded(1 + hash % 6, 2);
}

void setPurchase(GeneratedTag& tag, const Place& place, const Makers& makers, std::uint64_t hash)
{
    const std::vector<Maker>& choice = makers.at(place.member.make);
    const Maker& maker = choice[stableHash(tag.instrumentType) % choice.size()];
    tag.manufacturer = maker.name;
    tag.modelNumber =
        maker.code + padded(hash % 1000, 3) + '-' + std::string(1, "ABCDEF"[hash % 6]);
    tag.serialNumber = padded(hash % 100000000, 8);
    tag.supplier = hash % 3 == 0 ? maker.name : "Lindwell Instrument Supply";
    tag.supplierModelNumber = "L-" + tag.modelNumber;
    tag.maintenanceRecord = "MR-" + padded(hash % 1000000, 6);
}

void setAreas(GeneratedTag& tag, const Place& place)
{
    const bool field = place.member.location == "FIELD";
    const std::string unit = std::to_string(place.unit);
    tag.operatingUnitNumber = unit;
    tag.processUnitArea = "AREA " + std::to_string(place.unit / 20);
    tag.location = place.member.location;
    tag.processSystemNo = unit + '-' + place.equipment.system;
    tag.constructionArea = "CWA-" + unit + std::to_string(1 + place.equipmentNumber % 4);
    tag.scopeArea = "Scope " + std::string(1, "ABC"[place.unit % 3]);
    tag.electricalArea = field ? place.equipment.zone : "Safe";
    tag.electricalAreaClassification = field ? place.equipment.zone.substr(0, 6) : "Unclassified";
    tag.plantItemClassification = has(place.member.values, 'R') ? "Safety" : "Process";
    tag.fireArea = "FA-" + unit + '-' + std::to_string(1 + place.equipmentNumber / 4);
    tag.workArea = "WA-" + unit;
}

void setName(GeneratedTag& tag, const Place& place)
{
    const Member& member = place.member;
    tag.sequenceNo =
        std::to_string(place.unit) + padded(static_cast<std::uint64_t>(place.loopNumber), 2);
    tag.plantItemNo = member.letters + '-' + tag.sequenceNo + member.suffix;
    tag.measureVariable = member.letters.substr(0, 1);
    tag.typeModifier = member.letters.substr(1);
    tag.instrumentSuffix = member.suffix;
    tag.loopNumber = place.loop.letter + '-' + tag.sequenceNo;
    tag.loopTypicalNum =
        "TYP-" + place.loop.letter + '-' + padded(1 + stableHash(place.loop.service) % 40, 2);
    tag.equipOrLineNo = place.equipment.prefix + '-' + std::to_string(place.unit)
                        + padded(static_cast<std::uint64_t>(place.equipmentNumber), 2);
    tag.serviceDescription = "Unit " + std::to_string(place.unit) + ' ' + place.equipment.name + ' '
                             + place.loop.service;
    tag.instrumentType = member.instrumentType;
}

} // namespace

std::uint64_t stableHash(std::string_view text)
{
    // FNV-1a with a last mixing, as its low bits alone repeat for names that differ in one digit.
    std::uint64_t hash = 0xCBF29CE484222325;
    for (const char character : text) {
        hash ^= static_cast<unsigned char>(character);
        hash *= 0x100000001B3;
    }
    hash ^= hash >> 32;
    hash *= 0x9E3779B97F4A7C15;
    return hash ^ (hash >> 29);
}

double nextPreferred(double value)
{
    constexpr std::array steps{1.0, 1.6, 2.5, 4.0, 6.0};
    if (value <= 0)
        return 1;
    for (double decade = std::pow(10.0, std::floor(std::log10(value)));; decade *= 10) {
        for (const double step : steps) {
            if (step * decade > value)
                return step * decade;
        }
    }
}

GeneratedTag makeTag(const Place& place, const Makers& makers)
{
    GeneratedTag tag;
    setName(tag, place);
    const std::uint64_t hash = stableHash(tag.plantItemNo);
    tag.companyTrackingNumber = "CT-" + padded(hash % 10000000, 7);
    tag.bodyMaterial = place.member.location == "DCS" ? std::string() : place.equipment.material;
    tag.tagType = place.member.location == "DCS" ? "Soft" : "Hard";
    tag.formatType = place.member.datasheetType.empty() ? "None" : "Datasheet";
    setAreas(tag, place);
    setWiring(tag, place, hash);
    setPurchase(tag, place, makers, hash);
    setRanges(tag, place);
    setPoints(tag, place);
    if (place.member.letters.back() == 'V')
        tag.remarks = hash % 2 == 0 ? "Fail open" : "Fail close";
    return tag;
}

} // namespace ostrand::maker
