#include "simulator/control_unit.h"
#include <gtest/gtest.h>
TEST(Line, A) { sim::ControlUnit u({}); }
