#include "widgets/wave_player_loader.h"

#include <QCoreApplication>
#include <QDir>
#include <QPluginLoader>

namespace wk {

namespace {

WavePlayerSource& Source() {
    static WavePlayerSource source;
    return source;
}

}  // namespace

QString WavePlayerPluginPath() {
    return QDir(QCoreApplication::applicationDirPath())
        .filePath(QStringLiteral(WKESTEL_SOUND_PLUGIN_NAME));
}

void SetWavePlayerSource(WavePlayerSource source) {
    Source() = std::move(source);
}

LoadedWavePlayer LoadWavePlayer() {
    LoadedWavePlayer loaded;
    if (Source()) {
        loaded.player = Source()();
        if (!loaded.player) loaded.error = QStringLiteral("no player");
        return loaded;
    }
    // Kept for the whole run and never unloaded: the players made by the plugin run its code.
    static QPluginLoader loader;
    if (loader.fileName().isEmpty()) loader.setFileName(WavePlayerPluginPath());
    QObject* plugin = loader.instance();
    auto* factory = qobject_cast<WavePlayerFactory*>(plugin);
    if (!factory) {
        loaded.error = plugin ? QStringLiteral("%1 is not the sound plugin").arg(loader.fileName())
                              : loader.errorString();
        return loaded;
    }
    loaded.player = factory->CreatePlayer();
    if (!loaded.player) loaded.error = QStringLiteral("the sound plugin made no player");
    return loaded;
}

}  // namespace wk
