// The program: a bench on a device, steered from standard input and from a scenario.
#pragma once

#include "simulator/arguments.h"
#include "simulator/bench.h"
#include "simulator/device.h"
#include "simulator/output.h"
#include "simulator/scenario.h"

#include <string>

namespace sim {

class Program {
  public:
    explicit Program(const Arguments& arguments);
    Program(const Program&) = delete;
    Program& operator=(const Program&) = delete;
    ~Program();

    // Until quit, an interrupt, a termination signal, or the end of standard input if asked for.
    // Returns the exit status.
    int run();

  private:
    bool begin();
    bool open_outputs();
    void say(const std::string& text);
    void complain(const std::string& text);
    void finish_outputs();
    bool connect();
    void disconnect();
    void follow_cable();
    void run_command(const std::string& line);
    void run_scenario();
    void exchange();
    void read_typed();
    void typed(std::string_view bytes);
    void device_gone();
    // When something happens by itself next; the clock's end if nothing does.
    std::int64_t next_us() const;
    void wait();

    Arguments arguments_;
    Bench bench_;
    Device device_;
    Scenario scenario_;
    std::size_t next_step_ = 0;
    Output error_; // outlives the two below, which report to it
    Output out_;
    Output log_;
    std::int64_t start_us_ = 0;
    std::string typed_;
    bool typed_too_long_ = false;
    bool reads_input_ = true;
    bool linked_ = false;
    bool ended_ = false;
    int signals_ = -1;
};

// All of main: reads the arguments and runs; returns the exit status.
int run_program(int count, const char* const* words);

} // namespace sim
