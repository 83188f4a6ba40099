#pragma once
// The settings record: every group of WZELKO.INI and WZELKO32.INI in memory.
//
// One chain of levels, base first: ColourSettings, MachineSettings, SystemSettings,
// InitSettings, MechOffsetSettings, DefaultPointsSettings, SoundSettings, DirectorySettings,
// ControllerSettings, AxesConvSettings. The most derived level is SetupSettings.

#include "settings/axes_conv_settings.h"
