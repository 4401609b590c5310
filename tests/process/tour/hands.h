// An operator's hands and eyes on the real windows, by the names that widgets bear.
//
// The tour runs on a thread of its own and reaches the windows through the event queue, also while
// a handler of the program waits: an act comes back when it has been taken in, not when its handler
// has ended.
#pragma once

#include "tests/process/tour/tally.h"

#include <QString>
#include <QStringList>
#include <Qt>

#include <filesystem>
#include <functional>
#include <string>
#include <vector>

class QAction;
class QPixmap;
class QWidget;

namespace zol::tour {

class Hands {
  public:
    Hands(std::filesystem::path pictures, Tally& tally)
        : pictures_(std::move(pictures)), tally_(tally) {}

    // --- Hands
    void click(const QString& name, const QString& window = "Form1");
    void double_click(const QString& name);
    // Pulls the slider's handle with the mouse to about this value.
    void drag(const QString& name, int value, const QString& window = "Form1");
    // Opens the menus on the way and clicks the last: menu({"mnu_Lingua", "de"}).
    void menu(const QStringList& way);
    // Closes whatever menus are open.
    void leave_menus();
    void choose(const QString& combo, int index, const QString& window = "Form1");
    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier);
    // Clicks into the field, types, and presses Enter.
    void enter(const QString& name, const QString& text, const QString& window = "Form1");
    // Answers the box on view by the text of its button, and its entry field first if it has one.
    void answer(const QString& button, const QString& entry = {});
    void close(const QString& window);

    // --- Eyes
    QString text(const QString& name, const QString& window = "Form1");
    QString tip(const QString& name);
    bool shown(const QString& window);
    bool enabled(const QString& name, const QString& window = "Form1");
    bool visible(const QString& name, const QString& window = "Form1");
    // An option that is on, a box or a menu item that is ticked.
    bool ticked(const QString& name, const QString& window = "Form1");
    int value(const QString& slider, const QString& window = "Form1");
    bool box_on_view();
    bool menu_open();
    QString box_text();
    // The whole screen, as the next numbered picture.
    void picture(const std::string& name);
    // The same, but not before the screen shows this window as it draws itself: mapped, painted,
    // and covered by no other. False if that moment did not come in time; the picture is taken
    // then.
    bool picture_once_painted(const QString& window, const std::string& name, int most_ms = 5000);

    // --- Patience
    static void rest(int ms);
    // Until it holds, or the time is over: then false.
    bool until(const std::function<bool()>& holds, int most_ms = 10000);
    // Until the window shows the ordinary pointer again.
    void until_idle(const QString& window = "Form1");

    // Notes whether what was to be seen was seen; what was missed is said at once. Then compares
    // the windows with the program's data.
    void see(const std::string& sentence, bool holds);
    // Compares every window on the screen with the program's data; what differs is missed.
    void compare_with_data();
    Tally& tally() { return tally_; }

  private:
    // Runs on the windows' thread; comes back when it is done, or waits in its turn.
    static void act(const std::function<void()>& work);
    static QWidget* find(const QString& name, const QString& window);
    static std::vector<std::string> differences();
    // For the windows' own thread.
    void save(const QPixmap& screen, const std::string& name);
    void note(const QString& name, const QString& window = "Form1");

    std::filesystem::path pictures_;
    Tally& tally_;
};

} // namespace zol::tour
