#pragma once
// TOpenDirDialog: choosing a directory of the measuring application for the directories page.
//
// A drive combo box over a directory list. The drives are those the measuring application
// can name: under Wine the letters of the prefix's dosdevices, each standing for its target;
// on Windows the real drives. A drive whose target is missing is a drive without a medium and
// cannot be chosen. The list shows the way from the drive's root down to the directory it is
// open at, then that directory's subdirectories. A click selects a directory, Enter opens the
// selected one (the list then shows its subdirectories), a double-click opens it and closes
// the dialog with OK. The directory chosen is a path as the measuring application names it
// ("D:\DATA").

#include <QDialog>
#include <QString>
#include <string>
#include <vector>

#include "platform/dos_paths.h"

class QComboBox;
class QLabel;
class QListWidget;
class QListWidgetItem;
class QPushButton;

namespace wk {

class TOpenDirDialog : public QDialog {
    Q_OBJECT

public:
    explicit TOpenDirDialog(QWidget* owner = nullptr);

    // Opens the dialog at a path: its drive, when it names one, becomes the drive of the combo
    // box and the list; a path without a drive is on the list's current drive. The list shows
    // as much of the path as exists; the directory stays the path itself until the user
    // chooses another. An empty path keeps the directory as it is.
    void SetDirectory(const std::string& path);
    // Runs the dialog modally (or takes the answer given in advance, widgets/dialog_answers.h,
    // as the directory chosen); true when it was confirmed with OK.
    bool Run();
    // The directory: the one the dialog was opened at or the user selected.
    std::string GetDirectory() const { return directory_; }

    // The drive of the combo box and the list.
    char Drive() const { return drive_; }

public slots:
    void DriveComboBoxChange();
    void DirectoryLisBoxDblClick(QListWidgetItem* item);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void FillDrives();
    void ShowDrive(char letter);
    // Shows the list open at the deepest existing directory of `dosPath` (on the list's drive).
    void OpenDirectory(const std::string& dosPath);
    void SelectionChanged();
    const platform::DosDrive* DriveOf(char letter) const;

    QComboBox* DriveComboBox;
    QLabel* DirectoryLabel;
    QListWidget* DirectoryLisBox;
    QLabel* DriveNote;
    QPushButton* pOkButton;
    QPushButton* pBButton;

    std::vector<platform::DosDrive> drives_;
    char drive_ = 'C';
    std::string directory_;
    // The list is being filled by the dialog, not changed by the user.
    bool filling_ = false;
};

}  // namespace wk
