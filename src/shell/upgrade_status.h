#pragma once
// The main window while the settings files are upgraded. The upgrade runs before control is back
// in the event loop, so nothing would be painted on its own: the window shows only its status
// line with the upgrade's text and the hourglass, painted at once, and gets its controls back
// when a pass is done.

#include <QCursor>
#include <string>
#include <vector>

#include "upgrade/upgrade_settings.h"

class QLabel;
class QWidget;

namespace wk {

class UpgradeStatus final : public UpgradeProgress {
public:
    // `controls` are hidden during a pass; `statusLine` shows the pass's text.
    UpgradeStatus(QWidget& window, QLabel& statusLine, std::vector<QWidget*> controls);

    void Prepare(const std::string& statusText) override;
    void Finish() override;

private:
    QWidget& window_;
    QLabel& statusLine_;
    std::vector<QWidget*> controls_;

    // What Prepare found, for Finish to put back.
    std::vector<bool> controlsVisible_;
    bool windowVisible_ = false;
    QCursor cursor_;
};

}  // namespace wk
