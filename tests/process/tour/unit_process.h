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
    // What the unit holds as this parameter; -1 if it does not say so within two seconds.
    int parameter(int number);
    // The line of the answer to `command` that begins like this; empty after two seconds.
    std::string answer(const std::string& command, const std::string& beginning);

    // A line with this in it is said before the time is over: "log on" makes the unit tell what it
    // is asked for.
    bool says(const std::string& part, int most_ms);

  private:
    // The next whole line said, empty if none comes before the time is over.
    std::string next_line(int most_ms);

    int process_ = -1;
    int input_ = -1;
    int output_ = -1;
    std::string heard_;
};

} // namespace zol::tour
