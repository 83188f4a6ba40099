#pragma once
// System parameters: probes, reference systems, tolerances and part-program execution.

#include <array>
#include <cstdint>
#include <string>

#include "settings/machine_settings.h"

namespace wk {

class SystemSettings : public MachineSettings {
public:
    // Auto-save (and auto-load) codes combine 1 = probe file, 2 = reference-system file,
    // 4 = memory file. The list shows them in the order none, all, probe, reference system,
    // memory, probe and reference system, probe and memory, reference system and memory.
    static constexpr std::array<std::uint32_t, 8> kListPositionToCode = {0, 7, 1, 2, 4, 3, 5, 6};
    static constexpr std::array<std::uint32_t, 8> kCodeToListPosition = {0, 2, 3, 5, 4, 6, 7, 1};

    explicit SystemSettings(const ControllerFlags& controllerFlags);

    std::string LanguageCode;  // at most 19 characters read
    bool FenWire = true;
    bool Tp200 = false;
    double DiaSferaCal = 15.073;  // calibration sphere diameter, mm
    std::string QualiFileName = "QUALI.TIP";
    std::string RefSysFileName = "REFSYS.REF";
    std::string MemoryFileName = "MEMORY.MEM";
    std::string GraphPrinter;
    std::uint32_t AutoSave = 0;      // code 0-7
    bool TruePosErrDiameter = true;  // false: radius
    bool DoubleFormErr = true;
    bool DosPpCompatibility = false;
    std::uint32_t Line3dCompens = 0;  // 0 "USING SELPL", 1 "SHOULD MODE"
    double ThresholdAngMiddleRel = 0.0;
    bool PrintAtEndExec = false;
    bool SelfAccelerators = false;
    bool UseLastMemories = false;
    bool LinearityErrDiameter = false;  // false: radius
    bool ForceRef0 = false;
    bool GeoTolUseFormat = false;
    bool GeoTolElementCreation = false;
    bool WaitAtEndExecution = true;
    bool ImmediateDataInputWindow = true;
    bool QuickAlignments = true;
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
