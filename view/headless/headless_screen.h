// A screen for tests without a display. It shows nothing, records boxes and manual calls, counts
// changes of widgets, and answers boxes from a script: every box needs a scripted answer. An
// unexpected box is treated as closed by its title bar. It and an unused answer are complaints.
#pragma once

#include "view/screen.h"

#include <deque>
#include <functional>

namespace zol::view {

class HeadlessScreen : public Screen {
  public:
    // Scripts the answer to the next box, whose text must contain `text` or `prompt`. The answer is
    // given `after_ms` after the box was opened. Boxes are answered in the order of these calls.
    void answer_message(std::string text, Answer answer, int after_ms = 0);
    void answer_input(std::string prompt, std::string entry, int after_ms = 0);
    void answer_colour(Colour colour, int after_ms = 0);

    // Boxes so far that had no scripted answer, and scripted answers that were not used.
    std::vector<std::string> complaints() const;

    std::vector<MessageBox> message_boxes;
    struct InputBox {
        std::string prompt, title;
    };
    std::vector<InputBox> input_boxes;
    std::vector<Colour> colour_boxes; // the colours that they opened with
    std::vector<std::string> manuals; // file and topic of each call, with a blank between them
    ScreenSize screen{10125, 9000};   // twips; the size for which the windows were designed
    // Called for each change of a widget, if set.
    std::function<void(Widget&, Aspect)> on_changed;
    std::uint64_t changes = 0; // of all widgets so far

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
    // Waits and returns the scripted answer to this box. Nothing, and a complaint, if another box
    // or none was expected.
    std::optional<Script> next_answer(Box box, const std::string& text);

    std::deque<Script> scripts_;
    std::vector<std::string> complaints_;
};

} // namespace zol::view
