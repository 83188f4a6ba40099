#pragma once
// System parameters: probes, reference systems, tolerances and part-program execution.

#include <array>
#include <cstdint>
#include <string>

#include "settings/machine_settings.h"
#include "settings/system_schema.h"

namespace wk {

class SystemSettings : public MachineSettings {
public:
    // Auto-save (and auto-load) codes combine 1 = probe file, 2 = reference-system file,
    // 4 = memory file. The list shows them in the order none, all, probe, reference system,
    // memory, probe and reference system, probe and memory, reference system and memory.
    static constexpr std::array<std::uint32_t, 8> kListPositionToCode = {0, 7, 1, 2, 4, 3, 5, 6};
    static constexpr std::array<std::uint32_t, 8> kCodeToListPosition = {0, 2, 3, 5, 4, 6, 7, 1};

    explicit SystemSettings(const ControllerFlags& controllerFlags);

    // Each field starts with its key's default (system_schema.h).
    std::string LanguageCode = kLanguageCode.Default;  // at most 19 characters read
    bool FenWire = kFenWire.Default;
    bool Tp200 = kTp200.Default;
    double DiaSferaCal = kDiaSferaCal.Default;  // calibration sphere diameter, mm
    std::string QualiFileName = kQualiFileName.Default;
    std::string RefSysFileName = kRefSysFileName.Default;
    std::string MemoryFileName = kMemoryFileName.Default;
    std::string GraphPrinter = kGraphPrinter.Default;
    std::uint32_t AutoSave = kAutoSave.Default;             // code 0-7
    bool TruePosErrDiameter = kTruePosErrDiameter.Default;  // false: radius
    bool DoubleFormErr = kDoubleFormErr.Default;
    bool DosPpCompatibility = kDosPpCompatibility.Default;
    std::uint32_t Line3dCompens = kLine3dCompens.Default;  // 0 "USING SELPL", 1 "SHOULD MODE"
    double ThresholdAngMiddleRel = kThresholdAngMiddleRel.Default;
    bool PrintAtEndExec = kPrintAtEndExec.Default;
    bool SelfAccelerators = kSelfAccelerators.Default;
    bool UseLastMemories = kUseLastMemories.Default;
    bool LinearityErrDiameter = kLinearityErrDiameter.Default;  // false: radius
    bool ForceRef0 = kForceRef0.Default;
    bool GeoTolUseFormat = kGeoTolUseFormat.Default;
    bool GeoTolElementCreation = kGeoTolElementCreation.Default;
    bool WaitAtEndExecution = kWaitAtEndExecution.Default;
    bool ImmediateDataInputWindow = kImmediateDataInputWindow.Default;
    bool QuickAlignments = kQuickAlignments.Default;
    // The group's own copies of the two auto-save tables.
    std::array<std::uint32_t, 8> AutoSavePositionToCode = kListPositionToCode;
    std::array<std::uint32_t, 8> AutoSaveCodeToPosition = kCodeToListPosition;

    void SetLanguageCode(const std::string& code) { LanguageCode = code; }
    void SetGraphPrinter(const std::string& printer) { GraphPrinter = printer; }
    void SetQualiFileName(const std::string& name) { QualiFileName = name; }
    void SetRefSysFileName(const std::string& name) { RefSysFileName = name; }
    void SetMemoryFileName(const std::string& name) { MemoryFileName = name; }

    // The calibration diameter as shown (inches when not metric), "%lf".
    std::string DiameterToText(double mm) const;
    // A typed diameter in millimetres; raises ConversionError for text that is not a number.
    double TextToDiameter(const std::string& text) const;

    bool Read();
    bool Write();
};

}  // namespace wk
