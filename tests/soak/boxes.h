// A screen whose boxes get random answers: at once or late, Yes or No, with any text.
#pragma once

#include "simulator/random.h"
#include "tests/soak/log.h"
#include "view/headless/headless_screen.h"

namespace zol::soak {

class RandomAnswers final : public view::HeadlessScreen {
  public:
    RandomAnswers(Log& log, std::uint32_t seed) : log_(log), dice_(seed) {}

    // Open boxes. While there is one, the operator can do nothing else.
    int up = 0;

    view::Answer message_box(const view::MessageBox& box) override;
    std::string input_box(const std::string& prompt, const std::string& title) override;
    view::Colour colour_box(view::Colour start) override;
    void show_manual(const std::string& file, const std::string& topic) override;

  private:
    void leave_up_a_while();

    Log& log_;
    sim::Random dice_;
};

} // namespace zol::soak
