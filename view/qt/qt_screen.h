// The screen on Qt: a WindowFace for each loaded window, the boxes, and the manual.
//
// Input reaches the logic only through the pump: a Qt event just posts the act. So no handler runs
// inside a Qt event, a window can be unloaded while its own button is being clicked, and keys and
// clicks keep their order also in nested waits.
#pragma once

#include "view/qt/key_preview.h"
#include "view/qt/window_face.h"
#include "view/screen.h"

#include <QWidget>

#include <memory>
#include <vector>

namespace zol::view::qt {

class QtScreen : public Screen {
  public:
    QtScreen();

    void window_loaded(Widget& window) override;
    void window_shown(Widget& window, bool shown) override;
    void window_unloaded(Widget& window) override;
    void changed(Widget& widget, Aspect aspect) override;
    void focus_moved(Widget& control_or_window) override;
    Answer message_box(const MessageBox& box) override;
    std::string input_box(const std::string& prompt, const std::string& title) override;
    Colour colour_box(Colour start) override;
    void show_manual(const std::string& file, const std::string& topic) override;
    ScreenSize size() override;

    // Applies changes that were collected since the last call: colours, layouts and shown windows.
    // A lamp that goes off and on within one tick does not blink.
    void catch_up();
    void close_manual() { manual_.reset(); }
    WindowFace* face(const Widget& window) const; // null for a window that is not loaded
    Widget* window_of(const QWidget& top) const;  // null for a box, a list, a menu

  private:
    std::vector<std::unique_ptr<WindowFace>> faces_;
    std::vector<Widget*> recoloured_;
    std::unique_ptr<QWidget> manual_;
    bool any_shown_ = false;
    KeyPreview key_preview_;
};

} // namespace zol::view::qt
