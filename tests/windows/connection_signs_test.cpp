// What the connection dialog shows in addition to its data: the device of each port, and why a test
// failed.
#include "tests/windows/window_fixture.h"
#include "view/windows/centralina_attiva.h"

#include <QAbstractItemView>
#include <QComboBox>
#include <QLabel>

#include <algorithm>

namespace zol::view {
namespace {

using namespace centralina_attiva;

class ConnectionSigns : public WindowFixture {
  protected:
    ConnectionSigns() { open(Centralina_Attiva); }

    // The line under the result; it is the only label without a name here.
    QLabel* reason() const {
        for (QLabel* label : top(Centralina_Attiva).findChildren<QLabel*>())
            if (label->objectName().isEmpty()) return label;
        return nullptr;
    }
    // The darkest shade in the right half of a row of the open list.
    int darkest_at_right(int row) {
        auto* view = face<QComboBox>(Combo1).view();
        const QRect place = view->visualRect(view->model()->index(row, 0));
        const QImage image = view->viewport()->grab(place).toImage();
        int darkest = 255;
        for (int y = 0; y < image.height(); ++y)
            for (int x = image.width() / 2; x < image.width(); ++x)
                darkest = std::min(darkest, qGray(image.pixel(x, y)));
        return darkest;
    }
};

TEST_F(ConnectionSigns, TheOpenListShowsEachPortsDevice) {
    set_items(Combo1, {"COM1", "COM2", "COM4"});
    set_item_notes(Combo1, {{"/dev/ttyUSB0", false}, {"/dev/ttyUSB1", true}, {"", false}});
    settle();
    auto& list = face<QComboBox>(Combo1);
    list.showPopup();
    settle();
    EXPECT_LT(darkest_at_right(0), 60);
    EXPECT_GT(darkest_at_right(1), 60) << "one that is absent is grey";
    EXPECT_LT(darkest_at_right(1), 200);
    EXPECT_GT(darkest_at_right(2), 200) << "nothing is there";
    list.hidePopup();
    EXPECT_EQ(list.itemText(0), "COM1") << "the entry's own text stays";
}

TEST_F(ConnectionSigns, TheOpenListIsWideEnoughForItsDevices) {
    const std::string path = "/dev/serial/by-id/usb-0403_6001_A9Z8Y7X6-if00-port0";
    set_items(Combo1, {"COM1"});
    set_item_notes(Combo1, {{path, false}});
    settle();
    auto& list = face<QComboBox>(Combo1);
    list.showPopup();
    settle();
    EXPECT_GT(list.view()->width(),
              list.fontMetrics().horizontalAdvance("COM1" + QString::fromStdString(path)));
    list.hidePopup();
}

TEST_F(ConnectionSigns, ReasonIsShownUnderTheResult) {
    ASSERT_NE(reason(), nullptr);
    EXPECT_FALSE(reason()->isVisible());
    set_tip(Label2,
            "There is no device /dev/ttyUSB0. Plug in the adapter, or choose another port.");
    settle();
    ASSERT_TRUE(reason()->isVisible());
    EXPECT_EQ(reason()->text().toStdString(), Label2.look.tip);
    EXPECT_GE(reason()->y(), face(Label2).geometry().bottom());
    EXPECT_LT(reason()->geometry().bottom(), face(Command_ok).y());
    set_tip(Label2, "");
    settle();
    EXPECT_FALSE(reason()->isVisible());
}

TEST_F(ConnectionSigns, TheReasonShrinksUntilItFits) {
    set_tip(Label2, "short");
    settle();
    const double ordinary = reason()->font().pointSizeF();
    std::string text;
    for (int word = 0; word < 8; ++word)
        text += std::string(12, 'W') + " ";
    set_tip(Label2, text);
    settle();
    EXPECT_LT(reason()->font().pointSizeF(), ordinary);
    const QRect used =
        reason()->fontMetrics().boundingRect(reason()->rect(), Qt::TextWordWrap, reason()->text());
    EXPECT_LE(used.height(), reason()->height());
    EXPECT_LE(used.width(), reason()->width());
}

} // namespace
} // namespace zol::view
