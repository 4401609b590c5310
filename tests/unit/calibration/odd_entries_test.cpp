// Every numeric entry field with every kind of text that a keyboard can bring.
#include "tests/support/logic_fixture.h"
#include "view/windows/form1.h"
#include "view/windows/form3.h"

namespace zol::tests {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

struct Entry {
    std::string text;
    std::optional<int> sent; // nothing where the number has no form on the wire
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

class OddEntries : public LogicTest {
  protected:
    // Family 3 has every field, and no second telegram that the lambda panel's read cuts into.
    OddEntries() : LogicTest(sim::Options{.family = 3, .version = 7, .revision = 71}) {}

    // The field's own write comes first, if there is one; what follows it has its parameters.
    void expect_each_entry(view::Widget& field, int parameter) {
        for (const Entry& entry : entries) {
            SCOPED_TRACE(field.name + " \"" + entry.text.substr(0, 30) + "\"");
            mark();
            operator_enters(field, entry.text);
            run_for(2500);
            for (const auto& sent : port->sent)
                EXPECT_TRUE(sent.bytes.size() == 9 || sent.frame == Send(3));
            const auto all = writes();
            const bool own = !all.empty() && all[0].number == parameter;
            ASSERT_EQ(own, entry.sent.has_value());
            if (own) {
                EXPECT_EQ(all[0].value, *entry.sent);
            }
            EXPECT_TRUE(view::enabled(field));
            EXPECT_EQ(field.window->look.pointer, view::Pointer::normal);
            EXPECT_EQ(field.look.back, view::white);
            EXPECT_EQ(text(field), entry.text);
        }
        EXPECT_TRUE(screen.message_boxes.empty());
    }
};

TEST_F(OddEntries, AreTakenLenientlyByTheFieldsOfTheSettingsPanel) {
    open_settings();
    expect_each_entry(form1::text_temp_comm, 15);
    expect_each_entry(form1::Text_time_comm, 110);
    expect_each_entry(form1::Text_max_tank, 31);
    expect_each_entry(form1::Text_min_tank, 30);
}

TEST_F(OddEntries, AreTakenLenientlyByTheFieldsOfTheLambdaPanel) {
    start_connected();
    operator_clicks(form1::Command_lambda);
    run_for(2000);
    expect_each_entry(form1::Text_lambda_closed_loop, 36);
    expect_each_entry(form1::Text_lambda_open_loop, 16);
}

TEST_F(OddEntries, AreTakenLenientlyByTheFieldsOfTheChangeoverWindow) {
    open_changeover();
    expect_each_entry(form3::Text_rpm, 121);
    expect_each_entry(form3::Text_press_comm, 22);
    expect_each_entry(form3::Text_123, 123);
    expect_each_entry(form3::Text_124, 124);
}

TEST_F(OddEntries, AreTakenInTensAndHundredsByThePetrolCutOff) {
    open_changeover();
    const std::tuple<std::string, std::optional<int>, std::optional<int>> cases[] = {
        {"", 0, 100},
        {"abc", 0, 100},
        {"-5", 0, 100},
        {"-50", std::nullopt, 100},
        {"700000", std::nullopt, 7000},
        {"99999999", std::nullopt, std::nullopt},
        {std::string(10000, '9'), std::nullopt, std::nullopt},
        {std::string(10000, ' '), 0, 100},
    };
    for (const auto& [typed, tens, hundreds] : cases) {
        SCOPED_TRACE(typed.substr(0, 30));
        mark();
        operator_enters(form3::Text1, typed);
        run_for(1000);
        if (tens)
            EXPECT_THAT(frames(), ElementsAre(Write(47, *tens)));
        else
            EXPECT_THAT(frames(), IsEmpty());
        mark();
        operator_enters(form3::Text2, typed);
        run_for(1000);
        if (hundreds)
            EXPECT_THAT(frames(), ElementsAre(Write(53, *hundreds)));
        else
            EXPECT_THAT(frames(), IsEmpty());
    }
}

// What was typed is held as it is; the fields must be able to show it again.
TEST_F(OddEntries, AreShownAgainWhenTheWindowOpensAnew) {
    open_changeover();
    const std::string endless(10000, '9');
    for (auto* field : {&form3::Text_rpm, &form3::Text_123, &form3::Text_124, &form3::Text1,
                        &form3::Text2, &form3::Text_press_comm}) {
        operator_enters(*field, endless);
        run_for(1000);
    }
    close_changeover();
    reopen_changeover();
    for (auto* field : {&form3::Text_rpm, &form3::Text_123, &form3::Text1, &form3::Text2})
        EXPECT_FALSE(text(*field).empty()) << field->name;
    operator_enters(form3::Text_rpm, "1400");
    run_for(1000);
    EXPECT_THAT(frames(), ElementsAre(Write(121, 1400)));
}

} // namespace
} // namespace zol::tests
