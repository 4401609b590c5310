// Runs tests with the toolkit prepared as the program prepares it. Any warning of the toolkit is a
// failure of the test in which it occurs.
#pragma once

#include "view/qt/application.h"

#include <QApplication>

#include <gtest/gtest.h>

namespace zol::tests {

inline void fail_on_warning(QtMsgType type, const QMessageLogContext&, const QString& text) {
    if (type == QtDebugMsg || type == QtInfoMsg) return;
    // The offscreen platform cannot raise windows.
    if (text.startsWith("This plugin does not support")) return;
    ADD_FAILURE() << "the toolkit warns: " << text.toStdString();
}

// Call InitGoogleTest() and set QT_QPA_PLATFORM before.
inline int run_toolkit_tests(int argc, char** argv) {
    // Without a runtime folder the toolkit makes one in /tmp and warns.
    if (qEnvironmentVariableIsEmpty("XDG_RUNTIME_DIR")) qputenv("XDG_RUNTIME_DIR", "/nonexistent");
    view::qt::prepare_toolkit();
    QApplication application(argc, argv);
    view::qt::settle_look(application);
    qInstallMessageHandler(fail_on_warning);
    return RUN_ALL_TESTS();
}

} // namespace zol::tests
