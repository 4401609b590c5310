// The fixture that runs zol-logbook in its own process, with a folder for its files.
#pragma once

#include "tests/unit/simulator/running_program.h"

#include <fstream>

namespace zol::logbook {

// A recording of format 1; its last line is line 7.
inline const std::string sample_header = "zol-logbook recording 1\nprogram: zol-logbook 1\n"
                                         "car: AB-123\nstarted: 2026-11-22T14:10:05+01:00\n"
                                         "device: /dev/ttyUSB0\nport: COM1\n\n";

struct Ended {
    int status;
    std::string said, complaint;
};

class LogbookFolder : public testing::Test {
  protected:
    LogbookFolder()
        : folder(std::filesystem::path(testing::TempDir()) /
                 ("logbook" + std::to_string(getpid()))) {
        std::filesystem::remove_all(folder);
        std::filesystem::create_directories(folder / "ports");
    }
    ~LogbookFolder() override {
        std::error_code ignored; // a logbook that ends may remove its link meanwhile
        std::filesystem::remove_all(folder, ignored);
    }

    // Runs the program until it ends.
    Ended run(const std::vector<std::string>& words) {
        sim::RunningProgram program(words, ZOL_LOGBOOK);
        std::string said = program.said_until(std::string(1, '\0'));
        std::string complaint = program.complaints_to_the_end();
        return {program.exit_code(), said, complaint};
    }
    std::string write(const std::string& name, const std::string& text) {
        std::ofstream(folder / name, std::ios::binary) << text;
        return folder / name;
    }
    static std::string text_of(const std::filesystem::path& file) {
        std::ifstream in(file, std::ios::binary);
        return {std::istreambuf_iterator<char>(in), {}};
    }

    const std::filesystem::path folder;
};

} // namespace zol::logbook
