#include "cli/settings_listing.h"

#include <cstdio>

#include "settings/axes_conv_schema.h"
#include "settings/colour_schema.h"
#include "settings/controller_schema.h"
#include "settings/default_points_schema.h"
#include "settings/directory_schema.h"
#include "settings/init_schema.h"
#include "settings/machine_schema.h"
#include "settings/mech_offset_schema.h"
#include "settings/settings_files.h"
#include "settings/sound_schema.h"
#include "settings/system_schema.h"

namespace wk::cli {
namespace {

class LevelBuilder {
public:
    explicit LevelBuilder(std::string name) { level_.Name = std::move(name); }

    // A setting of a declared key: its section, key and file come from the declaration.
    LevelBuilder& Add(std::string field, const SettingKey& key, SettingValue value,
                      std::string note = {}) {
        level_.Entries.push_back(SettingEntry{std::move(field), &key, key.Section, key.Key,
                                              key.DirectFileName(), std::move(value),
                                              std::move(note)});
        return *this;
    }
    // A setting that no key holds.
    LevelBuilder& AddWithoutKey(std::string field, SettingValue value, std::string note) {
        level_.Entries.push_back(SettingEntry{std::move(field), nullptr, "", "", kWzelkoIni,
                                              std::move(value), std::move(note)});
        return *this;
    }
    SettingsLevel Done() { return std::move(level_); }

private:
    SettingsLevel level_;
};

std::int64_t I(std::int32_t v) {
    return v;
}
std::int64_t U(std::uint32_t v) {
    return v;
}

std::string Hex(std::uint32_t v) {
    char text[16];
    std::snprintf(text, sizeof text, "0x%x", static_cast<unsigned>(v));
    return text;
}

const char* MethodName(std::int32_t method) {
    switch (method) {
        case 0:
            return "none";
        case 1:
            return "QEN";
        case 2:
            return "KV";
        case 3:
            return "RHO";
        case 4:
            return "controller";
        case 5:
            return "MELDAX settings";
        default:
            return "unknown";
    }
}

}  // namespace

std::vector<SettingsLevel> ListSettings(const SetupSettings& r) {
    std::vector<SettingsLevel> levels;

    LevelBuilder colours("ColourSettings");
    colours.Add("Metric", kMetric, r.IsMetric(), r.IsMetric() ? "millimetres" : "inches");
    for (int i = 0; i < ColourSettings::kColourEntryCount; ++i) {
        const ColourEntry& entry = r.ColourTable[static_cast<std::size_t>(i)];
        std::string field = "ColourTable[" + std::to_string(i) + "]";
        const ColourValue value{ColourSettings::RedOf(entry.Colour),
                                ColourSettings::GreenOf(entry.Colour),
                                ColourSettings::BlueOf(entry.Colour), entry.Listed};
        if (i < ColourSettings::kColourKeyCount) {
            colours.Add(std::move(field), kWindowBackgroundKeys[static_cast<std::size_t>(i)],
                        value);
        } else {
            colours.AddWithoutKey(std::move(field), value, "spare entry, not written");
        }
    }
    levels.push_back(colours.Done());

    LevelBuilder machine("MachineSettings");
    machine.Add("CtrVolcompOnExit", kCtrVolcompOnExit, I(r.CtrVolcompOnExit))
        .Add("CompensMode", kCompensMode, I(r.CompensMode))
        .Add("VolcompMethod", kVolcompMethod, I(r.VolcompMethod), MethodName(r.VolcompMethod))
        .Add("LegacyMethod", kLegacyMethod, I(r.LegacyMethod), MethodName(r.LegacyMethod))
        .Add("CompensActive", kCompensActive, r.CompensActive)
        .Add("ThermalCompens", kThermalCompens, r.ThermalCompens)
        .Add("ToolChanger", kToolChanger, r.ToolChanger)
        .Add("CosDatFileName", kCosDatFileName, r.CosDatFileName)
        .Add("CompensFileName", kCompensFileName, r.CompensFileName)
        .Add("DistApproach", kDistApproach, r.DistApproach, "mm")
        .Add("XTerm", kXTerm, r.XTerm)
        .Add("YTerm", kYTerm, r.YTerm)
        .Add("ZTerm", kZTerm, r.ZTerm)
        .Add("PartTerm", kPartTerm, r.PartTerm)
        .Add("OptSpeed", kOptSpeed, r.OptSpeed)
        .Add("OptSpeedSet", kOptSpeed, r.OptSpeedSet, "false: written empty")
        .Add("Depth", kDepth, r.Depth, "mm")
        .Add("DepthSet", kDepth, r.DepthSet, "false: written empty")
        .Add("Cnc", kCnc, r.Cnc)
        .Add("PortIndex", kPortIndex, I(r.PortIndex),
             r.PortIndex == MachineSettings::kTcpipPortIndex
                 ? std::string("TCP/IP")
                 : "COM" + std::to_string(r.PortIndex + 1))
        .Add("CmmSimulation", kCmmSimulation, r.CmmSimulation)
        .Add("Resolution", kResolution, r.Resolution, "mm")
        .Add("Ph9Simulation", kPh9Simulation, r.Ph9Simulation)
        .Add("Ph9Present", kPh9Present, r.Ph9Present)
        .Add("Ph9Serial", kPh9Serial, U(r.Ph9Serial),
             Hex(r.Ph9Serial) + " " + MachineSettings::Ph9SerialText(r.Ph9Serial))
        .Add("Ph9Type", kPh9Type, I(r.Ph9Type))
        .Add("Jx01Simulation", kJx01Simulation, r.Jx01Simulation)
        .Add("Jx01Delay", kJx01Delay, U(r.Jx01Delay))
        .Add("UseSocket", kUseSocket, r.UseSocket)
        .Add("TcpipAddress", kTcpipAddress, r.TcpipAddress)
        .Add("TcpipPort", kTcpipPort, I(r.TcpipPort));
    levels.push_back(machine.Done());

    LevelBuilder system("SystemSettings");
    system.Add("LanguageCode", kLanguageCode, r.LanguageCode)
        .Add("FenWire", kFenWire, r.FenWire)
        .Add("Tp200", kTp200, r.Tp200)
        .Add("DiaSferaCal", kDiaSferaCal, r.DiaSferaCal, "mm")
        .Add("QualiFileName", kQualiFileName, r.QualiFileName)
        .Add("RefSysFileName", kRefSysFileName, r.RefSysFileName)
        .Add("MemoryFileName", kMemoryFileName, r.MemoryFileName)
        .Add("GraphPrinter", kGraphPrinter, r.GraphPrinter)
        .Add("AutoSave", kAutoSave, U(r.AutoSave))
        .Add("TruePosErrDiameter", kTruePosErrDiameter, r.TruePosErrDiameter,
             r.TruePosErrDiameter ? "DIAMETER" : "RADIUS")
        .Add("DoubleFormErr", kDoubleFormErr, r.DoubleFormErr)
        .Add("DosPpCompatibility", kDosPpCompatibility, r.DosPpCompatibility)
        .Add("Line3dCompens", kLine3dCompens, U(r.Line3dCompens),
             r.Line3dCompens == 0   ? "USING SELPL"
             : r.Line3dCompens == 1 ? "SHOULD MODE"
                                    : "")
        .Add("ThresholdAngMiddleRel", kThresholdAngMiddleRel, r.ThresholdAngMiddleRel)
        .Add("PrintAtEndExec", kPrintAtEndExec, r.PrintAtEndExec)
        .Add("SelfAccelerators", kSelfAccelerators, r.SelfAccelerators)
        .Add("UseLastMemories", kUseLastMemories, r.UseLastMemories)
        .Add("LinearityErrDiameter", kLinearityErrDiameter, r.LinearityErrDiameter,
             r.LinearityErrDiameter ? "DIAMETER" : "RADIUS")
        .Add("ForceRef0", kForceRef0, r.ForceRef0)
        .Add("GeoTolUseFormat", kGeoTolUseFormat, r.GeoTolUseFormat)
        .Add("GeoTolElementCreation", kGeoTolElementCreation, r.GeoTolElementCreation)
        .Add("WaitAtEndExecution", kWaitAtEndExecution, r.WaitAtEndExecution)
        .Add("ImmediateDataInputWindow", kImmediateDataInputWindow, r.ImmediateDataInputWindow)
        .Add("QuickAlignments", kQuickAlignments, r.QuickAlignments);
    levels.push_back(system.Done());

    LevelBuilder init("InitSettings");
    init.Add("AutoPower", kAutoPower, r.AutoPower)
        .Add("AutoInit", kAutoInit, r.AutoInit)
        .Add("AutoLoad", kAutoLoad, r.AutoLoad)
        .Add("AutoExec", kAutoExec, r.AutoExec)
        .Add("ExitCode", kExitCode, U(r.ExitCode))
        .Add("AutoPh9", kAutoPh9, r.AutoPh9)
        .Add("AutoHome", kAutoHome, r.AutoHome)
        .Add("Ph9First", kPh9First, r.Ph9First)
        .Add("NoInteractiveInit", kNoInteractiveInit, r.NoInteractiveInit)
        .Add("RunPProg", kRunPProg, r.RunPProg)
        .Add("ExtProcFileName", kExtProcFileName, r.ExtProcFileName)
        .Add("NilFileName", kNilFileName, r.NilFileName)
        .Add("NoInteractiveExec", kNoInteractiveExec, r.NoInteractiveExec)
        .Add("PartProgramWindowOnRun", kPartProgramWindowOnRun, r.PartProgramWindowOnRun)
        .Add("AutoLoadCode", kAutoLoadCode, U(r.AutoLoadCode));
    levels.push_back(init.Done());

    LevelBuilder offsets("MechOffsetSettings");
    offsets.Add("OffsetX", kOffsetX, r.OffsetX, "mm")
        .Add("OffsetY", kOffsetY, r.OffsetY, "mm")
        .Add("OffsetZ", kOffsetZ, r.OffsetZ, "mm")
        .Add("CompensOffset", kCompensOffset, r.CompensOffset, "mm")
        .Add("BridgeAxisStroke", kBridgeAxisStroke, r.BridgeAxisStroke, "mm");
    levels.push_back(offsets.Done());

    LevelBuilder points("DefaultPointsSettings");
    for (std::size_t i = 0; i < kDefaultPointsKeys.size(); ++i) {
        const SettingKey& key = kDefaultPointsKeys[i];
        points.Add(std::string("CurrentPoints.") + key.Key, key, U(r.CurrentPoints[i].Count),
                   "minimum " + std::to_string(r.MinimumPoints[i].Count));
    }
    levels.push_back(points.Done());

    LevelBuilder sounds("SoundSettings");
    sounds.Add("PlayGeneral", kPlayGeneral, r.PlayGeneral)
        .Add("PlayPowerOn", kPlayPowerOn, r.PlayPowerOn)
        .Add("PlayZeroes", kPlayZeroes, r.PlayZeroes)
        .Add("PowerOnContinuous", kPowerOnContinuous, r.PowerOnContinuous)
        .Add("ZeroesContinuous", kZeroesContinuous, r.ZeroesContinuous)
        .Add("Location", kLocation, r.Location);
    for (int id = 1; id <= SoundSettings::kSoundCount; ++id) {
        const SettingKey& key = kSoundFileKeys[static_cast<std::size_t>(id - 1)];
        sounds.Add(std::string("SoundFiles.") + key.Key, key, r.GetSound(id, false),
                   "sound id " + std::to_string(id));
    }
    levels.push_back(sounds.Done());

    LevelBuilder directories("DirectorySettings");
    directories.Add("SystemDir", kSystemDir, r.SystemDir)
        .Add("DataDir", kDataDir, r.DataDir)
        .Add("PProgDir", kPProgDir, r.PProgDir)
        .Add("MeasDir", kMeasDir, r.MeasDir)
        .Add("UserDir", kUserDir, r.UserDir);
    levels.push_back(directories.Done());

    LevelBuilder controller("ControllerSettings");
    controller
        .Add("ControllerType", kControllerType, r.ControllerType,
             "read once, at construction; never written")
        .Add("BaseAddress", kBaseAddress, U(r.BaseAddress), Hex(r.BaseAddress))
        .Add("HardProbeCompensation", kHardProbeCompensation, r.HardProbeCompensation)
        .Add("RightButtonFunction", kRightButtonFunction, I(r.RightButtonFunction))
        .Add("MiddleButtonFunction", kMiddleButtonFunction, I(r.MiddleButtonFunction))
        .Add("LeftButtonFunction", kLeftButtonFunction, I(r.LeftButtonFunction))
        .Add("MaxPSpeed", kMaxPSpeed, r.MaxPSpeed, "mm/s")
        .Add("MaxMSpeed", kMaxMSpeed, r.MaxMSpeed, "mm/s")
        .Add("MaxAccel", kMaxAccel, r.MaxAccel, "mm/s2")
        .Add("UseIniMaxSpeeds", kUseIniMaxSpeeds, r.UseIniMaxSpeeds,
             r.UseIniMaxSpeeds ? "limits from the setup file" : "limits from the controller")
        .Add("IsQd32z", kIsQd32z, r.IsQd32z, r.IsQd32z ? "QD32Z" : "R7NS");
    levels.push_back(controller.Done());

    LevelBuilder axes("AxesConvSettings");
    axes.Add("QenAxesConvention", kQenAxesConvention, r.QenAxesConvention,
             r.QenAxesConvention ? "QEN" : "STANDARD");
    levels.push_back(axes.Done());

    return levels;
}

}  // namespace wk::cli
