// The parameter dump, to the letter, and the prompt that writes a parameter by its number.
#include "maintenance/parameter_dump.h"

#include "tests/unit/maintenance/dump_bench.h"

#include <csignal>
#include <sys/resource.h>
#include <unistd.h>

namespace zol::tests {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using view::Pointer;

class ParameterDump : public DumpBench {
  protected:
    // The tool reads this image, of so many bytes, instead of the unit's own.
    void image_of(std::size_t length) { answer_everything_with(link::Bytes(length, 1)); }
};

TEST_F(ParameterDump, AsksForTheImageBetweenItsWaits) {
    start_quietly();
    const auto clicked = now_ms();
    operator_clicks(form1::mnu_dump_parametri);
    EXPECT_EQ(form1::Form1.look.pointer, Pointer::hourglass);
    run_for(1799);
    EXPECT_THAT(frames(), ElementsAre(Send(1)));
    EXPECT_EQ(port->sent[0].at_ms - clicked, 400);
    EXPECT_THAT(files_in_log(), IsEmpty());
    EXPECT_EQ(form1::Form1.look.pointer, Pointer::hourglass);
    run_for(1);
    EXPECT_THAT(files_in_log(), ElementsAre("setting.txt"));
    EXPECT_EQ(form1::Form1.look.pointer, Pointer::normal);
}

TEST_F(ParameterDump, LeavesThePollingStopped) {
    start_connected();
    fitter_dumps(10'000);
    forget_wire();
    run_for(5000);
    EXPECT_THAT(frames(), IsEmpty());
    EXPECT_FALSE(app::state.poll_enabled);
    EXPECT_EQ(lines(), 51);
}

// On a run that came by the connection dialog the polling comes back in the middle of it.
TEST_F(ParameterDump, BesideThePollingOfTheWatchdogItStillEnds) {
    start_connected();
    app::state.no_reread = true;
    form1::Timer6.on();
    fitter_dumps(20'000);
    EXPECT_EQ(lines(), 51);
    EXPECT_TRUE(app::state.poll_enabled);
}

TEST_F(ParameterDump, BesideTheLambdaPanelsReadItAsksUntilTheSettingsPanelIsOpened) {
    use_unit({.family = 4, .version = 7});
    start_connected();
    operator_clicks(form1::Command_lambda);
    run_for(2000);
    forget_wire();
    fitter_dumps(30'000);
    EXPECT_THAT(files_in_log(), IsEmpty());
    const auto asked = frames();
    EXPECT_GE(std::count(asked.begin(), asked.end(), Send(1)), 15);
    operator_clicks(form1::Command_impostazioni);
    run_for(5000);
    EXPECT_THAT(files_in_log(), ElementsAre("setting.txt"));
}

// That read closes the port and opens it anew, and comes to its opening only behind the dump.
TEST_F(ParameterDump, WhileTheReadOfTheFaultsHasThePortClosedItAsksAClosedPort) {
    start_connected();
    operator_clicks(form1::Command_diagnosi);
    run_for(1000);
    operator_clicks(form1::cmd_richiesta_par_diagnosi);
    run_for(100);
    ASSERT_FALSE(port->is_open());
    forget_wire();
    fitter_dumps(30'000);
    EXPECT_THAT(frames(), IsEmpty());
    EXPECT_THAT(files_in_log(), IsEmpty());
    EXPECT_FALSE(port->is_open());
    operator_closes(form1::Form1);
    run_for(600);
    EXPECT_TRUE(time.ended());
}

TEST_F(ParameterDump, AsksAgainUntilTheEchoIsRight) {
    start_quietly();
    port->silent = true;
    fitter_dumps(18'000);
    EXPECT_EQ(frames().size(), 10u);
    EXPECT_EQ(port->sent[1].at_ms - port->sent[0].at_ms, 1800);
    EXPECT_THAT(files_in_log(), IsEmpty());
    port->silent = false;
    unit->quirks().wrong_echo = 3;
    run_for(1800);
    EXPECT_THAT(files_in_log(), IsEmpty());
    run_for(1800);
    EXPECT_EQ(lines(), 51);
}

TEST_F(ParameterDump, AShorterImageGivesFewerLinesAndALongerOneNoMore) {
    start_quietly();
    for (std::size_t length = 5; length <= 120; ++length) {
        link::Bytes image(length, 0);
        image[4] = 1;
        port->alter = [image](const link::Bytes&) { return image; };
        fitter_dumps(1800);
        const auto whole_words = static_cast<std::ptrdiff_t>((length - 5) / 2);
        EXPECT_EQ(lines(), std::min<std::ptrdiff_t>(whole_words, 51)) << length << " bytes";
    }
}

TEST_F(ParameterDump, AnImageOfFourBytesIsNone) {
    start_quietly();
    image_of(4);
    fitter_dumps(9000);
    EXPECT_EQ(frames().size(), 5u);
    EXPECT_THAT(files_in_log(), IsEmpty());
}

TEST_F(ParameterDump, TheSecondDumpReplacesTheFirst) {
    start_quietly();
    fitter_dumps();
    const std::string first = read_text(dump_file);
    unit->set_parameter(1, 4711);
    fitter_dumps();
    EXPECT_THAT(read_text(dump_file),
                testing::StartsWith("Par 1  = 4711     moltiplicatore giri "));
    EXPECT_EQ(lines(), 51);
    EXPECT_NE(read_text(dump_file), first);
    EXPECT_THAT(files_in_log(), ElementsAre("setting.txt"));
}

TEST_F(ParameterDump, TheTwoLastLinesCarryTheSameNumber) {
    start_quietly();
    unit->memory().set(152, 1200);
    unit->memory().set(153, 1);
    fitter_dumps();
    EXPECT_THAT(read_text(dump_file),
                testing::EndsWith("Par 152 = 1200      KTAR INFERIORE FISSO COPIA PAR_3\n"
                                  "Par 152 = 1      Cancellazione ERRORI EOBD AUTOM. "
                                  "(0 NON ATTIVA - 1 ATTIVA)\n"));
}

TEST_F(ParameterDump, TheAccentIsOneByte) {
    start_quietly();
    fitter_dumps();
    EXPECT_THAT(read_text(dump_file), testing::HasSubstr("  Filtro per le impurit\xE0 nel seglale "
                                                         "bobina(us)\n"));
}

TEST_F(ParameterDump, AMissingLogFolderLeavesNoFileAndNoMessage) {
    start_quietly();
    std::filesystem::remove(folder / "log");
    fitter_dumps();
    EXPECT_FALSE(std::filesystem::exists(folder / "log"));
    EXPECT_EQ(form1::Form1.look.pointer, Pointer::normal);
}

TEST_F(ParameterDump, AFileMarkedReadOnlyKeepsWhatItHolds) {
    start_quietly();
    write_file(dump_file, "old\n");
    std::filesystem::permissions(folder / dump_file, std::filesystem::perms(0444));
    fitter_dumps();
    EXPECT_EQ(read_text(dump_file), "old\n");
    EXPECT_THAT(files_in_log(), ElementsAre("setting.txt"));
    EXPECT_EQ(form1::Form1.look.pointer, Pointer::normal);
}

// The superuser may write everywhere, so the dump is made as somebody else.
TEST_F(ParameterDump, AClosedLogFolderKeepsTheOldFile) {
    start_quietly();
    write_file(dump_file, "old\n");
    std::filesystem::permissions(folder / "log", std::filesystem::perms(0555));
    const uid_t user = ::geteuid();
    constexpr uid_t nobody = 65534;
    if (user == 0) {
        ASSERT_EQ(::seteuid(nobody), 0);
    }
    fitter_dumps();
    if (user == 0) {
        ASSERT_EQ(::seteuid(user), 0);
    }
    EXPECT_EQ(read_text(dump_file), "old\n");
    EXPECT_THAT(files_in_log(), ElementsAre("setting.txt"));
    EXPECT_EQ(form1::Form1.look.pointer, Pointer::normal);
    std::filesystem::permissions(folder / "log", std::filesystem::perms(0755));
}

// A disk with room for 100 bytes more.
TEST_F(ParameterDump, AFullDiskKeepsTheOldFileWhole) {
    start_quietly();
    write_file(dump_file, "old\n");
    const auto before = std::signal(SIGXFSZ, SIG_IGN);
    rlimit room{};
    ::getrlimit(RLIMIT_FSIZE, &room);
    const rlimit tight{100, room.rlim_max};
    ::setrlimit(RLIMIT_FSIZE, &tight);
    fitter_dumps();
    ::setrlimit(RLIMIT_FSIZE, &room);
    std::signal(SIGXFSZ, before);
    EXPECT_EQ(read_text(dump_file), "old\n");
    EXPECT_THAT(files_in_log(), ElementsAre("setting.txt"));
    EXPECT_EQ(form1::Form1.look.pointer, Pointer::normal);
    fitter_dumps();
    EXPECT_EQ(lines(), 51);
}

TEST_F(ParameterDump, ACablePulledInTheMiddleIsWaitedFor) {
    start_quietly();
    operator_clicks(form1::mnu_dump_parametri);
    run_for(500);
    port->unplugged = true;
    run_for(10'000);
    EXPECT_THAT(files_in_log(), IsEmpty());
    port->unplugged = false;
    run_for(4000);
    EXPECT_EQ(lines(), 51);
}

class ParameterEdit : public ParameterDump {
  protected:
    void fitter_edits(const std::string& number, const std::string& shown_number,
                      const std::string& value) {
        screen.answer_input("Digita il Parametro da Modificare", number);
        screen.answer_input("Inserisci il valore da assegnare al Parametro : " + shown_number,
                            value);
        inside_program([] { maintenance::edit_parameter(); });
    }
};

TEST_F(ParameterEdit, WritesTheParameterByItsNumber) {
    start_quietly();
    const auto began = now_ms();
    fitter_edits("107", "107", "900");
    EXPECT_THAT(frames(), ElementsAre(Write(107, 900)));
    EXPECT_EQ(port->sent[0].at_ms, began);
    run_for(699);
    EXPECT_EQ(form1::Form1.look.pointer, Pointer::hourglass);
    run_for(1);
    EXPECT_EQ(form1::Form1.look.pointer, Pointer::normal);
    EXPECT_FALSE(app::state.poll_enabled);
    ASSERT_EQ(screen.input_boxes.size(), 2u);
    EXPECT_EQ(screen.input_boxes[0].prompt, "Digita il Parametro da Modificare");
    EXPECT_EQ(screen.input_boxes[1].prompt, "Inserisci il valore da assegnare al Parametro : 107");
}

TEST_F(ParameterEdit, LeavesThePollingStopped) {
    start_connected();
    fitter_edits("107", "107", "900");
    EXPECT_FALSE(form1::Timer_stato_sistema.is_on());
    run_for(2000);
    forget_wire();
    run_for(5000);
    EXPECT_THAT(frames(), IsEmpty());
    EXPECT_FALSE(app::state.poll_enabled);
}

TEST_F(ParameterEdit, EmptyBoxesWriteNoughtToParameterNought) {
    start_quietly();
    fitter_edits("", "0", "");
    run_for(1000);
    EXPECT_THAT(frames(), ElementsAre(Write(0, 0)));
}

TEST_F(ParameterEdit, WhatHasNoFrameSendsNothingAndThePointerComesBack) {
    start_quietly();
    fitter_edits("3", "3", "-1");
    run_for(1000);
    fitter_edits("70000", "70000", "1");
    run_for(1000);
    EXPECT_THAT(frames(), IsEmpty());
    EXPECT_EQ(form1::Form1.look.pointer, Pointer::normal);
}

} // namespace
} // namespace zol::tests
