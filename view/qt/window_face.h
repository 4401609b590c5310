// What stands on the screen for one loaded window: its Qt window, its controls and its menus, each
// found by its model, and each named after it.
#pragma once

#include "view/screen.h"

#include <QObject>
#include <QWidget>

#include <memory>
#include <unordered_map>

class QAction;
class QMenuBar;

namespace zol::view::qt {

class KeyLegend;
class Signs;

constexpr double twips_per_pixel = 15;

class WindowFace : public QObject {
  public:
    explicit WindowFace(Widget& window);
    ~WindowFace() override;

    Widget& model() const { return model_; }
    QWidget& top() const { return *top_; }
    QWidget* control(const Widget& widget) const; // the Qt window for the window itself
    QAction* action(const Widget& menu) const;

    void show(bool shown);
    // Showing waits for this, so that a window shown and minimised in one go never flashes up, and
    // so do places and fonts: scaling a window sets each of them several times.
    void catch_up();
    void changed(const Widget& widget, Aspect aspect);
    // The focus stands where the model has it; on the Qt window itself if on no control.
    void follow_focus();
    // Takes a step of the Tab key where the focus is parked; false where the toolkit knows the way.
    bool tab_from_parking(bool forward);
    // Puts every control to its place. The operator may make the window larger or smaller than its
    // table: the content follows.
    void lay_out();
    const Signs& signs() const { return *signs_; }

  private:
    bool eventFilter(QObject* watched, QEvent* event) override;
    bool control_event(Widget& widget, QWidget& face, QEvent& event);
    void build_controls();
    void place(const Widget& widget);
    void scale_menus();
    void mark_panel_button(const Widget& panel);
    void resize_to_model();
    void show_state();
    void stand_in_the_middle();
    void became_active();
    double points(const Widget& widget) const;

    Widget& model_;
    std::unique_ptr<QWidget> top_;
    QWidget* content_;            // where the controls stand
    QMenuBar* bar_ = nullptr;     // windows with menus
    KeyLegend* legend_ = nullptr; // windows with panels
    double scale_x_ = 1, scale_y_ = 1;
    bool mirroring_ = false; // the program moves the focus, not the operator
    bool size_due_ = false, layout_due_ = true, show_due_ = false, was_shown_ = false;
    QWidget* last_stop_ = nullptr; // where the operator last came to by Tab or click
    QObject* pressed_ = nullptr;   // what the mouse button went down on
    std::unordered_map<const Widget*, QWidget*> controls_;
    std::unordered_map<const QObject*, Widget*> models_;
    std::unordered_map<const Widget*, QAction*> actions_;
    std::unique_ptr<Signs> signs_; // goes before the controls that it draws on
};

} // namespace zol::view::qt
