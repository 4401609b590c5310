#include "view/qt/wait_signs.h"

#include "view/qt/colours.h"
#include "view/qt/face.h"
#include "view/qt/window_face.h"
#include "view/windows/form1.h"
#include "view/windows/style.h"

#include <QApplication>
#include <QPainter>
#include <QTimerEvent>

#include <algorithm>

namespace zol::view::qt {
namespace {

constexpr int step_ms = 80;          // 12 images per second
constexpr int round_ms = 1800;       // from the left edge to the right one
constexpr double piece_share = 0.15; // of the length of the stripe

bool waits(const Widget& window) {
    const auto is_hourglass = [](const Widget* w) { return w->look.pointer == Pointer::hourglass; };
    return is_hourglass(&window) || std::ranges::any_of(window.controls, is_hourglass);
}

// While the reset shows its question or its final message, it waits for the operator, not for the
// unit.
bool resets_the_unit() {
    const auto& acts = view_state.acts;
    return std::ranges::find(acts, &form1::mnu_reset_centralina) != acts.end() &&
           form1::Form1.look.pointer == Pointer::hourglass && !QApplication::activeModalWidget();
}

QString long_work() {
    if (form1::lbl_tuning.look.visible)
        return QString::fromStdString(form1::lbl_tuning.look.text).trimmed();
    if (resets_the_unit())
        return QString::fromStdString(form1::mnu_reset_centralina.look.text).trimmed();
    return {};
}

// The label's own background if `ink` is legible on it, else black or white. So the text keeps the
// colour that the label has, also where black and a colour alternate.
QColor ground_for(const QColor& own, const QColor& ink) {
    for (const QColor& ground : {own, QColor(Qt::black)})
        if (face::readable(ground, ink) == ink) return ground;
    return Qt::white;
}

} // namespace

WaitStripe::WaitStripe(QWidget& parent) : QWidget(&parent) {
    setAttribute(Qt::WA_TransparentForMouseEvents);
    setAttribute(Qt::WA_OpaquePaintEvent);
    hide();
}

int WaitStripe::thickness() const {
    constexpr double at_4_px = 1366;
    return std::max(4, qRound(4 * window()->width() / at_4_px));
}

void WaitStripe::run(bool running) {
    if (running == clock_.isActive()) return;
    if (running) {
        since_.start();
        clock_.start(step_ms, Qt::CoarseTimer, this);
    } else {
        clock_.stop();
    }
    setVisible(running);
}

void WaitStripe::timerEvent(QTimerEvent*) { update(); }

void WaitStripe::paintEvent(QPaintEvent*) {
    const double piece = width() * piece_share;
    const double at = static_cast<double>(since_.elapsed() % round_ms) / round_ms;
    QPainter painter(this);
    painter.fillRect(rect(), face::rule);
    painter.fillRect(QRectF(at * (width() + piece) - piece, 0, piece, height()), face::accent);
}

WaitBand::WaitBand(const WindowFace& main_window, QWidget& parent)
    : QWidget(&parent), window_(main_window), stripe_(new WaitStripe(*this)) {
    setAttribute(Qt::WA_TransparentForMouseEvents);
    setAttribute(Qt::WA_OpaquePaintEvent);
    hide();
}

// The area between the panels and the service records, left of the buttons that are visible there.
QRect WaitBand::place() const {
    const auto face = [this](const Widget& widget) { return window_.control(widget)->geometry(); };
    constexpr int gap = 2;
    QRect all;
    all.setLeft(face(form1::lbl_min).left());
    all.setTop(face(form1::frame_engine).bottom() + 1 + gap);
    all.setRight(face(form1::lbl_ore).right());
    all.setBottom(face(form1::lbl_min).top() - 1 - gap);
    for (const Widget* button : {&form1::Command1, &form1::Command2, &form1::Command_hyperterminal,
                                 &form1::Command_scarico, &form1::Label_sfondo})
        if (button->look.visible)
            all.setRight(std::min(all.right(), face(*button).left() - 1 - gap));
    return all;
}

void WaitBand::show_text(const QString& text) {
    if (text_ != text) {
        text_ = text;
        setAccessibleName(text);
        update();
    }
    setVisible(!text.isEmpty());
    stripe_->run(!text.isEmpty());
    if (text.isEmpty()) return;
    take_colours();
    if (const QRect now = place(); now != geometry()) setGeometry(now);
    const int thickness = stripe_->thickness();
    stripe_->setGeometry(0, height() - thickness, width(), thickness);
    raise();
}

void WaitBand::take_colours() {
    const bool tuning = form1::lbl_tuning.look.visible;
    const QPalette& of_label = window_.control(form1::lbl_tuning)->palette();
    const QColor ink =
        tuning ? of_label.color(QPalette::Active, QPalette::WindowText) : to_qcolor(windows::ink);
    const QColor own =
        tuning ? of_label.color(QPalette::Active, QPalette::Window) : to_qcolor(windows::straw);
    const QColor ground = ground_for(own, ink);
    if (ink == ink_ && ground == ground_) return;
    ink_ = ink;
    ground_ = ground;
    update();
}

void WaitBand::paintEvent(QPaintEvent*) {
    const QRect room = rect().adjusted(0, 0, 0, -stripe_->height());
    QFont large = window_.control(form1::lbl_tuning)->font();
    large.setBold(true);
    large.setStretch(QFont::AnyStretch);
    for (int pixels = qRound(room.height() * 0.75); pixels > 6; --pixels) {
        large.setPixelSize(pixels);
        if (QFontMetrics(large).horizontalAdvance(text_) <= room.width()) break;
    }
    QPainter painter(this);
    painter.fillRect(rect(), ground_);
    painter.setFont(large);
    painter.setPen(ink_);
    painter.drawText(room, Qt::AlignCenter | Qt::TextSingleLine, text_);
}

WaitSigns::WaitSigns(const WindowFace& window, QWidget& content)
    : window_(window), stripe_(new WaitStripe(content)) {
    if (&window.model() == &form1::Form1) band_ = new WaitBand(window, content);
}

void WaitSigns::catch_up() {
    const bool waiting = waits(window_.model());
    stripe_->run(waiting);
    if (waiting) {
        stripe_->setGeometry(0, 0, stripe_->parentWidget()->width(), stripe_->thickness());
        stripe_->raise();
    }
    if (band_) band_->show_text(long_work());
}

} // namespace zol::view::qt
