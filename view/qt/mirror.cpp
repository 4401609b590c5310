#include "view/qt/mirror.h"

#include "view/operator.h"
#include "view/qt/accessible_text.h"
#include "view/qt/act.h"
#include "view/qt/colours.h"
#include "view/qt/controls.h"
#include "view/qt/plain_text.h"

#include <QAbstractButton>
#include <QAction>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPlainTextEdit>
#include <QProgressBar>
#include <QSignalBlocker>

#include <algorithm>

namespace zol::view::qt {
namespace {

void mirror_text(const Widget& model, QWidget& face) {
    const QString text = QString::fromStdString(model.look.text);
    switch (model.kind) {
    case Kind::window: face.setWindowTitle(plain_title(text)); break;
    case Kind::label: static_cast<QLabel&>(face).setText(text); break;
    case Kind::command_button:
    case Kind::option_button:
    case Kind::check_box: static_cast<QAbstractButton&>(face).setText(plain_caption(text)); break;
    case Kind::frame: static_cast<QGroupBox&>(face).setTitle(plain_caption(text)); break;
    case Kind::text_box:
        if (&model == being_typed) break; // the operator may have typed further letters since
        if (auto* line = qobject_cast<QLineEdit*>(&face)) {
            if (line->text() != text) line->setText(text);
        } else {
            static_cast<QPlainTextEdit&>(face).setPlainText(text);
        }
        break;
    case Kind::picture: face.update(); break; // it draws its text itself
    default: break;
    }
    if (model.kind != Kind::window) face.setAccessibleName(accessible_name(model));
}

void mirror_value(const Widget& model, QWidget& face) {
    const QSignalBlocker quiet(face);
    const int value = qRound(model.look.value);
    switch (model.kind) {
    case Kind::slider: static_cast<SliderFace&>(face).setValue(value); break;
    case Kind::progress_bar: static_cast<QProgressBar&>(face).setValue(value); break;
    case Kind::option_button:
    case Kind::check_box: static_cast<QAbstractButton&>(face).setChecked(value != 0); break;
    case Kind::combo_box:
        static_cast<QComboBox&>(face).setCurrentIndex(model.look.list_index);
        break;
    default: break;
    }
}

void mirror_range(const Widget& model, QWidget& face) {
    const QSignalBlocker quiet(face);
    const int min = qRound(model.look.min), max = qRound(model.look.max);
    if (model.kind == Kind::progress_bar) {
        static_cast<QProgressBar&>(face).setRange(min, max);
    } else if (model.kind == Kind::slider) {
        auto& slider = static_cast<SliderFace&>(face);
        slider.setRange(min, max);
        slider.setSingleStep(model.look.small_change);
        slider.setPageStep(model.look.large_change);
        slider.setTickInterval(model.look.tick_every);
        slider.setTickPosition(model.look.tick_every > 0 ? QSlider::TicksBelow : QSlider::NoTicks);
        slider.mark_stretch(qRound(model.look.selection_length));
    }
}

void mirror_items(const Widget& model, QWidget& face) {
    if (model.kind != Kind::combo_box) return;
    auto& combo = static_cast<QComboBox&>(face);
    const QSignalBlocker quiet(combo);
    combo.clear();
    for (const std::string& item : model.look.items)
        combo.addItem(QString::fromStdString(item));
    combo.setCurrentIndex(model.look.list_index);
}

void mirror_tip(const Widget& model, QWidget& face) {
    if (model.kind != Kind::window) set_accessible_text(model, face);
    if (model.kind == Kind::picture) face.update(); // its title is its accessible name
    if (model.kind != Kind::combo_box) return;
    auto& combo = static_cast<QComboBox&>(face);
    for (std::size_t i = 0; i < model.look.item_tips.size(); ++i)
        combo.setItemData(static_cast<int>(i),
                          plain_tip(QString::fromStdString(model.look.item_tips[i])),
                          Qt::ToolTipRole);
    combo.update(); // draws its notes
}

void mirror_pointer(const Widget& model, QWidget& face) {
    // The text of a read-only note box is in its viewport, which has a pointer of its own.
    if (auto* notes = qobject_cast<QPlainTextEdit*>(&face))
        mirror_pointer(model, *notes->viewport());
    switch (model.look.pointer) {
    case Pointer::hourglass: face.setCursor(Qt::WaitCursor); break;
    case Pointer::custom: face.setCursor(Qt::PointingHandCursor); break;
    case Pointer::normal:
        if (model.kind == Kind::text_box)
            face.setCursor(Qt::IBeamCursor);
        else
            face.unsetCursor();
    }
}

void mirror_tab_stop(const Widget& model, QWidget& face) {
    if (!operator_acts::takes_focus_by_tab(model)) return;
    if (model.kind == Kind::label)
        face.setFocusPolicy(Qt::TabFocus);
    else
        face.setFocusPolicy(model.look.tab_stop ? Qt::StrongFocus : Qt::ClickFocus);
}

} // namespace

void mirror(const Widget& model, QWidget& face, Aspect aspect) {
    switch (aspect) {
    case Aspect::text: mirror_text(model, face); break;
    case Aspect::tip:
    case Aspect::help: mirror_tip(model, face); break;
    case Aspect::colours: mirror_colours(model, face); break;
    case Aspect::value: mirror_value(model, face); break;
    case Aspect::range: mirror_range(model, face); break;
    case Aspect::items: mirror_items(model, face); break;
    case Aspect::visible:
        if (model.kind != Kind::window) face.setVisible(model.look.visible);
        break;
    case Aspect::enabled: face.setEnabled(model.look.enabled); break;
    case Aspect::pointer: mirror_pointer(model, face); break;
    case Aspect::tab_stop: mirror_tab_stop(model, face); break;
    case Aspect::edit_marker: face.setProperty("edit_marker", model.look.edit_marker); break;
    case Aspect::drawing:
        if (model.kind == Kind::picture) static_cast<PictureFace&>(face).draw_new_strokes();
        break;
    case Aspect::checked:
    case Aspect::place:
    case Aspect::font:
    case Aspect::window_state: break;
    }
}

void mirror_all(const Widget& model, QWidget& face) {
    for (Aspect aspect :
         {Aspect::text, Aspect::colours, Aspect::range, Aspect::value, Aspect::items, Aspect::tip,
          Aspect::visible, Aspect::enabled, Aspect::pointer, Aspect::tab_stop})
        mirror(model, face, aspect);
}

void mirror(const Widget& model, QAction& face, Aspect aspect) {
    switch (aspect) {
    case Aspect::text:
        face.setText(plain_caption(QString::fromStdString(model.look.text)));
        if (face.menu()) face.menu()->setAccessibleName(accessible_name(model));
        break;
    case Aspect::tip:
    case Aspect::help: face.setToolTip(tip_on_screen(model)); break;
    case Aspect::visible: face.setVisible(model.look.visible); break;
    case Aspect::enabled:
        // When a window is enabled again, Qt enables each of its menus that was not disabled
        // explicitly, and a menu enables its action. So both are set.
        if (face.menu()) face.menu()->setEnabled(model.look.enabled);
        face.setEnabled(model.look.enabled);
        break;
    case Aspect::checked:
        face.setCheckable(model.look.checked); // otherwise an unticked item would show an empty box
        face.setChecked(model.look.checked);
        break;
    default: break;
    }
}

} // namespace zol::view::qt
