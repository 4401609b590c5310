// What the line and the car do meanwhile: anything, in spells; and how it is all made good again.
#pragma once

#include "simulator/random.h"
#include "tests/soak/desk.h"

namespace zol::soak {

class Weather {
  public:
    explicit Weather(std::uint32_t seed) : dice_(seed) {}
    // Changes line, port or car once their spells are over.
    void blow(Desk& desk);
    // A clean line, a unit that behaves, a car that drives.
    static void calm(Desk& desk);

  private:
    void change_line(Desk& desk);
    void change_car(Desk& desk);

    sim::Random dice_;
    std::int64_t line_until_us_ = 0;
    std::int64_t car_until_us_ = 0;
};

// A unit of any family, version and age.
sim::Options some_unit(std::uint32_t seed);

} // namespace zol::soak
