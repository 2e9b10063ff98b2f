// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>
#include <functional>
#include <map>
#include <string>
#include <vector>

namespace ostrand::maker {

/// One instrument of a loop, as members.csv tells it.
struct Member
{
    std::string letters, suffix, instrumentType, location, signalType, datasheetType;
    /// Which values it has: P process range, C calibration range, S scale range, T set point,
    /// A alarms, K tank alarms, G gas alarms, R relief set point, W switch point.
    std::string values;
    /// Which documents it has: P drawing, D datasheet, L loop drawing, R requisition.
    std::string documents;
    std::string make; ///< what kind of maker it is bought from
};

/// One loop of a class of equipment, as loops.csv tells it, with its members.
struct Loop
{
    std::string letter, service, unit;
    double operating = 0; ///< the usual value, in `unit`
    std::vector<Member> members;
};

/// A class of equipment, as equipment.csv tells it, with its loops.
struct Equipment
{
    std::string prefix, name, system, material, zone;
    std::vector<Loop> loops;
};

struct Maker
{
    std::string name, code;
};

/// Makers by what they make.
using Makers = std::map<std::string, std::vector<Maker>>;

/// What generated plants are made of, read from the folder `generator` of the data files.
struct PlantParts
{
    std::vector<Equipment> equipment;
    Makers makers;
};

PlantParts readPlantParts(const std::filesystem::path& folder);

/// Where an instrument stands in the plant.
struct Place
{
    int unit;            ///< number of the process unit
    int equipmentNumber; ///< counts within the unit from 1
    int loopNumber;      ///< counts within the unit from 1
    const Equipment& equipment;
    const Loop& loop;
    const Member& member;
};

/// Calls `visit` for the first `count` instruments of an endless plant: units from 10 upwards,
/// each with one piece of equipment of every class.
void walkPlant(const PlantParts& parts, int count, const std::function<void(const Place&)>& visit);

} // namespace ostrand::maker
