// Live values that are no longer read are drawn as stale: dimmed, with a pause mark. The data of
// their widgets does not change.
#include "app/app_state.h"
#include "link/activation.h"
#include "maintenance/factory_reset.h"
#include "monitor/polling.h"
#include "tests/windows/unit_fixture.h"
#include "view/qt/colours.h"

#include <QMessageBox>

#include <algorithm>

namespace zol::view {
namespace {

using namespace form1;

constexpr int past_patience_ms = 2000; // values are fresh for 1500 ms after a read

class LiveValues : public UnitFixture {
  protected:
    QImage picture(Widget& w) const { return face(w).grab().toImage(); }

    // The highest contrast between the background of a label and its lower two thirds, where the
    // digits are.
    static double contrast_of(const QImage& image) {
        const QColor ground = image.pixelColor(2, image.height() - 3);
        double most = 1;
        for (int y = image.height() / 3; y < image.height(); ++y)
            for (int x = 0; x < image.width(); ++x)
                most = std::max(most, qt::contrast(ground, image.pixelColor(x, y)));
        return most;
    }
};

TEST_F(LiveValues, AreFreshWhilePollingGetsReplies) {
    poll();
    run_for(past_patience_ms);
    for (const Widget* value : {&Label_rpm, &Label_tinj, &Label_temp, &Label_lambda, &label_liv2})
        EXPECT_FALSE(is_stale(*value)) << value->name;
}

TEST_F(LiveValues, AreStaleWithTheCableOut) {
    poll();
    const double fresh = contrast_of(picture(Label_rpm));
    const QImage lamp = picture(led_rpm[0]), trace = picture(Picture1);
    const Look before = Label_rpm.look;
    bool seen = false;
    unit.plug(false);
    later(past_patience_ms, [&] {
        EXPECT_TRUE(is_stale(Label_rpm));
        EXPECT_LT(contrast_of(picture(Label_rpm)), 0.6 * fresh) << "the digits are dimmed";
        EXPECT_GT(contrast_of(picture(Label_rpm)), 4) << "can still be read";
        EXPECT_NE(picture(led_rpm[0]), lamp);
        EXPECT_NE(picture(Picture1), trace);
        EXPECT_EQ(Label_rpm.look.text, before.text);
        EXPECT_EQ(Label_rpm.look.fore, before.fore);
        EXPECT_EQ(Label_rpm.look.tip, before.tip);
        expect_mirrored();
        seen = true;
        unit.plug(true);
    });
    run_until([&] { return seen && !is_stale(Label_rpm); });
    EXPECT_NEAR(contrast_of(picture(Label_rpm)), fresh, 0.5);
    EXPECT_FALSE(is_stale(label_liv2));
}

TEST_F(LiveValues, HaveAPauseMarkWhenStale) {
    poll();
    const auto corner = [&] {
        const QImage image = picture(Label_temp);
        return image.copy(image.width() * 3 / 4, 0, image.width() / 4, image.height() / 4);
    };
    const QImage fresh = corner();
    bool seen = false;
    unit.plug(false);
    later(past_patience_ms, [&] {
        EXPECT_NE(corner(), fresh);
        seen = true;
        unit.plug(true);
    });
    run_until([&] { return seen && !is_stale(Label_temp); });
    EXPECT_EQ(corner(), fresh);
}

TEST_F(LiveValues, PauseMarkOfTheTraceIsBetweenItsTexts) {
    set_help(Picture1, {"", ""});
    poll();
    set_text(Picture1, "");
    monitor::stop_polling();
    run_for(past_patience_ms + 500);
    ASSERT_TRUE(is_stale(Picture1));
    const auto top_right = [&] {
        const QImage image = picture(Picture1);
        return image.copy(image.width() / 2, 0, image.width() / 2, 30);
    };
    const auto has_ink = [](const QImage& image) {
        for (int y = 0; y < image.height(); ++y)
            for (int x = 0; x < image.width(); ++x)
                if (qGray(image.pixel(x, y)) > 100) return true;
        return false;
    };
    EXPECT_FALSE(has_ink(top_right())) << "the mark does not cover the centre value";
    EXPECT_TRUE(has_ink(picture(Picture1).copy(0, 0, 60, 30))) << "the mark is after the title";
}

TEST_F(LiveValues, TileHasThePauseMarkInItsTitle) {
    const auto mark_area = [&](Widget& w) {
        const QImage image = picture(w);
        return image.copy(image.width() - 16, 0, 16, 14);
    };
    poll();
    set_text(Label13, "");
    const QImage title = mark_area(Label16), value = mark_area(Label13);
    monitor::stop_polling();
    run_for(past_patience_ms + 500);
    ASSERT_TRUE(is_stale(Label13));
    EXPECT_NE(mark_area(Label16), title);
    EXPECT_EQ(mark_area(Label13), value);
}

TEST_F(LiveValues, FuelSetWithoutATelegramStaysStale) {
    poll();
    monitor::stop_polling();
    run_for(past_patience_ms + 500);
    ASSERT_TRUE(is_stale(Label_carburante));
    set_text(Label_carburante, "LPG");
    settle();
    EXPECT_TRUE(is_stale(Label_carburante));
    poll();
    run_until([&] { return !is_stale(Label_carburante); });
}

TEST_F(LiveValues, AreStaleOnTheSettingsPanel) {
    poll();
    click(face(Command_impostazioni));
    run_for(past_patience_ms + 500); // the panel stops the polling after 200 ms
    EXPECT_TRUE(is_stale(Label_rpm));
    EXPECT_TRUE(is_stale(Label_level_attuale));
    click(face(Command_engine));
    run_until([&] { return !is_stale(Label_rpm); });
}

TEST_F(LiveValues, LambdaAloneIsFreshOnTheLambdaPanel) {
    poll();
    click(face(Command_lambda));
    run_for(past_patience_ms + 500);
    EXPECT_FALSE(is_stale(Label_lambda));
    EXPECT_FALSE(is_stale(label_lambda_2));
    EXPECT_TRUE(is_stale(Label_rpm));
    EXPECT_TRUE(is_stale(Label_temp));
    click(face(Command_engine));
    run_until([&] { return !is_stale(Label_temp); });
}

TEST_F(LiveValues, AreStaleAfterAResetWasSent) {
    poll();
    maintenance::send_reset_only();
    run_for(past_patience_ms);
    EXPECT_TRUE(is_stale(Label_rpm)) << "the polling stays stopped";
    EXPECT_NE(Label_rpm.look.text, "0");
}

// The engine button starts the polling during a repeated first read, and each takes the other's
// replies.
TEST_F(LiveValues, AreStaleWhilePollingDisturbsTheFirstRead) {
    poll();
    Form1.on.activate = link::main_window_activated;
    app::state.controls_coloured = true;
    bool seen = false;
    later(1500, [&] { QTest::mouseClick(&face(Command_engine), Qt::LeftButton); });
    later(5500, [&] {
        EXPECT_TRUE(is_stale(Label_rpm));
        seen = true;
        QTest::mouseClick(&face(Command_impostazioni), Qt::LeftButton);
    });
    later(11500, [&] { QTest::mouseClick(&face(Command_engine), Qt::LeftButton); });
    link::main_window_activated();
    run_until([&] { return seen && !is_stale(Label_rpm); }, 30);
}

} // namespace
} // namespace zol::view
