#include "settings/machine_settings.h"

#include <gtest/gtest.h>

#include "settings/settings_files.h"
#include "settings_test_prefix.h"

namespace wk {
namespace {

using test::Crlf;
using test::ReadRecord;
using test::TcpipController;
using test::ValueIn;

class MachineSettingsTest : public test::SettingsFileTest {};

TEST_F(MachineSettingsTest, InitialValuesBeforeReading) {
    Files("");
    const MachineSettings machine{ControllerFlags{}};
    EXPECT_EQ(machine.CtrVolcompOnExit, 2);
    EXPECT_EQ(machine.CompensMode, 1);
    EXPECT_EQ(machine.VolcompMethod, 1);
    EXPECT_EQ(machine.CosDatFileName, "ZELKOCOSDAT1.BIN");
    EXPECT_EQ(machine.CompensFileName, "ZELKOCOMPENS.DAT");
    EXPECT_DOUBLE_EQ(machine.DistApproach, 6.0);
    EXPECT_DOUBLE_EQ(machine.Depth, 12.0);
    EXPECT_TRUE(machine.Cnc);
    EXPECT_DOUBLE_EQ(machine.Resolution, 0.0001);
    EXPECT_EQ(machine.Ph9Serial, 0x3851u);
    EXPECT_EQ(machine.Jx01Delay, 10u);
}

TEST_F(MachineSettingsTest, MissingCosDatFnameGivesEmptyName) {
    Files(Crlf({"[MACHINEPARAM]", "TOOL CHANGER=FALSE"}));
    EXPECT_EQ(ReadRecord()->CosDatFileName, "");
}

TEST_F(MachineSettingsTest, NoneCosDatFnameGivesBuiltInNameWhichTheWriteStores) {
    Files(Crlf({"[MACHINEPARAM]", "COSDAT FNAME=none", "[COMPENS]", "COMPENS FILE NAME=NONE"}));
    auto record = ReadRecord();
    EXPECT_EQ(record->CosDatFileName, "ZELKOCOSDAT1.BIN");
    EXPECT_EQ(record->CompensFileName, "ZELKOCOMPENS.DAT");
    ASSERT_TRUE(record->WriteAll());
    EXPECT_EQ(ValueIn(kWzelkoIni, "MACHINEPARAM", "COSDAT FNAME"), "ZELKOCOSDAT1.BIN");
    EXPECT_EQ(ValueIn(kWzelkoIni, "COMPENS", "COMPENS FILE NAME"), "ZELKOCOMPENS.DAT");
}

TEST_F(MachineSettingsTest, CompensFileNamesAreUpperCased) {
    Files(Crlf({"[MACHINEPARAM]", "COSDAT FNAME=mycos.bin"}));
    EXPECT_EQ(ReadRecord()->CosDatFileName, "MYCOS.BIN");
}

TEST_F(MachineSettingsTest, Com9PortReadsAsCom1) {
    Files(Crlf({"[CMM]", "PORT=COM9:"}));
    auto record = ReadRecord();
    EXPECT_EQ(record->PortIndex, 0);
    record->WriteAll();
    EXPECT_EQ(ValueIn(kWzelkoIni, "CMM", "PORT"), "COM1:");
}

TEST_F(MachineSettingsTest, Com3PortReadsAsIndexTwoAndWritesBackCom3) {
    Files(Crlf({"[CMM]", "PORT=COM3:"}));
    auto record = ReadRecord();
    EXPECT_EQ(record->PortIndex, 2);
    record->WriteAll();
    EXPECT_EQ(ValueIn(kWzelkoIni, "CMM", "PORT"), "COM3:");
}

TEST_F(MachineSettingsTest, PortNameThatDoesNotScanReadsAsCom1) {
    Files(Crlf({"[CMM]", "PORT=com3:"}));
    EXPECT_EQ(ReadRecord()->PortIndex, 0);
    Files(Crlf({"[CMM]", "PORT=LPT1:"}));
    EXPECT_EQ(ReadRecord()->PortIndex, 0);
    Files(Crlf({"[CMM]", "PORT=COM8"}));
    EXPECT_EQ(ReadRecord()->PortIndex, 7);
}

TEST_F(MachineSettingsTest, UseSocketWithControllerWithoutTcpipKeepsComPort) {
    Files(Crlf({"[CMM]", "PORT=COM4:", "USESOCKET=1"}));
    auto record = ReadRecord(ControllerFlagsFromType("QEN"));
    EXPECT_TRUE(record->UseSocket);
    EXPECT_EQ(record->PortIndex, 3);
    record->WriteAll();
    EXPECT_EQ(ValueIn(kWzelkoIni, "CMM", "USESOCKET"), "0");
    EXPECT_EQ(ValueIn(kWzelkoIni, "CMM", "PORT"), "COM4:");
    // The TCP/IP keys are left as they are (here: absent).
    EXPECT_EQ(ValueIn(kWzelkoIni, "CMM", "TCPIP Port"), "<missing>");
    EXPECT_EQ(ValueIn(kWzelkoIni, "CMM", "TCPIP Address"), "<missing>");
}

TEST_F(MachineSettingsTest, UseSocketWithTcpipControllerSelectsTcpipAndRewritesOnlyTcpipKeys) {
    Files(
        Crlf({"[CMM]", "PORT=COM4:", "USESOCKET=1", "TCPIP Address=10.1.2.3", "TCPIP Port=0x10"}));
    auto record = ReadRecord(TcpipController());
    EXPECT_EQ(record->PortIndex, MachineSettings::kTcpipPortIndex);
    EXPECT_EQ(record->TcpipAddress, "10.1.2.3");
    EXPECT_EQ(record->TcpipPort, 16);
    record->WriteAll();
    EXPECT_EQ(ValueIn(kWzelkoIni, "CMM", "PORT"), "COM4:");
    EXPECT_EQ(ValueIn(kWzelkoIni, "CMM", "USESOCKET"), "1");
    EXPECT_EQ(ValueIn(kWzelkoIni, "CMM", "TCPIP Port"), "16");
    EXPECT_EQ(ValueIn(kWzelkoIni, "CMM", "TCPIP Address"), "10.1.2.3");
}

TEST_F(MachineSettingsTest, EmptyTcpipAddressReadsAsDefaultAddress) {
    Files(Crlf({"[CMM]", "TCPIP Address="}));
    EXPECT_EQ(ReadRecord()->TcpipAddress, MachineSettings::kDefaultTcpipAddress);
}

TEST_F(MachineSettingsTest, MissingTcpipPortReads2001) {
    Files(Crlf({"[CMM]", "PORT=COM1:"}));
    auto record = ReadRecord();
    EXPECT_EQ(record->TcpipPort, 2001);
    EXPECT_EQ(record->TcpipAddress, MachineSettings::kDefaultTcpipAddress);
}

TEST_F(MachineSettingsTest, Ph9PortLowerCaseOddParityReadsAsNoParityAndWritesN) {
    Files(Crlf({"[Ph9]", "PORT=com3:9600,o,7,1.5"}));
    auto record = ReadRecord();
    EXPECT_EQ(record->Ph9Serial & MachineSettings::kPh9PortMask, 2u);
    EXPECT_EQ(record->Ph9Serial & MachineSettings::kPh9SpeedMask, 0x60u);
    EXPECT_EQ(record->Ph9Serial & MachineSettings::kPh9ParityMask, 0u);
    EXPECT_EQ(record->Ph9Serial & MachineSettings::kPh9DataMask, 0x2000u);
    EXPECT_EQ(record->Ph9Serial & MachineSettings::kPh9StopMask, 0x400u);
    record->WriteAll();
    EXPECT_EQ(ValueIn(kWzelkoIni, "Ph9", "PORT"), "COM3:9600,N,7,1.5");
}

TEST_F(MachineSettingsTest, OddParityIsWrittenButNotReadBack) {
    Files("");
    auto record = ReadRecord();
    record->Ph9Serial = 0x3000 | 0x800 | MachineSettings::kPh9ParityOdd | 0x60 | 1;
    record->WriteAll();
    EXPECT_EQ(ValueIn(kWzelkoIni, "Ph9", "PORT"), "COM2:9600,O,8,2");
    EXPECT_EQ(ReadRecord()->Ph9Serial & MachineSettings::kPh9ParityMask, 0u);
}

TEST_F(MachineSettingsTest, Ph9EvenParityAndUnknownFieldsFallToTheFirstCodes) {
    Files(Crlf({"[PH9]", "PORT=COM12:1234,E,9,3"}));
    auto record = ReadRecord();
    // COM12 counts as COM1; 1234 baud as 150; 9 data bits as 5; 3 stop bits as 1.
    EXPECT_EQ(record->Ph9Serial, MachineSettings::kPh9ParityEven);
    record->WriteAll();
    EXPECT_EQ(ValueIn(kWzelkoIni, "Ph9", "PORT"), "COM1:150,E,5,1");
}

TEST_F(MachineSettingsTest, Ph9PortNoneTakesTheCmmPortNumberAndUsualLineSettings) {
    Files(Crlf({"[CMM]", "PORT=COM5:", "[Ph9]", "PORT=None"}));
    auto record = ReadRecord();
    EXPECT_EQ(record->Ph9Serial, 0x3854u);
    record->WriteAll();
    EXPECT_EQ(ValueIn(kWzelkoIni, "Ph9", "PORT"), "COM5:4800,N,8,2");
}

TEST_F(MachineSettingsTest, MissingPh9PortKeepsCom2At4800) {
    Files(Crlf({"[Ph9]", "PH9PRESENT=TRUE"}));
    auto record = ReadRecord();
    EXPECT_TRUE(record->Ph9Present);
    EXPECT_EQ(record->Ph9Serial, 0x3851u);
}

TEST_F(MachineSettingsTest, EmptyOptSpeedStaysEmptyAfterWrite) {
    Files(Crlf({"[MACHINEPARAM]", "OPTSPEED=", "DEPTH="}));
    auto record = ReadRecord();
    EXPECT_FALSE(record->OptSpeedSet);
    EXPECT_FALSE(record->DepthSet);
    record->WriteAll();
    EXPECT_EQ(ValueIn(kWzelkoIni, "MACHINEPARAM", "OPTSPEED"), "");
    EXPECT_EQ(ValueIn(kWzelkoIni, "MACHINEPARAM", "DEPTH"), "");
}

TEST_F(MachineSettingsTest, ZeroOptSpeedIsKeptAsAGivenSpeedOfZero) {
    Files(Crlf({"[MACHINEPARAM]", "OPTSPEED=0"}));
    auto record = ReadRecord();
    EXPECT_TRUE(record->OptSpeedSet);
    EXPECT_DOUBLE_EQ(record->OptSpeed, 0.0);
    record->WriteAll();
    EXPECT_EQ(ValueIn(kWzelkoIni, "MACHINEPARAM", "OPTSPEED"), "0.000000");
}

TEST_F(MachineSettingsTest, CompensActiveTwoReadsInactiveAndIsWrittenBackAsZero) {
    Files("", Crlf({"[COMPENS]", "ACTIVE=2", "Thermal=5"}));
    auto record = ReadRecord();
    EXPECT_FALSE(record->CompensActive);
    EXPECT_TRUE(record->ThermalCompens);
    record->WriteAll();
    EXPECT_EQ(ValueIn(kWzelko32Ini, "COMPENS", "ACTIVE"), "0");
    EXPECT_EQ(ValueIn(kWzelko32Ini, "Compens", "Thermal"), "1");
}

TEST_F(MachineSettingsTest, NumbersThatDoNotScanKeepTheirInitialValues) {
    Files(Crlf({"[MACHINEPARAM]", "DIST APPROACH=abc", "XTERM=", "YTERM=1.5mm", "[CMM]",
                "RESOLUTION=fine"}));
    auto record = ReadRecord();
    EXPECT_DOUBLE_EQ(record->DistApproach, 6.0);
    EXPECT_DOUBLE_EQ(record->XTerm, 1.0);
    EXPECT_DOUBLE_EQ(record->YTerm, 1.5);  // "%lf" takes the leading number
    EXPECT_DOUBLE_EQ(record->Resolution, 0.0001);
}

TEST_F(MachineSettingsTest, ScaleFactorsAreWrittenWithTenDecimals) {
    Files(Crlf({"[MACHINEPARAM]", "XTERM=1.00002", "DIST APPROACH=4.5"}));
    ReadRecord()->WriteAll();
    EXPECT_EQ(ValueIn(kWzelkoIni, "MACHINEPARAM", "XTERM"), "1.0000200000");
    EXPECT_EQ(ValueIn(kWzelkoIni, "MACHINEPARAM", "DIST APPROACH"), "4.500000");
    EXPECT_EQ(ValueIn(kWzelkoIni, "CMM", "RESOLUTION"), "0.000100");
}

TEST_F(MachineSettingsTest, ManualMachineLevelWritesExitCodeZero) {
    Files(Crlf({"[CMM]", "CNC=FALSE", "[WZELKO]", "EXITCODE=2"}));
    MachineSettings machine{ControllerFlags{}};
    machine.Read();
    EXPECT_FALSE(machine.Cnc);
    machine.Write();
    EXPECT_EQ(ValueIn(kWzelkoIni, "Wzelko", "EXITCODE"), "0");
}

TEST_F(MachineSettingsTest, CncMachineLevelLeavesExitCodeAlone) {
    Files(Crlf({"[CMM]", "CNC=TRUE", "[WZELKO]", "EXITCODE=2"}));
    MachineSettings machine{ControllerFlags{}};
    machine.Read();
    machine.Write();
    EXPECT_EQ(ValueIn(kWzelkoIni, "Wzelko", "EXITCODE"), "2");
}

}  // namespace
}  // namespace wk
