#pragma once
// Machine parameters: how the measuring application reaches and drives the CMM, with the
// volumetric compensation keys that live beside them in both files.

#include <cstdint>
#include <string>

#include "settings/colour_settings.h"
#include "settings/controller_type.h"
#include "settings/machine_schema.h"

namespace wk {

class MachineSettings : public ColourSettings {
public:
    // PortIndex of the TCP/IP connection; 0-7 are COM1-COM8.
    static constexpr std::int32_t kTcpipPortIndex = 8;
    // Taken when "TCPIP Address" is empty or missing: the address the controllers leave
    // the factory with.
    static constexpr const char* kDefaultTcpipAddress = "192.168.0.100";

    // Ph9Serial bit fields.
    static constexpr std::uint32_t kPh9PortMask = 0x000F;
    static constexpr std::uint32_t kPh9SpeedMask = 0x00F0;
    static constexpr std::uint32_t kPh9ParityMask = 0x0300;
    static constexpr std::uint32_t kPh9StopMask = 0x0C00;
    static constexpr std::uint32_t kPh9DataMask = 0xF000;
    static constexpr std::uint32_t kPh9ParityEven = 0x100;
    static constexpr std::uint32_t kPh9ParityOdd = 0x200;

    // The controller flags are taken as a whole (not only "accepts TCP/IP") because they are
    // what start-up computes once from "Type"; the record keeps the answer it needs and the
    // window can pass the very flags it shows its controls by.
    explicit MachineSettings(const ControllerFlags& controllerFlags);

    // Each field starts with its key's default (machine_schema.h).
    std::int32_t CtrVolcompOnExit = kCtrVolcompOnExit.Default;  // 0 disabled, 1 enabled, 2 restore
    std::int32_t CompensMode = kCompensMode.Default;  // 0 horizontal, 1 bridge, 2 dual reader
    // -1 unknown, 0 none, 1 QEN, 2 KV, 3 RHO, 4 controller, 5 MELDAX settings
    std::int32_t VolcompMethod = kVolcompMethod.Default;
    std::int32_t LegacyMethod = kLegacyMethod.Default;  // the older file's form: 1 QEN, 2 KV
    bool CompensActive = kCompensActive.Default;
    bool ThermalCompens = kThermalCompens.Default;
    bool ToolChanger = kToolChanger.Default;
    std::string CosDatFileName = kCosDatFileName.Default;
    std::string CompensFileName = kCompensFileName.Default;
    double DistApproach = kDistApproach.Default;  // mm
    double XTerm = kXTerm.Default;
    double YTerm = kYTerm.Default;
    double ZTerm = kZTerm.Default;
    double PartTerm = kPartTerm.Default;
    double OptSpeed = kOptSpeed.Default;
    bool OptSpeedSet = false;       // "OPTSPEED" is not empty
    double Depth = kDepth.Default;  // mm
    bool DepthSet = false;          // "DEPTH" is not empty
    bool Cnc = kCnc.Default;
    std::int32_t PortIndex = kPortIndex.Default;
    bool CmmSimulation = kCmmSimulation.Default;
    double Resolution = kResolution.Default;  // mm
    bool Ph9Simulation = kPh9Simulation.Default;
    bool Ph9Present = kPh9Present.Default;
    std::uint32_t Ph9Serial = kPh9Serial.Default;
    std::int32_t Ph9Type = kPh9Type.Default;
    bool Jx01Simulation = kJx01Simulation.Default;
    std::uint32_t Jx01Delay = kJx01Delay.Default;
    bool UseSocket = kUseSocket.Default;
    std::string TcpipAddress = kTcpipAddress.Default;  // at most 19 characters
    std::int32_t TcpipPort = kTcpipPort.Default;

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
