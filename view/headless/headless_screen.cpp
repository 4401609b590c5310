#include "view/headless/headless_screen.h"

#include "view/timers.h"

#include <utility>

namespace zol::view {

void HeadlessScreen::answer_message(std::string text, Answer answer, int after_ms) {
    scripts_.push_back({Box::message, std::move(text), answer, "", 0, after_ms});
}

void HeadlessScreen::answer_input(std::string prompt, std::string entry, int after_ms) {
    scripts_.push_back({Box::input, std::move(prompt), Answer::ok, std::move(entry), 0, after_ms});
}

void HeadlessScreen::answer_colour(Colour colour, int after_ms) {
    scripts_.push_back({Box::colour, "", Answer::ok, "", colour, after_ms});
}

std::vector<std::string> HeadlessScreen::complaints() const {
    std::vector<std::string> all = complaints_;
    for (const Script& script : scripts_)
        all.push_back("nobody asked for the answer to: " + script.text);
    return all;
}

std::optional<HeadlessScreen::Script> HeadlessScreen::next_answer(Box box,
                                                                  const std::string& text) {
    if (scripts_.empty() || scripts_.front().box != box ||
        text.find(scripts_.front().text) == std::string::npos) {
        complaints_.push_back("unexpected question: " + text);
        return std::nullopt;
    }
    Script script = std::move(scripts_.front());
    scripts_.pop_front();
    // A box is not a wait of the program: no timer ends it, only its own time.
    const std::int64_t answered_us = now_us() + script.after_ms * std::int64_t{1000};
    while (now_us() < answered_us)
        pump_until(answered_us);
    return script;
}

void HeadlessScreen::changed(Widget& widget, Aspect aspect) {
    ++changes;
    if (on_changed) on_changed(widget, aspect);
}

Answer HeadlessScreen::message_box(const MessageBox& box) {
    message_boxes.push_back(box);
    const auto script = next_answer(Box::message, box.text);
    if (script) return script->answer;
    return box.buttons == Buttons::ok ? Answer::ok : Answer::no;
}

std::string HeadlessScreen::input_box(const std::string& prompt, const std::string& title) {
    input_boxes.push_back({prompt, title});
    const auto script = next_answer(Box::input, prompt);
    return script ? script->entry : "";
}

Colour HeadlessScreen::colour_box(Colour start) {
    colour_boxes.push_back(start);
    const auto script = next_answer(Box::colour, "the colour box");
    return script ? script->colour : start;
}

void HeadlessScreen::show_manual(const std::string& file, const std::string& topic) {
    manuals.push_back(file + " " + topic);
}

} // namespace zol::view
