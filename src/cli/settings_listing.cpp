#include "cli/settings_listing.h"

#include <cstdio>

#include "settings/settings_files.h"

namespace wk::cli {
namespace {

class LevelBuilder {
public:
    explicit LevelBuilder(std::string name) { level_.Name = std::move(name); }

    LevelBuilder& Add(std::string field, std::string section, std::string key, SettingValue value,
                      const char* file = kWzelkoIni, std::string note = {}) {
        level_.Entries.push_back(SettingEntry{std::move(field), std::move(section), std::move(key),
                                              file, std::move(value), std::move(note)});
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
    colours.Add("Metric", "MEASURE INTERFACE", "MEASURE MODE METRIC/INCH", r.IsMetric(), kWzelkoIni,
                r.IsMetric() ? "millimetres" : "inches");
    for (int i = 0; i < ColourSettings::kColourEntryCount; ++i) {
        const ColourEntry& entry = r.ColourTable[static_cast<std::size_t>(i)];
        const bool hasKey = i < ColourSettings::kColourKeyCount;
        colours.Add(
            "ColourTable[" + std::to_string(i) + "]", hasKey ? ColourSettings::kColourSection : "",
            hasKey ? ColourSettings::kColourKeys[static_cast<std::size_t>(i)] : "",
            ColourValue{ColourSettings::RedOf(entry.Colour), ColourSettings::GreenOf(entry.Colour),
                        ColourSettings::BlueOf(entry.Colour), entry.Listed},
            kWzelkoIni, hasKey ? "" : "spare entry, not written");
    }
    levels.push_back(colours.Done());

    LevelBuilder machine("MachineSettings");
    machine.Add("CtrVolcompOnExit", "CONTROLLER", "CTR VOLCOMP ON EXIT", I(r.CtrVolcompOnExit))
        .Add("CompensMode", "COMPENS", "COMPENS MODE", I(r.CompensMode))
        .Add("VolcompMethod", "COMPENS", "METHOD", I(r.VolcompMethod), kWzelko32Ini,
             MethodName(r.VolcompMethod))
        .Add("LegacyMethod", "COMPENS", "METHOD", I(r.LegacyMethod), kWzelkoIni,
             MethodName(r.LegacyMethod))
        .Add("CompensActive", "COMPENS", "ACTIVE", r.CompensActive, kWzelko32Ini)
        .Add("ThermalCompens", "Compens", "Thermal", r.ThermalCompens, kWzelko32Ini)
        .Add("ToolChanger", "MACHINEPARAM", "TOOL CHANGER", r.ToolChanger)
        .Add("CosDatFileName", "MACHINEPARAM", "COSDAT FNAME", r.CosDatFileName)
        .Add("CompensFileName", "COMPENS", "COMPENS FILE NAME", r.CompensFileName)
        .Add("DistApproach", "MACHINEPARAM", "DIST APPROACH", r.DistApproach, kWzelkoIni, "mm")
        .Add("XTerm", "MACHINEPARAM", "XTERM", r.XTerm)
        .Add("YTerm", "MACHINEPARAM", "YTERM", r.YTerm)
        .Add("ZTerm", "MACHINEPARAM", "ZTERM", r.ZTerm)
        .Add("PartTerm", "MACHINEPARAM", "PARTTERM", r.PartTerm)
        .Add("OptSpeed", "MACHINEPARAM", "OPTSPEED", r.OptSpeed)
        .Add("OptSpeedSet", "MACHINEPARAM", "OPTSPEED", r.OptSpeedSet, kWzelkoIni,
             "false: written empty")
        .Add("Depth", "MACHINEPARAM", "DEPTH", r.Depth, kWzelkoIni, "mm")
        .Add("DepthSet", "MACHINEPARAM", "DEPTH", r.DepthSet, kWzelkoIni, "false: written empty")
        .Add("Cnc", "CMM", "CNC", r.Cnc)
        .Add("PortIndex", "CMM", "PORT", I(r.PortIndex), kWzelkoIni,
             r.PortIndex == MachineSettings::kTcpipPortIndex
                 ? std::string("TCP/IP")
                 : "COM" + std::to_string(r.PortIndex + 1))
        .Add("CmmSimulation", "CMM", "SIMULATION", r.CmmSimulation)
        .Add("Resolution", "CMM", "RESOLUTION", r.Resolution, kWzelkoIni, "mm")
        .Add("Ph9Simulation", "Ph9", "SIMULATION", r.Ph9Simulation)
        .Add("Ph9Present", "Ph9", "PH9PRESENT", r.Ph9Present)
        .Add("Ph9Serial", "Ph9", "PORT", U(r.Ph9Serial), kWzelkoIni,
             Hex(r.Ph9Serial) + " " + MachineSettings::Ph9SerialText(r.Ph9Serial))
        .Add("Ph9Type", "PH9", "TYPE", I(r.Ph9Type), kWzelko32Ini)
        .Add("Jx01Simulation", "MEAS_WINDOW", "JX01 SIMULATION", r.Jx01Simulation)
        .Add("Jx01Delay", "MEAS_WINDOW", "JX01 DELAY", U(r.Jx01Delay))
        .Add("UseSocket", "CMM", "USESOCKET", r.UseSocket)
        .Add("TcpipAddress", "CMM", "TCPIP Address", r.TcpipAddress)
        .Add("TcpipPort", "CMM", "TCPIP Port", I(r.TcpipPort));
    levels.push_back(machine.Done());

    LevelBuilder system("SystemSettings");
    system.Add("LanguageCode", "Wzelko", "LANGUAGE", r.LanguageCode)
        .Add("FenWire", "TOOL", "FENWIRE", r.FenWire)
        .Add("Tp200", "MEASUREPARAM", "TP200", r.Tp200)
        .Add("DiaSferaCal", "SYSTEMPARAM", "DIASFERACAL", r.DiaSferaCal, kWzelkoIni, "mm")
        .Add("QualiFileName", "SYSTEMPARAM", "QUALIFILENAME", r.QualiFileName)
        .Add("RefSysFileName", "SYSTEMPARAM", "REFSYSFILENAME", r.RefSysFileName)
        .Add("MemoryFileName", "SYSTEMPARAM", "MEMORYFILENAME", r.MemoryFileName)
        .Add("GraphPrinter", "GraphOutput", "Printer", r.GraphPrinter)
        .Add("AutoSave", "SYSTEMPARAM", "AUTOSAVE", U(r.AutoSave))
        .Add("TruePosErrDiameter", "OTHER", "TRUEPOSERR", r.TruePosErrDiameter, kWzelkoIni,
             r.TruePosErrDiameter ? "DIAMETER" : "RADIUS")
        .Add("DoubleFormErr", "OTHER", "DOUBLEFORMERR", r.DoubleFormErr)
        .Add("DosPpCompatibility", "SYSTEMPARAM", "ZELKO DOS PP COMPATIBILITY",
             r.DosPpCompatibility)
        .Add("Line3dCompens", "SYSTEMPARAM", "3D LINE COMPENS", U(r.Line3dCompens), kWzelkoIni,
             r.Line3dCompens == 0   ? "USING SELPL"
             : r.Line3dCompens == 1 ? "SHOULD MODE"
                                    : "")
        .Add("ThresholdAngMiddleRel", "SYSTEMPARAM", "THRESHOLD ANG MIDDLE REL",
             r.ThresholdAngMiddleRel)
        .Add("PrintAtEndExec", "EXEC", "PRINT AT END EXEC", r.PrintAtEndExec)
        .Add("SelfAccelerators", "ELEMENTS MENU", "SELF ACCELERATORS", r.SelfAccelerators)
        .Add("UseLastMemories", "MACRO", "USE LAST MEMORIES", r.UseLastMemories)
        .Add("LinearityErrDiameter", "OTHER", "LINEARITY ERROR", r.LinearityErrDiameter, kWzelkoIni,
             r.LinearityErrDiameter ? "DIAMETER" : "RADIUS")
        .Add("ForceRef0", "SELF TEACHING", "FORCE REF0", r.ForceRef0)
        .Add("GeoTolUseFormat", "GEO TOLERANCE", "USE FORMAT", r.GeoTolUseFormat)
        .Add("GeoTolElementCreation", "MACRO", "GEO TOL ELEMENT CREATION", r.GeoTolElementCreation)
        .Add("WaitAtEndExecution", "EXEC", "WAIT AT END EXECUTION", r.WaitAtEndExecution)
        .Add("ImmediateDataInputWindow", "EXEC PROCEDURE", "IMMEDIATE DATA INPUT WINDOW",
             r.ImmediateDataInputWindow)
        .Add("QuickAlignments", "OTHER", "QUICK ALIGNEMENTS", r.QuickAlignments);
    levels.push_back(system.Done());

    LevelBuilder init("InitSettings");
    init.Add("AutoPower", "Wzelko", "AUTOPOWER", r.AutoPower)
        .Add("AutoInit", "Wzelko", "AUTOINIT", r.AutoInit)
        .Add("AutoLoad", "Wzelko", "AUTOLOAD", r.AutoLoad)
        .Add("AutoExec", "Wzelko", "AUTOEXEC", r.AutoExec)
        .Add("ExitCode", "Wzelko", "EXITCODE", U(r.ExitCode))
        .Add("AutoPh9", "INIT", "AUTOPH9", r.AutoPh9)
        .Add("AutoHome", "INIT", "AUTOHOME", r.AutoHome)
        .Add("Ph9First", "INIT", "PHFIRST", r.Ph9First)
        .Add("NoInteractiveInit", "INIT", "NO_INTERACTIVE", r.NoInteractiveInit)
        .Add("RunPProg", "EXEC", "RUN_PPROG", r.RunPProg)
        .Add("ExtProcFileName", "SYSTEMPARAM", "EXTPROCFILENAME", r.ExtProcFileName)
        .Add("NilFileName", "EXEC", "NIL FILE", r.NilFileName)
        .Add("NoInteractiveExec", "EXEC", "NO_INTERACTIVE", r.NoInteractiveExec)
        .Add("PartProgramWindowOnRun", "EXEC", "PART PROGRAM WINDOW ON RUN CONTINUE",
             r.PartProgramWindowOnRun)
        .Add("AutoLoadCode", "SYSTEMPARAM", "AUTOLOAD", U(r.AutoLoadCode));
    levels.push_back(init.Done());

    LevelBuilder offsets("MechOffsetSettings");
    offsets.Add("OffsetX", "MECHAOFFS", "offx", r.OffsetX, kWzelkoIni, "mm")
        .Add("OffsetY", "MECHAOFFS", "offy", r.OffsetY, kWzelkoIni, "mm")
        .Add("OffsetZ", "MECHAOFFS", "offz", r.OffsetZ, kWzelkoIni, "mm")
        .Add("CompensOffset", "MECHAOFFS", "compensoff", r.CompensOffset, kWzelkoIni, "mm")
        .Add("BridgeAxisStroke", "MACHINEPARAM", "BRIDGE AXIS STROKE", r.BridgeAxisStroke,
             kWzelkoIni, "mm");
    levels.push_back(offsets.Done());

    LevelBuilder points("DefaultPointsSettings");
    for (std::size_t i = 0; i < DefaultPointsSettings::kElementCount; ++i) {
        const std::string key = DefaultPointsSettings::kElementKeys[i];
        points.Add("CurrentPoints." + key, DefaultPointsSettings::kDefaultPointsSection, key,
                   U(r.CurrentPoints[i].Count), kWzelkoIni,
                   "minimum " + std::to_string(r.MinimumPoints[i].Count));
    }
    levels.push_back(points.Done());

    LevelBuilder sounds("SoundSettings");
    sounds.Add("PlayGeneral", SoundSettings::kSoundsSection, "enable", r.PlayGeneral)
        .Add("PlayPowerOn", "Wzelko", "PLAY SOUNDS", r.PlayPowerOn)
        .Add("PlayZeroes", "INIT", "PLAY SOUNDS", r.PlayZeroes)
        .Add("PowerOnContinuous", "Wzelko", "CONTINUOUS SOUND", r.PowerOnContinuous)
        .Add("ZeroesContinuous", "INIT", "PLAY CONTINUOUS", r.ZeroesContinuous)
        .Add("Location", SoundSettings::kSoundsSection, "location", r.Location);
    for (int id = 1; id <= SoundSettings::kSoundCount; ++id) {
        const std::string key = SoundSettings::kSoundKeys[static_cast<std::size_t>(id - 1)];
        sounds.Add("SoundFiles." + key, SoundSettings::kSoundsSection, key, r.GetSound(id, false),
                   kWzelkoIni, "sound id " + std::to_string(id));
    }
    levels.push_back(sounds.Done());

    LevelBuilder directories("DirectorySettings");
    directories.Add("SystemDir", DirectorySettings::kDirectorySection, "SYSTEM_DIR", r.SystemDir)
        .Add("DataDir", DirectorySettings::kDirectorySection, "DATA_DIR", r.DataDir)
        .Add("PProgDir", DirectorySettings::kDirectorySection, "PPROG_DIR", r.PProgDir)
        .Add("MeasDir", DirectorySettings::kDirectorySection, "MEAS_DIR", r.MeasDir)
        .Add("UserDir", DirectorySettings::kDirectorySection, "USER_DIR", r.UserDir);
    levels.push_back(directories.Done());

    LevelBuilder controller("ControllerSettings");
    controller
        .Add("ControllerType", "Controller", "Type", r.ControllerType, kWzelkoIni,
             "read once, at construction; never written")
        .Add("BaseAddress", "Controller", "Base Address", U(r.BaseAddress), kWzelkoIni,
             Hex(r.BaseAddress))
        .Add("HardProbeCompensation", "Controller", "Hard Probe Compensation",
             r.HardProbeCompensation)
        .Add("RightButtonFunction", "Controller", "Button1", I(r.RightButtonFunction))
        .Add("MiddleButtonFunction", "Controller", "Button2", I(r.MiddleButtonFunction))
        .Add("LeftButtonFunction", "Controller", "Button3", I(r.LeftButtonFunction))
        .Add("MaxPSpeed", "MACHINEPARAM", "Max pspeed", r.MaxPSpeed, kWzelkoIni, "mm/s")
        .Add("MaxMSpeed", "MACHINEPARAM", "Max mspeed", r.MaxMSpeed, kWzelkoIni, "mm/s")
        .Add("MaxAccel", "MACHINEPARAM", "Max accel", r.MaxAccel, kWzelkoIni, "mm/s2")
        .Add("UseIniMaxSpeeds", "MACHINEPARAM", "USE INI MAX SPEEDS AND ACCEL", r.UseIniMaxSpeeds,
             kWzelkoIni,
             r.UseIniMaxSpeeds ? "limits from the setup file" : "limits from the controller")
        .Add("IsQd32z", "CONTROLLER", "SUBTYPE", r.IsQd32z, kWzelkoIni,
             r.IsQd32z ? "QD32Z" : "R7NS");
    levels.push_back(controller.Done());

    LevelBuilder axes("AxesConvSettings");
    axes.Add("QenAxesConvention", "SYSTEMPARAM", "GUI", r.QenAxesConvention, kWzelkoIni,
             r.QenAxesConvention ? "QEN" : "STANDARD");
    levels.push_back(axes.Done());

    return levels;
}

}  // namespace wk::cli
