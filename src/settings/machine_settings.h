#pragma once
// Machine parameters: how the measuring application reaches and drives the CMM, with the
// volumetric compensation keys that live beside them in both files.

#include <cstdint>
#include <string>

#include "settings/colour_settings.h"
#include "settings/controller_type.h"

namespace wk {

class MachineSettings : public ColourSettings {
public:
    // PortIndex of the TCP/IP connection; 0-7 are COM1-COM8.
    static constexpr std::int32_t kTcpipPortIndex = 8;
    // Taken when "TCPIP Address" is empty or missing: the address the controllers leave
    // the factory with.
    static constexpr const char* kDefaultTcpipAddress = "192.168.0.100";
    static constexpr const char* kDefaultCosDatFileName = "ZELKOCOSDAT1.BIN";
    static constexpr const char* kDefaultCompensFileName = "ZELKOCOMPENS.DAT";

    // Ph9Serial bit fields.
    static constexpr std::uint32_t kPh9PortMask = 0x000F;
    static constexpr std::uint32_t kPh9SpeedMask = 0x00F0;
    static constexpr std::uint32_t kPh9ParityMask = 0x0300;
    static constexpr std::uint32_t kPh9StopMask = 0x0C00;
    static constexpr std::uint32_t kPh9DataMask = 0xF000;
    static constexpr std::uint32_t kPh9ParityEven = 0x100;
    static constexpr std::uint32_t kPh9ParityOdd = 0x200;
    // COM2, 4800 baud, no parity, 8 data bits, 2 stop bits.
    static constexpr std::uint32_t kDefaultPh9Serial = 0x3851;

    // The controller flags are taken as a whole (not only "accepts TCP/IP") because they are
    // what start-up computes once from "Type"; the record keeps the answer it needs and the
    // window can pass the very flags it shows its controls by.
    explicit MachineSettings(const ControllerFlags& controllerFlags);

    std::int32_t CtrVolcompOnExit = 2;  // 0 disabled, 1 enabled, 2 restore
    std::int32_t CompensMode = 1;       // 0 horizontal, 1 bridge, 2 dual reader
    // -1 unknown, 0 none, 1 QEN, 2 KV, 3 RHO, 4 controller, 5 MELDAX settings
    std::int32_t VolcompMethod = 1;
    std::int32_t LegacyMethod = 1;  // the older file's form: 1 QEN, 2 KV
    bool CompensActive = false;
    bool ThermalCompens = false;
    bool ToolChanger = false;
    std::string CosDatFileName = kDefaultCosDatFileName;
    std::string CompensFileName = kDefaultCompensFileName;
    double DistApproach = 6.0;  // mm
    double XTerm = 1.0;
    double YTerm = 1.0;
    double ZTerm = 1.0;
    double PartTerm = 1.0;
    double OptSpeed = 0.0;
    bool OptSpeedSet = false;
    double Depth = 12.0;  // mm, twice the approach distance
    bool DepthSet = false;
    bool Cnc = true;
    std::int32_t PortIndex = 0;
    bool CmmSimulation = false;
    double Resolution = 0.0001;  // mm
    bool Ph9Simulation = false;
    bool Ph9Present = false;
    std::uint32_t Ph9Serial = kDefaultPh9Serial;
    std::int32_t Ph9Type = 0;
    bool Jx01Simulation = false;
    std::uint32_t Jx01Delay = 10;
    bool UseSocket = false;
    std::string TcpipAddress;  // at most 19 characters
    std::int32_t TcpipPort = 2001;

    bool ControllerAcceptsTcpip() const { return controllerAcceptsTcpip_; }

    // Volumetric compensation method, read before the machine keys and written in the
    // middle of them.
    void ReadVolcompMethod();
    void WriteVolcompMethod();

    // The "Ph9" "PORT" text for a packed serial setting ("COM2:4800,N,8,2").
    static std::string Ph9SerialText(std::uint32_t serial);

    bool Read();
    bool Write();

private:
    bool controllerAcceptsTcpip_ = false;
};

}  // namespace wk
