// Message, input and colour boxes. Timers run while they are open.
#include "tests/windows/window_fixture.h"
#include "view/qt/colours.h"

#include <QColorDialog>
#include <QInputDialog>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>

namespace zol::view {
namespace {

using namespace test_window;

class Boxes : public WindowFixture {
  protected:
    Boxes() {
        open(Sample);
        Timer1.tick = [this] { ++ticks; };
        Timer1.on();
    }

    void answer_with(QMessageBox::StandardButton button) {
        answer<QMessageBox>("message_box", [this, button](QMessageBox& box) {
            shown = box.text() + "|" + box.windowTitle();
            icon = box.icon();
            QTest::mouseClick(box.button(button), Qt::LeftButton);
        });
    }
    QString shown;
    QMessageBox::Icon icon = QMessageBox::NoIcon;
    int ticks = 0;
};

TEST_F(Boxes, MessageTextIsShownUnchanged) {
    answer_with(QMessageBox::Ok);
    EXPECT_EQ(message_box({.text = "a < b & c", .title = "Reset", .icon = Icon::information}),
              Answer::ok);
    EXPECT_EQ(shown, "a < b & c|Reset");
    EXPECT_EQ(icon, QMessageBox::Information);
}

TEST_F(Boxes, CarriageReturnsBreakTheLinesOfAMessage) {
    answer_with(QMessageBox::Ok);
    message_box({.text = "\rfirst\r\rsecond", .title = ""});
    EXPECT_EQ(shown, "\nfirst\n\nsecond|");
}

TEST_F(Boxes, QuestionReturnsTheButtonPressed) {
    const MessageBox question{.text = "start?", .title = "", .buttons = Buttons::yes_no};
    answer_with(QMessageBox::Yes);
    EXPECT_EQ(message_box(question), Answer::yes);
    answer_with(QMessageBox::No);
    EXPECT_EQ(message_box(question), Answer::no);
}

TEST_F(Boxes, ClosedQuestionIsAnsweredNo) {
    const MessageBox question{.text = "start?", .title = "", .buttons = Buttons::yes_no};
    answer<QMessageBox>("message_box", [](QMessageBox& box) { box.close(); });
    EXPECT_EQ(message_box(question), Answer::no);
    answer<QMessageBox>("message_box",
                        [](QMessageBox& box) { QTest::keyClick(&box, Qt::Key_Escape); });
    EXPECT_EQ(message_box(question), Answer::no);
    answer<QMessageBox>("message_box", [](QMessageBox& box) { box.close(); });
    EXPECT_EQ(message_box({.text = "done", .title = ""}), Answer::ok);
}

TEST_F(Boxes, TimersTickWhileABoxIsOpen) {
    int ticks_when_answered = 0;
    Timer3.tick = [&] {
        Timer3.off();
        ticks_when_answered = ticks;
        answer_with(QMessageBox::Ok);
    };
    Timer3.set_interval(120);
    Timer3.on();
    message_box({.text = "wait", .title = ""});
    EXPECT_GE(ticks_when_answered, 2);
}

TEST_F(Boxes, OpenBoxBlocksTheMouseInItsWindow) {
    bool clicked = false;
    Command1.on.click = [&] { clicked = true; };
    answer<QMessageBox>("message_box", [this](QMessageBox& box) {
        QTest::mouseClick(top(Sample).windowHandle(), Qt::LeftButton, {},
                          face(Command1).mapTo(&top(Sample), QPoint(5, 5)));
        box.accept();
    });
    message_box({.text = "first me", .title = ""});
    settle();
    EXPECT_FALSE(clicked);
}

TEST_F(Boxes, InputBoxReturnsTheEntryOnlyIfAccepted) {
    answer<QInputDialog>("input_box", [this](QInputDialog& box) {
        shown = box.labelText() + "|" + box.windowTitle();
        QTest::keyClicks(box.findChild<QLineEdit*>(), "107");
        QTest::keyClick(&box, Qt::Key_Return);
    });
    EXPECT_EQ(input_box("Digita il Parametro", "Modifica"), "107");
    EXPECT_EQ(shown, "Digita il Parametro|Modifica");
    answer<QInputDialog>("input_box", [](QInputDialog& box) {
        QTest::keyClicks(box.findChild<QLineEdit*>(), "108");
        box.close();
    });
    EXPECT_EQ(input_box("Digita il Parametro", "Modifica"), "");
}

TEST_F(Boxes, CancelledColourBoxReturnsTheOldColour) {
    answer<QColorDialog>("colour_box", [](QColorDialog& box) {
        EXPECT_EQ(qt::to_colour(box.currentColor()), rgb(10, 20, 30));
        box.setCurrentColor(QColor(1, 2, 3));
        box.accept();
    });
    EXPECT_EQ(colour_box(rgb(10, 20, 30)), rgb(1, 2, 3));
    answer<QColorDialog>("colour_box", [](QColorDialog& box) {
        box.setCurrentColor(QColor(1, 2, 3));
        box.reject();
    });
    EXPECT_EQ(colour_box(rgb(10, 20, 30)), rgb(10, 20, 30));
}

TEST_F(Boxes, BoxHasAnEdgeOfHighContrast) {
    const auto expect_edge = [](QWidget& box) {
        const QImage image = box.grab().toImage();
        const QColor ground = box.palette().color(QPalette::Window);
        for (const QPoint at :
             {QPoint(0, 0), QPoint(0, box.height() / 2), QPoint(box.width() / 2, 0),
              QPoint(box.width() - 1, 40), QPoint(box.width() / 2, box.height() - 1)})
            EXPECT_GE(qt::contrast(image.pixelColor(at), ground), 3)
                << box.objectName().toStdString() << at.x() << ", " << at.y();
    };
    answer<QMessageBox>("message_box", [&](QMessageBox& box) { expect_edge(box), box.accept(); });
    message_box({.text = "done", .title = ""});
    answer<QInputDialog>("input_box", [&](QInputDialog& box) { expect_edge(box), box.accept(); });
    input_box("Digita il Parametro", "Modifica");
    answer<QColorDialog>("colour_box", [&](QColorDialog& box) { expect_edge(box), box.reject(); });
    colour_box(red);
}

TEST_F(Boxes, BoxHasTheFontSizeOfTheActiveWindow) {
    top(Sample).resize(top(Sample).size() * 2);
    settle();
    const double ordinary = face(Check1).font().pointSizeF();
    EXPECT_GT(ordinary, 12);
    answer<QMessageBox>("message_box", [&](QMessageBox& box) {
        EXPECT_NEAR(box.findChild<QLabel*>("qt_msgbox_label")->font().pointSizeF(), ordinary, 1);
        const QWidget* button = box.button(QMessageBox::Yes);
        EXPECT_NEAR(button->font().pointSizeF(), ordinary, 1);
        EXPECT_GE(button->height(), 2 * button->fontMetrics().height());
        box.accept();
    });
    message_box({.text = "start?", .title = "", .buttons = Buttons::yes_no});
}

TEST_F(Boxes, SecondBoxOpensAboveTheFirst) {
    std::vector<std::string> order;
    Timer3.tick = [&] {
        Timer3.off();
        answer<QInputDialog>("input_box", [](QInputDialog& box) { box.accept(); });
        input_box("second", "");
        order.push_back("second");
        answer_with(QMessageBox::Ok);
    };
    Timer3.on();
    message_box({.text = "first", .title = ""});
    order.push_back("first");
    EXPECT_THAT(order, ::testing::ElementsAre("second", "first"));
}

TEST_F(Boxes, WindowCanCloseWhileItsBoxIsOpen) {
    open(Dialog);
    Timer3.tick = [&] {
        Timer3.off();
        unload(Dialog);
        answer_with(QMessageBox::Ok);
    };
    Timer3.on();
    EXPECT_EQ(message_box({.text = "over the dialog", .title = ""}), Answer::ok);
}

} // namespace
} // namespace zol::view
