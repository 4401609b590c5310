// The screen of the tests: it answers boxes as scripted, and reports every other box.
#include "view/headless/headless_screen.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace zol::tests {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using view::Answer;
using view::Buttons;

TEST(HeadlessScreen, UnexpectedQuestionIsReported) {
    view::HeadlessScreen screen;
    EXPECT_EQ(screen.message_box({"Reset all?", "", Buttons::yes_no}), Answer::no);
    EXPECT_EQ(screen.message_box({"Done", ""}), Answer::ok);
    EXPECT_EQ(screen.input_box("Which one?", ""), "");
    EXPECT_EQ(screen.colour_box(view::red), view::red);
    EXPECT_THAT(screen.complaints(), ElementsAre(HasSubstr("Reset all?"), HasSubstr("Done"),
                                                 HasSubstr("Which one?"), HasSubstr("colour")));
}

TEST(HeadlessScreen, UnusedAnswerIsReported) {
    view::HeadlessScreen screen;
    screen.answer_message("Save?", Answer::yes);
    EXPECT_EQ(screen.message_box({"Reset all?", "", Buttons::yes_no}), Answer::no);
    EXPECT_EQ(screen.input_box("Save?", ""), "") << "of another kind";
    EXPECT_THAT(screen.complaints(), testing::Contains(HasSubstr("the answer to: Save?")));
}

TEST(HeadlessScreen, ShownManualsAreRecorded) {
    view::HeadlessScreen screen;
    screen.show_manual("zol.chm", "index.htm");
    EXPECT_THAT(screen.manuals, ElementsAre("zol.chm index.htm"));
    EXPECT_THAT(screen.complaints(), IsEmpty());
}

} // namespace
} // namespace zol::tests
