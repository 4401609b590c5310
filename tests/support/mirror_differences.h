// Shared by the parts of the mirror check.
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
    // Adds a line if they differ.
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

// The data including the parents: a control of a hidden frame is hidden, and a control of a
// disabled window is disabled.
bool effectively_visible(const view::Widget& control);
bool effectively_enabled(const view::Widget& widget);
// The visible text of a tip, without markup and line breaks.
QString tip_as_read(const QString& tool_tip);
QString tip_in_data(const view::Widget& widget);

// Colours and pointer of a window or control.
void compare_colours(const view::Widget& widget, const QWidget& face, Differences& found);
void compare_pointer(const view::Widget& widget, const QWidget& face, Differences& found);
// Everything that a control shows. `top` is its window.
void compare_control(const view::Widget& control, const QWidget& face, const QWidget& top,
                     Differences& found);

} // namespace zol::tests
