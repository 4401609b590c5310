// Runs the tests of the real windows on the toolkit's offscreen platform.
#include "tests/windows/toolkit_tests.h"

int main(int argc, char** argv) {
    testing::InitGoogleTest(&argc, argv);
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    qputenv("QT_QPA_PLATFORM", "offscreen");
    return zol::tests::run_toolkit_tests(argc, argv);
}
