// Whole sessions: the tool with a simulated unit through the logbook, and the same session
// replayed.
#include "link/ecu_frames.h"
#include "simulator/bad_line.h"
#include "simulator/control_unit.h"
#include "tests/unit/logbook/forwarding.h"

namespace zol::logbook {
namespace {

namespace fs = std::filesystem;
using link::Command;
using testing::HasSubstr;

class Session : public Forwarding {
  protected:
    Session() { fs::remove(adapter); }

    // The unit takes the place of the adapter.
    std::unique_ptr<sim::RunningProgram> start_unit(std::vector<std::string> words) {
        words.insert(words.end(), {"--link", adapter});
        auto unit = std::make_unique<sim::RunningProgram>(words);
        unit->device();
        return unit;
    }
    Bytes ask(Command command, std::size_t length) {
        EXPECT_TRUE(port.write(link::command_frame(command)));
        return read_port(length);
    }
    std::vector<Bytes> first_read() {
        return {ask(Command::presence, 6),     ask(Command::version, 11),
                ask(Command::read_image, 107), ask(Command::eobd_faults, 19),
                ask(Command::status, 29),      ask(Command::status, 29)};
    }
};

TEST_F(Session, ReplayAnswersAsTheRecordedUnitDid) {
    auto unit = start_unit({"--warm", "--seed", "7"});
    auto program = start();
    ASSERT_EQ(open_as_a_new_tool(), std::nullopt);
    const auto answers = first_read();
    ASSERT_TRUE(port.write(*link::write_frame(3, 1234)));
    ASSERT_TRUE(soon([&] { return recorded().requests.size() == 6 * 5 + 9; }));
    program->signal(SIGTERM);
    EXPECT_EQ(program->exit_code(), 0);
    unit->type("quit");
    EXPECT_EQ(unit->exit_code(), 0);

    auto replay = start_unit({"--replay", recording()});
    ASSERT_EQ(open_as_a_new_tool(), std::nullopt);
    EXPECT_EQ(first_read(), answers);
    ASSERT_TRUE(port.write(*link::write_frame(3, 1234)));
    ASSERT_TRUE(port.write(*link::write_frame(3, 1235)));
    EXPECT_THAT(replay->said_until("no answer\n"), HasSubstr("write PAR_3 = 1235: never recorded"));
}

TEST_F(Session, ShowPrintsWhatTheToolDid) {
    auto unit = start_unit({});
    auto program = start();
    ASSERT_EQ(open_as_a_new_tool(), std::nullopt);
    first_read();
    ASSERT_TRUE(port.write(*link::write_frame(3, 1234)));
    ASSERT_TRUE(soon([&] { return recorded().requests.size() == 6 * 5 + 9; }));
    program->signal(SIGTERM);
    EXPECT_EQ(program->exit_code(), 0);
    EXPECT_THAT(run({"show", recording()}).said,
                testing::AllOf(HasSubstr("→ 1234 (1/1000)"), HasSubstr("unit version 0.2.71"),
                               HasSubstr("6 requests: 6 answered in time, 0 late, 0 lost")));
}

TEST_F(Session, PulledUnitComesBack) {
    auto unit = start_unit({});
    auto program = start();
    ASSERT_EQ(open_as_a_new_tool(), std::nullopt);
    EXPECT_EQ(ask(Command::version, 11).size(), 11u);
    unit->type("unplug");
    EXPECT_TRUE(soon([&] { return !port.write(link::command_frame(Command::status)); }));
    unit->type("plug");
    EXPECT_TRUE(soon([&] { return port.write(link::command_frame(Command::status)); }));
    EXPECT_EQ(read_port(29).size(), 29u);
}

// A session on a bad line, on virtual time; then the same bytes through the logbook.
TEST_F(Session, BadLinePassesByteForByte) {
    lead_adapter_to(cable);
    auto program = start();
    ASSERT_EQ(open_as_a_new_tool(), std::nullopt);
    Bytes sent, received;
    for (std::uint32_t seed = 1; seed <= 8; ++seed) {
        sim::ControlUnit unit({.family = 2, .version = 7, .seed = seed});
        sim::BadLine line(unit, {.seed = seed,
                                 .drop = 0.02,
                                 .doubled = 0.02,
                                 .flip = 0.02,
                                 .insert = 0.02,
                                 .split = 0.05,
                                 .babble = true});
        std::int64_t now_us = 0;
        for (int pass = 0; pass < 25; ++pass) {
            const Bytes request =
                link::command_frame(pass % 5 == 0 ? Command::read_image : Command::status);
            ASSERT_TRUE(port.write(request));
            ASSERT_EQ(cable.receive(request.size()), request);
            sent.insert(sent.end(), request.begin(), request.end());
            line.receive(request, now_us);
            Bytes all;
            for (const std::int64_t end_us = now_us + 400'000; now_us < end_us; now_us += 3000) {
                const Bytes piece = line.take(now_us);
                if (piece.empty()) continue;
                cable.send(piece);
                all.insert(all.end(), piece.begin(), piece.end());
            }
            ASSERT_EQ(read_port(all.size()), all) << "seed " << seed << ", pass " << pass;
            received.insert(received.end(), all.begin(), all.end());
        }
    }
    program->signal(SIGTERM);
    EXPECT_EQ(program->exit_code(), 0);
    EXPECT_EQ(recorded().requests, sent);
    EXPECT_EQ(recorded().replies, received);
}

} // namespace
} // namespace zol::logbook
