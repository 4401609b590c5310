#include "monitor/tank_level.h"

#include "app/app_state.h"
#include "app/helper_texts.h"
#include "app/numbers.h"
#include "link/ecu_frames.h"
#include "link/entry_field.h"
#include "link/parameter_catalogue.h"
#include "link/parameter_mirrors.h"
#include "link/tank_display.h"
#include "view/timers.h"
#include "view/view.h"
#include "view/windows/form1.h"

#include <array>

namespace zol::monitor {
namespace {

using app::number_text;
using app::state;
using form1::Slider1;
using link::mirrors;
using link::wait_ms;
using view::Pointer;
using view::Widget;
namespace par = link::par;

struct Preset {
    double empty_mv, full_mv;
    double thresholds[4]; // percent
};

// In the order of the list. The voltage of the last two senders falls as the tank fills.
constexpr std::array<Preset, 6> presets = {{
    {3900, 4200, {3, 15, 35, 70}},
    {3900, 4200, {3, 30, 50, 75}},
    {150, 400, {3, 30, 50, 75}},
    {1948, 3964, {48, 66, 86, 95}},
    {4000, 2700, {9, 15, 21, 45}},
    {4000, 600, {6, 14, 49, 79}},
}};

constexpr int free_values = 99; // sender type: thresholds and voltages are not from a preset

// A row whose slider sets a threshold, from the bottom of the gauge: the label of its upper bound,
// that of the next row's lower bound, that of the voltage between the two, and the threshold.
struct Row {
    Widget& upper_bound;
    Widget& next_lower_bound;
    Widget& border_mv;
    double& threshold;
    int parameter;
};

const std::array<Row, 4> rows = {{
    {form1::Label_led0, form1::Label8, form1::lbl_204, mirrors.tank_threshold_1,
     par::tank_threshold_1},
    {form1::Label_led1, form1::Label9, form1::lbl_203, mirrors.tank_threshold_2,
     par::tank_threshold_2},
    {form1::Label_led2, form1::Label10, form1::lbl_202, mirrors.tank_threshold_3,
     par::tank_threshold_3},
    {form1::Label_led3, form1::Label11, form1::lbl_201, mirrors.tank_threshold_4,
     par::tank_threshold_4},
}};

double slider(int row) { return view::value(Slider1[row]); }
// A value outside the slider's range is rejected.
void place(int row, double value) { view::place_value(Slider1[row], value); }

void label_row(int index) {
    const Row& row = rows[static_cast<std::size_t>(index)];
    view::set_text(row.next_lower_bound, number_text(slider(index) + 1) + "%");
    view::set_text(row.upper_bound, number_text(slider(index)) + "%");
}

void write_row(int index) {
    const Row& row = rows[static_cast<std::size_t>(index)];
    row.threshold = slider(index);
    link::send_parameter(row.parameter, row.threshold);
    wait_ms(200);
}

void bottom_row_moved() {
    if (slider(0) < slider(1)) {
        label_row(0);
        write_row(0);
    } else {
        place(0, slider(1) - 1);
    }
}

// Rows 1 and 2. A slider moved up to the row above goes back below it, and nothing is written. A
// slider moved down to the row below goes back above it, and that is written, but its labels do not
// change.
void middle_row_moved(int index) {
    if (slider(index) < slider(index + 1)) {
        if (slider(index) > slider(index - 1))
            label_row(index);
        else
            place(index, slider(index - 1) + 1);
        write_row(index);
    } else {
        place(index, slider(index + 1) - 1);
    }
}

void upper_row_moved() {
    if (slider(3) > slider(2))
        label_row(3);
    else
        place(3, slider(2) + 1);
    write_row(3);
    place(4, slider(3));
}

// The top row only moves the row below it. That row's threshold is written when it is moved itself.
void top_row_moved() {
    if (slider(4) > slider(3)) {
        const std::string bound = number_text(slider(4)) + "%";
        view::set_text(form1::Label_led3, bound);
        view::set_text(form1::Label11, bound);
        place(3, slider(4));
    } else {
        place(4, slider(3));
    }
}

void on_tank_slider(int index) {
    if (state.ui_loading) return;
    view::set_pointer(form1::Form1, Pointer::hourglass);
    switch (index) {
    case 0: bottom_row_moved(); break;
    case 1:
    case 2: middle_row_moved(index); break;
    case 3: upper_row_moved(); break;
    default: top_row_moved();
    }
    view::set_pointer(form1::Form1, Pointer::normal);
}

// Sends all thresholds after a change of the voltages of the empty or full tank. Each of five steps
// raises one slider by one and handles one slider as if it had been moved. Sliders are handled from
// the bottom up; the direction is the order in which they are raised. A slider that is raised
// before it is handled sends a threshold that is one higher.
enum class Nudge { downward, upward };

void nudge(Nudge direction) {
    for (int i = 0; i < 5; ++i) {
        const int raised = direction == Nudge::downward ? 4 - i : i;
        place(raised, slider(raised) + 1);
        wait_ms(200);
        on_tank_slider(i);
    }
}

void load_preset(const Preset& preset) {
    mirrors.tank_min_mv = preset.empty_mv;
    mirrors.tank_max_mv = preset.full_mv;
    for (std::size_t i = 0; i < rows.size(); ++i)
        rows[i].threshold = preset.thresholds[i];
}

void write_whole_tank(int sender) {
    mirrors.tank_sensor_par = sender;
    struct Write {
        int parameter;
        const double& value;
        int settle_ms;
    };
    const Write writes[] = {
        {par::tank_sensor_par, mirrors.tank_sensor_par, 300},
        {par::tank_min_mv, mirrors.tank_min_mv, 300},
        {par::tank_max_mv, mirrors.tank_max_mv, 300},
        {rows[0].parameter, rows[0].threshold, 300},
        {rows[1].parameter, rows[1].threshold, 200},
        {rows[2].parameter, rows[2].threshold, 300},
        {rows[3].parameter, rows[3].threshold, 300},
    };
    for (const Write& write : writes) {
        link::send_parameter(write.parameter, write.value);
        wait_ms(write.settle_ms);
    }
}

void sender_chosen() {
    if (state.ui_loading) return;
    view::set_pointer(form1::Form1, Pointer::hourglass);
    view::set_pointer(form1::Combo_tank_level, Pointer::hourglass);
    const int chosen = form1::Combo_tank_level.look.list_index;
    state.tank_type = chosen;
    if (chosen >= 0 && chosen < static_cast<int>(presets.size()))
        load_preset(presets[static_cast<std::size_t>(chosen)]);
    link::show_tank_ends();
    for (int row = 0; row < 4; ++row)
        place(row, rows[static_cast<std::size_t>(row)].threshold);
    place(4, mirrors.tank_threshold_4 + 1);
    nudge(Nudge::downward);
    write_whole_tank(chosen);
    view::set_pointer(form1::Form1, Pointer::normal);
    view::set_pointer(form1::Combo_tank_level, Pointer::normal);
}

// Does not check `ui_loading`: the type is written also if the program ticks the box.
void free_values_clicked() {
    const int type = view::selected(form1::Check1) ? free_values : 0;
    state.tank_type = type;
    mirrors.tank_sensor_par = type;
    link::write_parameter(par::tank_sensor_par, type);
}

void park_focus() { view::set_focus(form1::cmd_focus); }

const link::EntryField full_field = {
    .field = form1::Text_max_tank,
    .parameter = par::tank_max_mv,
    .mirror = mirrors.tank_max_mv,
    .settle_ms = 200,
    .wait_timer = form1::Timer2,
    .taken = [] { view::set_text(form1::lbl_200, number_text(mirrors.tank_max_mv)); },
    .written = [] { nudge(Nudge::downward); },
    .done = park_focus,
};

const link::EntryField empty_field = {
    .field = form1::Text_min_tank,
    .parameter = par::tank_min_mv,
    .mirror = mirrors.tank_min_mv,
    .settle_ms = 200,
    .wait_timer = form1::Timer2,
    .taken = [] { view::set_text(form1::lbl_205, number_text(mirrors.tank_min_mv)); },
    .written = [] { nudge(Nudge::upward); },
    .done = park_focus,
};

// The presets and the end voltages also write the thresholds.
void note_all_parameters() {
    using app::note_parameters;
    note_parameters(form1::Combo_tank_level,
                    {par::tank_sensor_par, par::tank_min_mv, par::tank_max_mv});
    note_parameters(form1::Check1, {par::tank_sensor_par});
    note_parameters(form1::lbl_205, {par::tank_min_mv});
    note_parameters(form1::lbl_200, {par::tank_max_mv});
    for (std::size_t i = 0; i < rows.size(); ++i) {
        const Row& row = rows[i];
        for (const Widget* control :
             {&Slider1[static_cast<int>(i)], &row.upper_bound, &row.next_lower_bound,
              &row.border_mv, &form1::Combo_tank_level, &form1::Text_min_tank,
              &form1::Text_max_tank})
            note_parameters(*control, {row.parameter});
    }
}

} // namespace

int percent_to_mv(double percent) {
    const double empty = app::val(view::text(form1::Text_min_tank));
    const double full = app::val(view::text(form1::Text_max_tank));
    const double mv = app::round_half_even((full - empty) * percent / 100 + empty);
    return mv >= INT16_MIN && mv <= INT16_MAX ? static_cast<int>(mv) : 0;
}

void connect_tank_level() {
    form1::Combo_tank_level.on.click = sender_chosen;
    form1::Check1.on.click = free_values_clicked;
    for (int index = 0; index < 5; ++index)
        Slider1[index].on.change = [index] { on_tank_slider(index); };
    for (int index = 0; index < 4; ++index) {
        const Row& row = rows[static_cast<std::size_t>(index)];
        row.upper_bound.on.change = [index, &border_mv = row.border_mv] {
            view::set_text(border_mv, std::to_string(percent_to_mv(slider(index))));
        };
    }
    link::connect_entry_field(full_field);
    link::connect_entry_field(empty_field);
    note_all_parameters();
}

} // namespace zol::monitor
