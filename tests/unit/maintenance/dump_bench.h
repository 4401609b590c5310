// A bench beside which the fitter saves the unit's parameters to the log folder.
#pragma once

#include "monitor/polling.h"
#include "tests/support/bench.h"
#include "view/windows/form1.h"

#include <algorithm>

namespace zol::tests {

class DumpBench : public Bench {
  protected:
    static constexpr const char* dump_file = "log/setting.txt";

    // Connected, the polling ended, and nothing of it left in the buffer.
    void start_quietly(int family = 0) {
        use_unit({.family = family, .version = 7, .revision = 71});
        start_connected();
        inside_program(monitor::stop_polling);
        run_for(1000);
        inside_program([this] { port->read_all(); });
        forget_wire();
    }
    // From now on the tool reads this whatever it asks.
    void answer_everything_with(const link::Bytes& image) {
        port->alter = [image](const link::Bytes&) { return image; };
    }
    void fitter_dumps(int ms = 3000) {
        operator_clicks(form1::mnu_dump_parametri);
        run_for(ms);
    }
    std::ptrdiff_t lines() {
        const std::string text = read_text(dump_file);
        return std::count(text.begin(), text.end(), '\n');
    }
    std::vector<std::string> files_in_log() const {
        std::vector<std::string> names;
        for (const auto& entry : std::filesystem::directory_iterator(folder / "log"))
            names.push_back(entry.path().filename().string());
        return names;
    }
};

} // namespace zol::tests
