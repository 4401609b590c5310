#include "view/qt/application.h"

#include "view/qt/instrument_style.h"
#include "view/qt/mirror.h"
#include "view/windows/style.h"

#include <QApplication>

namespace zol::view::qt {

void prepare_toolkit() {
    QCoreApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
    QCoreApplication::setAttribute(Qt::AA_DontUseNativeMenuBar);
    QGuiApplication::setHighDpiScaleFactorRoundingPolicy(
        Qt::HighDpiScaleFactorRoundingPolicy::PassThrough);
}

void settle_look(QApplication& application) {
    auto* style = new InstrumentStyle;
    QApplication::setStyle(style);
    QPalette palette = style->standardPalette();
    palette.setColor(QPalette::Window, to_qcolor(windows::paper)); // boxes stand on it too
    QApplication::setPalette(palette);
    QApplication::setQuitOnLastWindowClosed(false);
    application.setApplicationName("zol-injection");
    application.setApplicationDisplayName("");
}

} // namespace zol::view::qt
