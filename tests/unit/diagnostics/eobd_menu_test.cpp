// The diagnosis menu: protocol search and direction.
#include "monitor/polling.h"
#include "tests/support/logic_fixture.h"
#include "view/windows/form1.h"

namespace zol::tests {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using view::Pointer;

const std::vector<view::Widget*> protocol_items = {
    &form1::mnu_search,         &form1::mnu_KWP2000_fast,   &form1::mnu_KWP2000_slow,
    &form1::mnu_iso9141,        &form1::mnuCAN250KStandard, &form1::mnuCAN250KExtended,
    &form1::mnuCAN500KStandard, &form1::mnuCAN500KExtended, &form1::mnuJ1850vpw,
    &form1::mnuJ1850pwm};

class DiagnosisMenu : public LogicTest {
  protected:
    static std::vector<std::string> marked() {
        std::vector<std::string> names;
        for (const view::Widget* item : protocol_items)
            if (view::checked(*item)) names.push_back(item->name);
        return names;
    }
    void start_with_protocol(int code) {
        unit->memory().set(143, static_cast<std::uint16_t>(code));
        start_connected();
    }
    void start_quietly() {
        start_connected();
        inside_program(monitor::stop_polling);
        run_for(1000);
        forget_wire();
    }
};

TEST_F(DiagnosisMenu, AnImageWithProtocolNoughtMarksTheSearch) {
    start_with_protocol(0);
    EXPECT_THAT(marked(), ElementsAre("mnu_search"));
}

class DiagnosisProtocol : public DiagnosisMenu, public testing::WithParamInterface<int> {};

TEST_P(DiagnosisProtocol, IsTheOneItemMarked) {
    start_with_protocol(GetParam());
    const auto index = static_cast<std::size_t>(GetParam() - 1);
    EXPECT_THAT(marked(), ElementsAre(protocol_items[index]->name));
}

INSTANTIATE_TEST_SUITE_P(Code, DiagnosisProtocol, testing::Range(1, 11));

TEST_F(DiagnosisMenu, AnUnknownProtocolLeavesTheMarkOfTheReadBefore) {
    start_with_protocol(4);
    ASSERT_THAT(marked(), ElementsAre("mnu_iso9141"));
    unit->memory().set(143, 11);
    inside_program([] {
        view::hide(form1::Form1);
        view::show(form1::Form1);
    });
    run_for(8000);
    ASSERT_EQ(link::mirrors.eobd_protocol, 11);
    EXPECT_THAT(marked(), ElementsAre("mnu_iso9141"));
}

TEST_F(DiagnosisMenu, TheSearchWritesOneAndLeavesTheMarks) {
    start_quietly();
    const auto before = marked();
    const auto clicked = now_ms();
    operator_clicks(form1::mnu_search);
    EXPECT_EQ(form1::Form1.look.pointer, Pointer::normal);
    run_for(499);
    EXPECT_TRUE(form1::Timer2.is_on());
    run_for(1);
    EXPECT_FALSE(form1::Timer2.is_on());
    EXPECT_THAT(frames(), ElementsAre(Write(143, 1)));
    EXPECT_EQ(port->sent[0].at_ms - clicked, 200);
    EXPECT_EQ(link::mirrors.eobd_protocol, 1);
    EXPECT_EQ(marked(), before);
    EXPECT_EQ(unit->parameter(143), 1);
}

TEST_F(DiagnosisMenu, TheSearchEndsOnTheProtocolOfTheCar) {
    use_unit({.warm = true, .protocol = 5});
    start_connected();
    operator_clicks(form1::mnu_search);
    run_for(10'000);
    EXPECT_EQ(unit->parameter(143), 5);
}

TEST_F(DiagnosisMenu, TheSearchGoesOutBesideThePolling) {
    start_connected();
    operator_clicks(form1::mnu_search);
    run_for(3000);
    EXPECT_THAT(writes(), ElementsAre(Write(143, 1)));
    EXPECT_TRUE(app::state.poll_enabled);
    EXPECT_GT(frames().size(), 5u);
    EXPECT_EQ(port->sent.back().frame, Send(3));
}

TEST_F(DiagnosisMenu, TheSearchGoesOutThoughItIsMarkedAlready) {
    start_with_protocol(1);
    ASSERT_THAT(marked(), ElementsAre("mnu_search"));
    operator_clicks(form1::mnu_search);
    run_for(1000);
    EXPECT_THAT(writes(), ElementsAre(Write(143, 1)));
}

TEST_F(DiagnosisMenu, TheProtocolsThemselvesOnlyShow) {
    start_quietly();
    const auto before = marked();
    for (view::Widget* item : protocol_items)
        if (item != &form1::mnu_search) operator_clicks(*item);
    run_for(2000);
    EXPECT_THAT(frames(), IsEmpty());
    EXPECT_EQ(marked(), before);
}

TEST_F(DiagnosisMenu, InverseIs257OnTheWireAndOneInTheMirror) {
    start_quietly();
    const auto clicked = now_ms();
    operator_clicks(form1::mnu_direction_inverse_eobd);
    EXPECT_FALSE(view::checked(form1::mnu_direction_inverse_eobd));
    run_for(399);
    EXPECT_EQ(link::mirrors.eobd_direction, 0);
    run_for(201);
    ASSERT_THAT(frames(), ElementsAre(Write(142, 257)));
    EXPECT_THAT(port->sent[0].bytes, ElementsAre(80, 67, 0, 9, 2, 0, 142, 1, 1));
    EXPECT_EQ(port->sent[0].at_ms - clicked, 400);
    EXPECT_EQ(link::mirrors.eobd_direction, 1);
    EXPECT_TRUE(view::checked(form1::mnu_direction_inverse_eobd));
    EXPECT_FALSE(view::checked(form1::mnu_direction_normal_eobd));
}

TEST_F(DiagnosisMenu, NormalIsNought) {
    start_quietly();
    operator_clicks(form1::mnu_direction_inverse_eobd);
    run_for(1000);
    forget_wire();
    operator_clicks(form1::mnu_direction_normal_eobd);
    run_for(1000);
    ASSERT_THAT(frames(), ElementsAre(Write(142, 0)));
    EXPECT_THAT(port->sent[0].bytes, ElementsAre(80, 67, 0, 9, 2, 0, 142, 0, 0));
    EXPECT_EQ(link::mirrors.eobd_direction, 0);
    EXPECT_FALSE(view::checked(form1::mnu_direction_inverse_eobd));
    EXPECT_TRUE(view::checked(form1::mnu_direction_normal_eobd));
}

TEST_F(DiagnosisMenu, TheDirectionKeepsTheKeyboardOffTheAttenuationMeanwhile) {
    start_connected();
    inside_program([] { view::set_focus(form1::Slider_attenuazione); });
    ASSERT_EQ(view::focus(), &form1::Slider_attenuazione);
    for (view::Widget* item :
         {&form1::mnu_direction_inverse_eobd, &form1::mnu_direction_normal_eobd}) {
        operator_clicks(*item);
        EXPECT_EQ(form1::Form1.look.pointer, Pointer::hourglass);
        EXPECT_FALSE(form1::Slider_attenuazione.look.tab_stop);
        EXPECT_NE(view::focus(), &form1::Slider_attenuazione);
        run_for(599);
        EXPECT_EQ(form1::Form1.look.pointer, Pointer::hourglass);
        run_for(1);
        EXPECT_EQ(form1::Form1.look.pointer, Pointer::normal);
        EXPECT_TRUE(form1::Slider_attenuazione.look.tab_stop);
        EXPECT_EQ(view::focus(), &form1::Text2);
        inside_program([] { view::set_focus(form1::Slider_attenuazione); });
    }
}

TEST_F(DiagnosisMenu, TheDirectionLeavesThePollingStopped) {
    start_connected();
    operator_clicks(form1::mnu_direction_inverse_eobd);
    run_for(1000);
    forget_wire();
    run_for(10'000);
    EXPECT_THAT(frames(), IsEmpty());
    EXPECT_FALSE(app::state.poll_enabled);
}

// 257 on the wire comes back as 257 in the image, and any value but 1 is marked "Normal".
TEST_F(DiagnosisMenu, ALaterReadOfTheInverseDirectionMarksNormal) {
    unit->memory().set(142, 257);
    start_connected();
    EXPECT_TRUE(view::checked(form1::mnu_direction_normal_eobd));
    EXPECT_FALSE(view::checked(form1::mnu_direction_inverse_eobd));
}

} // namespace
} // namespace zol::tests
