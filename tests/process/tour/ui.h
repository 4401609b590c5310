// Works on the real windows by the names of their widgets: input, their visible state, screenshots,
// and checks. Prints each failed check.
//
// The tour runs on its own thread and reaches the windows through the event queue, also while a
// handler of the program waits: an act returns when the window has received it, not when its
// handler has ended.
#pragma once

#include "tests/process/tour/tally.h"
#include "tests/process/tour/unit_process.h"

#include <QString>
#include <QStringList>
#include <Qt>

#include <filesystem>
#include <functional>
#include <string>
#include <vector>

class QPixmap;
class QWidget;

namespace zol::tour {

void rest(int ms);

class Ui {
  public:
    Ui(std::filesystem::path screenshots, Tally& tally_of_run, UnitProcess& connected_unit)
        : tally(tally_of_run), unit(connected_unit), screenshots_(std::move(screenshots)) {}

    Tally& tally;
    UnitProcess& unit;

    // --- Input: input.cpp
    void click(const QString& name, const QString& window = "Form1");
    void double_click(const QString& name);
    // Drags the slider's handle with the mouse to about this value.
    void drag(const QString& name, int value, const QString& window = "Form1");
    // Opens the menus of the path and clicks the last item: menu({"mnu_Lingua", "de"}).
    void menu(const QStringList& path);
    void close_menus();
    void choose(const QString& combo, int index, const QString& window = "Form1");
    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier);
    // Clicks into the field, types, and presses Enter.
    void enter(const QString& name, const QString& text, const QString& window = "Form1");
    // Answers the open box by the text of its button, after filling its field if it has one.
    void answer(const QString& button, const QString& entry = {});
    void close(const QString& window);

    // --- State: state.cpp
    QString text(const QString& name, const QString& window = "Form1");
    QString tip(const QString& name);
    bool shown(const QString& window);
    bool enabled(const QString& name, const QString& window = "Form1");
    bool visible(const QString& name, const QString& window = "Form1");
    // A selected option, a ticked box or menu item.
    bool ticked(const QString& name, const QString& window = "Form1");
    int value(const QString& slider, const QString& window = "Form1");
    bool box_open();
    bool menu_open();
    QString box_text();

    // --- Screenshots: screenshots.cpp
    // Saves the whole screen under the next number.
    void screenshot(const std::string& name);
    void screenshot_box(const std::string& name); // once a box is open
    // The same once the screen shows the window completely: mapped, painted and not covered.
    // Returns false if that did not happen in time; the screenshot is taken then.
    bool screenshot_once_painted(const QString& window, const std::string& name,
                                 int most_ms = 5000);

    // --- Waiting and checks: checks.cpp
    bool wait_until(const std::function<bool()>& holds, int most_ms = 10000); // false if too late
    void wait_shown(const QString& window);
    void wait_gone(const QString& window);
    // Until the window has the normal pointer again.
    void wait_idle(const QString& window = "Form1");
    void settle(int ms = 200); // the same, and a while longer
    // Counts the check, prints it if it failed, and compares the windows with the program's data.
    void check(const std::string& claim, bool holds);
    // The same once it holds, or when the time is over.
    void expect(const std::string& claim, const std::function<bool()>& holds, int most_ms = 10000);
    void expect_shown(const QString& window, int most_ms = 10000);
    void expect_gone(const QString& window, int most_ms = 10000);
    void expect_panel(const QString& panel);
    // The unit gets this value within a few seconds, and later visits must find it.
    void given(const std::string& act, int number, int value);
    // Uses each control and expects the unit to get the value.
    struct Change {
        const char* control;
        const char* entry; // typed into a field; null: the control is clicked
        int number, value;
        int settle_ms = 200;
    };
    void change(const std::vector<Change>& changes, const QString& window = "Form1");
    // A box with this text opens; answers it.
    void answer_box(const QString& text, const QString& button, const QString& entry = {},
                    int most_ms = 5000);
    // Opens a panel by its button.
    void go_to(const QString& button, const QString& panel);
    // The engine panel, with the polling running.
    void go_home();
    // The tool asks the unit and shows its live values.
    bool values_flow(int most_ms = 8000);
    // Compares every window on the screen with the program's data; each difference is a failed
    // check.
    void compare_with_data();

  private:
    // Runs on the windows' thread; returns when it is done or waits.
    static void act(const std::function<void()>& work);
    template <typename Get>
    static auto ask(Get get) {
        decltype(get()) result{};
        act([&] { result = get(); });
        return result;
    }
    static QWidget* find(const QString& name, const QString& window);
    // For the windows' own thread.
    void save(const QPixmap& screen, const std::string& name);
    void note(const QString& name, const QString& window = "Form1");

    std::filesystem::path screenshots_;
};

} // namespace zol::tour
