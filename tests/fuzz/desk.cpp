#include "tests/fuzz/desk.h"

#include "app/application_folder.h"
#include "app/program/wiring.h"
#include "tests/support/program_state.h"
#include "view/view.h"
#include "view/windows/form1.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <cstdlib>
#include <fcntl.h>
#include <filesystem>
#include <unistd.h>

namespace zol::fuzz {
namespace {

std::string fresh_folder() {
    namespace fs = std::filesystem;
    std::error_code error;
    const fs::path memory = "/dev/shm";
    const fs::path ground =
        ::access(memory.c_str(), W_OK) == 0 ? memory : fs::temp_directory_path();
    const fs::path folder = ground / ("zol_fuzz_" + std::to_string(::getpid()));
    fs::create_directories(folder / "language");
    fs::create_directories(folder / "log");
    return folder.string();
}

// The commands that the tool knows, in the 5-byte frame; 2 stands in the 9-byte one alone.
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

void require(bool holds, const char* sentence) {
    if (holds) return;
    std::fprintf(stderr, "This does not hold: %s\n", sentence);
    std::abort();
}

Desk& Desk::desk() {
    static Desk the_desk;
    return the_desk;
}

Desk::Desk() : folder_(fresh_folder()) {
    stand_up();
    clear();
}

Desk::~Desk() {
    std::error_code error;
    std::filesystem::remove_all(folder_, error);
}

// All windows at their design, and on view.
void Desk::stand_up() {
    view::reset();
    for (view::Widget* window : view::all_windows())
        window->loaded = window->shown = true;
    windows_moved_ = false;
}

// There are some four hundred widgets, and a run changes few of them.
void Desk::clear() {
    for (view::Widget* widget : changed_)
        widget->look = widget->design;
    changed_.clear();
    if (windows_moved_) stand_up();
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

void Desk::run(const std::function<void()>& work) {
    try {
        work();
    } catch (const Enough&) {}
    std::sort(changed_.begin(), changed_.end());
    changed_.erase(std::unique(changed_.begin(), changed_.end()), changed_.end());
    check_looks();
    clear();
}

void Desk::check_looks() {
    for (const view::Widget* widget : changed_) {
        const view::Look& look = widget->look;
        if (widget->kind == view::Kind::slider)
            require(look.value >= look.min && look.value <= look.max,
                    "a slider stands within its range");
        require(look.list_index >= -1 && look.list_index < static_cast<int>(look.items.size()),
                "a list shows one of its entries, or none");
    }
}

void Desk::write_file(const char* name, std::string_view content) const {
    const std::string file = folder_ + "/" + name;
    const int descriptor = ::open(file.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0644);
    const ssize_t written = ::write(descriptor, content.data(), content.size());
    ::close(descriptor);
    require(written == static_cast<ssize_t>(content.size()), "the desk can write its files");
}

void Desk::idle(std::int64_t until_us) {
    if (++turns_ > most_turns || until_us - heard_us_ > longest_silence_us) throw Enough{};
    now_us_ = std::max(now_us_, until_us);
}

view::Answer Desk::message_box(const view::MessageBox& box) {
    if (box.buttons == view::Buttons::ok) return view::Answer::ok;
    return says_yes ? view::Answer::yes : view::Answer::no;
}

std::string Desk::input_box(const std::string&, const std::string&) {
    if (entries.empty()) return "";
    std::string typed = std::move(entries.front());
    entries.pop_front();
    return typed;
}

void Desk::set_number(int port_number) {
    require(port_number >= 0 && port_number <= 9, "a port's number is one of those on offer");
}

std::optional<std::string> Desk::open() {
    if (port_faults) return "the port is out of order";
    port_open = true;
    return std::nullopt;
}

bool Desk::write(std::span<const std::uint8_t> bytes) {
    require(known_shape(bytes), "only frames of known shape leave");
    heard_us_ = now_us_;
    return port_open && !port_faults;
}

std::optional<link::Bytes> Desk::read_all() {
    if (replies.empty()) throw Enough{};
    heard_us_ = now_us_;
    link::Bytes reply = std::move(replies.front());
    replies.pop_front();
    if (!port_open || port_faults) return std::nullopt;
    return reply;
}

} // namespace zol::fuzz
