// What must hold at every moment of a run, and what must hold while nothing is under way.
#pragma once

#include "tests/soak/handlers.h"
#include "tests/soak/mirrors.h"
#include "view/screen.h"

#include <span>

namespace zol::soak {

class Checks {
  public:
    Checks(Log& log, Handlers& handlers);

    // A frame wants to leave, whether the port takes it or not; bytes that the program has read.
    void leaves(std::span<const std::uint8_t> bytes);
    void read(const link::Bytes& bytes);
    void closed(); // the port, by the handler that runs
    void changed(const view::Widget& widget, view::Aspect aspect);
    // After each step of the run, while the program waits. `at_rest`: no box is up.
    void step(bool at_rest);

    // A run of the automatic tuning. The first of two runs to end, the inner one, clears the mark
    // of both.
    bool may_be_tuning() const;

    bool operator_types = false; // what shows up on widgets is his own
    int deepest_wait = 0;
    bool handed_over = false; // the line, to a terminal or a download
    std::string closed_by;    // the handler that closed the port last
    // Waits nest as deep as the operator acts in the middle of them, and no deeper: an act brings
    // its handler, one that it runs inside, a tick and an activation.
    static constexpr int waits_of_an_act = 4;

  private:
    void write_leaves(const Written& written);
    void command_leaves(int command);
    int readers_below(int but) const;
    void check_perpetual_timers();
    void check_rest();
    void find(const std::string& what);

    Log& log_;
    Handlers& handlers_;
    ExpectedMirrors mirrors_;
    bool told_of_mirrors_ = false;
    bool mark_cleared_ = false; // that of the filling, in the middle of a reading
    bool parameter_window_seen_ = false;
    int tunings_asked_ = 0; // each may run in the waits of another
    bool polled_on_closed_port_ = false;
    bool acquisition_stopped_ = false;
};

} // namespace zol::soak
