#include "view/qt/signs.h"

#include "view/qt/fault_marks.h"
#include "view/qt/live_values.h"
#include "view/qt/test_reason.h"
#include "view/qt/wait_signs.h"
#include "view/qt/window_face.h"
#include "view/windows/centralina_attiva.h"
#include "view/windows/form1.h"

namespace zol::view::qt {

Signs::Signs(const WindowFace& window, QWidget& content)
    : waits_(std::make_unique<WaitSigns>(window, content)) {
    if (&window.model() == &form1::Form1) {
        live_values_ = std::make_unique<LiveValues>(window);
        faults_ = std::make_unique<FaultMarks>(window);
    }
    if (&window.model() == &centralina_attiva::Centralina_Attiva)
        test_reason_ = std::make_unique<TestReason>(window, content);
}

Signs::~Signs() = default;

void Signs::changed(const Widget& widget, Aspect aspect) {
    if (faults_) faults_->changed(widget, aspect);
}

void Signs::catch_up() {
    waits_->catch_up();
    if (live_values_) live_values_->catch_up();
    if (test_reason_) test_reason_->catch_up();
}

} // namespace zol::view::qt
