// What must hold at every moment of a run, and what must hold while no handler runs.
#pragma once

#include "tests/soak/handlers.h"
#include "tests/soak/mirrors.h"
#include "view/screen.h"

#include <span>

namespace zol::soak {

class Checks {
  public:
    Checks(Log& log, Handlers& handlers);

    // A frame that the program sends, whether the port accepts it or not; bytes that it has read.
    void leaves(std::span<const std::uint8_t> bytes);
    void read(const link::Bytes& bytes);
    void closed(); // the port, by the present handler
    void changed(const view::Widget& widget, view::Aspect aspect);
    // After each step of the run, while the program waits. `at_rest`: no box is open.
    void step(bool at_rest);

    // A run of the automatic tuning. Of two nested runs the inner one clears tuning_mode of both.
    bool may_be_tuning() const;

    bool operator_types = false; // changed texts are the operator's
    int deepest_wait = 0;
    bool handed_over = false; // the line, to another program
    std::string closed_by;    // the handler that closed the port last
    // The most waits for each nested act: those of its handler, of a handler called inside, of a
    // tick and of an activation.
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
    bool mark_cleared_ = false; // ui_loading was cleared during a first read
    bool parameter_window_seen_ = false;
    int tunings_asked_ = 0; // a run may begin during the waits of another
    bool polled_on_closed_port_ = false;
    bool acquisition_stopped_ = false;
};

} // namespace zol::soak
