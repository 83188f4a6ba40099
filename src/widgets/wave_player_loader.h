#pragma once
// The wave player, from the sound plugin loaded on first use (widgets/wave_player.h says why
// it is a plugin).

#include <QString>
#include <functional>
#include <memory>

#include "widgets/wave_player.h"

namespace wk {

// A player, or why there is none (the plugin is missing or cannot be loaded).
struct LoadedWavePlayer {
    std::unique_ptr<WavePlayer> player;
    QString error;
};

// Loads the plugin (once per run) and makes a player.
LoadedWavePlayer LoadWavePlayer();

// Where the plugin is looked for: beside the running program, as it is built and installed.
QString WavePlayerPluginPath();

// Where players come from instead of the plugin (tests: a player that records what it was
// asked to play); an empty function puts the plugin back.
using WavePlayerSource = std::function<std::unique_ptr<WavePlayer>()>;
void SetWavePlayerSource(WavePlayerSource source);

}  // namespace wk
