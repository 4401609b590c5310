#include "view/qt/application.h"

#include "view/qt/accessible_roles.h"
#include "view/qt/box_texts.h"
#include "view/qt/colours.h"
#include "view/qt/face.h"
#include "view/qt/instrument_style.h"

#include <QApplication>
#include <QIcon>

// A static library's resources are linked only if the program asks for them, and the macro must be
// used outside any namespace.
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
    // Boxes have the background of the windows.
    for (const auto role : {QPalette::Window, QPalette::AlternateBase})
        palette.setColor(role, face::ground);
    palette.setColor(QPalette::Button, face::steel);
    palette.setColor(QPalette::Base, face::field_ground);
    palette.setColor(QPalette::Highlight, face::accent);
    palette.setColor(QPalette::HighlightedText, face::chosen_ink);
    palette.setColor(QPalette::Link, face::accent);
    // For what no window table describes: menus, boxes, the manual. Their other backgrounds are
    // lighter, so this contrast is the lowest.
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
    correct_accessible_roles();
    application.setApplicationName("zol-injection");
    application.setApplicationDisplayName("");
    QApplication::setWindowIcon(application_icon());
    // The desktop finds the launcher entry of a window, and with it the icon, by this name.
    QGuiApplication::setDesktopFileName("zol-injection");
}

} // namespace zol::view::qt
