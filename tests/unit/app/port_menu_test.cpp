// The stored port and its menu, which count in three different ways on purpose.
#include "app/app_state.h"
#include "app/settings_file.h"
#include "tests/support/logic_fixture.h"
#include "view/windows/form1.h"

namespace zol::tests {
namespace {

class StoredPort : public LogicTest {
  protected:
    void start_with_port(const std::string& line) {
        write_file("setting.ini", "[General]\nLANGUAGE=uk\n" + line);
        start_program();
        run_for(100);
    }
    // The item with this number in its caption.
    static view::Widget& item(int n) {
        view::Widget* const items[] = {&form1::com1, &form1::com2, &form1::com3, &form1::com4,
                                       &form1::com5, &form1::com6, &form1::com7, &form1::com8};
        return *items[n - 1];
    }
    // Numbers of the ticked items of the port menu.
    static std::vector<int> ticked() {
        std::vector<int> numbers;
        for (int n = 1; n <= 8; ++n)
            if (view::checked(item(n))) numbers.push_back(n);
        return numbers;
    }
};

TEST_F(StoredPort, WithoutAFileIsPort1) {
    std::filesystem::remove(folder / "setting.ini");
    start_program();
    run_for(100);
    EXPECT_THAT(ticked(), testing::ElementsAre(1));
    EXPECT_EQ(app::state.com_port_number, 1);
    EXPECT_EQ(port->number, 1);
    EXPECT_EQ(app::state.current_language, "");
    run_for(5000);
    EXPECT_EQ(app::state.text_colour, "");
    for (view::Widget* item : {&form1::it, &form1::uk, &form1::pl, &form1::fr, &form1::de})
        EXPECT_FALSE(view::checked(*item));
}

TEST_F(StoredPort, ThreeTicksTheHiddenItem) {
    start_with_port("COM=3\n");
    EXPECT_THAT(ticked(), testing::ElementsAre(3));
    EXPECT_FALSE(view::visible(form1::com3));
    EXPECT_EQ(app::state.com_port_number, 3);
    EXPECT_EQ(port->number, 3);
}

class OutsideTheMenu : public StoredPort, public testing::WithParamInterface<const char*> {};

TEST_P(OutsideTheMenu, GivesNumberZero) {
    start_with_port("COM=" + std::string(GetParam()) + "\n");
    EXPECT_THAT(ticked(), testing::IsEmpty());
    EXPECT_EQ(app::state.com_port_number, 0);
}

INSTANTIATE_TEST_SUITE_P(Numbers, OutsideTheMenu,
                         testing::Values("0", "9", "-1", "", "x", "2.5", "99999999999999999999"));

class InTheMenu : public StoredPort, public testing::WithParamInterface<int> {};

TEST_P(InTheMenu, StoredNumberIsTicked) {
    start_with_port("COM=" + std::to_string(GetParam()) + "\n");
    EXPECT_THAT(ticked(), testing::ElementsAre(GetParam()));
    EXPECT_EQ(port->number, GetParam());
}

// As the connection list does, the menu stores one more from COM3 on. COM8 has no handler.
TEST_P(InTheMenu, ItemStoresTheNumberOfTheConnectionList) {
    start_with_port("COM=8\n");
    const int n = GetParam();
    inside_program([n] {
        if (const auto& click = item(n).on.click) click();
    });
    EXPECT_EQ(app::read_setting("COM", ""), std::to_string(n == 8 ? 8 : n < 3 ? n : n + 1));
    EXPECT_EQ(app::state.com_port_number, 8);
    EXPECT_EQ(port->number, 8);
    EXPECT_EQ(port->closed, 0);
    if (n == 8)
        EXPECT_THAT(ticked(), testing::ElementsAre(8));
    else
        EXPECT_THAT(ticked(), testing::ElementsAre(n, 8)) << "COM8 keeps its tick";
}

INSTANTIATE_TEST_SUITE_P(Ports, InTheMenu, testing::Range(1, 9));

TEST_F(StoredPort, OneItemIsTickedAtATime) {
    start_with_port("COM=1\n");
    run_for(20'000);
    for (const int n : {2, 4, 5, 6, 7, 1}) {
        operator_clicks(item(n));
        EXPECT_THAT(ticked(), testing::ElementsAre(n));
    }
}

} // namespace
} // namespace zol::tests
