#pragma once
// A scroll area around contents that must keep their minimum size.
//
// It asks the layout around it for the room its contents need, so that the window's minimum
// size is the contents' own (their layouts' minimum sizes) and the window's layout never
// squeezes them. Only when the window is forced smaller than it asks for, which a tiling window
// manager or a screen smaller than the window can do, do the contents scroll instead of being
// pressed over each other.

#include <QScrollArea>

namespace wk {

class ContentsScrollArea : public QScrollArea {
    Q_OBJECT

public:
    // Takes `contents` over as its widget.
    explicit ContentsScrollArea(QWidget* contents, QWidget* parent = nullptr);

    QSize minimumSizeHint() const override;
    QSize sizeHint() const override;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QSize Frame() const;
};

}  // namespace wk
