#include "view/qt/test_reason.h"

#include "view/qt/window_face.h"
#include "view/windows/centralina_attiva.h"

#include <QLabel>

namespace zol::view::qt {

using namespace centralina_attiva;

namespace {

// Sets the largest font size at which the text fits, in as many lines as it needs.
void fit_line(QLabel& line, QFont font) {
    constexpr double least_points = 6;
    for (double points = font.pointSizeF();; points -= 0.5) {
        font.setPointSizeF(points);
        const QRect used =
            QFontMetrics(font).boundingRect(line.rect(), Qt::TextWordWrap, line.text());
        if (points <= least_points || line.rect().size().expandedTo(used.size()) == line.size())
            break;
    }
    line.setFont(font);
}

} // namespace

TestReason::TestReason(const WindowFace& dialog, QWidget& content)
    : dialog_(dialog), line_(new QLabel(&content)) {
    line_->setTextFormat(Qt::PlainText);
    line_->setWordWrap(true);
    line_->setAlignment(Qt::AlignCenter);
    line_->hide();
}

// The area between the result and the buttons.
QRect TestReason::place() const {
    const QRect result = dialog_.control(Label2)->geometry();
    const int bottom = dialog_.control(Command_ok)->geometry().top();
    return QRect(result.left(), result.bottom() + 1, result.width(), bottom - result.bottom() - 1);
}

void TestReason::catch_up() {
    const QString text = QString::fromStdString(Label2.look.tip);
    line_->setVisible(!text.isEmpty());
    if (text.isEmpty() || (line_->text() == text && line_->geometry() == place())) return;
    line_->setText(text);
    line_->setGeometry(place());
    QFont font = dialog_.control(Command_test)->font();
    font.setBold(false);
    fit_line(*line_, font);
}

} // namespace zol::view::qt
