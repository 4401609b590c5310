// The diagnosis menu: protocol search and direction.
#include "monitor/polling.h"
#include "tests/support/frames.h"
#include "tests/support/logic_fixture.h"
#include "view/windows/form1.h"

namespace zol::tests {
namespace {

using namespace form1;

// In the order of the codes, from 1.
const std::vector<view::Widget*> protocol_items = {
    &mnu_search,         &mnu_KWP2000_fast,   &mnu_KWP2000_slow,   &mnu_iso9141,
    &mnuCAN250KStandard, &mnuCAN250KExtended, &mnuCAN500KStandard, &mnuCAN500KExtended,
    &mnuJ1850vpw,        &mnuJ1850pwm};

std::vector<const view::Widget*> marked() {
    std::vector<const view::Widget*> items;
    std::ranges::copy_if(protocol_items, std::back_inserter(items),
                         [](const view::Widget* item) { return view::checked(*item); });
    return items;
}

class DiagnosisMenu : public LogicTest {
  protected:
    void start_with_protocol(int code) {
        unit->memory().set(143, static_cast<std::uint16_t>(code));
        start_connected();
    }
};

// --- Protocol

TEST_F(DiagnosisMenu, Protocol0MarksTheSearch) {
    start_with_protocol(0);
    EXPECT_THAT(marked(), ElementsAre(&mnu_search));
}

class DiagnosisProtocol : public DiagnosisMenu, public testing::WithParamInterface<int> {};

TEST_P(DiagnosisProtocol, IsTheOneItemMarked) {
    start_with_protocol(GetParam());
    EXPECT_THAT(marked(), ElementsAre(protocol_items[static_cast<std::size_t>(GetParam() - 1)]));
}

INSTANTIATE_TEST_SUITE_P(Code, DiagnosisProtocol, testing::Range(1, 11));

TEST_F(DiagnosisMenu, UnknownProtocolLeavesTheMark) {
    start_with_protocol(4);
    ASSERT_THAT(marked(), ElementsAre(&mnu_iso9141));
    unit->memory().set(143, 11);
    inside_program([] {
        view::hide(Form1);
        view::show(Form1);
    });
    run_for(8000);
    ASSERT_EQ(link::mirrors.eobd_protocol, 11);
    EXPECT_THAT(marked(), ElementsAre(&mnu_iso9141));
}

TEST_F(DiagnosisMenu, SearchWrites1) {
    start_quietly();
    const auto before = marked();
    operator_clicks(mnu_search);
    EXPECT_FALSE(busy(Form1));
    EXPECT_EQ(ms_until([] { return !Timer2.is_on(); }), 500);
    EXPECT_THAT(timed(), ElementsAre(At(200, Write(143, 1))));
    EXPECT_EQ(link::mirrors.eobd_protocol, 1);
    EXPECT_EQ(marked(), before);
    EXPECT_EQ(unit->parameter(143), 1);
}

TEST_F(DiagnosisMenu, SearchEndsOnTheProtocolOfTheCar) {
    use_unit({.warm = true, .protocol = 5});
    start_connected();
    operator_clicks(mnu_search, 10'000ms);
    EXPECT_EQ(unit->parameter(143), 5);
}

TEST_F(DiagnosisMenu, SearchLeavesThePollingRunning) {
    start_connected();
    operator_clicks(mnu_search, 3000ms);
    EXPECT_THAT(writes(), ElementsAre(Write(143, 1)));
    EXPECT_TRUE(app::state.poll_enabled);
    EXPECT_GT(frames().size(), 5u);
    EXPECT_EQ(frames().back(), Send(3));
}

TEST_F(DiagnosisMenu, MarkedSearchWritesAgain) {
    start_with_protocol(1);
    ASSERT_THAT(marked(), ElementsAre(&mnu_search));
    operator_clicks(mnu_search, 1000ms);
    EXPECT_THAT(writes(), ElementsAre(Write(143, 1)));
}

TEST_F(DiagnosisMenu, ProtocolItemsDoNothing) {
    start_quietly();
    const auto before = marked();
    for (view::Widget* item : protocol_items)
        if (item != &mnu_search) operator_clicks(*item);
    run_for(2000);
    EXPECT_THAT(frames(), IsEmpty());
    EXPECT_EQ(marked(), before);
}

// --- Direction

TEST_F(DiagnosisMenu, InverseIs257OnTheWire) {
    start_quietly();
    operator_clicks(mnu_direction_inverse_eobd);
    EXPECT_FALSE(view::checked(mnu_direction_inverse_eobd));
    run_for(399);
    EXPECT_EQ(link::mirrors.eobd_direction, 0);
    run_for(201);
    ASSERT_THAT(timed(), ElementsAre(At(400, Write(142, 257))));
    EXPECT_EQ(port->sent[0].bytes, write_bytes(142, 257));
    EXPECT_EQ(link::mirrors.eobd_direction, 1) << "1 in the mirror";
    EXPECT_TRUE(view::checked(mnu_direction_inverse_eobd));
    EXPECT_FALSE(view::checked(mnu_direction_normal_eobd));
}

TEST_F(DiagnosisMenu, NormalIs0) {
    start_quietly();
    operator_clicks(mnu_direction_inverse_eobd, 1000ms);
    mark();
    operator_clicks(mnu_direction_normal_eobd, 1000ms);
    ASSERT_THAT(frames(), ElementsAre(Write(142, 0)));
    EXPECT_EQ(link::mirrors.eobd_direction, 0);
    EXPECT_FALSE(view::checked(mnu_direction_inverse_eobd));
    EXPECT_TRUE(view::checked(mnu_direction_normal_eobd));
}

TEST_F(DiagnosisMenu, DirectionTakesTheTabStopOfTheAttenuation) {
    start_connected();
    follow({&Form1, &Slider_attenuazione});
    for (view::Widget* item : {&mnu_direction_inverse_eobd, &mnu_direction_normal_eobd}) {
        inside_program([] { view::set_focus(Slider_attenuazione); });
        ASSERT_TRUE(focused(Slider_attenuazione));
        mark();
        operator_clicks(*item);
        EXPECT_FALSE(focused(Slider_attenuazione));
        run_for(600);
        EXPECT_TRUE(focused(Text2));
        EXPECT_THAT(changes,
                    testing::UnorderedElementsAre(
                        "0 Form1 hourglass", "0 Slider_attenuazione without tab stop",
                        "600 Form1 normal pointer", "600 Slider_attenuazione with tab stop"));
    }
}

TEST_F(DiagnosisMenu, DirectionLeavesThePollingStopped) {
    start_connected();
    operator_clicks(mnu_direction_inverse_eobd, 1000ms);
    EXPECT_THAT(frames_in(10'000), IsEmpty());
    EXPECT_FALSE(app::state.poll_enabled);
}

// The unit returns the 257 that it was sent, and only 1 is marked "Inverse".
TEST_F(DiagnosisMenu, InverseDirectionIsReadBackAsNormal) {
    unit->memory().set(142, 257);
    start_connected();
    EXPECT_TRUE(view::checked(mnu_direction_normal_eobd));
    EXPECT_FALSE(view::checked(mnu_direction_inverse_eobd));
}

} // namespace
} // namespace zol::tests
