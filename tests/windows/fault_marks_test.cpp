// How the six fault codes and their notes are shown.
#include "tests/windows/unit_fixture.h"
#include "view/qt/face.h"

#include <QLabel>

namespace zol::view {
namespace {

using namespace form1;

class FaultMarks : public UnitFixture {
  protected:
    FaultMarks() {
        click(face(Command_diagnosi));
        run_for(700);
    }
    void read_faults() {
        click(face(cmd_richiesta_par_diagnosi));
        run_until([] { return cmd_richiesta_par_diagnosi.look.enabled; });
    }
    QColor pixel(Widget& w, int x, int y) const {
        const QImage image = face(w).grab().toImage();
        return image.pixelColor(x < 0 ? image.width() + x : x, y);
    }
    bool has_bar(Widget& w) const {
        const QColor left = pixel(w, 2, face(w).height() / 2);
        return left.red() > 150 && left.green() < 50;
    }
    bool has_outline(Widget& w) const {
        const QColor right = pixel(w, -1, face(w).height() / 2);
        return right.blue() > right.red() + 60;
    }
    // The darkest pixel of a label, and the height of its letters.
    std::pair<int, int> ink_of(Widget& w) const {
        const QImage image = face(w).grab().toImage();
        int darkest = 255, top = image.height(), bottom = 0;
        for (int y = 3; y < image.height() - 3; ++y)
            for (int x = image.width() / 4; x < image.width() * 3 / 4; ++x) {
                const int light = qGray(image.pixel(x, y));
                darkest = std::min(darkest, light);
                if (light < 160) top = std::min(top, y), bottom = std::max(bottom, y);
            }
        return {darkest, bottom - top};
    }
};

TEST_F(FaultMarks, ACodeHasARedBarAtItsLeft) {
    set_text(lbl_par_1, "P0301"), set_text(lbl_par_2, "NO ERROR"), set_text(lbl_par_3, "0");
    settle();
    EXPECT_TRUE(has_bar(lbl_par_1));
    EXPECT_FALSE(has_bar(lbl_par_2));
    EXPECT_FALSE(has_bar(lbl_par_3));
    EXPECT_FALSE(has_bar(lbl_par_4));
}

TEST_F(FaultMarks, NoErrorIsLighterAndSmallerThanACode) {
    set_text(lbl_par_1, "P0301"), set_text(lbl_par_2, "NO ERROR");
    settle();
    EXPECT_GT(ink_of(lbl_par_2).first, ink_of(lbl_par_1).first + 50);
    EXPECT_LT(ink_of(lbl_par_2).second, ink_of(lbl_par_1).second);
    EXPECT_TRUE(face<QLabel>(lbl_par_1).font().bold());
}

TEST_F(FaultMarks, TheExplainedCodeIsOutlined) {
    unit.command("fault add 301", now_us()), unit.command("fault add 171", now_us());
    read_faults();
    EXPECT_FALSE(has_outline(lbl_par_1));
    click(face(lbl_par_1));
    EXPECT_TRUE(has_outline(lbl_par_1));
    click(face(lbl_par_2));
    EXPECT_FALSE(has_outline(lbl_par_1));
    EXPECT_TRUE(has_outline(lbl_par_2));
    click(face(cmd_richiesta_par_diagnosi));
    EXPECT_FALSE(has_outline(lbl_par_2)) << "the box was emptied";
    run_until([] { return cmd_richiesta_par_diagnosi.look.enabled; });
}

TEST_F(FaultMarks, CornersOfAnEmptyPlaceAreScaled) {
    set_text(lbl_par_2, "NO ERROR");
    settle();
    const auto is_cut_at = [&](int distance) {
        const QPoint corner = face(lbl_par_2).mapTo(&top(Form1), QPoint(0, 0));
        const QImage window = top(Form1).grab().toImage();
        const QColor ground = window.pixelColor(corner + QPoint(face(lbl_par_2).width() / 2, 1));
        return window.pixelColor(corner + QPoint(distance, distance)) != ground;
    };
    qt::face::set_measure(top(Form1), 1);
    EXPECT_FALSE(is_cut_at(2));
    qt::face::set_measure(top(Form1), 3);
    EXPECT_TRUE(is_cut_at(2));
}

TEST_F(FaultMarks, TheDescriptionOfACodeHasItsNote) {
    unit.command("fault add 171", now_us());
    read_faults();
    click(face(lbl_par_1));
    for (Widget* w : {&lbl_par_1, &Text_note_error}) {
        set_help(*w, {"", "What it does."});
        ASSERT_NE(w->look.tip, "");
        EXPECT_EQ(face(*w).accessibleDescription().toStdString(), "What it does.\n" + w->look.tip);
    }
}

TEST_F(FaultMarks, TheNoteIsTheTipOfItsCode) {
    unit.command("fault add 171", now_us());
    read_faults();
    const QString tip = face(lbl_par_1).toolTip();
    EXPECT_GT(tip.size(), 100) << tip.toStdString();
    for (const QString& line : tip.split('\n'))
        EXPECT_LE(line.size(), 60) << "can be taken in at once";
    EXPECT_NE(face(lbl_par_2).toolTip(), tip);
    EXPECT_EQ(lbl_par_2.look.tip, "") << "NO ERROR has the help of the place";
}

TEST_F(FaultMarks, TheNoteIsTheTipOfTheBox) {
    unit.command("fault add 171", now_us());
    read_faults();
    EXPECT_EQ(Text_note_error.look.tip, "");
    click(face(lbl_par_1));
    EXPECT_EQ(Text_note_error.look.tip, lbl_par_1.look.tip);
    EXPECT_NE(Text_note_error.look.text, Text_note_error.look.tip);
}

} // namespace
} // namespace zol::view
