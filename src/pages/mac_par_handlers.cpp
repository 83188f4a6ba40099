// The machine parameters page: what each control does when the user uses it. Check boxes,
// radio buttons and lists write the record at once; edit fields when they are left (or when
// the frame stores the page), and only when their text was typed.

#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>

#include "pages/mac_par_page.h"
#include "pages/mac_par_texts.h"
#include "platform/ascii_case.h"
#include "platform/text_to_number.h"
#include "settings/controller_schema.h"
#include "settings/key_profile_helpers.h"
#include "settings/setup_settings.h"
#include "widgets/edit_combo_box.h"
#include "widgets/edit_field.h"
#include "widgets/focus_return.h"

namespace wk {

using mac_par::FromAnsi;
using mac_par::ToAnsi;

void TMacParPage::ConnectHandlers() {
    connect(pCB_Port, &QComboBox::activated, this, &TMacParPage::pCB_PortChange);
    connect(pRB_CNC, &QRadioButton::clicked, this, &TMacParPage::pRB_CNCClick);
    connect(pRB_Manual, &QRadioButton::clicked, this, &TMacParPage::pRB_ManualClick);
    connect(pCHB_CNC_Simul, &QCheckBox::clicked, this, &TMacParPage::pCHB_CNC_SimulClick);
    connect(pCHB_JX01_Simul, &QCheckBox::clicked, this, &TMacParPage::pCHB_JX01_SimulClick);

    connect(pCB_Resolution, &QComboBox::activated, this, &TMacParPage::pCB_ResolutionClick);
    connect(pCB_Resolution, &EditComboBox::Enter, this, &TMacParPage::pCB_ResolutionEnter);
    connect(pCB_Resolution, &EditComboBox::Exit, this, &TMacParPage::pCB_ResolutionExit);

    connect(pCB_Ph9_Port, &QComboBox::activated, this, &TMacParPage::pCB_Ph9_PortChange);
    connect(pCB_Ph9_Baud, &QComboBox::activated, this, &TMacParPage::pCB_Ph9_BaudChange);
    connect(pCB_Ph9_Parity, &QComboBox::activated, this, &TMacParPage::pCB_Ph9_ParityChange);
    connect(pCB_Ph9_NBits, &QComboBox::activated, this, &TMacParPage::pCB_Ph9_NBitsChange);
    connect(pCB_Ph9_StopBits, &QComboBox::activated, this, &TMacParPage::pCB_Ph9_StopBitsChange);
    connect(pCHB_Ph9_Present, &QCheckBox::clicked, this, &TMacParPage::pCHB_Ph9_PresentClick);
    connect(pCHB_Ph9_Simul, &QCheckBox::clicked, this, &TMacParPage::pCHB_Ph9_SimulClick);
    connect(p_RB_PHx, &QRadioButton::clicked, this, &TMacParPage::p_RB_PHxClick);
    connect(p_RB_MODRIVAXM, &QRadioButton::clicked, this, &TMacParPage::p_RB_MODRIVAXMClick);
    connect(p_RB_MODRIVAXI, &QRadioButton::clicked, this, &TMacParPage::p_RB_MODRIVAXIClick);

    connect(pSLE_CosDatFname, &EditField::Enter, this, &TMacParPage::pSLE_CosDatFnameEnter);
    connect(pSLE_CompensFname, &EditField::Enter, this, &TMacParPage::pSLE_CompensFnameEnter);
    connect(pSLE_CosDatFname, &EditField::Exit, this, &TMacParPage::pSLE_CosDatFnameExit);
    connect(pSLE_CompensFname, &EditField::Exit, this, &TMacParPage::pSLE_CompensFnameExit);
    connect(pPB_BrowserMP, &QPushButton::clicked, this, &TMacParPage::pPB_BrowserMPClick);

    connect(pSLE_DistApproach, &EditField::Exit, this, &TMacParPage::pSLE_DistApproachExit);
    connect(pSLE_Depth, &EditField::Exit, this, &TMacParPage::pSLE_DepthExit);
    connect(pSLE_Optimal_Speed, &EditField::Exit, this, &TMacParPage::pSLE_Optimal_SpeedExit);
    connect(pSLE_Term_X, &EditField::Exit, this, &TMacParPage::pSLE_Term_XExit);
    connect(pSLE_Term_Y, &EditField::Exit, this, &TMacParPage::pSLE_Term_YExit);
    connect(pSLE_Term_Z, &EditField::Exit, this, &TMacParPage::pSLE_Term_ZExit);
    connect(pSLE_Term_Part, &EditField::Exit, this, &TMacParPage::pSLE_Term_PartExit);
    connect(pCHB_Depth, &QCheckBox::clicked, this, &TMacParPage::pCHB_DepthClick);
    connect(pCHB_Optimal_Speed, &QCheckBox::clicked, this, &TMacParPage::pCHB_Optimal_SpeedClick);
    connect(pCHB_Tool_Ch, &QCheckBox::clicked, this, &TMacParPage::pCHB_Tool_ChClick);
    connect(pCHB_Active, &QCheckBox::clicked, this, &TMacParPage::pCHB_ActiveClick);

    for (EditField* part : {pSLE_TCP1, pSLE_TCP2, pSLE_TCP3, pSLE_TCP4}) {
        connect(part, &EditField::Exit, this, [this, part] { pSLE_TCPEnterOrExit(part); });
    }
    connect(pSLE_TCPPORT, &EditField::Exit, this, &TMacParPage::pSLE_TCPPORTExit);

    // Entering any field but the two file names leaves Browse without a target.
    for (EditField* field :
         {pSLE_TCP1, pSLE_TCP2, pSLE_TCP3, pSLE_TCP4, pSLE_TCPPORT, pSLE_DistApproach, pSLE_Depth,
          pSLE_Optimal_Speed, pSLE_Term_X, pSLE_Term_Y, pSLE_Term_Z, pSLE_Term_Part}) {
        connect(field, &EditField::Enter, this, &TMacParPage::NotAFileNameField);
    }
}

void TMacParPage::NotAFileNameField() {
    pPB_BrowserMP->setEnabled(false);
}

// ---- connection and mode ----------------------------------------------------------------

void TMacParPage::pCB_PortChange() {
    NotAFileNameField();
    SetupSettings& settings = host_.Settings();
    const int index = pCB_Port->currentIndex();
    if (index < 0 || index == settings.PortIndex) return;
    settings.PortIndex = index;
    pGB_TCPIP->setVisible(index == MachineSettings::kTcpipPortIndex);
    host_.MarkModified();
}

void TMacParPage::pRB_CNCClick() {
    NotAFileNameField();
    SetupSettings& settings = host_.Settings();
    if (settings.Cnc) return;  // already a CNC machine: the click changes nothing
    settings.Cnc = true;
    pCHB_Ph9_Present->setEnabled(true);
    // A CNC machine runs at the resolution chosen for it, which cannot be typed.
    pCB_Resolution->ShowText(pCB_Resolution->itemText(CncResolutionIndex));
    pCB_Resolution->setEnabled(false);
    host_.Converting([&] {
        settings.Resolution = StrToFloat(ToAnsi(pCB_Resolution->itemText(CncResolutionIndex)));
    });
    pCHB_Ph9_Simul->setEnabled(true);
    pCHB_JX01_Simul->setEnabled(settings.CmmSimulation);
    host_.MarkModified();
}

void TMacParPage::pRB_ManualClick() {
    NotAFileNameField();
    SetupSettings& settings = host_.Settings();
    if (!settings.Cnc) return;  // already a manual machine
    settings.Cnc = false;
    // A manual machine drives the head only in simulation.
    if (settings.Ph9Present) {
        pCHB_Ph9_Simul->setChecked(true);
        settings.Ph9Simulation = true;
    }
    pCHB_Ph9_Simul->setEnabled(false);
    pCB_Resolution->setEnabled(true);
    pCB_Resolution->ShowText(pCB_Resolution->itemText(ManualResolutionIndex));
    host_.Converting([&] {
        settings.Resolution = StrToFloat(ToAnsi(pCB_Resolution->itemText(ManualResolutionIndex)));
    });
    pCHB_JX01_Simul->setEnabled(settings.CmmSimulation);
    host_.MarkModified();
}

void TMacParPage::pCHB_CNC_SimulClick() {
    NotAFileNameField();
    SetupSettings& settings = host_.Settings();
    settings.CmmSimulation = pCHB_CNC_Simul->isChecked();
    if (settings.CmmSimulation) {
        pCHB_JX01_Simul->setEnabled(true);
    } else {
        // The hand unit is simulated only with the machine.
        pCHB_JX01_Simul->setChecked(false);
        pCHB_JX01_Simul->setEnabled(false);
        settings.Jx01Simulation = false;
    }
    host_.MarkModified();
}

void TMacParPage::pCHB_JX01_SimulClick() {
    NotAFileNameField();
    host_.Settings().Jx01Simulation = pCHB_JX01_Simul->isChecked();
    host_.MarkModified();
}

// ---- resolution -------------------------------------------------------------------------

void TMacParPage::pCB_ResolutionClick() {
    NotAFileNameField();
    const int index = pCB_Resolution->currentIndex();
    if (index < 0) return;
    SetupSettings& settings = host_.Settings();
    host_.Converting([&] {
        const double chosen = StrToFloat(ToAnsi(pCB_Resolution->itemText(index)));
        if (chosen == settings.Resolution) return;
        settings.Resolution = chosen;
        // Each kind of machine remembers its own choice.
        (settings.Cnc ? CncResolutionIndex : ManualResolutionIndex) = index;
        host_.MarkModified();
    });
}

void TMacParPage::pCB_ResolutionEnter() {
    NotAFileNameField();
}

void TMacParPage::pCB_ResolutionExit() {
    CommitResolution(Commit::OnExit);
}

void TMacParPage::CommitResolution(Commit /*how*/) {
    // The same on exit and on store: only a value that differs from the record counts.
    if (!pCB_Resolution->IsModified()) return;
    SetupSettings& settings = host_.Settings();
    host_.Converting([&] {
        const double typed = StrToFloat(ToAnsi(pCB_Resolution->currentText()));
        if (typed == settings.Resolution) {
            pCB_Resolution->lineEdit()->setModified(false);
            return;
        }
        if (typed <= 0) {
            // No machine has such a resolution: the record keeps its value, and the field
            // shows it again rather than a number that is not in effect.
            ShowResolution();
            return;
        }
        settings.Resolution = typed;
        const QString text = mac_par::ResolutionText(typed);
        if (pCB_Resolution->findText(text, Qt::MatchExactly) < 0) {
            // The typed value becomes the manual machine's choice, first in the list; the CNC
            // choice keeps pointing at the item it pointed at.
            pCB_Resolution->insertItem(0, text);
            ++CncResolutionIndex;
            ManualResolutionIndex = 0;
        }
        pCB_Resolution->ShowText(text);
        host_.MarkModified();
    });
}

// ---- PH9 head ---------------------------------------------------------------------------

void TMacParPage::Ph9SerialChange() {
    NotAFileNameField();
    SetupSettings& settings = host_.Settings();
    std::uint32_t serial = settings.Ph9Serial;
    // The item index of each list is its bit field of the packed setting. A list without a
    // choice (its value was none of its items) leaves its field as it is.
    const auto put = [&serial](const QComboBox* box, std::uint32_t mask, int shift) {
        const int index = box->currentIndex();
        if (index < 0) return;
        serial = (serial & ~mask) | ((static_cast<std::uint32_t>(index) << shift) & mask);
    };
    put(pCB_Ph9_Port, MachineSettings::kPh9PortMask, 0);
    put(pCB_Ph9_Baud, MachineSettings::kPh9SpeedMask, 4);
    put(pCB_Ph9_Parity, MachineSettings::kPh9ParityMask, 8);
    put(pCB_Ph9_StopBits, MachineSettings::kPh9StopMask, 10);
    put(pCB_Ph9_NBits, MachineSettings::kPh9DataMask, 12);
    if (serial == settings.Ph9Serial) return;
    settings.Ph9Serial = serial;
    host_.MarkModified();
}

void TMacParPage::pCB_Ph9_PortChange() {
    Ph9SerialChange();
}
void TMacParPage::pCB_Ph9_BaudChange() {
    Ph9SerialChange();
}
void TMacParPage::pCB_Ph9_ParityChange() {
    Ph9SerialChange();
}
void TMacParPage::pCB_Ph9_NBitsChange() {
    Ph9SerialChange();
}
void TMacParPage::pCB_Ph9_StopBitsChange() {
    Ph9SerialChange();
}

void TMacParPage::pCHB_Ph9_PresentClick() {
    NotAFileNameField();
    SetupSettings& settings = host_.Settings();
    settings.Ph9Present = pCHB_Ph9_Present->isChecked();
    if (settings.Ph9Present && settings.Cnc) {
        pCHB_Ph9_Simul->setEnabled(true);
        SetPh9ListsEnabled(true);
        // The head type is chosen for the controllers reached over TCP/IP; the type is asked
        // of the settings file as it stands.
        char type[11] = {};
        ReadProfileText(kControllerType, type, sizeof type);
        if (EqualsIgnoringAsciiCase(type, "RMD") || EqualsIgnoringAsciiCase(type, "KPT")) {
            SetHeadTypeEnabled(true);
            SelectHeadType(settings.Ph9Type);
        } else {
            SetHeadTypeEnabled(false);
            p_RB_PHx->setChecked(true);
            settings.Ph9Type = 0;
        }
    } else if (settings.Ph9Present) {
        // A manual machine drives the head only in simulation.
        SetHeadTypeEnabled(false);
        pCHB_Ph9_Simul->setChecked(true);
        pCHB_Ph9_Simul->setEnabled(false);
        settings.Ph9Simulation = true;
    } else {
        settings.Ph9Simulation = false;
        pCHB_Ph9_Simul->setChecked(false);
        pCHB_Ph9_Simul->setEnabled(false);
        SetPh9ListsEnabled(false);
        SetHeadTypeEnabled(false);
    }
    host_.MarkModified();
}

void TMacParPage::pCHB_Ph9_SimulClick() {
    NotAFileNameField();
    host_.Settings().Ph9Simulation = pCHB_Ph9_Simul->isChecked();
    host_.MarkModified();
}

void TMacParPage::p_RB_PHxClick() {
    NotAFileNameField();
    if (host_.Settings().Ph9Type == 0) return;
    host_.Settings().Ph9Type = 0;
    host_.MarkModified();
}

void TMacParPage::p_RB_MODRIVAXMClick() {
    NotAFileNameField();
    if (host_.Settings().Ph9Type == 1) return;
    host_.Settings().Ph9Type = 1;
    host_.MarkModified();
}

void TMacParPage::p_RB_MODRIVAXIClick() {
    NotAFileNameField();
    if (host_.Settings().Ph9Type == 2) return;
    host_.Settings().Ph9Type = 2;
    host_.MarkModified();
}

// ---- general values ---------------------------------------------------------------------

void TMacParPage::CommitFileName(EditField* field, std::string& value, Commit how) {
    if (!field->isModified()) return;
    // The measuring application's file names are upper case.
    const std::string name = ToUpperAscii(ToAnsi(field->text()));
    field->setText(FromAnsi(name));
    if (how == Commit::OnStore && name == value) return;
    value = name;
    host_.MarkModified();
}

void TMacParPage::pSLE_CosDatFnameExit() {
    CommitFileName(pSLE_CosDatFname, host_.Settings().CosDatFileName, Commit::OnExit);
}

void TMacParPage::pSLE_CompensFnameExit() {
    CommitFileName(pSLE_CompensFname, host_.Settings().CompensFileName, Commit::OnExit);
}

void TMacParPage::CommitDistApproach(Commit how) {
    if (!pSLE_DistApproach->isModified()) return;
    SetupSettings& settings = host_.Settings();
    host_.Converting([&] {
        const double mm = settings.ParseLength(ToAnsi(pSLE_DistApproach->text()));
        if (mm < mac_par::kMinDistApproach || mm > mac_par::kMaxDistApproach) {
            // Out of range: the value in effect is shown again, without a word.
            pSLE_DistApproach->setText(LengthText(settings.DistApproach));
            return;
        }
        pSLE_DistApproach->setText(LengthText(mm));
        if (how == Commit::OnStore && mm == settings.DistApproach) return;
        settings.DistApproach = mm;
        host_.MarkModified();
    });
}

void TMacParPage::pSLE_DistApproachExit() {
    CommitDistApproach(Commit::OnExit);
}

void TMacParPage::CommitDepth(Commit how) {
    if (!pSLE_Depth->isModified()) return;
    SetupSettings& settings = host_.Settings();
    host_.Converting([&] {
        const double mm = settings.ParseLength(ToAnsi(pSLE_Depth->text()));
        pSLE_Depth->setText(LengthText(mm));
        if (how == Commit::OnStore && mm == settings.Depth) return;
        settings.Depth = mm;
        host_.MarkModified();
    });
}

void TMacParPage::pSLE_DepthExit() {
    CommitDepth(Commit::OnExit);
}

void TMacParPage::CommitOptimalSpeed(Commit how) {
    if (!pSLE_Optimal_Speed->isModified()) return;
    SetupSettings& settings = host_.Settings();
    host_.Converting([&] {
        const double speed = StrToFloat(ToAnsi(pSLE_Optimal_Speed->text()));
        pSLE_Optimal_Speed->setText(mac_par::SpeedText(speed));
        if (how == Commit::OnStore && speed == settings.OptSpeed) return;
        settings.OptSpeed = speed;
        host_.MarkModified();
    });
}

void TMacParPage::pSLE_Optimal_SpeedExit() {
    CommitOptimalSpeed(Commit::OnExit);
}

void TMacParPage::CommitScale(EditField* field, double& value, Commit how) {
    if (!field->isModified()) return;
    host_.Converting([&] {
        const double scale = StrToFloat(ToAnsi(field->text()));
        // Three decimals where loading shows ten: what was typed is shown as it was typed,
        // near enough, and the record keeps every digit.
        field->setText(mac_par::SpeedText(scale));
        // The record's form has ten decimals: a difference beyond them is no change.
        if (how == Commit::OnStore && mac_par::ScaleText(scale) == mac_par::ScaleText(value)) {
            return;
        }
        value = scale;
        host_.MarkModified();
    });
}

void TMacParPage::pSLE_Term_XExit() {
    CommitScale(pSLE_Term_X, host_.Settings().XTerm, Commit::OnExit);
}
void TMacParPage::pSLE_Term_YExit() {
    CommitScale(pSLE_Term_Y, host_.Settings().YTerm, Commit::OnExit);
}
void TMacParPage::pSLE_Term_ZExit() {
    CommitScale(pSLE_Term_Z, host_.Settings().ZTerm, Commit::OnExit);
}
void TMacParPage::pSLE_Term_PartExit() {
    CommitScale(pSLE_Term_Part, host_.Settings().PartTerm, Commit::OnExit);
}

void TMacParPage::pCHB_DepthClick() {
    NotAFileNameField();
    SetupSettings& settings = host_.Settings();
    settings.DepthSet = pCHB_Depth->isChecked();
    pSLE_Depth->setEnabled(settings.DepthSet);
    ShowDepth();
    host_.MarkModified();
}

void TMacParPage::pCHB_Optimal_SpeedClick() {
    NotAFileNameField();
    SetupSettings& settings = host_.Settings();
    settings.OptSpeedSet = pCHB_Optimal_Speed->isChecked();
    pSLE_Optimal_Speed->setEnabled(settings.OptSpeedSet);
    ShowOptimalSpeed();
    host_.MarkModified();
}

void TMacParPage::pCHB_Tool_ChClick() {
    NotAFileNameField();
    host_.Settings().ToolChanger = pCHB_Tool_Ch->isChecked();
    host_.MarkModified();
}

void TMacParPage::pCHB_ActiveClick() {
    NotAFileNameField();
    host_.Settings().CompensActive = pCHB_Active->isChecked();
    host_.MarkModified();
}

// ---- file names and browsing ------------------------------------------------------------

void TMacParPage::pSLE_CosDatFnameEnter() {
    LastFileEdit = pSLE_CosDatFname;
    pPB_BrowserMP->setEnabled(true);
}

void TMacParPage::pSLE_CompensFnameEnter() {
    LastFileEdit = pSLE_CompensFname;
    pPB_BrowserMP->setEnabled(true);
}

void TMacParPage::pPB_BrowserMPClick() {
    if (LastFileEdit == nullptr) return;
    const bool cosDat = LastFileEdit == pSLE_CosDatFname;
    QString description =
        host_.LanguageText(cosDat ? mac_par::kIdCosDatFilter : mac_par::kIdCompensFilter);
    if (description.isEmpty()) {
        description = cosDat ? QStringLiteral("Compensation data files")
                             : QStringLiteral("Compensation files");
    }
    std::string path;
    if (!host_.BrowseForFile(path, mac_par::kBrowseDirectory, cosDat ? "BIN" : "DAT",
                             ToAnsi(description))) {
        return;
    }
    // Taken as typed: the field's exit handler (or the page's store) upper-cases and stores it.
    LastFileEdit->setText(FromAnsi(path));
    LastFileEdit->setModified(true);
}

// ---- TCP/IP address and port --------------------------------------------------------------

void TMacParPage::pSLE_TCPEnterOrExit(EditField* field) {
    CommitAddressPart(field, Commit::OnExit);
}

void TMacParPage::CommitAddressPart(EditField* field, Commit how) {
    if (!field->isModified()) return;
    SetupSettings& settings = host_.Settings();
    bool accepted = false;
    host_.Converting([&] {
        const std::int32_t part = StrToInt(ToAnsi(field->text()));
        accepted = part >= 0 && part <= 255;
    });
    if (accepted) {
        // The parts as typed, joined; the file keeps no more characters than an address has.
        const EditField* parts[] = {pSLE_TCP1, pSLE_TCP2, pSLE_TCP3, pSLE_TCP4};
        std::string address = ToAnsi(parts[0]->text());
        for (std::size_t i = 1; i < std::size(parts); ++i) {
            address += '.';
            address += ToAnsi(parts[i]->text());
        }
        if (address.size() <= mac_par::kMaxTcpipAddressLength) {
            field->setModified(false);
            if (how == Commit::OnStore && address == settings.TcpipAddress) return;
            settings.TcpipAddress = address;
            host_.MarkModified();
            return;
        }
    }
    // Refused: the address in effect, and the field to correct.
    ShowAddressFields();
    if (how == Commit::OnExit) ReturnFocusLater(field);
}

void TMacParPage::pSLE_TCPPORTExit() {
    CommitPort(Commit::OnExit);
}

void TMacParPage::CommitPort(Commit how) {
    if (!pSLE_TCPPORT->isModified()) return;
    SetupSettings& settings = host_.Settings();
    bool accepted = false;
    std::int32_t port = 0;
    host_.Converting([&] {
        port = StrToInt(ToAnsi(pSLE_TCPPORT->text()));
        // No upper bound: the controller's own port numbers are its business.
        accepted = port >= 0;
    });
    if (!accepted) {
        ShowPortField();
        if (how == Commit::OnExit) ReturnFocusLater(pSLE_TCPPORT);
        return;
    }
    pSLE_TCPPORT->setText(QString::number(port));
    if (how == Commit::OnStore && port == settings.TcpipPort) return;
    settings.TcpipPort = port;
    host_.MarkModified();
}

}  // namespace wk
