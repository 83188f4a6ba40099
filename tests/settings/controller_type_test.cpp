#include "settings/controller_type.h"

#include <gtest/gtest.h>

#include "settings_test_prefix.h"

namespace wk {
namespace {

using test::Crlf;
using test::SettingsTestPrefix;

TEST(ControllerType, Vek3InLowerCaseIsOfTheVek3Family) {
    const ControllerFlags flags = ControllerFlagsFromType("vek3");
    EXPECT_TRUE(flags.IsVek3Family);
    EXPECT_FALSE(flags.IsQd32OrRmd);
    EXPECT_FALSE(flags.IsKpt);
    EXPECT_FALSE(flags.AcceptsTcpip());
    EXPECT_TRUE(ControllerFlagsFromType("TQ").IsVek3Family);
    EXPECT_TRUE(ControllerFlagsFromType("q5").IsVek3Family);
}

TEST(ControllerType, Qd32SetsIsQd32OrRmdButDoesNotAcceptTcpip) {
    const ControllerFlags flags = ControllerFlagsFromType("qd32");
    EXPECT_TRUE(flags.IsQd32OrRmd);
    EXPECT_FALSE(flags.IsRmdOrKpt);
    EXPECT_FALSE(flags.AcceptsTcpip());
}

TEST(ControllerType, RmdAndKptAreTheTwoThatAcceptTcpip) {
    const ControllerFlags rmd = ControllerFlagsFromType("rmd");
    EXPECT_TRUE(rmd.IsQd32OrRmd);
    EXPECT_TRUE(rmd.IsRmdOrKpt);
    EXPECT_TRUE(rmd.AcceptsTcpip());
    EXPECT_FALSE(rmd.IsKpt);
    const ControllerFlags kpt = ControllerFlagsFromType("KPT");
    EXPECT_TRUE(kpt.IsKpt);
    EXPECT_TRUE(kpt.AcceptsTcpip());
    EXPECT_FALSE(kpt.IsQd32OrRmd);
}

TEST(ControllerType, RmdTqQ5AndVek3InAnyCaseHaveControllerOptions) {
    for (const char* type : {"RMD", "rmd", "Tq", "TQ", "Q5", "q5", "Vek3", "VEK3"}) {
        EXPECT_TRUE(ControllerFlagsFromType(type).HasControllerOptions()) << type;
    }
    for (const char* type : {"qd32", "KPT", "", "QEN", "RMDX"}) {
        EXPECT_FALSE(ControllerFlagsFromType(type).HasControllerOptions()) << type;
    }
}

TEST(ControllerType, MissingTypeKeyGivesAnEmptyTypeAndNoFlag) {
    SettingsTestPrefix prefix;
    prefix.WriteFile("WZELKO.INI", Crlf({"[Controller]", "Button1=1"}));
    EXPECT_EQ(ReadControllerType(), "");
    const ControllerFlags flags = ControllerFlagsFromType(ReadControllerType());
    EXPECT_FALSE(flags.IsQd32OrRmd || flags.IsVek3Family || flags.IsKpt || flags.IsRmdOrKpt);
}

TEST(ControllerType, TypeIsReadFromTheControllerSectionAsWritten) {
    SettingsTestPrefix prefix;
    prefix.WriteFile("WZELKO.INI", Crlf({"[CONTROLLER]", "Type=Rmd"}));
    EXPECT_EQ(ReadControllerType(), "Rmd");
    EXPECT_TRUE(ControllerFlagsFromType(ReadControllerType()).AcceptsTcpip());
}

}  // namespace
}  // namespace wk
