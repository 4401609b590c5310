// The tests of the real windows, on a screen that nobody sees.
#include "tests/support/toolkit_complaints.h"
#include "view/qt/application.h"

#include <QApplication>

#include <gtest/gtest.h>

#include <cstdlib>

int main(int argc, char** argv) {
    testing::InitGoogleTest(&argc, argv);
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    setenv("QT_QPA_PLATFORM", "offscreen", 1);
    // Without a folder of its own the toolkit takes one in /tmp, and says so.
    setenv("XDG_RUNTIME_DIR", "/nonexistent", 0);
    zol::view::qt::prepare_toolkit();
    QApplication application(argc, argv);
    zol::view::qt::settle_look(application);
    qInstallMessageHandler(zol::tests::complain);
    return RUN_ALL_TESTS();
}
