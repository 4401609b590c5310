// The parameter dump: its requests, its format, and when it waits without end. Also the prompt that
// writes a parameter by its number.
#include "maintenance/parameter_dump.h"

#include "tests/support/frames.h"
#include "tests/unit/maintenance/dump_fixture.h"
#include "view/windows/form3.h"

#include <csignal>
#include <sys/resource.h>

namespace zol::tests {
namespace {

class ParameterDump : public DumpTest {};

TEST_F(ParameterDump, AsksForTheImageBetweenItsWaits) {
    start_quietly();
    follow({&form1::Form1});
    operator_clicks(form1::mnu_dump_parametri, 1799ms);
    EXPECT_THAT(files_in_log(), IsEmpty());
    run_for(1);
    EXPECT_THAT(files_in_log(), ElementsAre("setting.txt"));
    EXPECT_THAT(timed(), ElementsAre(At(400, Send(1))));
    EXPECT_THAT(changes, ElementsAre("0 Form1 hourglass", "1800 Form1 normal pointer"));
}

TEST_F(ParameterDump, LeavesThePollingStopped) {
    start_connected();
    operator_dumps(10'000);
    EXPECT_THAT(frames_in(5000), IsEmpty());
    EXPECT_FALSE(app::state.poll_enabled);
    EXPECT_EQ(lines(), 51);
}

// After the connection dialog the watchdog restarts the polling during the dump.
TEST_F(ParameterDump, EndsWhileThePollingRuns) {
    start_connected();
    app::state.no_reread = true;
    form1::Timer6.on();
    operator_dumps(20'000);
    EXPECT_EQ(lines(), 51);
    EXPECT_TRUE(app::state.poll_enabled);
}

TEST_F(ParameterDump, AsksUntilTheLambdaPanelIsLeft) {
    use_unit({.family = 4, .version = 7});
    start_connected();
    operator_clicks(form1::Command_lambda, 2000ms);
    mark();
    operator_dumps(30'000);
    EXPECT_THAT(files_in_log(), IsEmpty());
    EXPECT_GE(std::ranges::count(frames(), Send(1)), 15);
    operator_clicks(form1::Command_impostazioni, 5000ms);
    EXPECT_THAT(files_in_log(), ElementsAre("setting.txt"));
}

TEST_F(ParameterDump, AsksAgainUntilTheEchoIsRight) {
    start_quietly();
    port->silent = true;
    operator_dumps(18'000);
    std::vector<Timed> expected;
    for (int i = 0; i < 10; ++i)
        expected.push_back(At(400 + 1800 * i, Send(1)));
    EXPECT_EQ(timed(), expected);
    EXPECT_THAT(files_in_log(), IsEmpty());
    port->silent = false;
    unit->quirks().wrong_echo = 3;
    run_for(1800);
    EXPECT_THAT(files_in_log(), IsEmpty());
    run_for(1800);
    EXPECT_EQ(lines(), 51);
}

TEST_F(ParameterDump, HasALineForEachWholeWordUpTo51) {
    start_quietly();
    for (std::size_t length = 5; length <= 120; ++length) {
        image_is(image_reply(length));
        operator_dumps(1800);
        const auto whole_words = static_cast<std::ptrdiff_t>((length - 5) / 2);
        EXPECT_EQ(lines(), std::min<std::ptrdiff_t>(whole_words, 51)) << length << " bytes";
    }
}

TEST_F(ParameterDump, TakesNoImageOfFourBytes) {
    start_quietly();
    image_is(link::Bytes(4, 1));
    operator_dumps(9000);
    EXPECT_EQ(frames().size(), 5u);
    EXPECT_THAT(files_in_log(), IsEmpty());
}

TEST_F(ParameterDump, ReplacesTheDumpBefore) {
    start_quietly();
    operator_dumps();
    const std::string first = read_text(dump_file);
    set_parameter(1, 4711);
    operator_dumps();
    EXPECT_THAT(read_text(dump_file),
                testing::StartsWith("Par 1  = 4711     moltiplicatore giri "));
    EXPECT_EQ(lines(), 51);
    EXPECT_NE(read_text(dump_file), first);
    EXPECT_THAT(files_in_log(), ElementsAre("setting.txt"));
}

TEST_F(ParameterDump, IsSkippedWithoutALogFolder) {
    start_quietly();
    std::filesystem::remove(folder / "log");
    operator_dumps();
    EXPECT_FALSE(std::filesystem::exists(folder / "log"));
    EXPECT_FALSE(busy(form1::Form1));
}

// With room for 100 bytes. Unlike a small disk, this limit can be set everywhere.
TEST_F(ParameterDump, KeepsTheOldFileAtTheFileSizeLimit) {
    start_quietly();
    write_file(dump_file, "old\n");
    const auto before = std::signal(SIGXFSZ, SIG_IGN);
    rlimit room{};
    ::getrlimit(RLIMIT_FSIZE, &room);
    const rlimit tight{100, room.rlim_max};
    ::setrlimit(RLIMIT_FSIZE, &tight);
    operator_dumps();
    ::setrlimit(RLIMIT_FSIZE, &room);
    std::signal(SIGXFSZ, before);
    EXPECT_EQ(read_text(dump_file), "old\n");
    EXPECT_THAT(files_in_log(), ElementsAre("setting.txt"));
    EXPECT_FALSE(busy(form1::Form1));
    operator_dumps();
    EXPECT_EQ(lines(), 51);
}

TEST_F(ParameterDump, WaitsForAPulledCable) {
    start_quietly();
    operator_clicks(form1::mnu_dump_parametri, 500ms);
    port->unplugged = true;
    run_for(10'000);
    EXPECT_THAT(files_in_log(), IsEmpty());
    port->unplugged = false;
    run_for(4000);
    EXPECT_EQ(lines(), 51);
}

// The fault read closes the port and opens it again, but only after the dump that began in between.
class DumpOnClosedPort : public DumpTest {
  protected:
    void dump_during_a_fault_read() {
        start_connected();
        operator_clicks(form1::Command_diagnosi, 1000ms);
        operator_clicks(form1::cmd_richiesta_par_diagnosi, 100ms);
        ASSERT_FALSE(port->is_open());
        mark();
        operator_dumps(30'000);
        ASSERT_FALSE(port->is_open());
        ASSERT_THAT(frames(), IsEmpty());
        ASSERT_THAT(files_in_log(), IsEmpty());
    }
    void dump_then_open_changeover() {
        dump_during_a_fault_read();
        operator_clicks(form1::Command_impostazioni, 1000ms);
        reopen_changeover();
    }
};

TEST_F(DumpOnClosedPort, EndsWithTheProgram) {
    dump_during_a_fault_read();
    operator_closes(form1::Form1, 600ms);
    EXPECT_TRUE(time.ended());
}

TEST_F(DumpOnClosedPort, EndsWhenAFieldOpensThePort) {
    dump_then_open_changeover();
    operator_enters(form3::Text_rpm, "1500", 5000ms);
    EXPECT_TRUE(port->is_open());
    EXPECT_EQ(unit->parameter(121), 1500);
    EXPECT_THAT(files_in_log(), ElementsAre("setting.txt"));
}

TEST_F(DumpOnClosedPort, GoesOnAfterAnOption) {
    dump_then_open_changeover();
    operator_clicks(form3::opt_acc, 5000ms);
    EXPECT_FALSE(port->is_open());
}

class ParameterPrompt : public LogicTest {
  protected:
    void operator_edits(const std::string& number, const std::string& value) {
        screen.answer_input("Digita il Parametro da Modificare", number);
        screen.answer_input("Inserisci il valore da assegnare al Parametro : ", value);
        inside_program([] { maintenance::edit_parameter(); });
    }
};

TEST_F(ParameterPrompt, WritesTheParameterAtOnce) {
    start_quietly();
    follow({&form1::Form1});
    operator_edits("107", "900");
    run_for(5000);
    EXPECT_THAT(timed(), ElementsAre(At(0, Write(107, 900))));
    EXPECT_THAT(changes, ElementsAre("0 Form1 hourglass", "700 Form1 normal pointer"));
    ASSERT_EQ(screen.input_boxes.size(), 2u);
    EXPECT_EQ(screen.input_boxes[0].prompt, "Digita il Parametro da Modificare");
    EXPECT_EQ(screen.input_boxes[1].prompt, "Inserisci il valore da assegnare al Parametro : 107");
}

TEST_F(ParameterPrompt, LeavesThePollingStopped) {
    start_connected();
    operator_edits("107", "900");
    EXPECT_FALSE(form1::Timer_stato_sistema.is_on());
    run_for(2000);
    EXPECT_THAT(frames_in(5000), IsEmpty());
    EXPECT_FALSE(app::state.poll_enabled);
}

TEST_F(ParameterPrompt, EmptyBoxesWrite0ToParameter0) {
    start_quietly();
    operator_edits("", "");
    run_for(1000);
    EXPECT_THAT(frames(), ElementsAre(Write(0, 0)));
}

TEST_F(ParameterPrompt, NumberWithoutBytesIsNotSent) {
    start_quietly();
    operator_edits("3", "-1");
    run_for(1000);
    operator_edits("70000", "1");
    run_for(1000);
    EXPECT_THAT(frames(), IsEmpty());
    EXPECT_FALSE(busy(form1::Form1));
}

} // namespace
} // namespace zol::tests
