#include "view/qt/application.h"

#include "view/qt/colours.h"
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
    const QColor paper = to_qcolor(windows::paper);
    palette.setColor(QPalette::Window, paper); // boxes stand on it too
    palette.setColor(QPalette::Highlight, chosen_ground);
    palette.setColor(QPalette::HighlightedText, Qt::white);
    // What no window table has: menus, boxes, the manual. Their other grounds are lighter.
    const QColor faded = faded_on(paper, Qt::black);
    palette.setColor(QPalette::PlaceholderText, faded);
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        palette.setColor(QPalette::Disabled, role, faded);
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
