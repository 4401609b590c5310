// The program control-unit: runs a simulation on a serial device, controlled by standard input and
// a scenario.
#pragma once

#include "simulator/arguments.h"
#include "simulator/device.h"
#include "simulator/output.h"
#include "simulator/replay.h"
#include "simulator/scenario.h"
#include "simulator/simulation.h"

#include <optional>
#include <set>
#include <string>

namespace sim {

class Program {
  public:
    explicit Program(const Arguments& arguments);
    Program(const Program&) = delete;
    Program& operator=(const Program&) = delete;
    ~Program();

    // Runs until quit, an interrupt, a termination signal, or the end of standard input if that was
    // asked for. Returns the exit status: 0; 1 if port, link or log cannot be opened; 2 for a wrong
    // scenario.
    int run();

  private:
    bool begin();
    bool replays() const { return !arguments_.replay.empty(); }
    // Reads scenario and recording; the exit status if one is wrong.
    std::optional<int> load();
    void replayed(const Frame& request, bool recorded);
    bool open_outputs();
    void print(const std::string& text);
    void report_error(const std::string& text);
    void finish_outputs();
    bool connect();
    void disconnect();
    void follow_cable();
    void run_command(const std::string& line);
    void run_scenario();
    void exchange();
    void read_input();
    void handle_input(std::string_view bytes);
    void device_gone();
    // The time of the next event that needs no input; INT64_MAX if there is none.
    std::int64_t next_us() const;
    void wait();

    Arguments arguments_;
    Replay replay_; // at the end of the line in place of the unit, if asked for
    std::set<Recording::Key> reported_;
    Simulation simulation_;
    Device device_;
    Scenario scenario_;
    std::size_t next_step_ = 0;
    Output error_; // declared first: the two below report to it until they are destroyed
    Output out_;
    Output log_;
    std::int64_t start_us_ = 0;
    std::string line_;
    bool line_too_long_ = false;
    bool reads_input_ = true;
    bool linked_ = false;
    bool ended_ = false;
    int signals_ = -1;
};

// Reads the arguments and runs the program. Returns the exit status.
int run_program(int count, const char* const* words);

} // namespace sim
