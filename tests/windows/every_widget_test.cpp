// Every widget of every window is on the screen under its own name, and shows what its model says.
#include "tests/windows/window_fixture.h"

#include "view/windows/acquisizione.h"
#include "view/windows/centralina_attiva.h"
#include "view/windows/form1.h"
#include "view/windows/form2.h"
#include "view/windows/form3.h"
#include "view/windows/form_power.h"
#include "view/windows/frm_splash.h"

#include <QAbstractButton>
#include <QAction>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPlainTextEdit>
#include <QProgressBar>
#include <QSlider>

namespace zol::view {
namespace {

// Each of the program's windows and the bench's own, as a parameter.
class EveryWindow : public WindowFixture, public ::testing::WithParamInterface<Widget*> {
  protected:
    EveryWindow() : window(*GetParam()) { open(window); }
    Widget& window;
};

const char* class_of(const Widget& w) {
    switch (w.kind) {
    case Kind::label: return "QLabel";
    case Kind::command_button: return "QPushButton";
    case Kind::option_button: return "QRadioButton";
    case Kind::check_box: return "QCheckBox";
    case Kind::combo_box: return "QComboBox";
    case Kind::frame: return "QGroupBox";
    case Kind::slider: return "QSlider";
    case Kind::progress_bar: return "QProgressBar";
    case Kind::text_box: return w.look.place.height > 600 ? "QPlainTextEdit" : "QLineEdit";
    default: return "QWidget";
    }
}

QString text_on(const QWidget& face) {
    if (auto* label = qobject_cast<const QLabel*>(&face)) return label->text();
    if (auto* button = qobject_cast<const QAbstractButton*>(&face)) return button->text();
    if (auto* frame = qobject_cast<const QGroupBox*>(&face)) return frame->title();
    if (auto* line = qobject_cast<const QLineEdit*>(&face)) return line->text();
    if (auto* notes = qobject_cast<const QPlainTextEdit*>(&face)) return notes->toPlainText();
    return {};
}

bool shows_text(const Widget& w) {
    switch (w.kind) {
    case Kind::combo_box:
    case Kind::slider:
    case Kind::progress_bar:
    case Kind::shape:
    case Kind::picture:
    case Kind::movie: return false;
    default: return true;
    }
}

Colour ground(const QWidget& face) {
    return qt::to_colour(face.palette().color(QPalette::Active, face.backgroundRole()));
}
Colour ink(const QWidget& face) {
    return qt::to_colour(face.palette().color(QPalette::Active, face.foregroundRole()));
}

Qt::CursorShape shape_of(Pointer pointer, Qt::CursorShape normal) {
    return pointer == Pointer::hourglass ? Qt::WaitCursor
           : pointer == Pointer::custom  ? Qt::PointingHandCursor
                                         : normal;
}

TEST_P(EveryWindow, HasItsTitleUnderItsName) {
    EXPECT_EQ(top(window).objectName().toStdString(), window.name);
    EXPECT_EQ(top(window).windowTitle().toStdString(), window.look.text);
    EXPECT_EQ(ground(top(window)),
              window.look.back == system_colour ? ground(top(window)) : window.look.back);
}

TEST_P(EveryWindow, HasEachControlUnderItsName) {
    for (Widget* w : window.controls) {
        QWidget& on_screen = face(*w);
        EXPECT_TRUE(on_screen.inherits(class_of(*w))) << full_name(*w);
        EXPECT_FALSE(on_screen.accessibleName().isEmpty()) << full_name(*w);
        if (w->parent != &window) {
            EXPECT_EQ(on_screen.parentWidget(), &face(*w->parent)) << full_name(*w);
        }
    }
}

TEST_P(EveryWindow, ShowsEachText) {
    for (Widget* w : window.controls) {
        if (!shows_text(*w)) continue;
        EXPECT_EQ(text_on(face(*w)).toStdString(), w->look.text) << full_name(*w);
        set_text(*w, "12.6 ü");
        EXPECT_EQ(text_on(face(*w)).toStdString(), "12.6 ü") << full_name(*w);
    }
}

TEST_P(EveryWindow, ShowsEachColourInItsPalette) {
    for (Widget* w : window.controls) {
        if (w->look.back != system_colour) {
            EXPECT_EQ(ground(face(*w)), w->look.back) << full_name(*w);
        }
        if (w->look.fore != system_colour) {
            EXPECT_EQ(ink(face(*w)), w->look.fore) << full_name(*w);
        }
        set_back(*w, light_red);
        set_fore(*w, rgb(1, 2, 3));
    }
    settle();
    for (Widget* w : window.controls) {
        EXPECT_EQ(ground(face(*w)), light_red) << full_name(*w);
        EXPECT_EQ(ink(face(*w)), rgb(1, 2, 3)) << full_name(*w);
    }
}

TEST_P(EveryWindow, ShowsTipsOfControlsWithTheirPointers) {
    for (Widget* w : window.controls) {
        EXPECT_EQ(face(*w).toolTip().toStdString(), w->look.tip) << full_name(*w);
        const auto normal = w->kind == Kind::text_box ? Qt::IBeamCursor : Qt::ArrowCursor;
        EXPECT_EQ(face(*w).cursor().shape(), shape_of(w->look.pointer, normal)) << full_name(*w);
        set_tip(*w, "199");
        set_pointer(*w, Pointer::hourglass);
        EXPECT_EQ(face(*w).toolTip(), "199") << full_name(*w);
        EXPECT_EQ(face(*w).cursor().shape(), Qt::WaitCursor) << full_name(*w);
        expect_mirrored();
        set_pointer(*w, Pointer::normal);
    }
}

TEST_P(EveryWindow, MirrorsVisibilityWithEnabledState) {
    for (Widget* w : window.controls) {
        QWidget& on_screen = face(*w);
        for (int i = 0; i < 2; ++i) { // there and back
            EXPECT_EQ(on_screen.isVisibleTo(on_screen.parentWidget()), w->look.visible)
                << full_name(*w);
            EXPECT_EQ(on_screen.isEnabledTo(on_screen.parentWidget()), w->look.enabled)
                << full_name(*w);
            set_visible(*w, !w->look.visible);
            set_enabled(*w, !w->look.enabled);
        }
    }
    for (Widget* w : window.controls) {
        set_tab_stop(*w, !w->look.tab_stop);
        set_edit_marker(*w, w->kind == Kind::text_box);
        set_visible(*w, !w->look.visible);
        set_enabled(*w, w->index % 2 != 0);
    }
}

TEST_P(EveryWindow, HasItsWholeMenuTree) {
    for (Widget* w : window.menus) {
        QAction& entry = action(*w);
        // A separator is a line, with no word on it.
        const std::string caption = w->kind == Kind::separator ? "" : w->look.text;
        EXPECT_EQ(entry.text().replace("&&", "&").toStdString(), caption) << w->name;
        EXPECT_EQ(entry.isSeparator(), w->kind == Kind::separator) << w->name;
        EXPECT_EQ(entry.isVisible(), w->look.visible) << w->name;
        EXPECT_EQ(entry.menu() != nullptr, w->kind == Kind::menu) << w->name;
        if (entry.menu()) {
            EXPECT_EQ(entry.menu()->objectName().toStdString(), w->name);
        }
        if (w->parent != &window) {
            QMenu* parent = action(*w->parent).menu();
            EXPECT_TRUE(parent->actions().contains(&entry)) << w->name;
        }
        if (w->kind != Kind::menu_item) continue;
        set_checked(*w, true);
        EXPECT_TRUE(entry.isChecked()) << w->name;
        set_enabled(*w, false);
        EXPECT_FALSE(entry.isEnabled()) << w->name;
        set_text(*w, "A & B");
        EXPECT_EQ(entry.text(), "A && B") << w->name;
    }
}

TEST_P(EveryWindow, ShowsTheValueOfEachControl) {
    for (Widget* w : window.controls) {
        if (w->kind == Kind::slider) {
            auto& slider = face<QSlider>(*w);
            EXPECT_EQ(slider.minimum(), w->look.min) << full_name(*w);
            EXPECT_EQ(slider.maximum(), w->look.max) << full_name(*w);
            EXPECT_EQ(slider.value(), w->look.value) << full_name(*w);
            EXPECT_EQ(slider.singleStep(), w->look.small_change) << full_name(*w);
            EXPECT_EQ(slider.pageStep(), w->look.large_change) << full_name(*w);
            EXPECT_EQ(slider.orientation() == Qt::Vertical, w->look.vertical) << full_name(*w);
            place_value(*w, w->look.max);
            EXPECT_EQ(slider.value(), w->look.max) << full_name(*w);
            set_selection_length(*w, 20);
            set_range(*w, 30, 60);
        } else if (w->kind == Kind::combo_box) {
            set_items(*w, {"one", "two"});
            EXPECT_EQ(face<QComboBox>(*w).currentIndex(), -1) << full_name(*w);
            set_items(*w, {"one", "two"}); // in place of those
            set_item_tips(*w, {"first", "second"});
            set_list_index(*w, 1);
            EXPECT_EQ(face<QComboBox>(*w).currentText(), "two") << full_name(*w);
        } else if (w->kind == Kind::progress_bar) {
            set_value_and_run_handler(*w, 35);
            EXPECT_EQ(face<QProgressBar>(*w).value(), 35) << full_name(*w);
            set_range(*w, 30, 60);
        }
    }
}

TEST_P(EveryWindow, LoadingAgainRestoresTheDesign) {
    for (Widget* w : window.controls)
        set_text(*w, "changed");
    unload(window);
    open(window);
    for (Widget* w : window.controls)
        if (shows_text(*w)) {
            EXPECT_EQ(text_on(face(*w)).toStdString(), w->design.text) << full_name(*w);
        }
}

INSTANTIATE_TEST_SUITE_P(OfTheProgram, EveryWindow,
                         ::testing::Values(&form1::Form1, &frm_splash::frmSplash,
                                           &centralina_attiva::Centralina_Attiva, &form2::Form2,
                                           &form3::Form3, &form_power::Form_power,
                                           &acquisizione::acquisizione, &test_window::Sample),
                         [](const auto& of) { return of.param->name; });

} // namespace
} // namespace zol::view
