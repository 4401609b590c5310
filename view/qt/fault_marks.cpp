#include "view/qt/fault_marks.h"

#include "view/qt/colours.h"
#include "view/qt/face.h"
#include "view/qt/fit.h"
#include "view/qt/instrument_style.h"
#include "view/qt/window_face.h"
#include "view/windows/form1.h"

#include <QEvent>
#include <QLabel>
#include <QPainter>
#include <QStyleOptionFocusRect>

#include <algorithm>
#include <array>

namespace zol::view::qt {
namespace {

const std::array<const Widget*, 6> codes = {&form1::lbl_par_1, &form1::lbl_par_2,
                                            &form1::lbl_par_3, &form1::lbl_par_4,
                                            &form1::lbl_par_5, &form1::lbl_par_6};

const Widget* code_of(const QObject* face, const WindowFace& window) {
    const auto it = std::ranges::find_if(
        codes, [&](const Widget* code) { return window.control(*code) == face; });
    return it == codes.end() ? nullptr : *it;
}

bool is_code(const Widget& widget) { return std::ranges::find(codes, &widget) != codes.end(); }

bool is_fault(const Widget& code) { return code.look.text.starts_with('P'); }

// Replaces the painting of the label, including its background.
void draw_no_fault(QLabel& face) {
    constexpr double size_share = 0.7;
    const double corner = face::corner_px * face::measure(face);
    QFont light = face.font();
    light.setBold(false);
    const double least = least_points * 96.0 / face.logicalDpiY();
    light.setPointSizeF(std::max(least, light.pointSizeF() * size_share));
    const QPalette& palette = face.palette();
    const QColor ground = palette.color(QPalette::Active, face.backgroundRole());
    QPainter painter(&face);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(ground);
    painter.drawRoundedRect(face.rect(), corner, corner);
    painter.setFont(light);
    painter.setPen(faded_on(ground, palette.color(QPalette::Active, face.foregroundRole())));
    painter.drawText(face.rect(), Qt::AlignCenter | Qt::TextSingleLine, face.text());
    if (!face.hasFocus()) return;
    QStyleOptionFocusRect option;
    option.initFrom(&face);
    face.style()->drawPrimitive(QStyle::PE_FrameFocusRect, &option, &painter, &face);
}

void draw_fault(QLabel& face, bool explained) {
    QPainter painter(&face);
    const double bar =
        std::max<double>(face::scaled(face::fault_bar_px, face), face.height() / 7.0);
    const double pen = std::max<double>(face::scaled(face::fault_outline_px, face), bar / 2);
    painter.fillRect(QRectF(explained ? pen : 0, 0, bar, face.height()), face::fault);
    if (!explained) return;
    painter.setPen(QPen(face::accent, pen, Qt::SolidLine, Qt::SquareCap, Qt::MiterJoin));
    painter.drawRect(QRectF(face.rect()).adjusted(pen / 2, pen / 2, -pen / 2, -pen / 2));
}

} // namespace

FaultMarks::FaultMarks(const WindowFace& main_window) : window_(main_window) {
    for (const Widget* code : codes)
        main_window.control(*code)->installEventFilter(this);
}

// A click on a code sets the text of the note box. If the box is set by anything else, its text
// explains no code.
void FaultMarks::changed(const Widget& widget, Aspect aspect) {
    if (aspect != Aspect::text) return;
    if (&widget == explained_) explain(nullptr);
    if (&widget != &form1::Text_note_error) return;
    const auto& acts = view_state.acts;
    const auto clicked =
        std::find_if(acts.rbegin(), acts.rend(), [](const Widget* act) { return is_code(*act); });
    const bool by_click = !widget.look.text.empty() && clicked != acts.rend();
    explain(by_click ? *clicked : nullptr);
}

void FaultMarks::explain(const Widget* code) {
    for (const Widget* each : {explained_, code})
        if (each) window_.control(*each)->update();
    explained_ = code;
}

bool FaultMarks::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() != QEvent::Paint) return false;
    const Widget* code = code_of(watched, window_);
    if (!code || code->look.text.empty()) return false;
    auto& face = *static_cast<QLabel*>(watched);
    if (is_fault(*code)) {
        watched->event(event); // the label paints itself first
        draw_fault(face, code == explained_);
    } else {
        draw_no_fault(face);
    }
    return true;
}

} // namespace zol::view::qt
