#include "view/qt/application.h"

#include <QApplication>
#include <QStyle>
#include <QStyleFactory>

namespace zol::view::qt {

void prepare_toolkit() {
    QCoreApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
    QCoreApplication::setAttribute(Qt::AA_DontUseNativeMenuBar);
    QGuiApplication::setHighDpiScaleFactorRoundingPolicy(
        Qt::HighDpiScaleFactorRoundingPolicy::PassThrough);
}

void settle_look(QApplication& application) {
    QStyle* style = QStyleFactory::create("Fusion");
    QApplication::setStyle(style);
    QApplication::setPalette(style->standardPalette());
    QApplication::setQuitOnLastWindowClosed(false);
    application.setApplicationName("zol-injection");
    application.setApplicationDisplayName("");
}

} // namespace zol::view::qt
