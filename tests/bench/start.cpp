// The time and memory from the start of the process to the first painted window. Argument: tool for
// the program's splash window, empty for an empty window with as many widgets, idle for one that
// stays.
#include "app/application_folder.h"
#include "app/program/startup.h"
#include "app/program/wiring.h"
#include "link/posix_serial_port.h"
#include "tests/bench/rows.h"
#include "view/qt/qt_view.h"
#include "view/timers.h"
#include "view/widget.h"

#include <QApplication>
#include <QLabel>

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <string>
#include <unistd.h>

namespace {

using namespace zol;

// Prints time and memory when a top-level window is painted, and ends the process.
class FirstPaint : public QObject {
  public:
    bool eventFilter(QObject* watched, QEvent* event) override {
        auto* widget = qobject_cast<QWidget*>(watched);
        if (event->type() == QEvent::Paint && widget && widget->isWindow()) {
            watched->removeEventFilter(this);
            qApp->removeEventFilter(this);
            widget->grab(); // with all its controls and fonts
            report();
        }
        return false;
    }

  private:
    [[noreturn]] static void report() {
        timespec now{};
        ::clock_gettime(CLOCK_MONOTONIC, &now);
        std::printf("%.3f %.3f\n",
                    static_cast<double>(now.tv_sec) * 1000 + static_cast<double>(now.tv_nsec) / 1e6,
                    bench::resident_mib());
        std::fflush(stdout);
        ::_exit(0);
    }
};

// The splash window loads the main window before either is painted.
std::size_t widgets_at_start() {
    std::size_t count = 0;
    for (const view::Widget* window : view::all_windows())
        if (window->name == "frmSplash" || window->name == "Form1")
            count += window->controls.size();
    return count;
}

void show_tool() {
    static FirstPaint first;
    qApp->installEventFilter(&first);
    app::sub_main();
}

int show_empty(int count, char** arguments, bool stays) {
    QApplication application(count, arguments);
    FirstPaint first;
    if (!stays) application.installEventFilter(&first);
    QWidget window;
    window.resize(675, 560);
    for (std::size_t i = 0; i < widgets_at_start(); ++i)
        (new QLabel(QString::number(i), &window))
            ->setGeometry(10, static_cast<int>(i) * 20, 60, 18);
    window.show();
    return QApplication::exec();
}

} // namespace

int main(int count, char** arguments) {
    const std::string which = count == 2 ? arguments[1] : "";
    if (which == "empty" || which == "idle") return show_empty(count, arguments, which == "idle");
    if (which != "tool") {
        std::fprintf(stderr, "usage: bench_start tool|empty|idle\n");
        return 2;
    }
    app::use_application_folder(std::filesystem::temp_directory_path());
    link::PosixSerialPort port;
    link::use_serial_port(port);
    app::connect_handlers();
    view::qt::run(arguments[0], show_tool);
}
