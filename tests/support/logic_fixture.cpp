#include "tests/support/logic_fixture.h"

#include "app/application_folder.h"
#include "app/program/startup.h"
#include "app/program/wiring.h"
#include "monitor/polling.h"
#include "tests/support/program_state.h"
#include "view/timers.h"
#include "view/windows/centralina_attiva.h"
#include "view/windows/form1.h"
#include "view/windows/form3.h"

#include <fstream>
#include <iterator>
#include <sstream>
#include <unistd.h>

namespace zol::tests {
namespace {

std::filesystem::path fresh_folder() {
    static int count = 0;
    const auto folder = std::filesystem::temp_directory_path() /
                        ("zol_test_" + std::to_string(::getpid()) + "_" + std::to_string(++count));
    std::filesystem::remove_all(folder); // a killed process with this id may have left one
    std::filesystem::create_directories(folder / "log");
    std::filesystem::create_directories(folder / "ports");
    std::filesystem::create_directory_symlink(std::filesystem::path(ZOL_SOURCE_DIR) / "language",
                                              folder / "language");
    return folder;
}

// The state that this change led to.
std::string state_of(const view::Widget& widget, view::Aspect aspect) {
    const view::Look& look = widget.look;
    switch (aspect) {
    case view::Aspect::pointer:
        return look.pointer == view::Pointer::hourglass ? "hourglass"
               : look.pointer == view::Pointer::custom  ? "own pointer"
                                                        : "normal pointer";
    case view::Aspect::enabled: return look.enabled ? "enabled" : "disabled";
    case view::Aspect::visible: return look.visible ? "shown" : "hidden";
    case view::Aspect::checked: return look.checked ? "checked" : "unchecked";
    case view::Aspect::text: return "says " + look.text;
    case view::Aspect::tip: return "tip " + look.tip;
    case view::Aspect::value: return "at " + std::to_string(static_cast<int>(look.value));
    case view::Aspect::colours: return "back " + std::to_string(look.back);
    case view::Aspect::edit_marker: return look.edit_marker ? "marked" : "unmarked";
    case view::Aspect::tab_stop: return look.tab_stop ? "with tab stop" : "without tab stop";
    default: return "changed";
    }
}

} // namespace

LogicTest::LogicTest(const sim::Options& unit_options) : folder(fresh_folder()) {
    reset_program_state();
    app::use_application_folder(folder);
    view::use_platform(time);
    view::use_screen(screen);
    app::connect_handlers();
    use_unit(unit_options);
    write_file("setting.ini", "[General]\nLANGUAGE=uk\n");
}

LogicTest::~LogicTest() {
    time.finish();
    EXPECT_THAT(screen.complaints(), testing::IsEmpty());
    std::error_code error;
    std::filesystem::remove_all(folder, error);
    reset_program_state(); // the screen of this test ends with it
}

void LogicTest::use_unit(const sim::Options& options) {
    unit = std::make_unique<sim::ControlUnit>(options);
    port = std::make_unique<SimulatedPort>(*unit, time);
    link::use_serial_port(*port);
}

void LogicTest::set_parameter(int number, int value) {
    unit->set_parameter(number, static_cast<std::uint16_t>(value));
}

void LogicTest::start_program() {
    time.start([] {
        app::sub_main();
        for (;;)
            view::pump();
    });
}

void LogicTest::start_connected() {
    start_program();
    for (int second = 0; second < 20 && !form1::Timer_stato_sistema.is_on(); ++second)
        run_for(1000);
    run_for(1000);
    mark();
}

void LogicTest::start_by_dialog() {
    port->silent = true;
    start_program();
    run_for(5000);
    port->silent = false;
    operator_clicks(centralina_attiva::Command_test);
    run_for(3000);
    operator_clicks(centralina_attiva::Command_ok);
    run_for(10'000); // the dialog's reads, and the filling of the window three seconds later
    mark();
}

void LogicTest::start_during_a_poll() {
    start_connected();
    while (form1::Timer_stato_sistema.is_on())
        run_for(1);
    mark();
}

void LogicTest::start_between_polls() {
    start_connected();
    while (!form1::Timer_stato_sistema.is_on())
        run_for(1);
    mark();
}

void LogicTest::start_quietly() {
    start_connected();
    stop_polling();
    inside_program([this] { port->read_all(); });
    mark();
}

void LogicTest::open_settings() {
    start_connected();
    operator_clicks(form1::Command_impostazioni);
    run_for(1000);
    mark();
}

void LogicTest::open_changeover() {
    open_settings();
    reopen_changeover();
}

void LogicTest::reopen_changeover() {
    operator_clicks(form1::Command303);
    run_for(200);
    mark();
}

void LogicTest::close_changeover() {
    operator_clicks(form3::Command1);
    run_for(2000);
}

void LogicTest::stop_polling() {
    inside_program(monitor::stop_polling);
    run_for(1000);
}

std::int64_t LogicTest::ms_until(const std::function<bool()>& condition) {
    for (int ms = 0; ms < 60'000 && !condition(); ++ms)
        run_for(1);
    EXPECT_TRUE(condition()) << "not within a minute";
    return now_ms() - marked_ms_;
}

void LogicTest::operator_clicks(view::Widget& widget, Time then) {
    inside_program([&] { view::operator_acts::click(widget); });
    let_pass(then);
}

void LogicTest::operator_double_clicks(view::Widget& widget) {
    inside_program([&] { view::operator_acts::double_click(widget); });
}

void LogicTest::operator_drags(view::Widget& slider, double value, Time then) {
    inside_program([&slider, value] { view::operator_acts::drag_to(slider, value); });
    let_pass(then);
}

void LogicTest::operator_chooses(view::Widget& combo, int index, Time then) {
    inside_program([&combo, index] { view::operator_acts::choose(combo, index); });
    let_pass(then);
}

void LogicTest::operator_types(view::Widget& text_box, const std::string& text) {
    inside_program([&text_box, text] { view::operator_acts::type(text_box, text); });
}

void LogicTest::operator_enters(view::Widget& text_box, const std::string& text, Time then) {
    operator_clicks(text_box);
    operator_types(text_box, text);
    operator_presses(*text_box.window, view::operator_acts::enter, then);
}

void LogicTest::operator_presses(view::Widget& window, int code, int shift, Time then) {
    inside_program([&window, code, shift] { view::operator_acts::key(window, code, shift); });
    let_pass(then);
}

void LogicTest::operator_presses(view::Widget& window, int code, Time then) {
    operator_presses(window, code, 0, then);
}

void LogicTest::operator_closes(view::Widget& window, Time then) {
    inside_program([&window] { view::operator_acts::close(window); });
    let_pass(then);
}

void LogicTest::mark() {
    forget_wire();
    changes.clear();
    marked_ms_ = now_ms();
}

std::vector<Timed> LogicTest::timed() const {
    std::vector<Timed> all;
    for (const auto& sent : port->sent)
        all.push_back(At(sent.at_ms - marked_ms_, sent.frame));
    return all;
}

std::vector<Timed> LogicTest::timed_commands() const {
    std::vector<Timed> some = timed();
    std::erase_if(some, [](const Timed& timed) { return timed.frame == Send(3); });
    return some;
}

std::vector<Frame> LogicTest::frames_in(std::int64_t ms) {
    mark();
    run_for(ms);
    return frames();
}

bool LogicTest::polls_in(std::int64_t ms) { return std::ranges::count(frames_in(ms), Send(3)) > 0; }

void LogicTest::follow(std::vector<const view::Widget*> widgets) {
    screen.on_changed = [this, widgets](view::Widget& widget, view::Aspect aspect) {
        if (std::ranges::find(widgets, &widget) != widgets.end())
            changes.push_back(std::to_string(now_ms() - marked_ms_) + " " + full_name(widget) +
                              " " + state_of(widget, aspect));
    };
}

std::vector<Frame> LogicTest::frames() const {
    std::vector<Frame> all;
    for (const auto& sent : port->sent)
        all.push_back(sent.frame);
    return all;
}

std::vector<Frame> LogicTest::writes() const {
    std::vector<Frame> some;
    for (const auto& sent : port->sent)
        if (sent.bytes.size() == 9) some.push_back(sent.frame);
    return some;
}

std::vector<std::int64_t> LogicTest::gaps_between_writes() const {
    std::vector<std::int64_t> gaps;
    std::optional<std::int64_t> last;
    for (const auto& sent : port->sent) {
        if (sent.bytes.size() != 9) continue;
        if (last) gaps.push_back(sent.at_ms - *last);
        last = sent.at_ms;
    }
    return gaps;
}

void LogicTest::write_file(const std::string& name, const std::string& content) {
    std::ofstream(folder / name, std::ios::binary) << content;
}

std::string LogicTest::read_text(const std::string& name) {
    std::ifstream in(folder / name, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
}

WarmCar::WarmCar(int fuel) {
    use_unit({.warm = true});
    set_parameter(sim::par::fuel, fuel);
    set_parameter(sim::par::automatic, 0);
}

void WarmCar::change_over_to_gas() {
    unit->gas().ask_for_gas();
    run_for(3000);
    ASSERT_TRUE(app::state.on_gas);
}

std::function<link::Bytes(link::Bytes)> telegrams_with(std::size_t position, int value) {
    return [=](link::Bytes bytes) {
        if (bytes.size() < 27 || bytes[4] != 3) return bytes;
        bytes[position - 1] = static_cast<std::uint8_t>(value / 256);
        bytes[position] = static_cast<std::uint8_t>(value % 256);
        return bytes;
    };
}

} // namespace zol::tests
