// A terminal or download program that takes the serial port over from the tool.
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

    // Types this, if anything, and listens until `end` comes or the time is over. Everything that
    // came meanwhile.
    std::string ask(const std::string& typed, const std::string& end, int most_ms);

  private:
    int descriptor_ = -1;
};

// Whether this very process, which is the tool's, has the device open.
bool held_by_the_tool(const std::filesystem::path& device);

} // namespace zol::tour
