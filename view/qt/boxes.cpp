#include "view/qt/boxes.h"

#include "view/qt/mirror.h"
#include "view/qt/plain_text.h"
#include "view/qt/window_edge.h"
#include "view/timers.h"

#include <QApplication>
#include <QColorDialog>
#include <QInputDialog>
#include <QLabel>
#include <QMessageBox>
#include <QWindow>

namespace zol::view::qt {
namespace {

// The box belongs to the window beneath it, but is not its child: that window may go first.
void pump_until_answered(QDialog& box) {
    const QWidget* beneath = QApplication::activeWindow();
    box.setFont(QApplication::font("QDialog"));
    give_edge(box);
    box.setWindowModality(Qt::ApplicationModal);
    box.winId(); // makes the native window, which can be given its place above another
    if (beneath && beneath->windowHandle())
        box.windowHandle()->setTransientParent(beneath->windowHandle());
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
    face.setFont(QApplication::font("QDialog")); // the icon follows it
    face.setTextFormat(Qt::PlainText);
    // The texts part their lines by carriage returns.
    face.setText(QString::fromStdString(box.text).replace('\r', '\n'));
    face.setWindowTitle(plain_title(QString::fromStdString(box.title)));
    face.setIcon(to_qt(box.icon));
    face.setStandardButtons(question ? QMessageBox::Yes | QMessageBox::No : QMessageBox::Ok);
    if (question) face.setEscapeButton(QMessageBox::No); // also the frame's
    pump_until_answered(face);
    if (!question) return Answer::ok;
    return face.standardButton(face.clickedButton()) == QMessageBox::Yes ? Answer::yes : Answer::no;
}

std::string ask_text(const std::string& prompt, const std::string& title) {
    QInputDialog face;
    face.setObjectName("input_box");
    face.setInputMode(QInputDialog::TextInput);
    face.setLabelText(""); // which makes the label
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
