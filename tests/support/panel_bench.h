// The bench with a panel of settings open: what goes out, and how long after the operator's act.
#pragma once

#include "app/numbers.h"
#include "tests/support/bench.h"
#include "tests/support/timed.h"
#include "view/timers.h"
#include "view/windows/centralina_attiva.h"
#include "view/windows/form1.h"
#include "view/windows/form3.h"

namespace zol::tests {

class PanelBench : public Bench {
  protected:
    explicit PanelBench(const sim::Options& unit_options = {}) : Bench(unit_options) {}

    // From here on `timed` counts.
    void mark() {
        forget_wire();
        marked_ms_ = now_ms();
    }
    std::vector<Timed> timed() const {
        std::vector<Timed> all;
        for (const auto& sent : port->sent)
            all.push_back({sent.at_ms - marked_ms_, sent.frame});
        return all;
    }

    void open_settings() {
        start_connected();
        operator_clicks(form1::Command_impostazioni);
        run_for(1000);
        mark();
    }
    // The unit is silent at first, so that the connection dialog comes up and finds it.
    void connect_by_dialog() {
        port->silent = true;
        start_program();
        run_for(5000);
        port->silent = false;
        operator_clicks(centralina_attiva::Command_test);
        run_for(3000);
        operator_clicks(centralina_attiva::Command_ok);
        run_for(10000);
        mark();
    }
    void open_changeover() {
        open_settings();
        reopen_changeover();
    }
    void reopen_changeover() {
        operator_clicks(form1::Command303);
        run_for(200);
        mark();
    }
    void close_changeover() {
        operator_clicks(form3::Command1);
        run_for(2000);
    }

    static bool busy(const view::Widget& widget) {
        return widget.look.pointer == view::Pointer::hourglass;
    }
    static bool focused(const view::Widget& widget) { return view::focus() == &widget; }
    static const std::string& text(const view::Widget& widget) { return view::text(widget); }

  private:
    std::int64_t marked_ms_ = 0;
};

} // namespace zol::tests
