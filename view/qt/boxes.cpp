#include "view/qt/boxes.h"

#include "view/qt/colours.h"
#include "view/qt/plain_text.h"
#include "view/qt/window_edge.h"
#include "view/timers.h"

#include <QApplication>
#include <QColorDialog>
#include <QGridLayout>
#include <QInputDialog>
#include <QLabel>
#include <QMessageBox>
#include <QScreen>
#include <QSpacerItem>
#include <QWindow>

#include <algorithm>

namespace zol::view::qt {
namespace {

// Width of the title bar's buttons and margins, and of the difference between its font and ours, in
// heights of a line.
constexpr int title_bar_lines = 10;

int width_of_title(const QDialog& box) {
    QFont font = box.font();
    font.setBold(true); // as many desktops have it
    const QFontMetrics metrics(font);
    return metrics.horizontalAdvance(box.windowTitle()) + title_bar_lines * metrics.height();
}

// Only the layout determines the size of a box, so an empty item of the width of the title is added
// to it.
void make_as_wide_as_title(QDialog& box) {
    box.sizeHint(); // makes the layout
    const int width = std::min(width_of_title(box), box.screen()->availableSize().width());
    auto* breadth = new QSpacerItem(width, 0);
    if (auto* grid = qobject_cast<QGridLayout*>(box.layout()))
        grid->addItem(breadth, grid->rowCount(), 0, 1, grid->columnCount());
    else
        box.layout()->addItem(breadth);
}

// The desktop keeps the box above the active window, but the box is not its child, because that
// window may be unloaded first.
void pump_until_answered(QDialog& box) {
    const QWidget* active = QApplication::activeWindow();
    box.setFont(QApplication::font("QDialog"));
    make_as_wide_as_title(box);
    give_edge(box);
    box.setWindowModality(Qt::ApplicationModal);
    box.winId(); // creates the native window, which the next lines need
    if (active && active->windowHandle())
        box.windowHandle()->setTransientParent(active->windowHandle());
    box.show();
    box.activateWindow();
    while (box.isVisible())
        pump();
}

QMessageBox::Icon to_qt(Icon icon) {
    switch (icon) {
    case Icon::none: return QMessageBox::NoIcon;
    case Icon::information: return QMessageBox::Information;
    case Icon::question: return QMessageBox::Question;
    case Icon::exclamation: return QMessageBox::Warning;
    }
    return QMessageBox::NoIcon;
}

} // namespace

Answer ask_message(const MessageBox& box) {
    const bool question = box.buttons == Buttons::yes_no;
    QMessageBox face;
    face.setObjectName("message_box");
    face.setFont(QApplication::font("QDialog")); // sets the size of the icon, too
    face.setTextFormat(Qt::PlainText);
    // The texts separate lines by carriage returns.
    face.setText(QString::fromStdString(box.text).replace('\r', '\n'));
    face.setWindowTitle(plain_title(QString::fromStdString(box.title)));
    face.setIcon(to_qt(box.icon));
    face.setStandardButtons(question ? QMessageBox::Yes | QMessageBox::No : QMessageBox::Ok);
    if (question) face.setEscapeButton(QMessageBox::No); // closing the box is No, too
    if (question && box.no_by_default) face.setDefaultButton(QMessageBox::No);
    pump_until_answered(face);
    if (!question) return Answer::ok;
    return face.standardButton(face.clickedButton()) == QMessageBox::Yes ? Answer::yes : Answer::no;
}

std::string ask_text(const std::string& prompt, const std::string& title) {
    QInputDialog face;
    face.setObjectName("input_box");
    face.setInputMode(QInputDialog::TextInput);
    face.setLabelText(""); // creates the label
    for (QLabel* label : face.findChildren<QLabel*>())
        label->setTextFormat(Qt::PlainText);
    face.setLabelText(plain_caption(QString::fromStdString(prompt)));
    face.setWindowTitle(plain_title(QString::fromStdString(title)));
    pump_until_answered(face);
    return face.result() == QDialog::Accepted ? face.textValue().toStdString() : "";
}

Colour ask_colour(Colour start) {
    QColorDialog face(to_qcolor(start == system_colour ? black : start));
    face.setObjectName("colour_box");
    face.setOption(QColorDialog::DontUseNativeDialog);
    pump_until_answered(face);
    return face.result() == QDialog::Accepted ? to_colour(face.selectedColor()) : start;
}

} // namespace zol::view::qt
