#include "view/qt/colours.h"

#include "view/qt/face.h"

#include <QApplication>
#include <QPalette>
#include <QWidget>

#include <algorithm>
#include <array>
#include <cmath>
#include <map>
#include <tuple>

namespace zol::view::qt {
namespace {

constexpr std::array grounds{QPalette::Window, QPalette::Base, QPalette::Button};
constexpr std::array inks{QPalette::WindowText, QPalette::Text, QPalette::ButtonText};

struct Roles {
    QPalette::ColorRole ground, ink;
};

Roles roles_of(Kind kind) {
    switch (kind) {
    case Kind::command_button:
    case Kind::combo_box: return {QPalette::Button, QPalette::ButtonText};
    case Kind::text_box: return {QPalette::Base, QPalette::Text};
    default: return {QPalette::Window, QPalette::WindowText};
    }
}

// Children inherit the palette of a container, so a container sets only its own background and
// title. A label without a background of its own inherits, and shows, that of its parent.
QPalette make_palette(Kind kind, Colour back, Colour fore) {
    const QPalette standard = QApplication::palette();
    const Roles own = roles_of(kind);
    const bool container = kind == Kind::window || kind == Kind::frame;
    QPalette palette;
    palette.setResolveMask(0);
    const QColor ground =
        back == system_colour ? standard.color(QPalette::Active, own.ground) : to_qcolor(back);
    const QColor ink =
        fore == system_colour ? standard.color(QPalette::Active, own.ink) : to_qcolor(fore);
    for (auto role : grounds)
        if (back != system_colour && (!container || role == own.ground))
            palette.setColor(role, ground);
    for (auto role : inks) {
        if (container && role != own.ink) continue;
        palette.setColor(role, ink);
        palette.setColor(QPalette::Disabled, role, faded_on(ground, ink));
    }
    return palette;
}

// Cached for each combination, because lamps change their colour hundreds of times a second.
const QPalette& palette_of(Kind kind, Colour back, Colour fore) {
    static std::map<std::tuple<Kind, Colour, Colour>, QPalette> palettes;
    constexpr std::size_t plenty = 500; // the operator may try any text colour
    if (palettes.size() > plenty) palettes.clear();
    const auto key = std::tuple(kind, back, fore);
    const auto it = palettes.find(key);
    if (it != palettes.end()) return it->second;
    return palettes.emplace(key, make_palette(kind, back, fore)).first->second;
}

double luminance(const QColor& colour) {
    const auto linear = [](double share) {
        return share <= 0.04045 ? share / 12.92 : std::pow((share + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF()) +
           0.0722 * linear(colour.blueF());
}

constexpr double least_faded_contrast = 4.6;

bool fills_its_ground(const Widget& model) {
    switch (model.kind) {
    case Kind::option_button:
    case Kind::check_box:
    case Kind::frame:
    case Kind::slider: return model.look.back != system_colour;
    case Kind::window: return true;
    default: return false; // the control draws it itself, if it has one
    }
}

} // namespace

void mirror_colours(const Widget& model, QWidget& face) {
    const Roles roles = roles_of(model.kind);
    // Setting a role repaints even if it is the same role.
    if (face.backgroundRole() != roles.ground) face.setBackgroundRole(roles.ground);
    if (face.foregroundRole() != roles.ink) face.setForegroundRole(roles.ink);
    face.setAutoFillBackground(fills_its_ground(model));
    face.setPalette(palette_of(model.kind, model.look.back, model.look.fore));
}

double contrast(const QColor& one, const QColor& other) {
    const double a = luminance(one) + 0.05, b = luminance(other) + 0.05;
    return std::max(a, b) / std::min(a, b);
}

double faded_share(const QColor& ground, const QColor& ink) {
    const QColor whole = legible_on(ground, ink);
    for (double share = 0.5; share > 0; share -= 0.05)
        if (contrast(ground, face::mixed(whole, ground, share)) >= least_faded_contrast)
            return share;
    return 0;
}

QColor faded_on(const QColor& ground, const QColor& ink) {
    const QColor whole = legible_on(ground, ink);
    const QColor faded = face::mixed(whole, ground, faded_share(ground, ink));
    if (contrast(ground, faded) >= least_faded_contrast) return faded;
    return contrast(ground, Qt::black) > contrast(ground, Qt::white) ? Qt::black : Qt::white;
}

QColor legible_on(const QColor& ground, const QColor& ink) {
    constexpr double least_contrast = 2;
    if (contrast(ground, ink) >= least_contrast) return ink;
    return contrast(ground, Qt::black) > contrast(ground, Qt::white) ? Qt::black : Qt::white;
}

QColor to_qcolor(Colour colour) {
    return QColor(colour & 0xff, (colour >> 8) & 0xff, (colour >> 16) & 0xff);
}

Colour to_colour(const QColor& colour) { return rgb(colour.red(), colour.green(), colour.blue()); }

} // namespace zol::view::qt
