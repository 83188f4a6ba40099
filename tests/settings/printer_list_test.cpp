#include "settings/printer_list.h"

#include <gtest/gtest.h>

#include "settings_test_prefix.h"

namespace wk {
namespace {

using test::Crlf;

TEST(PrinterList, EachPrinterOfTheUsersProfileIsItsNameAndValueInTheProfilesOrder) {
    test::SettingsTestPrefix prefix;
    prefix.WriteFile("WIN.INI",
                     Crlf({"[windows]", "device=Plotter,winspool,LPT3:", "[Devices]",
                           "Plotter=winspool,LPT3:", "HP LaserJet 4250=winspool,LPT1:"}));
    EXPECT_EQ(ReadPrinterList(), (std::vector<std::string>{"Plotter,winspool,LPT3:",
                                                           "HP LaserJet 4250,winspool,LPT1:"}));
}

TEST(PrinterList, IsEmptyWithoutDevicesOrWithoutTheProfile) {
    test::SettingsTestPrefix prefix;
    EXPECT_TRUE(ReadPrinterList().empty());
    prefix.WriteFile("WIN.INI", Crlf({"[windows]", "load="}));
    EXPECT_TRUE(ReadPrinterList().empty());
}

TEST(PrinterList, APrinterWithoutAValueEndsInTheComma) {
    test::SettingsTestPrefix prefix;
    prefix.WriteFile("WIN.INI", Crlf({"[devices]", "Fax="}));
    EXPECT_EQ(ReadPrinterList(), std::vector<std::string>{"Fax,"});
}

TEST(PrinterPosition, FindsTheStoredPrinterWithoutRegardToCase) {
    const std::vector<std::string> printers = {"HP LaserJet 4250,winspool,LPT1:",
                                               "Kyocera FS-1920,winspool,LPT2:"};
    EXPECT_EQ(PrinterPosition(printers, "KYOCERA FS-1920,WINSPOOL,LPT2:"), 1);
    EXPECT_EQ(PrinterPosition(printers, "HP LaserJet 4250,winspool,LPT1:"), 0);
}

TEST(PrinterPosition, AnUnknownOrEmptyPrinterIsTheFirst) {
    const std::vector<std::string> printers = {"A,winspool,LPT1:", "B,winspool,LPT2:"};
    EXPECT_EQ(PrinterPosition(printers, "B"), 0);
    EXPECT_EQ(PrinterPosition(printers, ""), 0);
    EXPECT_EQ(PrinterPosition({}, "A"), 0);
}

}  // namespace
}  // namespace wk
