// Any warning of the toolkit fails the test that is running.
#pragma once

#include <QString>
#include <QtGlobal>

#include <gtest/gtest.h>

namespace zol::tests {

inline void complain(QtMsgType type, const QMessageLogContext&, const QString& text) {
    if (type == QtDebugMsg || type == QtInfoMsg) return;
    // The offscreen screen cannot raise windows.
    if (text.startsWith("This plugin does not support")) return;
    ADD_FAILURE() << "warning of the toolkit: " << text.toStdString();
}

} // namespace zol::tests
