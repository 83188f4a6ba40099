#pragma once
// The measuring application's five working directories.

#include <string>

#include "settings/directory_schema.h"
#include "settings/sound_settings.h"

namespace wk {

class DirectorySettings : public SoundSettings {
public:
    explicit DirectorySettings(const ControllerFlags& controllerFlags);

    // Each field starts with its key's default (directory_schema.h).
    std::string SystemDir = kSystemDir.Default;
    std::string DataDir = kDataDir.Default;
    std::string PProgDir = kPProgDir.Default;
    std::string MeasDir = kMeasDir.Default;
    std::string UserDir = kUserDir.Default;

    void SetSystemDir(const std::string& dir) { SystemDir = dir; }
    void SetDataDir(const std::string& dir) { DataDir = dir; }
    void SetPProgDir(const std::string& dir) { PProgDir = dir; }
    void SetMeasDir(const std::string& dir) { MeasDir = dir; }
    void SetUserDir(const std::string& dir) { UserDir = dir; }

    bool Read();
    bool Write();
};

}  // namespace wk
