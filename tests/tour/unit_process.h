// The simulated control unit as a program of its own, steered by the commands typed to it.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

namespace zol::tour {

class UnitProcess {
  public:
    // Starts `program` with these arguments; it ends when its input does.
    UnitProcess(const std::filesystem::path& program, const std::vector<std::string>& arguments);
    ~UnitProcess();
    UnitProcess(const UnitProcess&) = delete;
    UnitProcess& operator=(const UnitProcess&) = delete;

    void type(const std::string& command);
    bool running() const { return process_ > 0; }

  private:
    int process_ = -1;
    int input_ = -1;
};

} // namespace zol::tour
