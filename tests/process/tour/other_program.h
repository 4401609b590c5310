// A terminal or download program that uses the serial port after the tool.
#pragma once

#include <filesystem>
#include <string>

namespace zol::tour {

class OtherProgram {
  public:
    explicit OtherProgram(const std::filesystem::path& device);
    ~OtherProgram();
    OtherProgram(const OtherProgram&) = delete;
    OtherProgram& operator=(const OtherProgram&) = delete;

    // Sends `typed` and returns everything received until `end` or until the time is over.
    std::string ask(const std::string& typed, const std::string& end, int most_ms);

  private:
    int descriptor_ = -1;
};

// Whether this process, which is the tool's, has the device open.
bool held_by_the_tool(const std::filesystem::path& device);

} // namespace zol::tour
