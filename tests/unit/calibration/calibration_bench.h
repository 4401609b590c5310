// A former name of the fixture of a warm car.
#pragma once

#include "tests/support/logic_fixture.h"
#include "view/windows/form1.h"

namespace zol::tests {

class CalibrationBench : public WarmCar {
  protected:
    void go_on_gas() { change_over_to_gas(); }
};

} // namespace zol::tests
