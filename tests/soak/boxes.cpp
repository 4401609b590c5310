#include "tests/soak/boxes.h"

#include "view/timers.h"

namespace zol::soak {

void RandomAnswers::leave_up_a_while() {
    struct Up {
        explicit Up(int& up) : up_(up) { ++up_; }
        ~Up() { --up_; }
        int& up_;
    } const mark(up);
    const int longest_ms = dice_.chance(0.1) ? 60'000 : 4'000;
    const std::int64_t answered_us = view::now_us() + 1000LL * dice_.between(0, longest_ms);
    while (view::now_us() < answered_us)
        view::pump_until(answered_us);
}

view::Answer RandomAnswers::message_box(const view::MessageBox& box) {
    log_.note("  box: " + box.text);
    leave_up_a_while();
    if (box.buttons == view::Buttons::ok) return view::Answer::ok;
    const bool yes = dice_.chance(0.5);
    log_.note(yes ? "operator answers yes" : "operator answers no");
    return yes ? view::Answer::yes : view::Answer::no;
}

std::string RandomAnswers::input_box(const std::string& prompt, const std::string&) {
    static const char* const entries[] = {
        "107",  "126", "4000", "0",  "70000", "-3",  "",    "abc",
        "12.7", "1",   "3",    "52", "65535", "1e3", "  7", "99999999999999999999"};
    log_.note("  box: " + prompt);
    leave_up_a_while();
    const std::string entry = entries[dice_.next() % std::size(entries)];
    log_.note("operator enters \"" + entry + "\"");
    return entry;
}

view::Colour RandomAnswers::colour_box(view::Colour start) {
    log_.note("  box: a colour");
    leave_up_a_while();
    if (dice_.chance(0.3)) return start;
    return static_cast<view::Colour>(dice_.next() % (view::white + 1));
}

void RandomAnswers::show_manual(const std::string& file, const std::string& topic) {
    log_.note("  manual: " + topic);
    static_cast<void>(file); // its folder differs from run to run
}

} // namespace zol::soak
