#include "support/temp_prefix.h"

#include "platform/windows_directory.h"
#include "support/file_bytes.h"

namespace wk::test {

TempWinePrefix::TempWinePrefix() { platform::SetWinePrefixOverride(Root().string()); }

TempWinePrefix::~TempWinePrefix() { platform::SetWinePrefixOverride(""); }

void TempWinePrefix::WriteWindowsFile(const std::string& name, const std::string& bytes) const {
    WriteFileBytes(WindowsFile(name), bytes);
}

std::string TempWinePrefix::ReadWindowsFile(const std::string& name) const {
    return ReadFileBytes(WindowsFile(name));
}

}  // namespace wk::test
