// Any warning of the toolkit fails the test that it comes in.
#pragma once

#include <QString>
#include <QtGlobal>

#include <gtest/gtest.h>

namespace zol::tests {

inline void complain(QtMsgType type, const QMessageLogContext&, const QString& text) {
    if (type == QtDebugMsg || type == QtInfoMsg) return;
    // A screen that nobody sees has nothing to raise; that is not the program's fault.
    if (text.startsWith("This plugin does not support")) return;
    ADD_FAILURE() << "the toolkit complains: " << text.toStdString();
}

} // namespace zol::tests
