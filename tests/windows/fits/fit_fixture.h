// The fixture of the tests that nothing is cut off, covered or outside the screen: the program's
// windows on the screen of this run, with a silent port. No time passes, so handlers that run after
// a window's activation are not tested here.
#pragma once

#include "tests/support/silent_port.h"
#include "tests/windows/window_fixture.h"

#include <QTemporaryDir>

#include <string>

namespace zol::view {

// The parameter is the code of the language.
class FitFixture : public WindowFixture, public testing::WithParamInterface<const char*> {
  protected:
    FitFixture();

    // Loads and shows the window, scaled to the screen, in the language of this test.
    void open(Widget& window);
    void settle();
    QWidget& face(const Widget& w) const { return *screen.face(*w.window)->control(w); }

    // Each fault is a failure that names window and widget.
    void expect_window_on_screen(const QWidget& top) const;
    void expect_places(Widget& window) const;
    void expect_texts_whole(Widget& window) const;
    void expect_menus_whole(Widget& window) const;
    void expect_legend_whole(Widget& window) const;
    // The same with each of the longest texts that a label or field can show.
    void expect_longest_texts_whole(Widget& window);
    void expect_all(Widget& window);

  private:
    void expect_text_whole(const Widget& w) const;
    QTemporaryDir folder_;
    tests::SilentPort port_;
};

// For a widget without data, such as a part of a box.
void expect_drawn_whole(QWidget& face, const QString& text, const std::string& name);

} // namespace zol::view
