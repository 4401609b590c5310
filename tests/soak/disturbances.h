// Random faults of line, port and car, each for a while.
#pragma once

#include "simulator/random.h"
#include "tests/soak/session.h"

namespace zol::soak {

class Disturbances {
  public:
    explicit Disturbances(std::uint32_t seed) : dice_(seed) {}
    // Draws new faults once the present ones are over.
    void change(Session& session);
    // Ends all faults: a clean line, a normal unit, a running engine.
    static void end(Session& session);

  private:
    void change_line(Session& session);
    void change_car(Session& session);

    sim::Random dice_;
    std::int64_t line_until_us_ = 0;
    std::int64_t car_until_us_ = 0;
};

// A unit of random family, version and state.
sim::Options some_unit(std::uint32_t seed);

} // namespace zol::soak
