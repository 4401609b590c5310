// The tests of the real windows, on a screen that nobody sees. Any warning of the toolkit fails the
// test that it comes in.
#include "view/qt/application.h"

#include <QApplication>

#include <gtest/gtest.h>

#include <cstdlib>

namespace {

void complain(QtMsgType type, const QMessageLogContext&, const QString& text) {
    if (type == QtDebugMsg || type == QtInfoMsg) return;
    // A screen that nobody sees has nothing to raise; that is not the program's fault.
    if (text.startsWith("This plugin does not support")) return;
    ADD_FAILURE() << "the toolkit complains: " << text.toStdString();
}

} // namespace

int main(int argc, char** argv) {
    testing::InitGoogleTest(&argc, argv);
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    setenv("QT_QPA_PLATFORM", "offscreen", 1);
    // Without a folder of its own the toolkit takes one in /tmp, and says so.
    setenv("XDG_RUNTIME_DIR", "/nonexistent", 0);
    zol::view::qt::prepare_toolkit();
    QApplication application(argc, argv);
    zol::view::qt::settle_look(application);
    qInstallMessageHandler(complain);
    return RUN_ALL_TESTS();
}
