#include "view/qt/window_face.h"

#include "view/operator.h"
#include "view/qt/controls.h"
#include "view/qt/face.h"
#include "view/qt/fit.h"
#include "view/qt/instrument_style.h"
#include "view/qt/key_legend.h"
#include "view/qt/menus.h"
#include "view/qt/mirror.h"
#include "view/qt/signs.h"
#include "view/qt/tab_order.h"
#include "view/qt/window_edge.h"
#include "view/timers.h"

#include <QAction>
#include <QApplication>
#include <QFocusEvent>
#include <QMainWindow>
#include <QMenuBar>
#include <QMouseEvent>
#include <QPointer>
#include <QScopedValueRollback>
#include <QScreen>

#include <algorithm>
#include <cmath>
#include <initializer_list>

namespace zol::view::qt {
namespace {

constexpr double design_points = 8.25; // of ordinary text
// The scale of the content of the main window on a screen of 1366 by 768, for which face.h has its
// sizes.
constexpr double scale_at_1366x768 = (768 * 15.0 - 990) / (9000 - 990);

// The height in a table includes the title bar and frame of the window. This is the share of the
// rest.
double content_share(const Widget& window) {
    const double frame_twips = window.menus.empty() ? frame_without_menu : frame_and_foot_with_menu;
    return std::max(0.1, 1 - frame_twips / window.design.place.height);
}

// The size of the content of a window that has this place, its present or its design one.
QSize content_pixels(const Widget& window, const Place& place) {
    return {qRound(place.width / twips_per_pixel),
            qRound(place.height * content_share(window) / twips_per_pixel)};
}

bool operators_own(Qt::FocusReason reason) {
    return reason == Qt::TabFocusReason || reason == Qt::BacktabFocusReason ||
           reason == Qt::MouseFocusReason || reason == Qt::ShortcutFocusReason;
}

// A control of one pixel in its table only takes key input for the logic and is never painted.
bool is_unseen(const Widget& widget) { return widget.design.place.width <= twips_per_pixel; }

// The logic scales windows with this tag to the screen. The view scales the others, so that they
// are not small on a large screen.
constexpr const char* scaled_by_logic = "ResizeON";

double scale_of_view(const Widget& window, const QSize& screen) {
    constexpr QSizeF designed_for(675, 600);
    if (window.look.tag == scaled_by_logic) return 1;
    return std::max(1.0, std::min(screen.width() / designed_for.width(),
                                  screen.height() / designed_for.height()));
}

// The font of controls that the toolkit makes itself, such as menus and tips.
void set_font_of(std::initializer_list<const char*> kinds, double points, const QWidget& face) {
    QFont font = face::font();
    font.setPointSizeF(points * 96.0 / face.logicalDpiY());
    for (const char* kind : kinds)
        if (QApplication::font(kind) != font) QApplication::setFont(font, kind);
}

} // namespace

WindowFace::WindowFace(Widget& window) : model_(window) {
    if (window.menus.empty()) {
        top_ = std::make_unique<QWidget>(nullptr, Qt::Window);
        give_edge(*top_);
        content_ = top_.get();
    } else {
        auto main_window = std::make_unique<QMainWindow>();
        bar_ = main_window->menuBar();
        content_ = new QWidget(main_window.get());
        main_window->setCentralWidget(content_);
        top_ = std::move(main_window);
        actions_ = build_menus(window, *bar_);
    }
    top_->setObjectName(QString::fromStdString(full_name(window)));
    top_->installEventFilter(this);
    mirror_all(window, *top_);
    build_controls();
    signs_ = std::make_unique<Signs>(*this, *content_);
    if (content_ != top_.get()) content_->installEventFilter(this);
    resize_to_model();
}

WindowFace::~WindowFace() = default;

QWidget* WindowFace::control(const Widget& widget) const {
    if (&widget == &model_) return top_.get();
    const auto it = controls_.find(&widget);
    return it == controls_.end() ? nullptr : it->second;
}

QAction* WindowFace::action(const Widget& menu) const {
    const auto it = actions_.find(&menu);
    return it == actions_.end() ? nullptr : it->second;
}

// In a table of widgets a parent precedes its children.
void WindowFace::build_controls() {
    for (Widget* widget : model_.controls) {
        QWidget* parent = widget->parent == &model_ ? content_ : control(*widget->parent);
        QWidget* face = make_control(*widget, *parent);
        face->setObjectName(QString::fromStdString(full_name(*widget)));
        controls_.emplace(widget, face);
        models_.emplace(face, widget);
        mirror_all(*widget, *face);
        face->installEventFilter(this);
    }
    for (const Widget* widget : model_.controls)
        mark_panel_button(*widget);
    const auto has_panel = [](const Widget* widget) { return widget->panel != nullptr; };
    if (std::any_of(model_.controls.begin(), model_.controls.end(), has_panel))
        legend_ = new KeyLegend(model_, *content_);
    QWidget* last = nullptr;
    for (const Widget* widget : reading_order(model_)) {
        if (!operator_acts::takes_focus_by_tab(*widget)) continue;
        QWidget* face = control(*widget);
        if (last) QWidget::setTabOrder(last, face);
        last = face;
    }
}

// If the focus is on the window or on a control that Tab skips, Tab continues after the control
// that the operator used last, and Shift+Tab returns to it.
bool WindowFace::tab_from_parking(bool forward) {
    QWidget* at = top_->focusWidget();
    const auto it = models_.find(at);
    const bool parked =
        !at || at == top_.get() || (it != models_.end() && !it->second->look.tab_stop);
    if (!parked || !last_stop_) return false;
    const auto stops_at = [](const QWidget& face) {
        return face.isVisible() && face.isEnabled() && (face.focusPolicy() & Qt::TabFocus);
    };
    QWidget* stop = last_stop_;
    const auto step = [&] {
        stop = forward ? stop->nextInFocusChain() : stop->previousInFocusChain();
    };
    if (forward || !stops_at(*stop)) step();
    while (!stops_at(*stop) && stop != last_stop_)
        step();
    stop->setFocus(forward ? Qt::TabFocusReason : Qt::BacktabFocusReason);
    return true;
}

// Never larger than the screen, and never so small that text in the smallest font would be cut off.
void WindowFace::resize_to_model() {
    constexpr int title_bar = 27;
    constexpr double least_share =
        0.6; // of the design size: 4.5 points to 8.25, and a narrower font
    const QSize bar(0, bar_ ? bar_->sizeHint().height() : 0);
    const QSize room = top_->screen()->availableSize() - QSize(0, title_bar);
    const QSize least = content_pixels(model_, model_.design.place) * least_share;
    top_->setMinimumSize((least + bar).boundedTo(room));
    const double scale = scale_of_view(model_, top_->screen()->size());
    top_->resize((content_pixels(model_, model_.look.place) * scale + bar).boundedTo(room));
}

void WindowFace::lay_out() {
    const QSize wanted = content_pixels(model_, model_.look.place);
    if (wanted.isEmpty()) return;
    QSize room = content_->size();
    // Before its first show a main window has not yet measured its content.
    if (bar_ && !top_->isVisible()) room = top_->size() - QSize(0, bar_->sizeHint().height());
    scale_x_ = static_cast<double>(room.width()) / wanted.width();
    scale_y_ = static_cast<double>(room.height()) / wanted.height();
    const QSize design = content_pixels(model_, model_.design.place);
    const double scale = std::min(static_cast<double>(room.width()) / design.width(),
                                  static_cast<double>(room.height()) / design.height());
    face::set_measure(*top_, scale / scale_at_1366x768);
    if (bar_) scale_menus();
    for (const Widget* widget : model_.controls)
        place(*widget);
    if (legend_)
        legend_->lay_out(scale_x_ / twips_per_pixel, scale_y_ / twips_per_pixel,
                         design_points * std::min(scale_x_, scale_y_) * model_.look.place.height /
                             model_.design.place.height);
}

// Menus, tips, boxes and the manual follow the size of the window, too. Menus and tips follow the
// whole window, because the content gets smaller as the menu bar grows; boxes and the manual follow
// the content.
void WindowFace::scale_menus() {
    const Place& design = model_.design.place;
    const double scale =
        twips_per_pixel * std::min(top_->width() / design.width, top_->height() / design.height);
    const double points = std::max(design_points, std::round(2 * design_points * scale) / 2);
    fit_menu_bar(*bar_, points, top_->width());
    set_font_of({"QMenu", "QTipLabel"}, points, *top_);
    const double content_points =
        design_points * std::min(scale_x_, scale_y_) * model_.look.place.height / design.height;
    set_font_of({"QDialog"}, std::max(design_points, content_points), *top_);
}

double WindowFace::points(const Widget& widget) const {
    double points = widget.look.font_size * std::min(scale_x_, scale_y_);
    // A drawing surface has a title, but the logic does not scale its font with the window.
    if (widget.kind == Kind::picture)
        points *= model_.look.place.height / model_.design.place.height;
    return std::max(least_points, points);
}

void WindowFace::place(const Widget& widget) {
    const Place& p = widget.look.place;
    const auto x = [this](double twips) { return qRound(twips * scale_x_ / twips_per_pixel); };
    const auto y = [this](double twips) { return qRound(twips * scale_y_ / twips_per_pixel); };
    QWidget& face = *control(widget);
    // Edges are rounded, not sizes, so that neighbours that touch in the table touch on the screen.
    face.setGeometry(x(p.left), y(p.top), std::max(1, x(p.left + p.width) - x(p.left)),
                     std::max(1, y(p.top + p.height) - y(p.top)));
    fit_text(widget, face, points(widget));
    if (label_role(widget).part == LabelPart::title) face.update(); // its unit may have changed
}

void WindowFace::show(bool shown) {
    const QScopedValueRollback guard(mirroring_, true);
    show_due_ = shown;
    if (!shown) top_->hide();
}

void WindowFace::catch_up() {
    const QScopedValueRollback guard(mirroring_, true);
    if (std::exchange(size_due_, false)) resize_to_model();
    if (std::exchange(layout_due_, false)) lay_out();
    signs_->catch_up();
    if (!std::exchange(show_due_, false)) return;
    if (!std::exchange(was_shown_, true) && model_.menus.empty()) move_to_centre();
    show_state();
}

void WindowFace::move_to_centre() {
    const QRect screen = top_->screen()->availableGeometry();
    top_->move(screen.center() - top_->rect().center());
}

void WindowFace::show_state() {
    switch (model_.look.state) {
    case WindowState::normal: top_->showNormal(); break;
    case WindowState::minimised: top_->showMinimized(); return;
    case WindowState::maximised: top_->showMaximized(); break;
    }
    top_->raise();
    top_->activateWindow();
}

void WindowFace::changed(const Widget& widget, Aspect aspect) {
    const QScopedValueRollback guard(mirroring_, true);
    if (QAction* entry = action(widget)) {
        mirror(widget, *entry, aspect);
        if (widget.parent == &model_ && !layout_due_) scale_menus();
        return;
    }
    QWidget* face = control(widget);
    if (!face) return;
    switch (aspect) {
    case Aspect::place:
    case Aspect::font:
        layout_due_ = true;
        size_due_ |= &widget == &model_;
        break;
    case Aspect::window_state:
        if (top_->isVisible()) show_state();
        break;
    default: mirror(widget, *face, aspect);
    }
    const bool words = aspect == Aspect::text || aspect == Aspect::items;
    if (words && face != top_.get() && !layout_due_) fit_text(widget, *face, points(widget));
    // The unit of a title comes from the accessible name of its value.
    if (aspect == Aspect::help && widget.kind == Kind::label) layout_due_ = true;
    if (legend_ && (aspect == Aspect::visible || aspect == Aspect::help)) legend_->catch_up();
    signs_->changed(widget, aspect);
    if (aspect == Aspect::visible) mark_panel_button(widget);
    if (aspect == Aspect::visible || aspect == Aspect::enabled) follow_focus();
}

// Marks the button of the open panel.
void WindowFace::mark_panel_button(const Widget& panel) {
    for (const Widget* widget : model_.controls) {
        if (widget->panel != &panel) continue;
        control(*widget)->setProperty(panel_open_property, panel.look.visible);
        control(*widget)->update();
    }
}

void WindowFace::follow_focus() {
    const QScopedValueRollback guard(mirroring_, true);
    const Widget* focused = view::focus();
    const bool here = focused && focused->window == &model_ && reachable(*focused);
    QWidget* target = here ? control(*focused) : top_.get();
    if (target && !target->hasFocus()) target->setFocus(Qt::OtherFocusReason);
}

// Qt focuses the first control; the focus of the model is set again. If the window is disabled, the
// dialog that it waits for is raised.
void WindowFace::became_active() {
    follow_focus();
    if (model_.look.enabled) return;
    for (QWidget* other : QApplication::topLevelWidgets())
        if (other->isVisible() && other->isEnabled() && other->windowType() == Qt::Window) {
            other->raise();
            other->activateWindow();
        }
}

bool WindowFace::eventFilter(QObject* watched, QEvent* event) {
    if (watched == top_.get()) {
        if (event->type() == QEvent::Close) {
            event->ignore(); // the logic decides
            post([&window = model_] { operator_acts::close(window); });
            return true;
        }
        if (event->type() == QEvent::WindowActivate)
            QMetaObject::invokeMethod(
                this, [this] { became_active(); }, Qt::QueuedConnection);
    }
    if (watched == content_ && event->type() == QEvent::Resize) lay_out();
    const auto it = models_.find(watched);
    return it != models_.end() &&
           control_event(*it->second, *static_cast<QWidget*>(watched), *event);
}

// Focus changes and clicks without a Qt signal. A click is a press and a release on the same label
// or field; the second release of a double click is not another one.
bool WindowFace::control_event(Widget& widget, QWidget& face, QEvent& event) {
    const bool clickable = widget.kind == Kind::label || widget.kind == Kind::text_box;
    switch (event.type()) {
    case QEvent::Paint: return is_unseen(widget);
    case QEvent::FocusIn:
        if (mirroring_ || !operators_own(static_cast<QFocusEvent&>(event).reason())) break;
        if (widget.look.tab_stop) last_stop_ = &face;
        post([&widget, here = QPointer<WindowFace>(this)] {
            if (!operator_acts::focus(widget) && here) here->follow_focus();
        });
        break;
    case QEvent::MouseButtonPress:
        // A label ignores the press, so its frame gets it, too, and must not replace the label
        // here.
        if (clickable && static_cast<QMouseEvent&>(event).button() == Qt::LeftButton)
            pressed_ = &face;
        break;
    case QEvent::MouseButtonRelease: {
        const auto& mouse = static_cast<QMouseEvent&>(event);
        if (mouse.button() != Qt::LeftButton) break;
        const bool same = std::exchange(pressed_, nullptr) == &face;
        if (clickable && same && face.rect().contains(mouse.position().toPoint()))
            post([&widget] { operator_acts::click(widget); });
        break;
    }
    case QEvent::MouseButtonDblClick:
        if (widget.kind == Kind::label &&
            static_cast<QMouseEvent&>(event).button() == Qt::LeftButton)
            post([&widget] { operator_acts::double_click(widget); });
        break;
    default: break;
    }
    return false;
}

} // namespace zol::view::qt
