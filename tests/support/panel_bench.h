// A former name of the fixture of the logic.
#pragma once

#include "tests/support/logic_fixture.h"
#include "view/windows/centralina_attiva.h"
#include "view/windows/form1.h"
#include "view/windows/form3.h"

namespace zol::tests {

using PanelBench = LogicTest;

} // namespace zol::tests
