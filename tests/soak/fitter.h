// An operator who does anything that the screen lets him do, in any order and at any moment.
#pragma once

#include "simulator/random.h"
#include "tests/soak/desk.h"

namespace zol::soak {

class Fitter {
  public:
    explicit Fitter(std::uint32_t seed) : dice_(seed) {}
    // One act, or a few that belong together, with pauses between them. Nothing if a box is up or
    // no window answers.
    void act(Desk& desk);
    std::uint64_t acts() const { return acts_; }

  private:
    void use(Desk& desk, view::Widget& widget);
    void use_slider(Desk& desk, view::Widget& slider);
    void use_field(Desk& desk, view::Widget& field);
    void press_key(Desk& desk);
    void move_focus(Desk& desk);
    void close_window(Desk& desk);
    void pause(Desk& desk, int longest_ms);
    view::Widget* some_widget();
    std::string some_text();
    // `work` may still run when this is back: it holds what it needs by value.
    void do_it(Desk& desk, const std::string& what, std::function<void()> work);

    sim::Random dice_;
    std::uint64_t acts_ = 0;
};

} // namespace zol::soak
