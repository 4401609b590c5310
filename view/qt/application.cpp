#include "view/qt/application.h"

#include "view/qt/instrument_style.h"
#include "view/qt/mirror.h"
#include "view/qt/speech.h"
#include "view/windows/style.h"

#include <QApplication>
#include <QIcon>

// A library's resources are linked into a program only if it asks for them, outside any namespace.
static void bring_in_icon() { Q_INIT_RESOURCE(icon); }

namespace zol::view::qt {
namespace {

QIcon application_icon() {
    bring_in_icon();
    QIcon icon;
    for (const int side : {16, 24, 32, 48, 128})
        icon.addFile(QString(":/icon/%1.png").arg(side), QSize(side, side));
    return icon;
}

} // namespace

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
    correct_speech();
    application.setApplicationName("zol-injection");
    application.setApplicationDisplayName("");
    QApplication::setWindowIcon(application_icon());
    // By this name a desktop finds the entry, and with it the icon, that belongs to a window.
    QGuiApplication::setDesktopFileName("zol-injection");
}

} // namespace zol::view::qt
