#include "shell/upgrade_status.h"

#include <QLabel>
#include <QWidget>

#include "platform/text_codec.h"

namespace wk {

UpgradeStatus::UpgradeStatus(QWidget& window, QLabel& statusLine, std::vector<QWidget*> controls)
    : window_(window), statusLine_(statusLine), controls_(std::move(controls)) {}

void UpgradeStatus::Prepare(const std::string& statusText) {
    controlsVisible_.clear();
    for (QWidget* control : controls_) {
        controlsVisible_.push_back(control->isVisible());
        control->setVisible(false);
    }
    windowVisible_ = window_.isVisible();
    cursor_ = window_.cursor();
    window_.setVisible(true);
    window_.setCursor(Qt::WaitCursor);
    statusLine_.setText(QString::fromStdString(platform::AnsiToUtf8(statusText)));
    window_.repaint();
}

void UpgradeStatus::Finish() {
    for (std::size_t i = 0; i < controls_.size() && i < controlsVisible_.size(); ++i) {
        controls_[i]->setVisible(controlsVisible_[i]);
    }
    window_.setVisible(windowVisible_);
    window_.setCursor(cursor_);
    window_.repaint();
}

}  // namespace wk
