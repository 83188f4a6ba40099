#include "settings/settings_schema.h"

#include "settings/axes_conv_schema.h"
#include "settings/colour_schema.h"
#include "settings/controller_schema.h"
#include "settings/default_points_schema.h"
#include "settings/directory_schema.h"
#include "settings/init_schema.h"
#include "settings/machine_schema.h"
#include "settings/mech_offset_schema.h"
#include "settings/sound_schema.h"
#include "settings/system_schema.h"

namespace wk {
namespace {

template <typename Keys>
void AppendAll(std::vector<const SettingKey*>& to, const Keys& keys) {
    for (const auto& key : keys) to.push_back(&key);
}

std::vector<SchemaLevel> BuildSchema() {
    std::vector<SchemaLevel> levels;

    SchemaLevel colours{"ColourSettings", {&kMetric}};
    AppendAll(colours.Keys, kWindowBackgroundKeys);
    levels.push_back(std::move(colours));

    levels.push_back({"MachineSettings",
                      {&kCtrVolcompOnExit,
                       &kCompensMode,
                       &kVolcompMethod,
                       &kLegacyMethod,
                       &kCompensActive,
                       &kThermalCompens,
                       &kToolChanger,
                       &kCosDatFileName,
                       &kCompensFileName,
                       &kDistApproach,
                       &kXTerm,
                       &kYTerm,
                       &kZTerm,
                       &kPartTerm,
                       &kOptSpeed,
                       &kDepth,
                       &kCnc,
                       &kPortIndex,
                       &kCmmSimulation,
                       &kResolution,
                       &kPh9Simulation,
                       &kPh9Present,
                       &kPh9Serial,
                       &kPh9Type,
                       &kJx01Simulation,
                       &kJx01Delay,
                       &kUseSocket,
                       &kTcpipAddress,
                       &kTcpipPort}});

    levels.push_back({"SystemSettings",
                      {&kLanguageCode,
                       &kFenWire,
                       &kTp200,
                       &kDiaSferaCal,
                       &kQualiFileName,
                       &kRefSysFileName,
                       &kMemoryFileName,
                       &kGraphPrinter,
                       &kAutoSave,
                       &kTruePosErrDiameter,
                       &kDoubleFormErr,
                       &kDosPpCompatibility,
                       &kLine3dCompens,
                       &kThresholdAngMiddleRel,
                       &kPrintAtEndExec,
                       &kSelfAccelerators,
                       &kUseLastMemories,
                       &kLinearityErrDiameter,
                       &kForceRef0,
                       &kGeoTolUseFormat,
                       &kGeoTolElementCreation,
                       &kWaitAtEndExecution,
                       &kImmediateDataInputWindow,
                       &kQuickAlignments}});

    levels.push_back(
        {"InitSettings",
         {&kAutoPower, &kAutoInit, &kAutoLoad, &kAutoExec, &kExitCode, &kAutoPh9, &kAutoHome,
          &kPh9First, &kNoInteractiveInit, &kRunPProg, &kExtProcFileName, &kNilFileName,
          &kNoInteractiveExec, &kPartProgramWindowOnRun, &kAutoLoadCode}});

    SchemaLevel offsets{"MechOffsetSettings", {}};
    for (const WzelkoKey<double>* key : kMechOffsetKeys) offsets.Keys.push_back(key);
    levels.push_back(std::move(offsets));

    SchemaLevel points{"DefaultPointsSettings", {}};
    AppendAll(points.Keys, kDefaultPointsKeys);
    levels.push_back(std::move(points));

    SchemaLevel sounds{"SoundSettings",
                       {&kPlayGeneral, &kPlayPowerOn, &kPlayZeroes, &kPowerOnContinuous,
                        &kZeroesContinuous, &kLocation}};
    AppendAll(sounds.Keys, kSoundFileKeys);
    levels.push_back(std::move(sounds));

    SchemaLevel directories{"DirectorySettings", {}};
    for (const WzelkoKey<const char*>* key : kDirectoryKeys) directories.Keys.push_back(key);
    levels.push_back(std::move(directories));

    levels.push_back({"ControllerSettings",
                      {&kControllerType, &kBaseAddress, &kHardProbeCompensation,
                       &kRightButtonFunction, &kMiddleButtonFunction, &kLeftButtonFunction,
                       &kMaxPSpeed, &kMaxMSpeed, &kMaxAccel, &kUseIniMaxSpeeds, &kIsQd32z}});

    levels.push_back({"AxesConvSettings", {&kQenAxesConvention}});
    return levels;
}

}  // namespace

const std::vector<SchemaLevel>& SettingsSchema() {
    static const std::vector<SchemaLevel> schema = BuildSchema();
    return schema;
}

}  // namespace wk
