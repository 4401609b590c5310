#include "view/qt/application.h"

#include "view/qt/box_texts.h"
#include "view/qt/colours.h"
#include "view/qt/face.h"
#include "view/qt/instrument_style.h"
#include "view/qt/speech.h"

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
    QApplication::setFont(face::font());
    QPalette palette = style->standardPalette();
    // Boxes stand on the ground of the windows.
    for (const auto role : {QPalette::Window, QPalette::AlternateBase})
        palette.setColor(role, face::ground);
    palette.setColor(QPalette::Button, face::steel);
    palette.setColor(QPalette::Base, face::field_ground);
    palette.setColor(QPalette::Highlight, face::accent);
    palette.setColor(QPalette::HighlightedText, face::chosen_ink);
    palette.setColor(QPalette::Link, face::accent);
    // What no window table has: menus, boxes, the manual. Their other grounds are lighter.
    const QColor faded = faded_on(face::ground, face::ink);
    palette.setColor(QPalette::PlaceholderText, faded);
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) {
        palette.setColor(role, face::ink);
        palette.setColor(QPalette::Disabled, role, faded);
    }
    palette.setColor(QPalette::Disabled, QPalette::ButtonText, faded_on(face::steel, face::ink));
    QApplication::setPalette(palette);
    QApplication::setQuitOnLastWindowClosed(false);
    QCoreApplication::installTranslator(new BoxTexts(&application));
    correct_speech();
    application.setApplicationName("zol-injection");
    application.setApplicationDisplayName("");
    QApplication::setWindowIcon(application_icon());
    // By this name a desktop finds the entry, and with it the icon, that belongs to a window.
    QGuiApplication::setDesktopFileName("zol-injection");
}

} // namespace zol::view::qt
