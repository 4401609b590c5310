// The former name of the fixture of the logic.
#pragma once

#include "tests/support/logic_fixture.h"

namespace zol::tests {

using Bench = LogicTest;

} // namespace zol::tests
