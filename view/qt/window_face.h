// What Qt has for one loaded window: its Qt window, controls and menus. Each is found by its widget
// and has the name of the widget as objectName. It copies changed data to them and posts focus
// changes and clicks to the logic; the data itself is never changed here.
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

// The Qt window of a loaded window; built hidden.
class WindowFace : public QObject {
  public:
    explicit WindowFace(Widget& window);
    ~WindowFace() override;

    Widget& model() const { return model_; }
    QWidget& top() const { return *top_; }
    // `widget` may be the window itself.
    QWidget* control(const Widget& widget) const; // null if there is none
    // Of a menu, menu item or separator; null if there is none.
    QAction* action(const Widget& menu) const;

    // Hides the window at once. It is shown by the next catch_up().
    void show(bool shown);
    // Applies what is due: showing, places and fonts. So a window that is shown and minimised in
    // one handler never appears, and scaling, which sets each place several times, lays the window
    // out once.
    void catch_up();
    // Copies a changed aspect of a widget of this window; places and fonts with the next
    // catch_up().
    void changed(const Widget& widget, Aspect aspect);
    // Sets the focus to the focused control of the model, or to the Qt window itself if that is
    // none or not reachable.
    void follow_focus();
    // Moves the focus by one Tab step if it is on the window or on a control that Tab skips. False
    // if not: then the toolkit handles the key.
    bool tab_from_parking(bool forward);
    // Places every control, scaled to the present size of the window, which the operator may
    // change.
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
    void move_to_centre();
    void became_active();
    double points(const Widget& widget) const;

    Widget& model_;
    std::unique_ptr<QWidget> top_;
    QWidget* content_;            // the parent of the controls
    QMenuBar* bar_ = nullptr;     // null without menus
    KeyLegend* legend_ = nullptr; // null without panels
    double scale_x_ = 1, scale_y_ = 1;
    bool mirroring_ = false; // the program moves the focus now
    bool size_due_ = false, layout_due_ = true, show_due_ = false, was_shown_ = false;
    QWidget* last_stop_ = nullptr; // last Tab stop that the operator focused
    QObject* pressed_ = nullptr;   // control on which the mouse button was pressed
    std::unordered_map<const Widget*, QWidget*> controls_;
    std::unordered_map<const QObject*, Widget*> models_;
    std::unordered_map<const Widget*, QAction*> actions_;
    std::unique_ptr<Signs> signs_; // destroyed before the controls that it draws on
};

} // namespace zol::view::qt
