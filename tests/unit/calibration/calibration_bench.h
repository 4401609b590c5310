// A former name of the fixture of a warm car.
#pragma once

#include "tests/support/logic_fixture.h"
#include "view/windows/form1.h"

namespace zol::tests {

using CalibrationBench = WarmCar;

} // namespace zol::tests
