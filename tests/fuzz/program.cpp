#include "tests/fuzz/program.h"

#include "app/application_folder.h"
#include "app/program/wiring.h"
#include "tests/support/program_state.h"
#include "view/view.h"
#include "view/windows/form1.h"

#include <algorithm>
#include <array>
#include <fcntl.h>
#include <filesystem>
#include <unistd.h>

namespace zol::fuzz {
namespace {

std::string new_folder() {
    namespace fs = std::filesystem;
    std::error_code error;
    const fs::path memory = "/dev/shm";
    const fs::path parent =
        ::access(memory.c_str(), W_OK) == 0 ? memory : fs::temp_directory_path();
    const fs::path folder = parent / ("zol_fuzz_" + std::to_string(::getpid()));
    fs::create_directories(folder / "language");
    fs::create_directories(folder / "log");
    return folder.string();
}

// The commands of 5-byte frames. Command 2 has a 9-byte frame.
constexpr std::array known_commands = {1, 3, 4, 5, 6, 7, 15, 16, 20, 21, 22};

bool known_shape(std::span<const std::uint8_t> frame) {
    if (frame.size() != 5 && frame.size() != 9) return false;
    if (frame[0] != 'P' || frame[1] != 'C' || frame[2] != 0 || frame[3] != frame.size())
        return false;
    if (frame.size() == 9) return frame[4] == 2;
    return std::find(known_commands.begin(), known_commands.end(), frame[4]) !=
           known_commands.end();
}

} // namespace

Program& Program::instance() {
    static Program the_program;
    return the_program;
}

Program::Program() : folder_(new_folder()) {
    reset_windows();
    clear();
}

Program::~Program() {
    std::error_code error;
    std::filesystem::remove_all(folder_, error);
}

// All windows as designed, and shown.
void Program::reset_windows() {
    view::reset();
    for (view::Widget* window : view::all_windows())
        window->loaded = window->shown = true;
    windows_moved_ = false;
}

// A run changes few of the four hundred widgets.
void Program::clear() {
    for (view::Widget* widget : changed_)
        widget->look = widget->design;
    changed_.clear();
    if (windows_moved_) reset_windows();
    tests::reset_all_but_widgets();
    app::use_application_folder(folder_);
    view::use_platform(*this);
    view::use_screen(*this);
    link::use_serial_port(*this);
    app::connect_handlers();
    now_us_ = heard_us_ = 0;
    turns_ = 0;
    replies.clear();
    entries.clear();
    says_yes = port_open = true;
    port_faults = false;
}

void Program::run(const std::function<void()>& work) {
    try {
        work();
    } catch (const Enough&) {}
    std::sort(changed_.begin(), changed_.end());
    changed_.erase(std::unique(changed_.begin(), changed_.end()), changed_.end());
    check_looks();
    clear();
}

void Program::check_looks() {
    for (const view::Widget* widget : changed_) {
        const view::Look& look = widget->look;
        if (widget->kind == view::Kind::slider)
            require(look.value >= look.min && look.value <= look.max,
                    "a slider's value is in its range");
        require(look.list_index >= -1 && look.list_index < static_cast<int>(look.items.size()),
                "a list selects one of its entries, or none");
    }
}

void Program::write_file(const char* name, std::string_view content) const {
    const std::string file = folder_ + "/" + name;
    const int descriptor = ::open(file.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0644);
    const ssize_t written = ::write(descriptor, content.data(), content.size());
    ::close(descriptor);
    require(written == static_cast<ssize_t>(content.size()), "the fuzzer can write its files");
}

void Program::idle(std::int64_t until_us) {
    if (++turns_ > most_turns || until_us - heard_us_ > longest_silence_us) throw Enough{};
    now_us_ = std::max(now_us_, until_us);
}

view::Answer Program::message_box(const view::MessageBox& box) {
    if (box.buttons == view::Buttons::ok) return view::Answer::ok;
    return says_yes ? view::Answer::yes : view::Answer::no;
}

std::string Program::input_box(const std::string&, const std::string&) {
    if (entries.empty()) return "";
    std::string typed = std::move(entries.front());
    entries.pop_front();
    return typed;
}

void Program::set_number(int port_number) {
    require(port_number >= 0 && port_number <= 9, "a port number is one of the list's");
}

std::optional<std::string> Program::open() {
    if (port_faults) return "the port fails";
    port_open = true;
    return std::nullopt;
}

bool Program::write(std::span<const std::uint8_t> bytes) {
    require(known_shape(bytes), "only frames of a known form are sent");
    heard_us_ = now_us_;
    return port_open && !port_faults;
}

std::optional<link::Bytes> Program::read_all() {
    if (replies.empty()) throw Enough{};
    heard_us_ = now_us_;
    link::Bytes reply = std::move(replies.front());
    replies.pop_front();
    if (!port_open || port_faults) return std::nullopt;
    return reply;
}

} // namespace zol::fuzz
