// A box with a sentence, for the launcher: what it has to say would be lost when a desktop started
// it. The sentence is the one argument.
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
