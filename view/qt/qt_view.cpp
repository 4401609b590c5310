#include "view/qt/qt_view.h"

#include "view/qt/application.h"
#include "view/qt/qt_platform.h"
#include "view/qt/qt_screen.h"

#include <QApplication>

namespace zol::view::qt {

void run(char* program_name, const std::function<void()>& program) {
    int count = 1;
    char* arguments[] = {program_name, nullptr};
    prepare_toolkit();
    QApplication application(count, arguments);
    settle_look(application);
    QtPlatform platform;
    QtScreen screen;
    platform.before_idle = [&screen] { screen.catch_up(); };
    use_platform(platform);
    use_screen(screen);
    program();
    for (;;)
        pump();
}

} // namespace zol::view::qt
