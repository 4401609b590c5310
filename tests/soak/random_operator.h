// Does anything that the windows allow, in random order and at random times.
#pragma once

#include "simulator/random.h"
#include "tests/soak/session.h"

namespace zol::soak {

class RandomOperator {
  public:
    explicit RandomOperator(std::uint32_t seed) : dice_(seed) {}
    // One act, or a few that belong together, with pauses. Nothing while a box is open or no window
    // is enabled.
    void act(Session& session);
    std::uint64_t acts() const { return acts_; }

  private:
    void use(Session& session, view::Widget& widget);
    void use_slider(Session& session, view::Widget& slider);
    void use_field(Session& session, view::Widget& field);
    void press_key(Session& session);
    void move_focus(Session& session);
    void close_window(Session& session);
    void pause(Session& session, int longest_ms);
    view::Widget* some_widget();
    std::string some_text();
    // `work` may run after this returns, so it must capture by value.
    void act_once(Session& session, const std::string& what, std::function<void()> work);

    sim::Random dice_;
    std::uint64_t acts_ = 0;
};

} // namespace zol::soak
