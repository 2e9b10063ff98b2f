// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <string>
#include <string_view>
#include <utility>

namespace ostrand::maker {

/// One row of the table `index` as the plant generator fills it; an empty text is stored as Null.
struct GeneratedTag
{
    std::string plantItemNo, companyTrackingNumber, operatingUnitNumber, processUnitArea;
    std::string measureVariable, typeModifier, sequenceNo, loopSuffix, instrumentSuffix;
    std::string serviceDescription, loopNumber, loopTypicalNum, instrumentType, equipOrLineNo;
    std::string location, processSystemNo, constructionArea, scopeArea, electricalArea;
    std::string electricalAreaClassification, plantItemClassification, fireArea, workArea, ioType;
    std::string manufacturer, modelNumber, serialNumber, supplier, supplierModelNumber;
    std::string bodyMaterial, junctionBox, marshallingRack, maintenanceRecord, signalType;
    std::string processSetPoint, processRange, calibrationSetPoint, calibrationRange;
    std::string scaleSetPoint, scaleRange, hhh, hh, h, l, ll, lll, tagType, formatType, remarks;
    std::string calibrationUnit, maxCalibration, minCalibration;
    std::string processUnit, maxProcess, minProcess;
};

using TagField = std::pair<std::string_view, std::string GeneratedTag::*>;

inline constexpr std::array<TagField, 55> tagFields{{
    {"PlantItemNo", &GeneratedTag::plantItemNo},
    {"CompanyTrackingNumber", &GeneratedTag::companyTrackingNumber},
    {"OperatingUnitNumber", &GeneratedTag::operatingUnitNumber},
    {"ProcessUnitArea", &GeneratedTag::processUnitArea},
    {"MeasureVariable", &GeneratedTag::measureVariable},
    {"TypeModifier", &GeneratedTag::typeModifier},
    {"SequenceNo", &GeneratedTag::sequenceNo},
    {"LoopSuffix", &GeneratedTag::loopSuffix},
    {"InstrumentSuffix", &GeneratedTag::instrumentSuffix},
    {"ServiceDescription", &GeneratedTag::serviceDescription},
    {"LoopNumber", &GeneratedTag::loopNumber},
    {"LoopTypicalNum", &GeneratedTag::loopTypicalNum},
    {"InstrumentType", &GeneratedTag::instrumentType},
    {"EquipOrLineNo", &GeneratedTag::equipOrLineNo},
    {"Location", &GeneratedTag::location},
    {"ProcessSystemNo", &GeneratedTag::processSystemNo},
    {"ConstructionArea", &GeneratedTag::constructionArea},
    {"ScopeArea", &GeneratedTag::scopeArea},
    {"ElectricalArea", &GeneratedTag::electricalArea},
    {"ElectricalAreaClassification", &GeneratedTag::electricalAreaClassification},
    {"PlantItemClassification", &GeneratedTag::plantItemClassification},
    {"FireArea", &GeneratedTag::fireArea},
    {"WorkArea", &GeneratedTag::workArea},
    {"IOType", &GeneratedTag::ioType},
    {"Manufacturer", &GeneratedTag::manufacturer},
    {"ModelNumber", &GeneratedTag::modelNumber},
    {"ManufacturerSerialNumber", &GeneratedTag::serialNumber},
    {"Supplier", &GeneratedTag::supplier},
    {"SupplierModelNumber", &GeneratedTag::supplierModelNumber},
    {"BodyMaterial", &GeneratedTag::bodyMaterial},
    {"JunctionBoxNumber", &GeneratedTag::junctionBox},
    {"MarshallingRack", &GeneratedTag::marshallingRack},
    {"MaintenanceRecord", &GeneratedTag::maintenanceRecord},
    {"SignalType", &GeneratedTag::signalType},
    {"ProcessSetPointValue", &GeneratedTag::processSetPoint},
    {"ProcessRangeValue", &GeneratedTag::processRange},
    {"CalibrationSetPointValue", &GeneratedTag::calibrationSetPoint},
    {"CalibrationRangeValue", &GeneratedTag::calibrationRange},
    {"ScaleSetPointValue", &GeneratedTag::scaleSetPoint},
    {"ScaleRangeValue", &GeneratedTag::scaleRange},
    {"H_H_H_SETTING", &GeneratedTag::hhh},
    {"H_H_SETTING", &GeneratedTag::hh},
    {"H_SETTING", &GeneratedTag::h},
    {"L_SETTING", &GeneratedTag::l},
    {"L_L_SETTING", &GeneratedTag::ll},
    {"L_L_L_SETTING", &GeneratedTag::lll},
    {"TagType", &GeneratedTag::tagType},
    {"FormatType", &GeneratedTag::formatType},
    {"Remarks", &GeneratedTag::remarks},
    {"CalibUnitsOfMeasure", &GeneratedTag::calibrationUnit},
    {"MaxCalibrationValue", &GeneratedTag::maxCalibration},
    {"MinCalibrationValue", &GeneratedTag::minCalibration},
    {"ProcessUnitsOfMeasure", &GeneratedTag::processUnit},
    {"MaxProcessValue", &GeneratedTag::maxProcess},
    {"MinProcessValue", &GeneratedTag::minProcess},
}};

} // namespace ostrand::maker
