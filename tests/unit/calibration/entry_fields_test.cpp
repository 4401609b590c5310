// The number fields of the settings panel, the lambda panel and the changeover window: each is
// marked by a click and written by Enter.
#include "tests/support/logic_fixture.h"
#include "view/windows/form1.h"
#include "view/windows/form3.h"

namespace zol::tests {
namespace {

using namespace form3;
using link::ParameterMirrors;

struct Field {
    view::Widget& field;
    enum class Place { settings, lambda, changeover } place;
    int parameter;
    double ParameterMirrors::*mirror;
    std::string typed;
    int sent;
    int before_ms; // from Enter to the write
    int locked_ms; // from the write to the end
};
void PrintTo(const Field& it, std::ostream* out) { *out << view::full_name(it.field); }
std::string name_of(const testing::TestParamInfo<Field>& info) {
    return info.param.field.window->name + info.param.field.name;
}

constexpr auto settings = Field::Place::settings, lambda = Field::Place::lambda,
               changeover = Field::Place::changeover;

const Field calibration_fields[] = {
    {form1::text_temp_comm, settings, 15, &ParameterMirrors::changeover_temperature, "45x", 45, 0,
     200},
    {form1::Text_time_comm, settings, 110, &ParameterMirrors::changeover_time, "45x", 45, 0, 200},
    {form1::Text_lambda_closed_loop, lambda, 36, &ParameterMirrors::lambda_closed_loop_max, "450",
     450, 200, 200},
    {form1::Text_lambda_open_loop, lambda, 16, &ParameterMirrors::lambda_open_loop_max, "450", 450,
     200, 200},
    {Text_rpm, changeover, 121, &ParameterMirrors::changeover_rpm, "1500", 1500, 0, 800},
    {Text_press_comm, changeover, 22, &ParameterMirrors::changeover_pressure, "900", 900, 0, 800},
    {Text_123, changeover, 123, &ParameterMirrors::cut_off_inj_time, "1234", 1234, 0, 800},
    {Text_124, changeover, 124, &ParameterMirrors::cut_off_rpm, "1600", 1600, 0, 800},
};
const Field petrol_cut_off_fields[] = {
    {form3::Text1, changeover, 47, &ParameterMirrors::petrol_cut_off_rpm, "1234", 123, 0, 400},
    {form3::Text2, changeover, 53, &ParameterMirrors::petrol_cut_off_time, "250", 2, 0, 800},
};
// The thresholds follow the write.
const Field tank_fields[] = {
    {form1::Text_max_tank, settings, 31, &ParameterMirrors::tank_max_mv, "4150", 4150, 0, 2000},
    {form1::Text_min_tank, settings, 30, &ParameterMirrors::tank_min_mv, "3800", 3800, 0, 2000},
};

class EntryField : public LogicTest, public testing::WithParamInterface<Field> {
  protected:
    // Family 3 has every field, and no live data, whose reads delay those of the lambda panel.
    EntryField() : LogicTest({.family = 3, .version = 7, .revision = 71}) {}

    const Field& tested = GetParam();
    view::Widget& field = tested.field;
    view::Widget& window = *field.window;

    void open() {
        if (tested.place == lambda) {
            start_connected();
            operator_clicks(form1::Command_lambda, 2000ms);
            mark();
        } else if (tested.place == changeover) {
            open_changeover();
        } else {
            open_settings();
        }
    }
    std::string at(int ms, const std::string& what) const {
        return std::to_string(ms) + " " + field.name + " " + what;
    }
};

TEST_P(EntryField, ClickMarksTheEmptiedField) {
    open();
    follow({&field});
    operator_clicks(field);
    EXPECT_THAT(changes, ElementsAre(at(0, "marked"), at(0, "back 8421631"), at(0, "says ")));
}

TEST_P(EntryField, TypingWritesNothing) {
    open();
    operator_clicks(field);
    operator_types(field, tested.typed);
    operator_presses(window, '5', 1000ms);
    EXPECT_THAT(writes(), IsEmpty());
    EXPECT_EQ(field.look.back, view::light_red);
}

TEST_P(EntryField, EnterWritesIt) {
    open();
    operator_enters(field, tested.typed, 3000ms);
    EXPECT_EQ(timed_commands().at(0), At(tested.before_ms, Write(tested.parameter, tested.sent)));
    EXPECT_EQ(link::mirrors.*tested.mirror, tested.sent);
    EXPECT_EQ(unit->parameter(tested.parameter), tested.sent);
}

TEST_P(EntryField, IsLockedUntilTheEndOfItsWait) {
    open();
    operator_clicks(field);
    operator_types(field, tested.typed);
    follow({&field});
    mark();
    operator_presses(window, view::operator_acts::enter);
    run_for(tested.before_ms);
    EXPECT_TRUE(busy(window));
    run_for(3000);
    const int end_ms = tested.before_ms + tested.locked_ms;
    EXPECT_THAT(changes,
                ElementsAre(at(tested.before_ms, "disabled"), at(tested.before_ms, "unmarked"),
                            at(tested.before_ms, "back 16777215"), at(end_ms, "enabled")));
    EXPECT_FALSE(busy(window));
}

TEST_P(EntryField, PulledCableLeavesItsTimes) {
    open();
    port->unplugged = true;
    operator_enters(field, "500");
    run_for(tested.before_ms);
    EXPECT_EQ(ms_until([this] { return view::enabled(field); }),
              tested.before_ms + tested.locked_ms);
    EXPECT_FALSE(busy(window));
    EXPECT_THAT(writes(), IsEmpty());
}

INSTANTIATE_TEST_SUITE_P(Calibration, EntryField, testing::ValuesIn(calibration_fields), name_of);
INSTANTIATE_TEST_SUITE_P(PetrolCutOff, EntryField, testing::ValuesIn(petrol_cut_off_fields),
                         name_of);
INSTANTIATE_TEST_SUITE_P(Tank, EntryField, testing::ValuesIn(tank_fields), name_of);

// --- Every kind of text that a keyboard can bring

struct Entry {
    std::string text;
    std::optional<int> sent; // none if the number has no form on the wire
};

const Entry entries[] = {
    {"", 0},
    {"    ", 0},
    {"+120", 120},
    {"-5", std::nullopt},
    {"-0.4", 0},
    {"12.5", 12},
    {"13.5", 14},
    {".9", 1},
    {"1 2 3", 123},
    {"45x", 45},
    {"x45", 0},
    {"12,7", 12},
    {"1e3", 1},
    {"0x10", 0},
    {"65535", 65535},
    {"65535.5", std::nullopt},
    {"65536", std::nullopt},
    {"99999999999999999999999", std::nullopt},
    {"nan", 0},
    {"inf", 0},
    {"\xD9\xA3\xD9\xA4", 0},         // digits of another script
    {"7\xE2\x82\xAC", 7},            // a currency sign
    {"\xF0\x9F\x9A\x97\xFF\xFE", 0}, // a car, and bytes that are no text at all
    {std::string(10000, 'a'), 0},
    {std::string(10000, '9'), std::nullopt},
    {std::string(9999, '0') + "8", 8},
    {"3." + std::string(9998, '1'), 3},
};

class AnyEntry : public EntryField {};

// Its own write comes first, if there is one; other parameters may follow.
TEST_P(AnyEntry, IsReadLeniently) {
    open();
    for (const Entry& entry : entries) {
        SCOPED_TRACE(entry.text.substr(0, 30));
        mark();
        operator_enters(field, entry.text, 2500ms);
        for (const auto& sent : port->sent)
            EXPECT_TRUE(sent.bytes.size() == 9 || sent.frame == Send(3));
        std::optional<int> sent;
        if (!writes().empty() && writes()[0].number == tested.parameter) sent = writes()[0].value;
        EXPECT_EQ(sent, entry.sent);
        EXPECT_TRUE(view::enabled(field));
        EXPECT_EQ(window.look.pointer, view::Pointer::normal);
        EXPECT_EQ(field.look.back, view::white);
        EXPECT_EQ(text(field), entry.text);
    }
    EXPECT_THAT(screen.message_boxes, IsEmpty());
}

INSTANTIATE_TEST_SUITE_P(Calibration, AnyEntry, testing::ValuesIn(calibration_fields), name_of);
INSTANTIATE_TEST_SUITE_P(Tank, AnyEntry, testing::ValuesIn(tank_fields), name_of);

class PetrolCutOff : public LogicTest {
  protected:
    PetrolCutOff() : LogicTest({.family = 3, .version = 7, .revision = 71}) {}

    using Cases = std::vector<std::pair<std::string, std::optional<int>>>; // typed, sent
    void expect_sent(view::Widget& field, int parameter, const Cases& cases) {
        open_changeover();
        for (const auto& [typed, sent] : cases) {
            SCOPED_TRACE(typed.substr(0, 30));
            mark();
            operator_enters(field, typed, 1000ms);
            EXPECT_EQ(frames(), sent ? std::vector{Write(parameter, *sent)} : std::vector<Frame>{});
        }
    }
};

TEST_F(PetrolCutOff, SpeedIsSentInWholeTens) {
    expect_sent(form3::Text1, 47,
                {{"1234", 123},
                 {"9", 0},
                 {"1239.4", 123},
                 {"1239.6", 124},
                 {"", 0},
                 {"abc", 0},
                 {"-5", 0},
                 {"-50", std::nullopt},
                 {"700000", std::nullopt},
                 {std::string(10000, '9'), std::nullopt},
                 {std::string(10000, ' '), 0}});
}

// The floor of 100 is not divided.
TEST_F(PetrolCutOff, TimeIsSentInWholeHundredsOrAs100) {
    expect_sent(form3::Text2, 53,
                {{"50", 100},
                 {"99.9", 100},
                 {"", 100},
                 {"abc", 100},
                 {"-400", 100},
                 {"100", 1},
                 {"250", 2},
                 {"299", 2},
                 {"299.6", 3},
                 {"700000", 7000},
                 {"6553599", 65535},
                 {"99999999", std::nullopt},
                 {std::string(10000, '9'), std::nullopt},
                 {std::string(10000, ' '), 100}});
}

// The fields show again what was typed.
TEST_F(PetrolCutOff, WindowOpensAgainAfterAnEndlessEntry) {
    open_changeover();
    for (auto* field :
         {&Text_rpm, &Text_123, &Text_124, &form3::Text1, &form3::Text2, &Text_press_comm}) {
        operator_enters(*field, std::string(10000, '9'), 1000ms);
    }
    close_changeover();
    reopen_changeover();
    for (auto* field : {&Text_rpm, &Text_123, &form3::Text1, &form3::Text2})
        EXPECT_FALSE(text(*field).empty()) << field->name;
    operator_enters(Text_rpm, "1400", 1000ms);
    EXPECT_THAT(frames(), ElementsAre(Write(121, 1400)));
}

} // namespace
} // namespace zol::tests
