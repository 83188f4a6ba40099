#pragma once
// Playing a wave file for the sounds page's Test button.
//
// The player lives in the sound plugin (wkestel_sound, beside the program), which alone links
// the Qt multimedia module: loading that module and its back ends costs start-up time that
// every run would pay for a button few runs press. The plugin is loaded on the first test
// (widgets/wave_player_loader.h); this header is what the program and the plugin share, and it
// needs nothing beyond Qt Core.

#include <QObject>
#include <QString>
#include <functional>
#include <memory>

namespace wk {

class WavePlayer {
public:
    enum class Outcome {
        Playing,        // the sound has started
        NoAudioDevice,  // the machine has no audio output to play it on
        CannotPlay,     // the sound system could not load or play the file
    };
    // What became of a Play, with a detail for the user. Called on the window's thread, after
    // Play has returned, at most once per Play: not at all for a Play that a later Play (or the
    // player's destruction) has overtaken.
    using Report = std::function<void(Outcome outcome, const QString& detail)>;

    virtual ~WavePlayer() = default;

    // Starts playing a host wave file and returns at once; a sound still playing is stopped.
    virtual void Play(const QString& hostPath, Report report) = 0;
};

// What the plugin offers: players.
class WavePlayerFactory {
public:
    virtual ~WavePlayerFactory() = default;
    virtual std::unique_ptr<WavePlayer> CreatePlayer() = 0;
};

}  // namespace wk

#define WK_WAVE_PLAYER_FACTORY_IID "org.wkestel32.WavePlayerFactory/1"
Q_DECLARE_INTERFACE(wk::WavePlayerFactory, WK_WAVE_PLAYER_FACTORY_IID)
