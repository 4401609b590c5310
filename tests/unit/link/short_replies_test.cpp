// Replies that end too early, have any length or repeat the wrong command: what did not arrive
// keeps its value, and a request whose echo is wrong is sent again.
#include "link/first_read.h"

#include "tests/support/image_oracle.h"
#include "tests/support/mirror_oracle.h"
#include "tests/unit/link/crafted_unit.h"

#include <algorithm>

namespace zol::tests {
namespace {

using testing::Each;
using testing::ElementsAre;

constexpr double untouched = -7;

class ShortReplies : public CraftedUnitTest {
  protected:
    void forget_mirrors() {
        for (const auto& row : oracle::mirrors_of_parameters)
            link::mirrors.*row.mirror = untouched;
    }
    // Each word of `words` is taken if it lies wholly within `length` bytes.
    void expect_words_within(std::size_t length, const std::vector<oracle::ImageWord>& words) {
        for (const oracle::ImageWord& word : words) {
            const bool arrived = static_cast<std::size_t>(word.position) + 1 <= length;
            EXPECT_EQ(link::mirrors.*oracle::mirror_of(word.parameter),
                      arrived ? word_at(word.position) : untouched)
                << "position " << word.position << ", image of " << length << " bytes";
        }
    }
    // The read of the dialog path without the dialog; lets as much time pass as this many requests
    // take.
    void read_bare(int tries) {
        forget_wire();
        inside_program(link::read_for_dialog);
        run_for(1600 + tries * 1800);
    }
    void cut_image(const Bytes& whole, std::size_t length) {
        crafted.image = of_length(whole, length);
        forget_mirrors();
    }
    auto images_asked_for() const { return std::ranges::count(frames(), Send(1)); }
};

TEST_F(ShortReplies, WordsAfterTheEndKeepTheirValueOnActivation) {
    crafted.set_firmware(4, 7, 30);
    const Bytes whole = crafted.image;
    read_on_activation();
    for (std::size_t length = 5; length <= 191; ++length) {
        cut_image(whole, length);
        forget_wire();
        read_again();
        EXPECT_EQ(images_asked_for(), 1) << length;
        expect_words_within(length, oracle::read_words_of_family(4));
    }
}

TEST_F(ShortReplies, WordsAfterTheEndKeepTheirValueInTheDialog) {
    crafted.family = 1;
    crafted.version = 7;
    const Bytes whole = crafted.image;
    start_idle();
    for (std::size_t length = 5; length <= 155; ++length) {
        cut_image(whole, length);
        read_bare(1);
        using namespace oracle;
        expect_words_within(length,
                            joined({words_of_both_paths, latency_word, cut_off_words,
                                    lambda_words_of_1, lambda_input_word, extended_words_of_1}));
    }
}

TEST_F(ShortReplies, AnyLengthWithTheRightEchoIsTaken) {
    start_idle();
    for (std::size_t length = 0; length <= 300; ++length) {
        crafted.image.resize(length);
        if (length >= 5) crafted.image[4] = 1;
        app::state.ui_loading = false;
        read_bare(3);
        EXPECT_EQ(images_asked_for(), length >= 5 ? 1 : 3) << length;
        EXPECT_EQ(app::state.ui_loading, length >= 5) << length;
    }
}

TEST_F(ShortReplies, AnyLengthWithAWrongEchoIsRequestedThreeTimes) {
    start_idle();
    forget_mirrors();
    for (std::size_t length = 0; length <= 300; ++length) {
        crafted.image.resize(length);
        if (length >= 5) crafted.image[4] = 3;
        read_bare(3);
        EXPECT_EQ(images_asked_for(), 3) << length;
    }
    expect_words_within(0, oracle::read_words_of_family(4));
    EXPECT_FALSE(app::state.ui_loading);
}

TEST_F(ShortReplies, WrongEchoRepeatsVersionAndImageOnActivation) {
    crafted.image[4] = 7;
    start_program();
    run_for(1200 + 100 * 3200);
    const auto sent = frames();
    ASSERT_EQ(sent.size(), 202U);
    EXPECT_EQ(sent[0], Send(6));
    for (std::size_t i = 1; i < sent.size(); ++i)
        EXPECT_EQ(sent[i], Send(i % 2 == 1 ? 7 : 1)) << i;
    EXPECT_EQ(form1::Form1.look.pointer, view::Pointer::hourglass);
    EXPECT_TRUE(app::state.ui_loading);
    // The read ends once the echo is right.
    crafted.image[4] = 1;
    run_for(10000);
    EXPECT_EQ(form1::Form1.look.pointer, view::Pointer::normal);
    EXPECT_FALSE(app::state.ui_loading);
}

TEST_F(ShortReplies, WrongVersionEchoIsRequestedAgainOnActivation) {
    crafted.reply_to_command(7, [] { return frame_bytes(6, {0, 4, 0, 6, 0, 71, 0}); });
    start_program();
    run_for(1200 + 100 * 1600);
    auto sent = frames();
    ASSERT_EQ(sent.size(), 102U);
    sent.erase(sent.begin());
    EXPECT_THAT(sent, Each(Send(7)));
    EXPECT_EQ(app::state.firmware_text, "");
}

// Reads the version by itself, so that each length takes one exchange.
class VersionOfAnyLength : public CraftedUnitTest {
  protected:
    VersionOfAnyLength() { start_idle(); }
    bool read(const Bytes& reply) {
        crafted.instead = [&reply](int) { return reply; };
        bool taken = false;
        inside_program([&taken] { taken = link::read_version(); });
        run_for(1600);
        return taken;
    }
};

TEST_F(VersionOfAnyLength, TakesWhatArrived) {
    for (std::size_t length = 0; length <= 300; ++length) {
        app::state.ecu_family = 90;
        app::state.ecu_version = 91;
        app::state.ecu_revision = 92;
        app::state.firmware_text = "before";
        EXPECT_EQ(read(of_length(version_reply(4, 6, 71), length)), length >= 5) << length;
        EXPECT_EQ(app::state.ecu_family, length >= 7 ? 4 : 90) << length;
        EXPECT_EQ(app::state.ecu_version, length >= 9 ? 6 : 91) << length;
        EXPECT_EQ(app::state.ecu_revision, length >= 11 ? 71 : 92) << length;
        const std::string text = length < 5    ? "before"
                                 : length < 7  ? ""
                                 : length < 9  ? "4"
                                 : length < 11 ? "4.6"
                                               : "4.6.71";
        EXPECT_EQ(app::state.firmware_text, text) << length;
    }
}

TEST_F(VersionOfAnyLength, WrongEchoChangesNothing) {
    for (std::size_t length = 0; length <= 300; ++length) {
        app::state.firmware_text = "before";
        app::state.ecu_family = 90;
        EXPECT_FALSE(read(Bytes(length, 1))) << length;
        EXPECT_EQ(app::state.firmware_text, "before") << length;
        EXPECT_EQ(app::state.ecu_family, 90) << length;
    }
}

TEST_F(ShortReplies, PresenceReplyOfAnyLengthIsAReply) {
    read_on_activation();
    for (std::size_t length = 1; length <= 300; ++length) {
        crafted.reply_to_command(6, [length] { return Bytes(length, length % 2 ? 6 : 0); });
        forget_wire();
        read_again();
        EXPECT_EQ(images_asked_for(), 1) << length;
        EXPECT_FALSE(centralina_attiva::Centralina_Attiva.loaded) << length;
    }
}

} // namespace
} // namespace zol::tests
