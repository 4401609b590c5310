#include "view/qt/qt_screen.h"

#include "view/qt/boxes.h"
#include "view/qt/manual_window.h"

#include <QCoreApplication>
#include <QEventLoop>
#include <QGuiApplication>
#include <QScreen>

#include <algorithm>
#include <utility>

namespace zol::view::qt {

QtScreen::QtScreen() : key_preview_(*this) {}

WindowFace* QtScreen::face(const Widget& window) const {
    const auto it = std::find_if(faces_.begin(), faces_.end(),
                                 [&](const auto& face) { return &face->model() == &window; });
    return it == faces_.end() ? nullptr : it->get();
}

Widget* QtScreen::window_of(const QWidget& top) const {
    const auto it = std::find_if(faces_.begin(), faces_.end(),
                                 [&](const auto& face) { return &face->top() == &top; });
    return it == faces_.end() ? nullptr : &(*it)->model();
}

void QtScreen::window_loaded(Widget& window) {
    faces_.push_back(std::make_unique<WindowFace>(window));
}

void QtScreen::window_shown(Widget& window, bool shown) {
    if (WindowFace* it = face(window)) it->show(shown);
    if (!shown) {
        // The hidden window may have had the focus, and the toolkit's active window may have stayed
        // active.
        for (const auto& other : faces_)
            if (other->top().isActiveWindow()) other->follow_focus();
        return;
    }
    if (std::exchange(any_shown_, true)) return;
    // Paints the first window before the next ones are built.
    catch_up();
    QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
}

void QtScreen::window_unloaded(Widget& window) {
    std::erase_if(recoloured_, [&](const Widget* w) { return w->window == &window; });
    std::erase_if(faces_, [&](const auto& face) { return &face->model() == &window; });
}

void QtScreen::changed(Widget& widget, Aspect aspect) {
    if (aspect == Aspect::colours)
        recoloured_.push_back(&widget);
    else if (WindowFace* it = face(*widget.window))
        it->changed(widget, aspect);
}

void QtScreen::catch_up() {
    for (Widget* widget : recoloured_)
        if (WindowFace* it = face(*widget->window)) it->changed(*widget, Aspect::colours);
    recoloured_.clear();
    for (const auto& face : faces_)
        face->catch_up();
}

void QtScreen::focus_moved(Widget& w) {
    if (WindowFace* it = face(*w.window)) it->follow_focus();
}

Answer QtScreen::message_box(const MessageBox& box) {
    catch_up(); // a window that is due to be shown must not cover the box
    return ask_message(box);
}

std::string QtScreen::input_box(const std::string& prompt, const std::string& title) {
    return ask_text(prompt, title);
}

Colour QtScreen::colour_box(Colour start) {
    catch_up(); // a window that is due to be shown must not cover the box
    return ask_colour(start);
}

void QtScreen::show_manual(const std::string& file, const std::string& topic) {
    if (auto window = make_manual_window(file, topic)) {
        manual_ = std::move(window);
        manual_->show();
        manual_->raise();
        manual_->activateWindow();
    }
}

ScreenSize QtScreen::size() {
    const QSize pixels = QGuiApplication::primaryScreen()->size();
    return {pixels.width() * twips_per_pixel, pixels.height() * twips_per_pixel};
}

} // namespace zol::view::qt
