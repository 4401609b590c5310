// A screen with nobody in front of it. It shows nothing, records what it was asked for, and demands
// a scripted answer for every box: an unexpected question and an unused answer are both complaints.
#pragma once

#include "view/screen.h"

#include <deque>
#include <functional>

namespace zol::view {

class HeadlessScreen : public Screen {
  public:
    // The next box must hold `text` (a part is enough) and is answered so, `after_ms` later.
    void answer_message(std::string text, Answer answer, int after_ms = 0);
    void answer_input(std::string prompt, std::string entry, int after_ms = 0);
    void answer_colour(Colour colour, int after_ms = 0);

    // Unexpected questions so far, and answers that nobody asked for.
    std::vector<std::string> complaints() const;

    std::vector<MessageBox> message_boxes;
    struct InputBox {
        std::string prompt, title;
    };
    std::vector<InputBox> input_boxes;
    std::vector<Colour> colour_boxes; // the colours that they opened with
    std::vector<std::string> manuals; // file and topic, joined by a blank
    ScreenSize screen{10125, 9000};
    // Called for each change, for those who follow one.
    std::function<void(Widget&, Aspect)> on_changed;
    std::uint64_t changes = 0;

    void window_loaded(Widget&) override {}
    void window_shown(Widget&, bool) override {}
    void window_unloaded(Widget&) override {}
    void changed(Widget& widget, Aspect aspect) override;
    void focus_moved(Widget&) override {}
    Answer message_box(const MessageBox& box) override;
    std::string input_box(const std::string& prompt, const std::string& title) override;
    Colour colour_box(Colour start) override;
    void show_manual(const std::string& file, const std::string& topic) override;
    ScreenSize size() override { return screen; }

  private:
    enum class Box { message, input, colour };
    struct Script {
        Box box;
        std::string text;
        Answer answer;
        std::string entry;
        Colour colour;
        int after_ms;
    };
    // The scripted answer to this box, after its time; nothing if another or none was expected.
    std::optional<Script> next_answer(Box box, const std::string& text);

    std::deque<Script> scripts_;
    std::vector<std::string> complaints_;
};

} // namespace zol::view
