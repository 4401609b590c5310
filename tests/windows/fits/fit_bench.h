// The program's own windows as they stand on the screen that this run was given, with nobody to
// answer at the port. No time passes: what a window does once it is active is not asked for here.
#pragma once

#include "tests/support/silent_port.h"
#include "view/qt/qt_platform.h"
#include "view/qt/qt_screen.h"

#include <QTemporaryDir>
#include <QWidget>

#include <gtest/gtest.h>

#include <string>

namespace zol::view {

// The parameter is the code of the language.
class FitBench : public testing::TestWithParam<const char*> {
  protected:
    FitBench();
    ~FitBench() override;
    // What every test leaves on the screen is what its widgets' data says.
    void TearDown() override;

    // Loads and shows the window, scaled to the screen, in the language of this test.
    void open(Widget& window);
    void settle();
    QWidget& top(Widget& window) const { return screen.face(window)->top(); }
    QWidget& face(const Widget& w) const { return *screen.face(*w.window)->control(w); }

    // What the operator sees now, judged: each fault is a failure that names window and widget.
    void expect_window_on_screen(const QWidget& top) const;
    void expect_places(Widget& window) const;
    void expect_texts_whole(Widget& window) const;
    void expect_menus_whole(Widget& window) const;
    // The same for each of the texts that a label or field may show, one after the other.
    void expect_longest_texts_whole(Widget& window);
    void expect_all(Widget& window);

    qt::QtPlatform platform;
    qt::QtScreen screen;

  private:
    void expect_text_whole(const Widget& w) const;
    QTemporaryDir folder_;
    tests::SilentPort port_;
};

// Where the text of a widget stands that is not the program's own: a window of Qt's parts.
void expect_drawn_whole(QWidget& face, const QString& text, const std::string& name);

} // namespace zol::view
