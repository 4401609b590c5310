// The simulated control unit as its own process, controlled by commands on its standard input.
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
    // The unit's value of this parameter, -1 if it does not answer within two seconds.
    int parameter(int number);
    // The line of the answer that begins like this, empty after two seconds.
    std::string answer(const std::string& command, const std::string& beginning);

    // The unit prints a line with this text in time. After "log on" it prints each request.
    bool says(const std::string& part, int most_ms);

  private:
    // The next complete line, empty if none comes in time.
    std::string next_line(int most_ms);

    int process_ = -1;
    int input_ = -1;
    int output_ = -1;
    std::string heard_;
};

} // namespace zol::tour
