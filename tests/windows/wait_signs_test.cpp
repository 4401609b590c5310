// The stripe that moves while the pointer is the hourglass, and the band at the bottom of the main
// window that names a long wait.
#include "tests/windows/unit_fixture.h"
#include "view/qt/colours.h"
#include "view/qt/wait_signs.h"

#include <QAbstractButton>
#include <QMenuBar>
#include <QMessageBox>

namespace zol::view {
namespace {

using namespace test_window;

template <typename T>
T* part(QWidget& window, const QWidget* below = nullptr) {
    for (QWidget* child : window.findChildren<QWidget*>())
        if (auto* found = dynamic_cast<T*>(child); found && (!below || child->parent() == below))
            return found;
    return nullptr;
}

class WaitStripe : public WindowFixture {
  protected:
    WaitStripe() { open(Sample), open(Dialog); }
    bool runs(Widget& window) const { return part<qt::WaitStripe>(top(window))->isVisible(); }
};

TEST_F(WaitStripe, RunsWhileAWindowShowsTheHourglass) {
    EXPECT_FALSE(runs(Sample));
    set_pointer(Sample, Pointer::hourglass);
    settle();
    EXPECT_TRUE(runs(Sample));
    EXPECT_FALSE(runs(Dialog));
    set_pointer(Sample, Pointer::normal);
    settle();
    EXPECT_FALSE(runs(Sample));
}

TEST_F(WaitStripe, RunsWhileAButtonShowsTheHourglass) {
    set_pointer(Dialog_ok, Pointer::hourglass);
    settle();
    EXPECT_TRUE(runs(Dialog));
    set_pointer(Dialog_ok, Pointer::custom);
    settle();
    EXPECT_FALSE(runs(Dialog));
}

TEST_F(WaitStripe, MovesDirectlyUnderTheMenuBar) {
    set_pointer(Sample, Pointer::hourglass);
    settle();
    auto& stripe = *part<qt::WaitStripe>(top(Sample));
    const auto* bar = top(Sample).findChild<QMenuBar*>();
    EXPECT_EQ(stripe.mapTo(&top(Sample), QPoint(0, 0)).y(), bar->geometry().bottom() + 1);
    EXPECT_EQ(stripe.height(), 4);
    EXPECT_EQ(stripe.width(), top(Sample).width());
    const QImage first = stripe.grab().toImage();
    run_for(250);
    EXPECT_NE(stripe.grab().toImage(), first);
}

class WaitBand : public UnitFixture {
  protected:
    qt::WaitBand& band() const { return *part<qt::WaitBand>(top(form1::Form1)); }
};

TEST_F(WaitBand, ShowsTheTextOfTheTuningInALargeFont) {
    EXPECT_FALSE(band().isVisible());
    set_visible(form1::lbl_tuning, true);
    set_text(form1::lbl_tuning, "-- WAIT TUNING... --");
    settle();
    EXPECT_TRUE(band().isVisible());
    EXPECT_EQ(band().text(), "-- WAIT TUNING... --");
    EXPECT_TRUE(part<qt::WaitStripe>(top(form1::Form1), &band())->isVisible());
    EXPECT_GE(band().geometry().top(), face(form1::frame_engine).geometry().bottom());
    EXPECT_LE(band().geometry().bottom(), face(form1::lbl_min).geometry().top());
    set_visible(form1::lbl_tuning, false);
    settle();
    EXPECT_FALSE(band().isVisible());
}

TEST_F(WaitBand, BlinksInTheColoursOfTheTuningLabel) {
    set_visible(form1::lbl_tuning, true);
    set_text(form1::lbl_tuning, "-- WAIT TUNING... --");
    const auto count = [&](Colour colour) {
        settle();
        const QImage image = band().grab().toImage();
        int pixels = 0;
        for (int y = 0; y < image.height() - 6; ++y)
            for (int x = 0; x < image.width(); ++x)
                pixels += image.pixelColor(x, y) == qt::to_qcolor(colour);
        return pixels;
    };
    for (const Colour colour : {green, red, yellow}) {
        set_fore(form1::lbl_tuning, black);
        EXPECT_GT(count(black), 50);
        EXPECT_EQ(count(colour), 0);
        set_fore(form1::lbl_tuning, colour);
        EXPECT_GT(count(colour), 50) << colour;
        EXPECT_LT(count(colour), count(black)) << "the text is legible on black";
    }
}

TEST_F(WaitBand, DoesNotCoverButtons) {
    set_visible(form1::lbl_tuning, true);
    set_text(form1::lbl_tuning, "-- WAIT TUNING... --");
    set_visible(form1::Command_scarico, true);
    settle();
    EXPECT_FALSE(band().geometry().intersects(face(form1::Command_scarico).geometry()));
}

TEST_F(WaitBand, NamesTheResetExceptDuringItsQuestion) {
    QString during_question = "?", during_work;
    answer<QMessageBox>("message_box", [&](QMessageBox& box) {
        during_question = band().text();
        QTest::mouseClick(box.button(QMessageBox::Yes), Qt::LeftButton);
    });
    later(4000, [&] { during_work = band().text(); });
    bool over = false;
    action(form1::mnu_reset_centralina).trigger();
    later(4500, [&] {
        answer<QMessageBox>("message_box", [&](QMessageBox& box) {
            EXPECT_EQ(band().text(), "");
            box.accept();
            over = true;
        });
    });
    run_until([&] { return over; }, 60);
    settle();
    EXPECT_EQ(during_question, "");
    EXPECT_EQ(during_work.toStdString(), form1::mnu_reset_centralina.look.text);
    EXPECT_FALSE(band().isVisible());
}

} // namespace
} // namespace zol::view
