// An operator's hands and eyes on the real windows, by the names that widgets bear.
//
// The tour runs on a thread of its own and reaches the windows through the event queue, also while
// a handler of the program waits: an act comes back when it has been taken in, not when its handler
// has ended.
#pragma once

#include <QString>
#include <QStringList>
#include <Qt>

#include <filesystem>
#include <functional>

class QWidget;

namespace zol::tour {

class Hands {
  public:
    explicit Hands(std::filesystem::path pictures) : pictures_(std::move(pictures)) {}

    void click(const QString& name, const QString& window = "Form1");
    void double_click(const QString& name);
    // Pulls the slider's handle with the mouse to about this value.
    void drag(const QString& name, int value, const QString& window = "Form1");
    // Opens the menus on the way and clicks the last: menu({"mnu_Lingua", "de"}).
    void menu(const QStringList& way);
    void choose(const QString& combo, int index, const QString& window = "Form1");
    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier);
    // Clicks into the field, types, and presses Enter.
    void enter(const QString& name, const QString& text, const QString& window = "Form1");
    // Answers the box on view by the text of its button, and its entry field first if it has one.
    void answer(const QString& button, const QString& entry = {});
    void close(const QString& window);

    QString text(const QString& name, const QString& window = "Form1");
    bool shown(const QString& window);
    bool enabled(const QString& name, const QString& window = "Form1");
    bool visible(const QString& name, const QString& window = "Form1");
    int value(const QString& slider, const QString& window = "Form1");
    bool box_on_view();
    QString box_text();

    // Lets time pass.
    static void rest(int ms);
    // Until it holds, or the time is over: then false.
    bool until(const std::function<bool()>& holds, int most_ms = 10000);
    // Notes what was to be seen, and whether it was.
    void see(const std::string& sentence, bool holds);
    // The window on view, or the box above it, or the window named, as the next numbered picture.
    void picture(const std::string& name, const QString& window = {});

    int seen() const { return seen_; }
    int missed() const { return missed_; }
    int pictures() const { return taken_; }

  private:
    // Runs on the windows' thread; comes back when it is done, or waits in its turn.
    static void act(const std::function<void()>& work);
    QWidget* find(const QString& name, const QString& window);

    std::filesystem::path pictures_;
    int seen_ = 0, missed_ = 0, taken_ = 0;
};

} // namespace zol::tour
