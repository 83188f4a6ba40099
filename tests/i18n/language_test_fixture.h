#pragma once
// A Wine prefix for the settings files, a working directory for the libraries, a fresh
// language state and a message-box presenter that records what is shown.

#include <gtest/gtest.h>

#include <cstdlib>
#include <string>
#include <vector>

#include "i18n/resgenstring.h"
#include "i18n_test_support.h"
#include "platform/message_box.h"
#include "support/temp_prefix.h"

namespace wk::test {

class LanguageTest : public ::testing::Test {
protected:
    void SetUp() override {
        unsetenv("WKESTEL_OEM_CODEPAGE");
        Language() = LanguageState{};
        previousPresenter_ = SetMessageBoxPresenter([this](const MessageBoxRequest& request) {
            messages_.push_back(request);
            return IDOK;
        });
    }
    void TearDown() override {
        ReleaseLanguageLibrary();
        Language() = LanguageState{};
        SetMessageBoxPresenter(std::move(previousPresenter_));
    }

    void WriteSettings(const std::string& wzelko) {
        prefix_.WriteWindowsFile("WZELKO.INI", wzelko);
    }

    TempWinePrefix prefix_;
    TempWorkingDirectory cwd_;
    std::vector<MessageBoxRequest> messages_;
    MessageBoxPresenter previousPresenter_;
};

}  // namespace wk::test
