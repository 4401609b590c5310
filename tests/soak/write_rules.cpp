#include "tests/soak/write_rules.h"

#include "tests/support/image_oracle.h"
#include "view/operator.h"

#include <algorithm>
#include <set>

namespace zol::soak {
namespace {

using Need = Step::Need;

Step one(int parameter) { return {parameter, std::nullopt, Need::must}; }
Step one(int parameter, int value) { return {parameter, value, Need::must}; }
Step may(int parameter) { return {parameter, std::nullopt, Need::may}; }
Step word(int parameter) { return {parameter, std::nullopt, Need::if_a_word}; }

std::vector<Step> factory_reset() {
    std::vector<Step> steps;
    for (const oracle::FactoryValue& each : oracle::factory_values)
        steps.push_back(one(each.parameter, each.value));
    for (const int cell : oracle::correction_cells())
        steps.push_back(one(cell, oracle::correction_cell_value));
    return steps;
}

std::vector<Step> cleared_faults() {
    std::vector<Step> steps;
    for (int parameter = 145; parameter <= 151; ++parameter)
        steps.push_back(one(parameter, 0));
    return steps;
}

// The thresholds that the nudge of the rows sends: a row that returns to its value is not written.
std::vector<Step> with_nudge(std::vector<Step> head, std::vector<Step> tail) {
    for (int parameter = 32; parameter <= 35; ++parameter)
        head.push_back(may(parameter));
    head.insert(head.end(), tail.begin(), tail.end());
    return head;
}

std::vector<WriteRule> engine_rules() {
    return {
        {"Form1.Slider_ktar change", Guard::loading, {one(3), one(4), may(104)}},
        {"Form1.Slider_power change", Guard::loading, {one(4)}},
        {"Form1.Slider_attenuazione change", Guard::loading, {one(101)}},
        {"Form1.Slider3 change", Guard::none, {one(52)}},
        {"Form1.Command_rpm_piu click", Guard::none, {word(1)}},
        {"Form1.Command_rpm_meno click", Guard::none, {word(1)}},
        {"Form1.mnu_matrix_2_ohm click",
         Guard::loading,
         {one(201, 3000), one(200, 30), one(202, 2100)}},
        {"Form1.mnu_matrix_3_ohm click",
         Guard::loading,
         {one(201, 20000), one(200, 40), one(202, 3900)}},
        {"Form1.mnu_valtek click", Guard::loading, {one(201, 8000), one(200, 60), one(202, 4000)}},
        {"Form1.mnu_mivra click", Guard::loading, {one(201, 3000), one(200, 27), one(202, 2700)}},
        {"Form1.type_a click", Guard::loading, {one(201, 20000)}},
        {"Form1.type_b click", Guard::loading, {one(201, 5000)}},
        {"Form1.type_c click", Guard::loading, {one(201, 1500)}},
    };
}

std::vector<WriteRule> settings_rules() {
    return {
        {"Form1.Combo_tank_level click", Guard::loading,
         with_nudge({}, {one(130), word(30), word(31), word(32), word(33), word(34), word(35)})},
        {"Form1.Check1 click", Guard::none, {one(130)}},
        {"Form1.Slider1(0) change", Guard::loading, {may(32)}},
        {"Form1.Slider1(1) change", Guard::loading, {may(33)}},
        {"Form1.Slider1(2) change", Guard::loading, {may(34)}},
        {"Form1.Slider1(3) change", Guard::loading, {one(35)}},
        {"Form1.Text_max_tank key", Guard::none, with_nudge({word(31)}, {})},
        {"Form1.Text_min_tank key", Guard::none, with_nudge({word(30)}, {})},
        {"Form1.Option_gpl click",
         Guard::loading,
         {one(10, 1), one(104, 1600), one(144, 100), one(128, 0)}},
        {"Form1.Option_metano click",
         Guard::loading,
         {one(10, 0), one(51, 60), one(129, 1001), one(144, 92), one(104, 1200)}},
        {"Form1.Option_press_yes click", Guard::loading, {one(50, 1)}},
        {"Form1.Option_press_no click", Guard::loading, {one(50, 0)}},
        {"Form1.Opt_modulare_yes click", Guard::loading, {{23, 1, Need::may}}},
        {"Form1.Opt_modulare_no click", Guard::loading, {{23, 0, Need::may}}},
        {"Form1.text_temp_comm key", Guard::none, {word(15)}},
        {"Form1.Text_time_comm key", Guard::none, {word(110)}},
        {"Form1.lambda_dir click", Guard::loading, {one(12, 1)}},
        {"Form1.lambda_inv click", Guard::loading, {one(12, 0)}},
        {"Form1.Option_abi_controllo_lambda click", Guard::loading, {one(11, 1)}},
        {"Form1.Option_disa_controllo_lambda click", Guard::loading, {one(11, 0)}},
        {"Form1.Option_tens click", Guard::loading, {one(36, 400), one(16, 400), one(21, 0)}},
        {"Form1.Option_corr click", Guard::loading, {one(36, 1000), one(16, 1000), one(21, 1)}},
        {"Form1.Text_lambda_closed_loop key", Guard::none, {word(36)}},
        {"Form1.Text_lambda_open_loop key", Guard::none, {word(16)}},
    };
}

std::vector<WriteRule> menu_and_window_rules() {
    return {
        {"Form1.mnu_search click", Guard::none, {one(143, 1)}},
        {"Form1.mnu_direction_inverse_eobd click", Guard::none, {one(142, 257)}},
        {"Form1.mnu_direction_normal_eobd click", Guard::none, {one(142, 0)}},
        {"Form1.mnu_debug_yes click", Guard::none, {one(153, 1), one(20, 1)}},
        {"Form1.mnu_debug_no click", Guard::none, {one(153, 0), one(20, 0)}},
        {"Form1.Command10 click", Guard::none, cleared_faults()},
        {"Form1.mnu_reset_centralina click", Guard::none, factory_reset()},
        {"Form1.mnu_reset_check click", Guard::none, {one(29), one(39), one(40)}},
        {"Form1.mnu_reset_time_ongas click", Guard::none, {one(27, 0), one(28, 0)}},
        {"Form3.opt_norm click", Guard::locked, {one(122, 0), one(23, 0)}},
        {"Form3.opt_perm click", Guard::locked, {one(122, 1)}},
        {"Form3.opt_acc click", Guard::locked, {one(122, 3)}},
        {"Form3.Option1 click", Guard::locked, {one(41, 7)}},
        {"Form3.Option2 click", Guard::locked, {one(41, 5)}},
        {"Form3.Option3 click", Guard::locked, {one(41, 2), one(47, 0)}},
        {"Form3.Option_comm_auto_yes click", Guard::locked, {one(105, 1)}},
        {"Form3.Option_comm_auto_no click", Guard::locked, {one(105, 0)}},
        {"Form3.Slider2 change", Guard::none, {one(106)}},
        {"Form3.Slider2 key", Guard::none, {word(121)}},
        {"Form3.Text_rpm key", Guard::none, {word(121)}},
        {"Form3.Text_press_comm key", Guard::none, {word(22)}},
        {"Form3.Text_123 key", Guard::none, {word(123)}},
        {"Form3.Text_124 key", Guard::none, {word(124)}},
        {"Form3.Text1 key", Guard::none, {word(47)}},
        {"Form3.Text2 key", Guard::none, {word(53)}},
        {"acquisizione.Command_salva click", Guard::none, {word(6), word(7), word(7), word(5)}},
    };
}

// The main window's keys that write directly. Other keys write through sliders.
const WriteRule forced_start = {"Ctrl+F", Guard::none, {one(122)}};
const WriteRule changeover_speed = {"Ctrl+G", Guard::none, {{121, std::nullopt, Need::may}}};
const WriteRule parameter_edit = {
    "Ctrl+V", Guard::none, {{125, 4000, Need::may}, {any_parameter, std::nullopt, Need::may}}};

const std::vector<WriteRule>& rules() {
    static const std::vector<WriteRule> all = [] {
        std::vector<WriteRule> joined = engine_rules();
        for (auto some : {settings_rules(), menu_and_window_rules()})
            joined.insert(joined.end(), some.begin(), some.end());
        return joined;
    }();
    return all;
}

bool fits(const Step& step, const Written& written) {
    if (step.parameter != any_parameter && step.parameter != written.number) return false;
    return !step.value || *step.value == written.value;
}

// The positions in `steps` of the next write, if optional steps are left out.
std::set<std::size_t> after_optional(const std::vector<Step>& steps, std::set<std::size_t> places) {
    for (std::size_t at = 0; at < steps.size(); ++at)
        if (places.count(at) && steps[at].need != Need::must) places.insert(at + 1);
    return places;
}

// The operator may answer No to the reset.
bool may_stay_unused(const Running& running) {
    return running.writes.empty() && running.name == "Form1.mnu_reset_centralina click";
}

struct CommandRule {
    int command;
    std::set<std::string, std::less<>> handlers;
};

const std::vector<CommandRule>& command_rules() {
    static const std::vector<CommandRule> all = {
        {1,
         {"Form1 activate", "Centralina_Attiva.Command_ok click",
          "Form1.mnu_dump_parametri click"}},
        {3,
         {"Form1.Timer_stato_sistema tick", "Form1.Timer3 tick", "acquisizione.Timer_tinj tick",
          "tuning"}},
        {4, {"Form1 key", "tuning"}},
        {5, {"Form1.mnu_reset_centralina click"}},
        {6, {"Form1 activate", "Centralina_Attiva.Command_test click"}},
        {7, {"Form1 activate", "Centralina_Attiva.Command_ok click"}},
        {15, {"Form1.cmd_richiesta_par_diagnosi click"}},
        {16, {"Form1.Timer_stato_sistema tick"}},
        {20, {"Form1.Command_hyperterminal click"}},
        {21, {"Form1.Command_scarico click"}},
        {22, {"Form1 key", "tuning"}},
    };
    return all;
}

} // namespace

const WriteRule* write_rule(const Running& running) {
    if (running.name.ends_with(" key")) {
        if (running.name == "Form1 key" && running.shift == view::operator_acts::ctrl_key) {
            if (running.key == 'F') return &forced_start;
            if (running.key == 'G') return &changeover_speed;
            if (running.key == 'V') return &parameter_edit;
            return nullptr;
        }
        if (running.key != view::operator_acts::enter) return nullptr;
    }
    static const std::set<std::string> known = [] {
        std::set<std::string> all;
        for (const WriteRule& rule : rules())
            all.insert(rule.handler);
        return all;
    }();
    if (!known.count(running.name)) return nullptr;
    return &*std::find_if(rules().begin(), rules().end(),
                          [&](const WriteRule& rule) { return rule.handler == running.name; });
}

bool names(const WriteRule& rule, int parameter) {
    return std::any_of(rule.steps.begin(), rule.steps.end(), [&](const Step& step) {
        return step.parameter == parameter || step.parameter == any_parameter;
    });
}

bool silenced(const Running& running) {
    if (!running.rule) return true;
    return (running.rule->guard == Guard::loading && running.loading) ||
           (running.rule->guard == Guard::locked && running.locked);
}

std::string wrong_in(const Running& running, bool over) {
    if (silenced(running))
        return running.writes.empty() ? "" : running.name + " wrote although it must not write now";
    const std::vector<Step>& steps = running.rule->steps;
    std::set<std::size_t> places = after_optional(steps, {0});
    for (const Written& written : running.writes) {
        std::set<std::size_t> next;
        for (const std::size_t at : places)
            if (at < steps.size() && fits(steps[at], written)) next.insert(at + 1);
        if (next.empty())
            return running.name + " wrote PAR_" + std::to_string(written.number) + " = " +
                   std::to_string(written.value) + " out of its order";
        places = after_optional(steps, std::move(next));
    }
    if (over && !places.count(steps.size()) && !may_stay_unused(running))
        return running.name + " ended before all of its writes";
    return "";
}

bool may_send(std::string_view handler, int command) {
    for (const CommandRule& rule : command_rules())
        if (rule.command == command) return rule.handlers.count(handler) > 0;
    return false;
}

} // namespace zol::soak
