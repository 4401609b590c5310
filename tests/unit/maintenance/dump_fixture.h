// The fixture of the parameter dump, which saves the unit's parameters to the log folder.
#pragma once

#include "tests/support/logic_fixture.h"
#include "view/windows/form1.h"

namespace zol::tests {

class DumpTest : public LogicTest {
  protected:
    DumpTest() : LogicTest({.version = 7, .revision = 71}) {}

    static constexpr const char* dump_file = "log/setting.txt";

    // The tool reads this image, whatever it asks for.
    void image_is(const link::Bytes& image) {
        port->alter = [image](const link::Bytes&) { return image; };
    }
    void operator_dumps(int ms = 3000) {
        operator_clicks(form1::mnu_dump_parametri);
        run_for(ms);
    }
    std::ptrdiff_t lines() { return std::ranges::count(read_text(dump_file), '\n'); }
    std::vector<std::string> files_in_log() const {
        std::vector<std::string> names;
        for (const auto& entry : std::filesystem::directory_iterator(folder / "log"))
            names.push_back(entry.path().filename().string());
        return names;
    }
};

} // namespace zol::tests
