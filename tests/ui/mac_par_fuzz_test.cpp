// Random text typed into every edit of the machine parameters page, taken by Tab, OK or Save,
// again and again; random clicks on the volumetric compensation page. Nothing crashes, a text
// that is not a number gets the conversion message and stores nothing, what is a number is
// stored by the field's rule, the files stay readable and every key the pages do not edit keeps
// its bytes.

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QComboBox>
#include <QLineEdit>
#include <QPushButton>
#include <cstdio>
#include <filesystem>
#include <functional>
#include <optional>
#include <random>
#include <set>
#include <sstream>
#include <string>
#include <vector>

#include "page_checks.h"
#include "page_test_fixture.h"
#include "platform/ascii_case.h"
#include "platform/text_codec.h"
#include "platform/text_to_number.h"
#include "shell/kestel_main_wind.h"
#include "support/file_bytes.h"

namespace wk {
namespace {

using test::ClickIndicator;

// ---- the bytes of the files -------------------------------------------------------------

// The lines of `bytes` without those of the keys in `owned` (section and key, any case).
std::string WithoutKeys(const std::string& bytes,
                        const std::vector<std::pair<std::string, std::string>>& owned) {
    std::istringstream in(bytes);
    std::string line;
    std::string section;
    std::string kept;
    while (std::getline(in, line)) {
        std::string t = line;
        while (!t.empty() && (t.back() == '\r' || t.back() == ' ')) t.pop_back();
        if (!t.empty() && t[0] == '[') {
            section = t.substr(1, t.find(']') - 1);
        } else if (const std::size_t eq = t.find('='); eq != std::string::npos) {
            std::string key = t.substr(0, eq);
            while (!key.empty() && key.back() == ' ') key.pop_back();
            bool drop = false;
            for (const auto& [s, k] : owned) {
                drop = drop ||
                       (EqualsIgnoringAsciiCase(s, section) && EqualsIgnoringAsciiCase(k, key));
            }
            if (drop) continue;
        }
        kept += line + "\n";
    }
    return kept;
}

// A value as written with `format` and read back from its 19 characters with "%lf".
double WrittenAndRead(const char* format, double value, double previous) {
    char text[512];
    std::snprintf(text, sizeof text, format, value);
    text[19] = '\0';
    double read = previous;
    return std::sscanf(text, "%lf", &read) == 1 ? read : previous;
}

// A text value as the profile functions give it back: blanks trimmed, one pair of outer
// quotes removed, at most 79 characters.
std::string ReadBack(std::string value) {
    while (!value.empty() && (value.back() == ' ' || value.back() == '\t')) value.pop_back();
    std::size_t first = 0;
    while (first < value.size() && (value[first] == ' ' || value[first] == '\t')) ++first;
    value = value.substr(first);
    if (value.size() >= 2 && (value[0] == '"' || value[0] == '\'') && value.back() == value[0]) {
        value = value.substr(1, value.size() - 2);
    }
    return value.substr(0, 79);
}

std::optional<double> AsFloat(const std::string& ansi) {
    try {
        return StrToFloat(ansi);
    } catch (const ConversionError&) {
        return std::nullopt;
    }
}

std::optional<std::int32_t> AsInt(const std::string& ansi) {
    try {
        return StrToInt(ansi);
    } catch (const ConversionError&) {
        return std::nullopt;
    }
}

// ---- the machine parameters page --------------------------------------------------------

// The keys the edits of the machine parameters page write.
const std::vector<std::pair<std::string, std::string>> kMacParEditKeys = {
    {"MACHINEPARAM", "DIST APPROACH"},
    {"MACHINEPARAM", "DEPTH"},
    {"MACHINEPARAM", "OPTSPEED"},
    {"MACHINEPARAM", "XTERM"},
    {"MACHINEPARAM", "YTERM"},
    {"MACHINEPARAM", "ZTERM"},
    {"MACHINEPARAM", "PARTTERM"},
    {"MACHINEPARAM", "COSDAT FNAME"},
    {"COMPENS", "COMPENS FILE NAME"},
    {"CMM", "TCPIP Address"},
    {"CMM", "TCPIP Port"},
    {"CMM", "RESOLUTION"},
};

enum class Rule { Approach, Length, Number, Scale, AddressPart, Port, FileName, Resolution };

struct Field {
    const char* name;
    Rule rule;
};

const Field kFields[] = {
    {"pSLE_TCP1", Rule::AddressPart},      {"pSLE_TCP2", Rule::AddressPart},
    {"pSLE_TCP3", Rule::AddressPart},      {"pSLE_TCP4", Rule::AddressPart},
    {"pSLE_TCPPORT", Rule::Port},          {"pSLE_CosDatFname", Rule::FileName},
    {"pSLE_CompensFname", Rule::FileName}, {"pSLE_DistApproach", Rule::Approach},
    {"pSLE_Depth", Rule::Length},          {"pSLE_Optimal_Speed", Rule::Number},
    {"pSLE_Term_X", Rule::Scale},          {"pSLE_Term_Y", Rule::Scale},
    {"pSLE_Term_Z", Rule::Scale},          {"pSLE_Term_Part", Rule::Scale},
    {"pCB_Resolution", Rule::Resolution},
};

class MacParFuzz : public test::PageTest {
protected:
    void SetUp() override {
        // The demo machine, made manual so that its resolution can be typed; an RMD reached
        // over TCP/IP, so that the address fields are shown.
        std::string wzelko =
            test::ReadFileBytes(std::filesystem::path(WKESTEL_DEMO_WINDOWS_DIR) / "WZELKO.INI");
        wzelko.replace(wzelko.find("CNC=TRUE"), 8, "CNC=FALSE");
        prefix_.WriteWindowsFile(
            "WZELKO32.INI",
            test::ReadFileBytes(std::filesystem::path(WKESTEL_DEMO_WINDOWS_DIR) / "WZELKO32.INI"));
        Start(wzelko);
    }

    QLineEdit* LineOf(const Field& field) const {
        if (field.rule == Rule::Resolution) return Find<QComboBox>(field.name)->lineEdit();
        return Edit(field.name);
    }
    QWidget* ControlOf(const Field& field) const { return Find<QWidget>(field.name); }

    // Types `text` as a user does: into the control, all of its text replaced.
    void TypeInto(const Field& field, const QString& text) const {
        QWidget* control = ControlOf(field);
        control->setFocus(Qt::MouseFocusReason);
        LineOf(field)->selectAll();
        test::TypeKeys(LineOf(field), text);
    }
};

TEST_F(MacParFuzz, RandomTextInEveryEditStoresOnlyWhatItsRuleTakesAndLeavesOtherKeysAlone) {
    // Every key written once, unchanged: what the record makes of the demo files.
    ClickIndicator(Find<QAbstractButton>("pCHB_Tool_Ch"));
    ClickIndicator(Find<QAbstractButton>("pCHB_Tool_Ch"));
    Save();
    const std::string baseline = Bytes();
    const std::string baseline32 = Bytes("WZELKO32.INI");
    KestelPage* page = Page("MacParTabSheet");

    test::RandomText random(20240611);
    for (int round = 0; round < 400; ++round) {
        const Field& field = kFields[random.Below(static_cast<int>(std::size(kFields)))];
        const SetupSettings before = Record();
        const int messages = script_.Count();

        TypeInto(field, random.Next());
        // A text the field does not take (a control character alone) leaves it unmodified and
        // showing the record's value: nothing is taken and nothing reported.
        const bool modified = LineOf(field)->isModified();
        const QString typed = LineOf(field)->text();
        const std::string ansi = platform::Utf8ToAnsi(typed.toStdString());
        const std::string context = std::string(field.name) + " <" + typed.toStdString() + ">";
        CommitTyped(LineOf(field), kCommits[random.Below(3)]);  // Tab, OK or Save
        test::Settle();

        const SetupSettings& after = Record();
        const int shown = script_.Count() - messages;
        if (!modified) {
            EXPECT_EQ(shown, 0) << context;
            EXPECT_EQ(after.Resolution, before.Resolution) << context;
            EXPECT_EQ(after.TcpipAddress, before.TcpipAddress) << context;
            EXPECT_EQ(after.TcpipPort, before.TcpipPort) << context;
            EXPECT_EQ(after.DistApproach, before.DistApproach) << context;
            EXPECT_EQ(after.Depth, before.Depth) << context;
            EXPECT_EQ(after.OptSpeed, before.OptSpeed) << context;
            EXPECT_EQ(after.CosDatFileName, before.CosDatFileName) << context;
            EXPECT_EQ(after.CompensFileName, before.CompensFileName) << context;
            page->Load(true);
            continue;
        }
        switch (field.rule) {
            case Rule::FileName:
                EXPECT_EQ(shown, 0) << context;
                EXPECT_EQ(field.name == std::string("pSLE_CosDatFname") ? after.CosDatFileName
                                                                        : after.CompensFileName,
                          ToUpperAscii(ansi))
                    << context;
                break;
            case Rule::AddressPart: {
                const std::optional<std::int32_t> part = AsInt(ansi);
                EXPECT_EQ(shown, part ? 0 : 1) << context;
                if (!part || *part < 0 || *part > 255) {
                    EXPECT_EQ(after.TcpipAddress, before.TcpipAddress) << context;
                }
                EXPECT_LE(after.TcpipAddress.size(), 19u) << context;
                break;
            }
            case Rule::Port: {
                const std::optional<std::int32_t> port = AsInt(ansi);
                EXPECT_EQ(shown, port ? 0 : 1) << context;
                EXPECT_EQ(after.TcpipPort, port && *port >= 0 ? *port : before.TcpipPort)
                    << context;
                break;
            }
            case Rule::Resolution: {
                const std::optional<double> value = AsFloat(ansi);
                EXPECT_EQ(shown, value ? 0 : 1) << context;
                EXPECT_EQ(after.Resolution, value && *value > 0 ? *value : before.Resolution)
                    << context;
                break;
            }
            default: {
                const std::optional<double> value = AsFloat(ansi);
                EXPECT_EQ(shown, value ? 0 : 1) << context;
                if (field.rule == Rule::Approach) {
                    const bool inRange = value && *value >= 0.1 && *value <= 100.0;  // metric
                    EXPECT_EQ(after.DistApproach, inRange ? *value : before.DistApproach)
                        << context;
                } else if (field.rule == Rule::Length) {
                    EXPECT_EQ(after.Depth, value ? *value : before.Depth) << context;
                } else if (field.rule == Rule::Number) {
                    EXPECT_EQ(after.OptSpeed, value ? *value : before.OptSpeed) << context;
                }
                break;
            }
        }
        // What is not a number stays typed (reported again by the next store): the user
        // corrects it or the page is shown again, as here.
        page->Load(true);
        if (HasFailure()) break;
    }

    // Whatever the record holds now is in the files (Save writes only what is not yet).
    Save();
    EXPECT_EQ(WithoutKeys(Bytes(), kMacParEditKeys), WithoutKeys(baseline, kMacParEditKeys));
    EXPECT_EQ(Bytes("WZELKO32.INI"), baseline32);

    // Read back, the values are what the files can hold of them.
    const SetupSettings written = Record();
    CloseWindow();
    StartOnFiles();
    const SetupSettings& read = Record();
    EXPECT_EQ(read.DistApproach, WrittenAndRead("%lf", written.DistApproach, 6.0));
    EXPECT_EQ(read.Depth, WrittenAndRead("%lf", written.Depth, 12.0));
    EXPECT_EQ(read.OptSpeed, WrittenAndRead("%lf", written.OptSpeed, 0.0));
    EXPECT_EQ(read.XTerm, WrittenAndRead("%1.10lf", written.XTerm, 1.0));
    EXPECT_EQ(read.PartTerm, WrittenAndRead("%1.10lf", written.PartTerm, 1.0));
    EXPECT_EQ(read.Resolution, WrittenAndRead("%lf", written.Resolution, 0.0001));
    EXPECT_EQ(read.TcpipAddress, written.TcpipAddress);
    EXPECT_EQ(read.TcpipPort, written.TcpipPort);
    EXPECT_EQ(read.CosDatFileName, ToUpperAscii(ReadBack(written.CosDatFileName)));
    EXPECT_EQ(read.CompensFileName, ToUpperAscii(ReadBack(written.CompensFileName)));
}

// ---- the volumetric compensation page ---------------------------------------------------

const std::vector<std::pair<std::string, std::string>> kVolcompKeys = {
    {"COMPENS", "METHOD"}, {"COMPENS", "COMPENS MODE"}, {"CONTROLLER", "CTR VOLCOMP ON EXIT"},
    {"COMPENS", "ACTIVE"}, {"Compens", "Thermal"},
};

class VolcompFuzz : public test::PageTest {};

TEST_F(VolcompFuzz, RandomClicksAndTypingChangeOnlyTheCompensationKeys) {
    for (const char* file : {"WZELKO.INI", "WZELKO32.INI"}) {
        prefix_.WriteWindowsFile(
            file, test::ReadFileBytes(std::filesystem::path(WKESTEL_DEMO_WINDOWS_DIR) / file));
    }
    StartOnFiles();
    Action("KestelGenConf_Volcomp")->trigger();
    KestelPage* page = Page("VolcompTabSheet");
    ClickIndicator(Find<QAbstractButton>("pRB_HorizQen"));
    ClickIndicator(Find<QAbstractButton>("pRB_BridgeQen"));
    Save();
    const std::string baseline = Bytes();
    const std::string baseline32 = Bytes("WZELKO32.INI");

    const QList<QAbstractButton*> buttons = page->findChildren<QAbstractButton*>();
    QLineEdit* file = Edit("pSLE_CosDatFnameKVL");
    test::RandomText random(7);
    for (int round = 0; round < 300; ++round) {
        switch (random.Below(4)) {
            case 0:
                file->setFocus(Qt::MouseFocusReason);
                test::TypeKeys(file, random.Next());
                test::PressTab(file);
                break;
            case 1:
                Save();
                break;
            default:
                ClickIndicator(buttons[random.Below(static_cast<int>(buttons.size()))]);
                break;
        }
        ASSERT_EQ(file->text(), QStringLiteral("ZELKOCOMPENS.DAT"));
        ASSERT_EQ(script_.Count(), 0);
    }
    Save();
    const SetupSettings written = Record();
    EXPECT_EQ(WithoutKeys(Bytes(), kVolcompKeys), WithoutKeys(baseline, kVolcompKeys));
    EXPECT_EQ(WithoutKeys(Bytes("WZELKO32.INI"), kVolcompKeys),
              WithoutKeys(baseline32, kVolcompKeys));

    CloseWindow();
    StartOnFiles();
    EXPECT_EQ(Record().VolcompMethod, written.VolcompMethod);
    EXPECT_EQ(Record().CompensMode, written.CompensMode);
    EXPECT_EQ(Record().CtrVolcompOnExit, written.CtrVolcompOnExit);
    EXPECT_EQ(Record().CompensActive, written.CompensActive);
    EXPECT_EQ(Record().ThermalCompens, written.ThermalCompens);
}

}  // namespace
}  // namespace wk
