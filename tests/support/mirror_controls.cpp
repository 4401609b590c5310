// The mirror check of controls: what each kind must show.
#include "tests/support/mirror_differences.h"

#include <QAbstractButton>
#include <QApplication>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QProgressBar>
#include <QSlider>

namespace zol::tests {
namespace {

using view::Colour;
using view::Kind;
using view::Pointer;
using view::Widget;

const char* class_of(const Widget& control, const QWidget& face) {
    switch (control.kind) {
    case Kind::label: return "QLabel";
    case Kind::command_button: return "QPushButton";
    case Kind::option_button: return "QRadioButton";
    case Kind::check_box: return "QCheckBox";
    case Kind::combo_box: return "QComboBox";
    case Kind::text_box: return face.inherits("QLineEdit") ? "QLineEdit" : "QPlainTextEdit";
    case Kind::frame: return "QGroupBox";
    case Kind::slider: return "QSlider";
    case Kind::progress_bar: return "QProgressBar";
    default: return "QWidget";
    }
}

// The palette roles with which the toolkit draws this kind.
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

QColor qcolor(Colour colour) { return QColor(colour % 256, colour / 256 % 256, colour / 65536); }

// A control without a background colour shows its parent's. Kinds with their own background role
// have the toolkit's colour.
QColor ground_of(const Widget& widget, const QWidget& face) {
    if (widget.look.back != view::system_colour) return qcolor(widget.look.back);
    const auto role = roles_of(widget.kind).ground;
    if (role == QPalette::Window && widget.parent) return ground_of(*widget.parent, face);
    return QApplication::palette().color(QPalette::Active, role);
}

// The background of these kinds is visible only if the toolkit fills it. A label fills its own.
bool is_filled(const Widget& widget, const QWidget& face) {
    switch (widget.kind) {
    case Kind::option_button:
    case Kind::check_box:
    case Kind::frame:
    case Kind::slider: return widget.look.back == view::system_colour || face.autoFillBackground();
    default: return true;
    }
}

Qt::CursorShape shape_of(const Widget& widget) {
    switch (widget.look.pointer) {
    case Pointer::hourglass: return Qt::WaitCursor;
    case Pointer::custom: return Qt::PointingHandCursor;
    case Pointer::normal: break;
    }
    if (widget.kind == Kind::text_box) return Qt::IBeamCursor;
    return widget.parent ? shape_of(*widget.parent) : Qt::ArrowCursor;
}

void compare_text(const Widget& control, const QWidget& face, Differences& found) {
    const QString text = QString::fromStdString(control.look.text);
    const auto compare = [&](QString on_screen) {
        found.compare(control, "text", on_screen, text);
    };
    switch (control.kind) {
    case Kind::label: {
        const auto& label = static_cast<const QLabel&>(face);
        compare(label.text());
        found.compare(control, "plain text", label.textFormat() == Qt::PlainText, true);
        break;
    }
    case Kind::command_button:
    case Kind::option_button:
    case Kind::check_box:
        compare(static_cast<const QAbstractButton&>(face).text().replace("&&", "&"));
        break;
    case Kind::frame:
        compare(static_cast<const QGroupBox&>(face).title().replace("&&", "&"));
        break;
    case Kind::text_box:
        if (const auto* line = qobject_cast<const QLineEdit*>(&face))
            compare(line->text());
        else
            compare(static_cast<const QPlainTextEdit&>(face).toPlainText());
        found.compare(control, "edit marker", face.property("edit_marker").toBool(),
                      control.look.edit_marker);
        break;
    default: break;
    }
}

void compare_slider(const Widget& control, const QSlider& slider, Differences& found) {
    const view::Look& look = control.look;
    found.compare(control, "value", slider.value(), qRound(look.value));
    found.compare(control, "handle", slider.sliderPosition(), qRound(look.value));
    found.compare(control, "least value", slider.minimum(), qRound(look.min));
    found.compare(control, "greatest value", slider.maximum(), qRound(look.max));
    found.compare(control, "small step", slider.singleStep(), look.small_change);
    found.compare(control, "large step", slider.pageStep(), look.large_change);
    found.compare(control, "distance of ticks", slider.tickInterval(), look.tick_every);
    found.compare(control, "ticks", slider.tickPosition() != QSlider::NoTicks, look.tick_every > 0);
    found.compare(control, "upright", slider.orientation() == Qt::Vertical, look.vertical);
    found.compare(control, "marked stretch", slider.property("marked_stretch").toInt(),
                  qRound(look.selection_length));
}

void compare_list(const Widget& control, const QComboBox& list, Differences& found) {
    const view::Look& look = control.look;
    found.compare(control, "number of items", list.count(), static_cast<int>(look.items.size()));
    found.compare(control, "selected item", list.currentIndex(), look.list_index);
    const int both = std::min(list.count(), static_cast<int>(look.items.size()));
    for (int i = 0; i < both; ++i) {
        const auto at = static_cast<std::size_t>(i);
        const std::string number = std::to_string(i);
        found.compare(control, ("item " + number).c_str(), list.itemText(i),
                      QString::fromStdString(look.items[at]));
        const QString tip =
            at < look.item_tips.size() ? QString::fromStdString(look.item_tips[at]) : QString();
        found.compare(control, ("tip of item " + number).c_str(),
                      tip_as_read(list.itemData(i, Qt::ToolTipRole).toString()), tip.simplified());
    }
}

void compare_value(const Widget& control, const QWidget& face, Differences& found) {
    switch (control.kind) {
    case Kind::option_button:
    case Kind::check_box:
        found.compare(control, "selected", static_cast<const QAbstractButton&>(face).isChecked(),
                      control.look.value != 0);
        break;
    case Kind::slider: compare_slider(control, static_cast<const QSlider&>(face), found); break;
    case Kind::combo_box: compare_list(control, static_cast<const QComboBox&>(face), found); break;
    case Kind::progress_bar: {
        const auto& bar = static_cast<const QProgressBar&>(face);
        found.compare(control, "value", bar.value(), qRound(control.look.value));
        found.compare(control, "least value", bar.minimum(), qRound(control.look.min));
        found.compare(control, "greatest value", bar.maximum(), qRound(control.look.max));
        break;
    }
    default: break;
    }
}

// Tab reaches a label with a click handler, whatever its tab stop is.
bool has_tab_stop(Kind kind) {
    switch (kind) {
    case Kind::command_button:
    case Kind::option_button:
    case Kind::check_box:
    case Kind::text_box:
    case Kind::combo_box:
    case Kind::slider: return true;
    default: return false;
    }
}

} // namespace

// The palette has the data's colours. What is drawn may differ: text of low contrast is drawn in
// black or white, and disabled text is paler.
void compare_colours(const Widget& widget, const QWidget& face, Differences& found) {
    const Roles roles = roles_of(widget.kind);
    const QPalette& palette = face.palette();
    const QColor ground = ground_of(widget, face);
    const QColor ink = widget.look.fore == view::system_colour
                           ? QApplication::palette().color(QPalette::Active, roles.ink)
                           : qcolor(widget.look.fore);
    for (const auto group : {QPalette::Active, QPalette::Inactive}) {
        const auto colour = [&](QPalette::ColorRole role) {
            return palette.color(group, role).toRgb();
        };
        found.compare(widget, "background", colour(roles.ground), ground.toRgb());
        found.compare(widget, "foreground", colour(roles.ink), ink.toRgb());
    }
    if (widget.look.back != view::system_colour)
        found.compare(widget, "background while off",
                      palette.color(QPalette::Disabled, roles.ground).toRgb(), ground.toRgb());
    found.compare(widget, "background drawn", is_filled(widget, face), true);
    found.compare(widget, "role of the background", static_cast<int>(face.backgroundRole()),
                  static_cast<int>(roles.ground));
    found.compare(widget, "role of the foreground", static_cast<int>(face.foregroundRole()),
                  static_cast<int>(roles.ink));
}

void compare_pointer(const Widget& widget, const QWidget& face, Differences& found) {
    // A notes field shows the pointer of its viewport.
    const auto* notes = qobject_cast<const QPlainTextEdit*>(&face);
    const QWidget& under_pointer = notes ? *notes->viewport() : face;
    found.compare(widget, "pointer", static_cast<int>(under_pointer.cursor().shape()),
                  static_cast<int>(shape_of(widget)));
}

void compare_control(const Widget& control, const QWidget& face, const QWidget& top,
                     Differences& found) {
    if (const char* name = class_of(control, face); !face.inherits(name)) {
        found.add(control, std::string("is no ") + name);
        return;
    }
    compare_text(control, face, found);
    compare_value(control, face, found);
    compare_colours(control, face, found);
    compare_pointer(control, face, found);
    found.compare(control, "visible", face.isVisibleTo(&top), effectively_visible(control));
    found.compare(control, "enabled", face.isEnabled(), effectively_enabled(control));
    found.compare(control, "tip", tip_as_read(face.toolTip()), tip_in_data(control));
    if (has_tab_stop(control.kind))
        found.compare(control, "tab stop", (face.focusPolicy() & Qt::TabFocus) != 0,
                      control.look.tab_stop);
}

} // namespace zol::tests
