// wkestel_sound: the wave player of the sounds page's Test button, on Qt's sound effects.
// A plugin of its own so that only a test of a sound loads the multimedia module
// (widgets/wave_player.h).

#include <QAudioDevice>
#include <QMediaDevices>
#include <QObject>
#include <QPointer>
#include <QSoundEffect>
#include <QTimer>
#include <QUrl>
#include <memory>
#include <utility>

#include "widgets/wave_player.h"

namespace wk {

namespace {

// A file the sound system neither loads nor rejects (a damaged wave file can stay "loading"
// for ever) is given up after this long.
constexpr int kLoadTimeoutMs = 3000;

class QtWavePlayer final : public QObject, public WavePlayer {
public:
    QtWavePlayer() {
        timeout_.setSingleShot(true);
        timeout_.setInterval(kLoadTimeoutMs);
        connect(&timeout_, &QTimer::timeout, this, [this] {
            Finish(Outcome::CannotPlay,
                   QStringLiteral("the sound system could not load it within %1 seconds")
                       .arg(kLoadTimeoutMs / 1000));
            Stop();
        });
    }

    void Play(const QString& hostPath, Report report) override {
        Stop();
        ++generation_;
        report_ = std::move(report);
        // The file is loaded even when there is nothing to play it on, so that a file the sound
        // system cannot read is reported as such on any machine.
        const QAudioDevice device = QMediaDevices::defaultAudioOutput();
        effect_ = new QSoundEffect(device, this);
        QSoundEffect* effect = effect_;
        connect(effect, &QSoundEffect::statusChanged, this, [this, effect, device] {
            if (effect != effect_) return;  // a sound already replaced by another
            switch (effect->status()) {
                case QSoundEffect::Ready:
                    if (device.isNull()) {
                        Finish(Outcome::NoAudioDevice,
                               QStringLiteral("this machine has no audio output"));
                    } else {
                        effect->play();
                        Finish(Outcome::Playing, device.description());
                    }
                    break;
                case QSoundEffect::Error:
                    Finish(Outcome::CannotPlay,
                           QStringLiteral("the sound system cannot read it as a wave file"));
                    break;
                default:
                    break;
            }
        });
        timeout_.start();
        effect->setSource(QUrl::fromLocalFile(hostPath));
    }

private:
    void Stop() {
        timeout_.stop();
        report_ = nullptr;
        if (effect_) {
            effect_->stop();
            effect_->deleteLater();
            effect_ = nullptr;
        }
    }

    // Reports once, after Play has returned (the caller never sees its report inside Play),
    // unless another Play has come meanwhile.
    void Finish(Outcome outcome, const QString& detail) {
        if (!report_) return;
        timeout_.stop();
        QMetaObject::invokeMethod(
            this,
            [this, report = std::exchange(report_, nullptr), generation = generation_, outcome,
             detail] {
                if (generation == generation_) report(outcome, detail);
            },
            Qt::QueuedConnection);
    }

    QPointer<QSoundEffect> effect_;
    // Counts the Plays, so that the report of one overtaken by the next is dropped.
    unsigned generation_ = 0;
    QTimer timeout_;
    Report report_;
};

}  // namespace

class WavePlayerPlugin : public QObject, public WavePlayerFactory {
    Q_OBJECT
    Q_PLUGIN_METADATA(IID WK_WAVE_PLAYER_FACTORY_IID)
    Q_INTERFACES(wk::WavePlayerFactory)

public:
    std::unique_ptr<WavePlayer> CreatePlayer() override { return std::make_unique<QtWavePlayer>(); }
};

}  // namespace wk

#include "qt_wave_player.moc"
