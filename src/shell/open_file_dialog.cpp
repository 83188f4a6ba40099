#include "shell/open_file_dialog.h"

#include <QFileDialog>
#include <cstdio>

#include "platform/dos_paths.h"
#include "platform/text_codec.h"
#include "shell/file_filter.h"
#include "widgets/dialog_answers.h"

namespace wk {

namespace {

QString FromAnsi(const std::string& text) {
    return QString::fromStdString(platform::AnsiToUtf8(text));
}

}  // namespace

bool OpenFileDialog::Browse(std::string& path, const std::string& initialDir,
                            const std::string& ext, const std::string& description) {
    if (!dialog_) {
        // Qt's own dialog rather than the desktop's, so that it looks and answers the same
        // everywhere. It hides no read-only box (Qt's has none) and leaves the current
        // directory alone.
        dialog_ = new QFileDialog(&owner_);
        dialog_->setObjectName(QStringLiteral("OpenFileDialog"));
        dialog_->setOption(QFileDialog::DontUseNativeDialog);
        dialog_->setAcceptMode(QFileDialog::AcceptOpen);
        dialog_->setFileMode(QFileDialog::AnyFile);
    }
    dialog_->setDefaultSuffix(FromAnsi(ext));
    // Host paths are UTF-8; the settings files' paths are ANSI.
    std::string hostDir = platform::AnsiToUtf8(initialDir);
    if (platform::IsDosPath(hostDir)) {
        hostDir = platform::DosToHostPath(hostDir).value_or(hostDir);
    }
    dialog_->setDirectory(QString::fromStdString(hostDir));

    char filter[512];
    std::snprintf(filter, sizeof filter, "%s (*.%s)|*.%s", description.c_str(), ext.c_str(),
                  ext.c_str());
    dialog_->setNameFilters(QtNameFilters(FromAnsi(filter)));
    dialog_->selectFile(QString());

    const std::optional<QString> chosen = RunFileOpenDialog(*dialog_);
    if (!chosen) {
        return false;
    }
    const std::string host = chosen->toStdString();
    path = platform::Utf8ToAnsi(platform::HostToDosPath(host).value_or(host));
    return true;
}

}  // namespace wk
