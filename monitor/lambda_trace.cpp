#include "monitor/lambda_trace.h"

#include "app/app_state.h"
#include "app/helper_texts.h"
#include "app/numbers.h"
#include "monitor/status_telegram.h"
#include "view/view.h"
#include "view/windows/form1.h"

namespace zol::monitor {
namespace {

using app::state;

constexpr double silent_sensor = 20;        // mV, and below
constexpr double engine_panel_centre = 400; // mV
// Twips before scaling. One mV is as high as one twip, times the scale.
constexpr double bar_width = 60, bar_pitch = 100;

void show_sample() {
    const bool silent = state.lambda_sample <= silent_sensor;
    const std::string text = silent ? "0" : app::number_text(state.lambda_sample);
    view::set_text(form1::Label_lambda, text);
    view::set_text(form1::label_lambda_2, text);
}

// Draws one bar. False if the chart was full: then it is cleared instead.
bool draw_bar(double centre, double scale) {
    view::Widget& chart = form1::Picture1;
    const double width = chart.design.place.width, mid = chart.design.place.height / 2;
    if (state.trace_x >= width) {
        view::clear_drawing(chart);
        state.trace_x = 0;
        return false;
    }
    view::set_text(chart, app::helper_word("centre") + " " + app::number_text(centre));
    const double deviation = state.lambda_sample - centre;
    view::draw_line(chart, 0, mid, width, mid, view::red);
    view::fill_rectangle(chart, state.trace_x, mid, state.trace_x + bar_width,
                         mid - deviation * scale, deviation > 0 ? view::green : view::red);
    state.trace_x += bar_pitch;
    return true;
}

double scale_factor() { return app::val(view::text(form1::Label35)); }

} // namespace

void trace_on_engine_panel() {
    show_sample();
    if (state.lambda_sample > silent_sensor) draw_bar(engine_panel_centre, 1);
}

void trace_on_lambda_panel(const link::Reply& telegram) {
    const double previous = state.lambda_previous_sample;
    if (previous != 0 && 5 * previous < state.lambda_sample)
        state.lambda_sample = previous;
    else
        link::take(telegram.word(TelegramPosition::lambda), state.lambda_sample);
    show_sample();
    if (state.lambda_sample <= silent_sensor) return;
    const double centre = app::val(view::text(form1::Text_lambda_closed_loop));
    if (draw_bar(centre, scale_factor())) state.lambda_previous_sample = state.lambda_sample;
}

void connect_lambda_trace() {
    form1::Command_piu.on.click = [] {
        if (scale_factor() < 4)
            view::set_text(form1::Label35, app::number_text(scale_factor() + 1));
    };
    form1::Command_meno.on.click = [] {
        if (scale_factor() > 0)
            view::set_text(form1::Label35, app::number_text(scale_factor() - 1));
    };
}

} // namespace zol::monitor
