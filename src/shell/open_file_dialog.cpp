#include "shell/open_file_dialog.h"

#include <QFileDialog>
#include <cstdio>
#include <filesystem>
#include <system_error>

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

std::string DialogStartDirectory(const std::string& initialDir) {
    // Host paths are UTF-8; the settings files' paths are ANSI.
    std::string hostDir = platform::AnsiToUtf8(initialDir);
    if (platform::IsDosPath(hostDir)) {
        hostDir = platform::DosToHostPath(hostDir).value_or(hostDir);
    }
    if (hostDir.empty()) {
        return hostDir;
    }
    namespace fs = std::filesystem;
    // Through char8_t, so that the UTF-8 text names the same folder on every platform.
    fs::path dir = fs::path(std::u8string(hostDir.begin(), hostDir.end())).lexically_normal();
    if (!dir.has_filename() && dir != dir.root_path()) {
        dir = dir.parent_path();  // "dir/" is "dir"
    }
    std::error_code ec;
    while (!fs::is_directory(dir, ec)) {
        const fs::path parent = dir.parent_path();
        if (parent.empty() || parent == dir) {
            return hostDir;  // nothing of it exists: Qt's dialog decides
        }
        dir = parent;
    }
    const std::u8string found = dir.u8string();
    return std::string(found.begin(), found.end());
}

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
    dialog_->setDirectory(QString::fromStdString(DialogStartDirectory(initialDir)));

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
