// What the parts of the mirror check share.
#pragma once

#include "view/widget.h"

#include <QColor>
#include <QString>

#include <string>
#include <vector>

class QAction;
class QWidget;

namespace zol::tests {

class Differences {
  public:
    void add(const view::Widget& widget, const std::string& what);
    // Adds a line if the two are not the same.
    template <typename T>
    void compare(const view::Widget& widget, const char* aspect, const T& on_screen,
                 const T& in_data) {
        if (on_screen == in_data) return;
        add(widget, std::string(aspect) + " is " + written(on_screen) + " on the screen, " +
                        written(in_data) + " in the data");
    }
    std::vector<std::string> lines;

  private:
    static std::string written(const QString& text) { return '"' + text.toStdString() + '"'; }
    static std::string written(const QColor& colour) { return colour.name().toStdString(); }
    static std::string written(bool holds) { return holds ? "yes" : "no"; }
    static std::string written(int number) { return std::to_string(number); }
};

// What the data says once the parents are counted in: a control of a hidden frame is hidden, and
// all of a disabled window is disabled.
bool effectively_visible(const view::Widget& control);
bool effectively_enabled(const view::Widget& widget);
// The tip without markup and line breaks, as the operator reads it, and as the data has it.
QString tip_as_read(const QString& tool_tip);
QString tip_in_data(const view::Widget& widget);

// Colours and pointer, of a window or a control.
void compare_colours(const view::Widget& widget, const QWidget& face, Differences& found);
void compare_pointer(const view::Widget& widget, const QWidget& face, Differences& found);
// All that a control shows. `top` is its window on the screen.
void compare_control(const view::Widget& control, const QWidget& face, const QWidget& top,
                     Differences& found);

} // namespace zol::tests
