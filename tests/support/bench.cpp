#include "tests/support/bench.h"

#include "app/application_folder.h"
#include "app/program/startup.h"
#include "app/program/wiring.h"
#include "tests/support/program_state.h"
#include "view/timers.h"
#include "view/windows/form1.h"

#include <fstream>
#include <iterator>
#include <ostream>
#include <sstream>
#include <unistd.h>

namespace zol::tests {
namespace {

std::filesystem::path fresh_folder() {
    static int count = 0;
    const auto folder = std::filesystem::temp_directory_path() /
                        ("zol_bench_" + std::to_string(::getpid()) + "_" + std::to_string(++count));
    std::filesystem::remove_all(folder); // a killed process of that number may have left one
    std::filesystem::create_directories(folder / "log");
    std::filesystem::create_directories(folder / "ports");
    std::filesystem::create_directory_symlink(std::filesystem::path(ZOL_SOURCE_DIR) / "language",
                                              folder / "language");
    return folder;
}

Frame frame_of(std::span<const std::uint8_t> bytes) {
    Frame frame;
    if (bytes.size() >= 5) frame.command = bytes[4];
    if (bytes.size() == 9) {
        frame.number = bytes[5] * 256 + bytes[6];
        frame.value = bytes[7] * 256 + bytes[8];
    }
    return frame;
}

} // namespace

Frame Write(int number, int value) { return {2, number, value}; }
Frame Send(int command) { return {command, 0, 0}; }

std::ostream& operator<<(std::ostream& out, const Frame& frame) {
    if (frame.command == 2) return out << "Write(" << frame.number << ", " << frame.value << ")";
    return out << "Send(" << frame.command << ")";
}

std::optional<std::string> SimulatedPort::open() {
    if (open_error) return open_error;
    if (open_) return "the port is open already";
    unit_.take(time_.now_us()); // a closed port has heard nothing
    open_ = true;
    ++opened;
    return std::nullopt;
}

void SimulatedPort::close() {
    if (open_) ++closed;
    open_ = false;
    unit_.take(time_.now_us()); // what waited in the port is lost with it
}

bool SimulatedPort::write(std::span<const std::uint8_t> bytes) {
    if (!open_ || unplugged) return false;
    last_sent = frame_of(bytes);
    sent.push_back({time_.now_us() / 1000, last_sent, {bytes.begin(), bytes.end()}});
    if (!silent) unit_.receive(bytes, time_.now_us());
    return true;
}

std::optional<link::Bytes> SimulatedPort::read_all() {
    if (!open_ || unplugged) return std::nullopt;
    link::Bytes bytes = unit_.take(time_.now_us());
    if (silent) bytes.clear();
    return alter ? alter(std::move(bytes)) : bytes;
}

Bench::Bench(const sim::Options& unit_options) : folder(fresh_folder()) {
    reset_program_state();
    app::use_application_folder(folder);
    view::use_platform(time);
    view::use_screen(screen);
    app::connect_handlers();
    use_unit(unit_options);
    write_file("setting.ini", "[General]\nLANGUAGE=uk\n");
}

Bench::~Bench() {
    time.finish();
    EXPECT_THAT(screen.complaints(), testing::IsEmpty());
    std::error_code error;
    std::filesystem::remove_all(folder, error);
}

void Bench::use_unit(const sim::Options& options) {
    unit = std::make_unique<sim::ControlUnit>(options);
    port = std::make_unique<SimulatedPort>(*unit, time);
    link::use_serial_port(*port);
}

void Bench::start_program() {
    time.start([] {
        app::sub_main();
        for (;;)
            view::pump();
    });
}

void Bench::start_connected() {
    start_program();
    for (int second = 0; second < 20 && !form1::Timer_stato_sistema.is_on(); ++second)
        run_for(1000);
    run_for(1000);
    forget_wire();
}

void Bench::operator_clicks(view::Widget& widget) {
    inside_program([&] { view::operator_acts::click(widget); });
}

void Bench::operator_double_clicks(view::Widget& widget) {
    inside_program([&] { view::operator_acts::double_click(widget); });
}

void Bench::operator_drags(view::Widget& slider, double value) {
    inside_program([&slider, value] { view::operator_acts::drag_to(slider, value); });
}

void Bench::operator_chooses(view::Widget& combo, int index) {
    inside_program([&combo, index] { view::operator_acts::choose(combo, index); });
}

void Bench::operator_types(view::Widget& text_box, const std::string& text) {
    inside_program([&text_box, text] { view::operator_acts::type(text_box, text); });
}

void Bench::operator_enters(view::Widget& text_box, const std::string& text) {
    operator_clicks(text_box);
    operator_types(text_box, text);
    operator_presses(*text_box.window, view::operator_acts::enter);
}

void Bench::operator_presses(view::Widget& window, int code, int shift) {
    inside_program([&window, code, shift] { view::operator_acts::key(window, code, shift); });
}

void Bench::operator_closes(view::Widget& window) {
    inside_program([&window] { view::operator_acts::close(window); });
}

std::vector<Frame> Bench::frames() const {
    std::vector<Frame> all;
    for (const auto& sent : port->sent)
        all.push_back(sent.frame);
    return all;
}

std::vector<Frame> Bench::writes() const {
    std::vector<Frame> some;
    for (const auto& sent : port->sent)
        if (sent.bytes.size() == 9) some.push_back(sent.frame);
    return some;
}

std::vector<std::int64_t> Bench::gaps_between_writes() const {
    std::vector<std::int64_t> gaps;
    std::optional<std::int64_t> last;
    for (const auto& sent : port->sent) {
        if (sent.bytes.size() != 9) continue;
        if (last) gaps.push_back(sent.at_ms - *last);
        last = sent.at_ms;
    }
    return gaps;
}

void Bench::write_file(const std::string& name, const std::string& content) {
    std::ofstream(folder / name, std::ios::binary) << content;
}

std::string Bench::read_text(const std::string& name) {
    std::ifstream in(folder / name, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
}

} // namespace zol::tests
