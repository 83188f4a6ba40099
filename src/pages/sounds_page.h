#pragma once
// The sounds page (SoundsTabSheet): the wave files the measuring application plays at power-on,
// at zeroes (homing) and for eleven run-time events, the switches to play them, and a Test
// button that plays the chosen file.
//
// A file picked in the file list (the wave files of the sounds location) goes to the file
// target: the power-on or zeroes sound when its name edit was entered last, otherwise the
// event selected in the events list. The Test button plays what was selected last.

#include <QCheckBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <array>
#include <memory>
#include <string>

#include "settings/sound_settings.h"
#include "shell/page_host.h"
#include "widgets/wave_player.h"

namespace wk {

class EditField;

class TSoundsPage : public KestelPage {
    Q_OBJECT

public:
    // File target and last selection: which sound a picked file goes to, and what Test plays.
    static constexpr int kPowerOnFile = 100;
    static constexpr int kZeroesFile = 101;
    static constexpr int kListedFile = 102;  // the file selected in the file list
    static constexpr int kSelectedEvent = 103;

    explicit TSoundsPage(PageHost& host);
    ~TSoundsPage() override;

    void Initialise() override;
    void Store() override;
    void Load(bool refreshAll) override;

    // What the page holds besides its controls (for the window's tests and tools).
    int FileTarget() const { return fileTarget_; }
    int LastSelection() const { return lastSelection_; }
    int SelectedEventRow() const { return selectedRow_; }
    // The sound the Test button plays now, as the settings name it.
    std::string SoundToTest() const;
    // The host folder the file list shows; empty while it points nowhere.
    QString FileListFolder() const { return fileListFolder_; }

public slots:
    void pSLE_FnamePowerOnEnter();
    void pSLE_FnamePowerOnExit();
    void pSLE_FnameZeroesEnter();
    void pSLE_FnameZeroesExit();
    void pLB_EventsListClick();
    void pFLB_FilesListChange();
    void pFLB_FilesListDblClick();
    void pCHB_PlayPowerOnClick();
    void pCHB_ContPowerOnClick();
    void pCHB_PlayZeroesClick();
    void pCHB_ContZeroesClick();
    void pCHB_PlayGeneralClick();
    void pPB_TestClick();

private:
    void BuildLayout();
    void FillEventsList();
    void MarkFileTarget();
    // Points the file list at a host folder and lists its wave files.
    void PointFileList(const QString& hostFolder, const std::string& dosFolder);
    // The selected file of the file list as the measuring application names it ("C:\...").
    std::string SelectedListedFile() const;
    void CommitStartName(EditField* edit, int soundId);
    void PlayOption(QCheckBox* play, QCheckBox* continuous, bool& playFlag, bool& continuousFlag);
    void ReportTest(const QString& name, WavePlayer::Outcome outcome, const QString& detail);
    // A note in the window's status line.
    void ShowStatus(const QString& text);

    QLabel* pST_Directory;
    QLineEdit* pSLE_Location;
    QGroupBox* pGBX_ContPowerOn;
    QLabel* pST_FnamePowerOn;
    EditField* pSLE_FnamePowerOn;
    QCheckBox* pCHB_PlayPowerOn;
    QCheckBox* pCHB_ContPowerOn;
    QGroupBox* pGBX_ContZeroes;
    QLabel* pST_FnameZeroes;
    EditField* pSLE_FnameZeroes;
    QCheckBox* pCHB_PlayZeroes;
    QCheckBox* pCHB_ContZeroes;
    QGroupBox* pGBX_PlayGeneral;
    QCheckBox* pCHB_PlayGeneral;
    QLabel* pST_EventsList;
    QLabel* pST_FilesList;
    QListWidget* pLB_EventsList;
    QListWidget* pFLB_FilesList;
    QPushButton* pPB_Test;

    int fileTarget_ = kSelectedEvent;
    int lastSelection_ = kSelectedEvent;
    int selectedRow_ = 0;
    // Row by row of the events list, the sound id.
    std::array<int, SoundSettings::kEventCount> rowToId_{};
    QString fileListFolder_;
    std::string fileListDosFolder_;
    // The events list's selection is being set by the page, not by the user.
    bool filling_ = false;
    // Made on the first test: loading it loads the multimedia module.
    std::unique_ptr<WavePlayer> player_;
};

}  // namespace wk
