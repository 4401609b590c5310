// Shows a message box with the one argument as its text. The launcher uses it for its errors,
// because its terminal output would be lost when it is started from a desktop.
#include "view/qt/application.h"

#include <QApplication>
#include <QMessageBox>

int main(int count, char** arguments) {
    const QString sentence = count > 1 ? QString::fromLocal8Bit(arguments[1]) : QString();
    zol::view::qt::prepare_toolkit();
    QApplication application(count, arguments);
    zol::view::qt::settle_look(application);
    QMessageBox box(QMessageBox::Critical, "ZOL-INJECTION", "");
    box.setTextFormat(Qt::PlainText);
    box.setText(sentence);
    box.exec();
    return 0;
}
