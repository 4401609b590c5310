// The settings file and what a write leaves in its folder.
#pragma once

#include "app/settings_file.h"
#include "tests/support/logic_fixture.h"

namespace zol::tests {

class SettingsFolder : public LogicTest {
  protected:
    static constexpr const char* file = "setting.ini";

    // The other names in the folder of this file that begin with its name.
    std::vector<std::string> left_beside(const std::string& name) const {
        std::vector<std::string> found;
        const auto whole = folder / name;
        for (const auto& entry : std::filesystem::directory_iterator(whole.parent_path())) {
            const std::string other = entry.path().filename();
            if (other.starts_with(whole.filename().string() + ".")) found.push_back(other);
        }
        return found;
    }
};

} // namespace zol::tests
