#include "tests/windows/fits/fit_fixture.h"

#include "app/app_state.h"
#include "app/application_folder.h"
#include "app/message_catalogue.h"
#include "app/program/language.h"
#include "app/program/wiring.h"
#include "tests/windows/fits/drawn_text.h"
#include "tests/windows/fits/longest_values.h"
#include "tests/windows/fits/pseudo_language.h"
#include "view/qt/controls.h"
#include "view/windows/form1.h"

#include <QAction>
#include <QComboBox>
#include <QCoreApplication>
#include <QGroupBox>
#include <QMenu>
#include <QMenuBar>
#include <QScreen>

#include <algorithm>

namespace zol::view {
namespace {

constexpr double least_points = 4.5;

std::string text_of(const QRectF& r) {
    return std::to_string(r.width()) + " x " + std::to_string(r.height()) + " at " +
           std::to_string(r.x()) + ", " + std::to_string(r.y());
}

bool seen(const QWidget& face) { return face.isVisibleTo(face.window()); }

} // namespace

namespace {

// A line break inside a word.
bool tears(const QString& text, qsizetype at) {
    return at > 0 && at < text.size() && text[at - 1].isLetterOrNumber() &&
           text[at].isLetterOrNumber();
}

void expect_in_sight(const DrawnText& run, const std::string& name, double dots) {
    // The end of a line may be rounded up.
    constexpr double hair = 1;
    EXPECT_TRUE(run.clip.adjusted(-hair, -hair, hair, hair).contains(run.ink))
        << name << ": \"" << run.text.toStdString() << "\" is at " << text_of(run.ink)
        << ", but only " << text_of(run.clip) << " is visible, at " << run.points << " points";
    EXPECT_GE(run.points / dots, least_points - 0.01) << name;
}

} // namespace

void expect_drawn_whole(QWidget& face, const QString& text, const std::string& name) {
    double line_top = 0;
    qsizetype at = 0; // drawn so far
    for (const DrawnText& run : drawn_texts(face)) {
        const QString piece = run.text.trimmed();
        if (piece.isEmpty()) continue;
        expect_in_sight(run, name, 96.0 / face.logicalDpiY());
        const bool torn = run.place.top() > line_top && tears(text, at);
        EXPECT_FALSE(torn) << name << ": \"" << text.toStdString()
                           << "\" is broken inside a word before \"" << piece.toStdString()
                           << "\", at " << run.points << " points";
        line_top = run.place.top();
        while (at < text.size() && text[at].isSpace())
            ++at;
        EXPECT_EQ(text.mid(at, piece.size()).toStdString(), piece.toStdString()) << name;
        at += piece.size();
    }
    EXPECT_EQ(text.mid(at).trimmed().toStdString(), "") << name << " does not show this";
}

FitFixture::FitFixture() {
    app::connect_handlers();
    EXPECT_TRUE(folder_.isValid());
    write_language_files(folder_.path());
    app::use_application_folder(folder_.path().toStdString());
    link::use_serial_port(port_);
}

void FitFixture::settle() {
    for (int i = 0; i < 3; ++i) {
        screen.catch_up();
        QCoreApplication::processEvents();
    }
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

namespace {

// Captions of a window's table that no language file has.
void stretch_fixed_captions(Widget& window) {
    for (auto* list : {&window.controls, &window.menus})
        for (Widget* w : *list) {
            const QString text = QString::fromStdString(w->look.text);
            const bool has_letters =
                std::any_of(text.begin(), text.end(), [](QChar c) { return c.isLetter(); });
            if (has_letters && w->look.text == w->design.text)
                set_text(*w, stretched(text).toStdString());
        }
}

} // namespace

void FitFixture::open(Widget& window) {
    app::state.current_language = GetParam();
    show(window);
    app::set_language(GetParam());
    app::set_message(form1::Command303, 1134, "...");
    if (GetParam() == std::string("xx")) stretch_fixed_captions(window);
    settle();
}

void FitFixture::expect_window_on_screen(const QWidget& top) const {
    constexpr int title_bar = 27;
    const QRect whole = top.screen()->geometry();
    const int frame = top.isMaximized() ? 0 : title_bar;
    EXPECT_LE(top.width(), whole.width()) << top.objectName().toStdString();
    EXPECT_LE(top.height() + frame, whole.height()) << top.objectName().toStdString();
}

namespace {

// The space below a frame's title.
QRect space_in(const QWidget& parent) {
    const auto* frame = qobject_cast<const QGroupBox*>(&parent);
    const int title = frame && !frame->title().isEmpty() ? frame->fontMetrics().height() : 0;
    return parent.rect().adjusted(0, title, 0, 0);
}

// The lamps of the speed bar overlap.
bool may_overlap(const Widget& a, const Widget& b) {
    return a.name == "led_rpm" && b.name == "led_rpm";
}

} // namespace

void FitFixture::expect_places(Widget& window) const {
    const auto& all = window.controls;
    for (std::size_t i = 0; i < all.size(); ++i) {
        const QWidget& one = face(*all[i]);
        if (!seen(one)) continue;
        const std::string name = window.name + "." + full_name(*all[i]);
        EXPECT_TRUE(space_in(*one.parentWidget()).contains(one.geometry()))
            << name << " is outside its parent: " << text_of(one.geometry()) << " in "
            << text_of(space_in(*one.parentWidget()));
        for (std::size_t j = i + 1; j < all.size(); ++j) {
            const QWidget& other = face(*all[j]);
            if (other.parentWidget() != one.parentWidget() || !seen(other)) continue;
            if (may_overlap(*all[i], *all[j])) continue;
            EXPECT_FALSE(one.geometry().intersects(other.geometry()))
                << name << " and " << full_name(*all[j]) << " overlap";
        }
    }
}

namespace {

// The unit of a title is at the other end of its line.
void expect_label_whole(const Widget& w, QWidget& face, const std::string& name) {
    const QString on_screen = static_cast<qt::LabelFace&>(face).text_on_screen();
    const QString text = QString::fromStdString(w.look.text);
    EXPECT_TRUE(on_screen.simplified().startsWith(text.simplified())) << name;
    expect_drawn_whole(face, on_screen, name);
}

} // namespace

void FitFixture::expect_text_whole(const Widget& w) const {
    QWidget& it = face(w);
    const std::string name = w.window->name + "." + full_name(w);
    switch (w.kind) {
    case Kind::label: expect_label_whole(w, it, name); break;
    case Kind::command_button:
    case Kind::option_button:
    case Kind::check_box:
    case Kind::frame: expect_drawn_whole(it, QString::fromStdString(w.look.text), name); break;
    case Kind::text_box:
        if (!it.inherits("QLineEdit") || it.width() < 4) break; // it scrolls, or is invisible
        expect_drawn_whole(it, QString::fromStdString(w.look.text), name);
        break;
    case Kind::combo_box: {
        auto& combo = static_cast<QComboBox&>(it);
        const int chosen = combo.currentIndex();
        for (int i = 0; i < combo.count(); ++i) {
            combo.setCurrentIndex(i);
            // The list draws the note of an item after its text.
            const auto item = static_cast<std::size_t>(i);
            const bool noted = item < w.look.item_notes.size();
            const std::string note = noted ? w.look.item_notes[item].text : "";
            expect_drawn_whole(it, combo.itemText(i) + QString::fromStdString(note), name);
        }
        combo.setCurrentIndex(chosen);
        break;
    }
    default: break;
    }
}

void FitFixture::expect_texts_whole(Widget& window) const {
    for (const Widget* w : window.controls) {
        const QWidget& it = face(*w);
        if (!seen(it)) continue;
        expect_text_whole(*w);
        EXPECT_GE(it.font().pointSizeF() * it.logicalDpiY() / 96.0, least_points) << full_name(*w);
    }
}

void FitFixture::expect_longest_texts_whole(Widget& window) {
    for (const LongestTexts& each : longest_texts()) {
        if (each.widget->window != &window) continue;
        for (const std::string& text : each.texts) {
            set_text(*each.widget, text);
            if (seen(face(*each.widget))) expect_text_whole(*each.widget);
        }
    }
}

// Each item of the menu bar, and each menu.
void FitFixture::expect_menus_whole(Widget& window) const {
    const QRect whole = top(window).screen()->geometry();
    for (QMenu* menu : top(window).findChildren<QMenu*>()) {
        EXPECT_LE(menu->sizeHint().width(), whole.width()) << menu->objectName().toStdString();
        EXPECT_LE(menu->sizeHint().height(), whole.height()) << menu->objectName().toStdString();
    }
    auto* bar = top(window).findChild<QMenuBar*>();
    if (!bar) return;
    QString captions;
    for (const QAction* entry : bar->actions()) {
        EXPECT_TRUE(bar->rect().contains(bar->actionGeometry(const_cast<QAction*>(entry))))
            << entry->text().toStdString() << " is not on the menu bar";
        captions += QString(entry->text()).replace("&&", "&");
    }
    expect_drawn_whole(*bar, captions, window.name + "'s menu bar");
}

// Each word is within the band, and the band covers no control.
void FitFixture::expect_legend_whole(Widget& window) const {
    auto* legend = top(window).findChild<QWidget*>("Legend");
    if (!legend || !legend->isVisible()) return;
    const auto texts = drawn_texts(*legend);
    EXPECT_GE(texts.size(), 16U) << "eight caps with their words";
    for (const DrawnText& run : texts)
        if (!run.text.trimmed().isEmpty())
            expect_in_sight(run, "the legend", 96.0 / legend->logicalDpiY());
    for (const Widget* w : window.controls) {
        const QWidget& control = face(*w);
        if (control.parentWidget() != legend->parentWidget() || !seen(control)) continue;
        EXPECT_FALSE(control.geometry().intersects(legend->geometry())) << full_name(*w);
    }
}

void FitFixture::expect_all(Widget& window) {
    expect_window_on_screen(top(window));
    expect_places(window);
    expect_longest_texts_whole(window);
    expect_texts_whole(window);
    expect_menus_whole(window);
    expect_legend_whole(window);
}

} // namespace zol::view
