#pragma once
// The measuring application's five working directories.

#include <string>

#include "settings/sound_settings.h"

namespace wk {

class DirectorySettings : public SoundSettings {
public:
    static constexpr const char* kDirectorySection = "WZELKO";

    explicit DirectorySettings(const ControllerFlags& controllerFlags);

    std::string SystemDir = "\\WZELKO";
    std::string DataDir = "\\WZELKO\\DATA";
    std::string PProgDir = "\\WZELKO\\PROG";
    std::string MeasDir = "\\WZELKO\\MEAS";
    std::string UserDir = "\\WZELKO\\USER";

    void SetSystemDir(const std::string& dir) { SystemDir = dir; }
    void SetDataDir(const std::string& dir) { DataDir = dir; }
    void SetPProgDir(const std::string& dir) { PProgDir = dir; }
    void SetMeasDir(const std::string& dir) { MeasDir = dir; }
    void SetUserDir(const std::string& dir) { UserDir = dir; }

    bool Read();
    bool Write();
};

}  // namespace wk
