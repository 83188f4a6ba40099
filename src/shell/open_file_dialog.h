#pragma once
// OpenFileDialog: the file-open dialog that the browse buttons of several pages share.
//
// Paths are texts as the settings files hold them (ANSI code page, paths of the measuring
// application): the initial directory is shown on the host, and the chosen file is given back as
// the measuring application's path when a drive of the Wine prefix reaches it.

#include <string>

class QFileDialog;
class QWidget;

namespace wk {

// The host folder the dialog opens in for `initialDir` (a path of the measuring application,
// mapped through the prefix's drives, or a host path). A folder that does not exist (the
// measuring application's folder on a machine where it was never installed, say) gives the
// nearest folder above it that does, so that the user starts as close to it as there is.
std::string DialogStartDirectory(const std::string& initialDir);

class OpenFileDialog {
public:
    // The dialog is made on first use, owned by `owner`.
    explicit OpenFileDialog(QWidget& owner) : owner_(owner) {}

    // One filter entry "<description> (*.<ext>)"; the dialog starts in `initialDir`, or the
    // nearest existing folder above it. True when a file was chosen; `path` is unchanged
    // otherwise.
    bool Browse(std::string& path, const std::string& initialDir, const std::string& ext,
                const std::string& description);

private:
    QWidget& owner_;
    QFileDialog* dialog_ = nullptr;
};

}  // namespace wk
