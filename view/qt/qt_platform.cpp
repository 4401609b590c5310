#include "view/qt/qt_platform.h"

#include <QCoreApplication>
#include <QEvent>
#include <QEventLoop>

#include <algorithm>
#include <chrono>
#include <climits>
#include <cstdio>
#include <cstdlib>

namespace zol::view::qt {

QtPlatform::QtPlatform() {
    wake_.setSingleShot(true);
    wake_.setTimerType(Qt::PreciseTimer);
}

std::int64_t QtPlatform::now_us() {
    using namespace std::chrono;
    return duration_cast<microseconds>(steady_clock::now().time_since_epoch()).count();
}

void QtPlatform::idle(std::int64_t until_us) {
    if (before_idle) before_idle();
    QEventLoop::ProcessEventsFlags flags = QEventLoop::AllEvents;
    const std::int64_t left_us = until_us == forever ? forever : until_us - now_us();
    if (left_us > 0) flags |= QEventLoop::WaitForMoreEvents;
    if (left_us > 0 && left_us != forever)
        wake_.start(static_cast<int>(std::min<std::int64_t>((left_us + 999) / 1000, INT_MAX)));
    ++depth_;
    QCoreApplication::processEvents(flags);
    --depth_;
    wake_.stop();
    // QApplication::exec would do this when it returns, but it is not running.
    if (depth_ == 0) QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

void QtPlatform::end_program() {
    std::fflush(nullptr);
    std::_Exit(EXIT_SUCCESS);
}

} // namespace zol::view::qt
