#pragma once
// The keys of the system-parameters group (SystemSettings). Each constant is named after the
// field it fills; its default is that field's value before the first read.

#include <cstdint>

#include "settings/setting_key.h"

namespace wk {

// "Wzelko" is the file's main section, shared with other groups.
inline constexpr WzelkoKey<const char*> kLanguageCode{"Wzelko", "LANGUAGE", KeyKind::Text, ""};
inline constexpr WzelkoKey<bool> kFenWire{"TOOL", "FENWIRE", KeyKind::Bool, true};
inline constexpr WzelkoKey<bool> kTp200{"MEASUREPARAM", "TP200", KeyKind::Bool, false};
// The calibration sphere's diameter, millimetres.
inline constexpr WzelkoKey<double> kDiaSferaCal{"SYSTEMPARAM", "DIASFERACAL", KeyKind::Number,
                                                15.073};
// The three system files; the start-up group reads them a second time.
inline constexpr WzelkoKey<const char*> kQualiFileName{"SYSTEMPARAM", "QUALIFILENAME",
                                                       KeyKind::Text, "QUALI.TIP"};
inline constexpr WzelkoKey<const char*> kRefSysFileName{"SYSTEMPARAM", "REFSYSFILENAME",
                                                        KeyKind::Text, "REFSYS.REF"};
inline constexpr WzelkoKey<const char*> kMemoryFileName{"SYSTEMPARAM", "MEMORYFILENAME",
                                                        KeyKind::Text, "MEMORY.MEM"};
inline constexpr WzelkoKey<const char*> kGraphPrinter{"GraphOutput", "Printer", KeyKind::Text, ""};
// A system-file set code 0-7.
inline constexpr WzelkoKey<std::uint32_t> kAutoSave{"SYSTEMPARAM", "AUTOSAVE", KeyKind::Integer, 0};
// "DIAMETER" (true) or "RADIUS".
inline constexpr WzelkoKey<bool> kTruePosErrDiameter{"OTHER", "TRUEPOSERR", KeyKind::Word, true};
inline constexpr WzelkoKey<bool> kDoubleFormErr{"OTHER", "DOUBLEFORMERR", KeyKind::Bool, true};
inline constexpr WzelkoKey<bool> kDosPpCompatibility{"SYSTEMPARAM", "ZELKO DOS PP COMPATIBILITY",
                                                     KeyKind::Bool, false};
// "USING SELPL" (0) or "SHOULD MODE" (1).
inline constexpr WzelkoKey<std::uint32_t> kLine3dCompens{"SYSTEMPARAM", "3D LINE COMPENS",
                                                         KeyKind::Word, 0};
inline constexpr WzelkoKey<double> kThresholdAngMiddleRel{"SYSTEMPARAM", "THRESHOLD ANG MIDDLE REL",
                                                          KeyKind::Number, 0.0};
// "1" or "0", unlike every other flag of the group.
inline constexpr WzelkoKey<bool> kPrintAtEndExec{"EXEC", "PRINT AT END EXEC", KeyKind::Integer,
                                                 false};
inline constexpr WzelkoKey<bool> kSelfAccelerators{"ELEMENTS MENU", "SELF ACCELERATORS",
                                                   KeyKind::Bool, false};
inline constexpr WzelkoKey<bool> kUseLastMemories{"MACRO", "USE LAST MEMORIES", KeyKind::Bool,
                                                  false};
// "DIAMETER" (true) or "RADIUS".
inline constexpr WzelkoKey<bool> kLinearityErrDiameter{"OTHER", "LINEARITY ERROR", KeyKind::Word,
                                                       false};
inline constexpr WzelkoKey<bool> kForceRef0{"SELF TEACHING", "FORCE REF0", KeyKind::Bool, false};
inline constexpr WzelkoKey<bool> kGeoTolUseFormat{"GEO TOLERANCE", "USE FORMAT", KeyKind::Bool,
                                                  false};
inline constexpr WzelkoKey<bool> kGeoTolElementCreation{"MACRO", "GEO TOL ELEMENT CREATION",
                                                        KeyKind::Bool, false};
inline constexpr WzelkoKey<bool> kWaitAtEndExecution{"EXEC", "WAIT AT END EXECUTION", KeyKind::Bool,
                                                     true};
inline constexpr WzelkoKey<bool> kImmediateDataInputWindow{
    "EXEC PROCEDURE", "IMMEDIATE DATA INPUT WINDOW", KeyKind::Bool, true};
// Spelled so in the files the measuring application writes.
inline constexpr WzelkoKey<bool> kQuickAlignments{"OTHER", "QUICK ALIGNEMENTS", KeyKind::Bool,
                                                  true};

}  // namespace wk
