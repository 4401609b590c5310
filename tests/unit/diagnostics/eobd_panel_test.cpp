// The diagnosis panel: reading, explaining and clearing the faults.
#include "diagnostics/eobd_panel.h"

#include "tests/support/frames.h"
#include "tests/support/logic_fixture.h"
#include "view/windows/form1.h"

namespace zol::tests {
namespace {

using namespace form1;
using diagnostics::fault_code_text;
using testing::Each;
using view::Pointer;

const std::vector<view::Widget*> code_labels = {&lbl_par_1, &lbl_par_2, &lbl_par_3,
                                                &lbl_par_4, &lbl_par_5, &lbl_par_6};

class FaultPanel : public LogicTest {
  protected:
    void open_panel() {
        start_connected();
        operator_clicks(Command_diagnosi, 1000ms);
        mark();
    }
    void operator_reads(int ms = 1300) {
        operator_clicks(cmd_richiesta_par_diagnosi);
        run_for(ms);
    }
    void store_faults(const std::vector<int>& faults) {
        for (const int fault : faults)
            ASSERT_TRUE(sim::add_fault(unit->memory(), fault));
    }
    // The six codes and their number.
    static std::vector<std::string> shown() {
        std::vector<std::string> all;
        for (const view::Widget* label : code_labels)
            all.push_back(text(*label));
        all.push_back(text(lbl_num_errori));
        return all;
    }
    static void set_labels(const std::string& caption) {
        for (view::Widget* label : code_labels)
            view::set_text(*label, caption);
        view::set_text(lbl_num_errori, caption);
    }
    static bool reading() { return !view::enabled(cmd_richiesta_par_diagnosi); }
};

TEST(FaultCode, HasFourDigitsWithAGapFrom1000To2000) {
    const std::pair<int, const char*> codes[] = {
        {0, "NO ERROR"}, {1, "P0001"},   {9, "P0009"},    {10, "P0010"},
        {99, "P0099"},   {100, "P0100"}, {999, "P0999"},  {1000, ""},
        {1500, ""},      {2000, ""},     {2001, "P2001"}, {25755, "P25755"}};
    for (const auto& [number, code] : codes)
        EXPECT_EQ(fault_code_text(number), code) << number;
}

// --- Opening

TEST_F(FaultPanel, ReplacesTheOtherPanels) {
    start_connected();
    Timer3.on();
    operator_clicks(Command_diagnosi);
    EXPECT_TRUE(view::visible(Frame_diagnosi));
    for (const view::Widget* other : {&frame_engine, &Frame_impostazioni, &Frame_Lambda})
        EXPECT_FALSE(view::visible(*other)) << other->name;
    EXPECT_FALSE(view::enabled(Command5));
    EXPECT_FALSE(view::visible(Command_exit));
    EXPECT_FALSE(Timer3.is_on());
}

TEST_F(FaultPanel, StopsThePollingAfter200Milliseconds) {
    start_connected();
    operator_clicks(Command_diagnosi);
    EXPECT_EQ(ms_until([] { return !Timer_chiusura_stato.is_on(); }), 200);
    EXPECT_FALSE(app::state.poll_enabled);
    run_for(500);
    EXPECT_THAT(frames_in(5000), IsEmpty());
}

TEST_F(FaultPanel, StopsThePollingAtOnceBetweenTwoTelegrams) {
    start_between_polls();
    operator_clicks(Command_diagnosi);
    EXPECT_FALSE(app::state.poll_enabled);
    EXPECT_FALSE(Timer_stato_sistema.is_on());
    EXPECT_EQ(ms_until([] { return !Timer2.is_on(); }), 600) << "the opening still waits";
    run_for(2000);
    EXPECT_THAT(frames(), IsEmpty());
}

TEST_F(FaultPanel, EngineButtonLeavesIt) {
    open_panel();
    operator_clicks(Command_engine, 2000ms);
    EXPECT_FALSE(view::visible(Frame_diagnosi));
    EXPECT_TRUE(view::visible(frame_engine));
    EXPECT_TRUE(view::enabled(Command5));
    EXPECT_THAT(frames(), testing::Contains(Send(3)));
}

// --- Reading

TEST_F(FaultPanel, ShowsSixFaultsWithTheirNumber) {
    open_panel();
    store_faults({301, 5, 42, 2187, 1500, 562});
    operator_reads();
    EXPECT_THAT(shown(), ElementsAre("P0301", "P0005", "P0042", "P2187", "", "P0562", "6"));
}

TEST_F(FaultPanel, EmptyStoreReadsNoErrorSixTimes) {
    open_panel();
    operator_reads();
    EXPECT_THAT(shown(), ElementsAre("NO ERROR", "NO ERROR", "NO ERROR", "NO ERROR", "NO ERROR",
                                     "NO ERROR", "0"));
}

TEST_F(FaultPanel, ReadReopensThePortFirst) {
    open_panel();
    const int opened = port->opened, closed = port->closed;
    operator_clicks(cmd_richiesta_par_diagnosi);
    EXPECT_FALSE(port->is_open());
    EXPECT_EQ(port->closed, closed + 1);
    EXPECT_EQ(ms_until([this] { return port->is_open(); }), 300);
    EXPECT_EQ(port->opened, opened + 1);
    EXPECT_THAT(timed(), ElementsAre(At(300, Send(15))));
    EXPECT_EQ(port->sent[0].bytes, frame_bytes(15));
}

TEST_F(FaultPanel, ReadLocksItsButtonFor1300Milliseconds) {
    open_panel();
    view::set_text(Text_note_error, "old");
    follow({&Form1, &cmd_richiesta_par_diagnosi});
    operator_reads(2000);
    EXPECT_EQ(text(Text_note_error), "");
    EXPECT_THAT(changes, testing::UnorderedElementsAre(
                             "0 Form1 hourglass", "0 cmd_richiesta_par_diagnosi hourglass",
                             "0 cmd_richiesta_par_diagnosi disabled",
                             "1300 cmd_richiesta_par_diagnosi enabled", "1300 Form1 normal pointer",
                             "1300 cmd_richiesta_par_diagnosi own pointer"));
}

TEST_F(FaultPanel, SilentUnitIsAskedForOnAReopenedPort) {
    open_panel();
    set_labels("old");
    port->silent = true;
    const int opened = port->opened;
    operator_reads(130'000);
    EXPECT_EQ(frames(), std::vector(100, Send(15)));
    EXPECT_EQ(port->opened - opened, 100);
    EXPECT_EQ(timed()[1].ms - timed()[0].ms, 1300);
    EXPECT_TRUE(reading());
    EXPECT_TRUE(busy(Form1));
    EXPECT_THAT(shown(), Each("old"));
    port->silent = false;
    run_for(1300);
    EXPECT_EQ(shown()[0], "NO ERROR");
    EXPECT_FALSE(reading());
}

// The fifth byte alone decides. A field beyond the end keeps what its label shows.
TEST_F(FaultPanel, ReplyOfEachLengthIsShownAsFarAsItGoes) {
    open_panel();
    const std::vector<std::string> whole{"P0101", "P0201", "P0301", "P0401",
                                         "P0501", "P0601", "300"};
    for (std::size_t length = 0; length <= 40; ++length) {
        SCOPED_TRACE(length);
        set_labels("old");
        port->alter = [length](const link::Bytes&) {
            return of_length(frame_bytes(15, {1, 1, 2, 1, 3, 1, 4, 1, 5, 1, 6, 1, 1, 44}), length,
                             7);
        };
        operator_reads();
        std::vector<std::string> expected(7, "old");
        for (std::size_t i = 0; i < 7; ++i)
            if (length >= 7 + 2 * i) expected[i] = whole[i];
        EXPECT_EQ(shown(), expected);
        EXPECT_EQ(reading(), length < 5);
        port->alter = nullptr;
        if (length < 5) run_for(1300);
        EXPECT_FALSE(reading());
    }
}

TEST_F(FaultPanel, ReplyWithAnotherEchoIsAskedForAgain) {
    open_panel();
    set_labels("old");
    unit->quirks().wrong_echo = 3;
    operator_reads();
    EXPECT_EQ(shown()[0], "old");
    unit->quirks().garble = 1; // the fifth byte is among those that it changes
    run_for(1300);
    EXPECT_EQ(shown()[0], "old");
    run_for(1300);
    EXPECT_EQ(shown()[0], "NO ERROR");
    EXPECT_THAT(frames(), ElementsAre(Send(15), Send(15), Send(15)));
}

TEST_F(FaultPanel, LateReplyIsDroppedWithThePort) {
    open_panel();
    set_labels("old");
    unit->quirks().late_ms = 1000; // arrives when the tool has just closed the port
    operator_reads(2600);
    EXPECT_EQ(shown()[0], "old");
    unit->quirks().late_ms = 0;
    run_for(2600);
    EXPECT_EQ(shown()[0], "NO ERROR");
}

TEST_F(FaultPanel, PortThatDoesNotOpenIsTriedAgain) {
    open_panel();
    set_labels("old");
    port->open_error = "no such device";
    operator_reads(13'000);
    EXPECT_THAT(frames(), IsEmpty());
    EXPECT_FALSE(port->is_open());
    port->open_error.reset();
    run_for(1300);
    EXPECT_EQ(shown()[0], "NO ERROR");
    EXPECT_THAT(screen.message_boxes, IsEmpty());
}

TEST_F(FaultPanel, PulledCableIsWaitedFor) {
    open_panel();
    operator_reads(500);
    port->unplugged = true;
    run_for(10'000);
    EXPECT_TRUE(reading());
    port->unplugged = false;
    run_for(2600);
    EXPECT_FALSE(reading());
}

// --- Clearing

TEST_F(FaultPanel, ClearingWrites0ToTheCodesAndTheirNumber) {
    open_panel();
    store_faults({301, 171});
    operator_reads();
    mark();
    operator_clicks(Command10, 5000ms);
    std::vector<Timed> expected;
    for (int i = 0; i < 7; ++i)
        expected.push_back(At(400 * i, Write(145 + i, 0)));
    EXPECT_EQ(timed(), expected);
    EXPECT_EQ(sim::stored_fault(unit->memory(), 1), 0);
    EXPECT_EQ(unit->parameter(151), 0);
}

TEST_F(FaultPanel, ClearingShowsZerosAtItsEnd) {
    open_panel();
    store_faults({301});
    operator_reads();
    view::set_text(Text_note_error, "old");
    follow({&Command10, &Form1, &lbl_par_1});
    mark();
    operator_clicks(Command10);
    EXPECT_EQ(text(Text_note_error), "");
    run_for(2800);
    EXPECT_THAT(shown(), Each("0"));
    EXPECT_THAT(changes, testing::UnorderedElementsAre(
                             "0 Command10 hourglass", "0 Form1 hourglass", "2800 lbl_par_1 says 0",
                             "2800 lbl_par_1 tip ", "2800 Command10 own pointer",
                             "2800 Form1 normal pointer"));
    operator_reads();
    EXPECT_EQ(shown()[0], "NO ERROR");
}

TEST_F(FaultPanel, CablePulledDuringTheClearingLosesFrames) {
    open_panel();
    store_faults({301, 302, 303, 304, 305, 306});
    operator_clicks(Command10, 900ms);
    port->unplugged = true;
    run_for(800);
    port->unplugged = false;
    run_for(3000);
    EXPECT_THAT(writes(), ElementsAre(Write(145, 0), Write(146, 0), Write(147, 0), Write(150, 0),
                                      Write(151, 0)));
    EXPECT_THAT(shown(), Each("0"));
    EXPECT_EQ(Form1.look.pointer, Pointer::normal);
}

// --- Explaining

class FaultExplained : public FaultPanel {
  protected:
    FaultExplained() {
        std::filesystem::remove(folder / "language");
        std::filesystem::create_directory(folder / "language");
    }
    void codes_are(const std::string& language, const std::string& content) {
        write_file("language/codici_eobd_" + language + ".ini", content);
    }
    void start_in(const std::string& language) {
        write_file("setting.ini", "[General]\nLANGUAGE=" + language + "\n");
        open_panel();
    }
    void start_with_english_codes(const std::string& language) {
        codes_are("uk", "[P0300]\nMisfire\nAny cylinder.\n"
                        " [P0301] \n  Cylinder 1 misfire  \n"
                        "  Plug, coil or injector. \n"
                        "[]\nThe gap\nNo code.\n");
        start_in(language);
    }
    // What the box shows after a click on a label with this code.
    std::string explained(const std::string& code) {
        view::set_text(lbl_par_1, code);
        operator_clicks(lbl_par_1);
        return text(Text_note_error);
    }
};

TEST_F(FaultExplained, ClickShowsTheShortDescription) {
    start_with_english_codes("uk");
    std::vector<std::string> notes;
    screen.on_changed = [&](view::Widget& w, view::Aspect aspect) {
        if (&w == &Text_note_error && aspect == view::Aspect::text) notes.push_back(text(w));
    };
    explained("P0301");
    EXPECT_THAT(notes, ElementsAre("Plug, coil or injector.", "Cylinder 1 misfire"));
}

TEST_F(FaultExplained, EachLabelExplainsItsOwnCode) {
    codes_are("uk", "[P0001]\none\n-\n[P0002]\ntwo\n-\n[P0003]\nthree\n-\n"
                    "[P0004]\nfour\n-\n[P0005]\nfive\n-\n[P0006]\nsix\n-\n");
    start_in("uk");
    store_faults({1, 2, 3, 4, 5, 6});
    operator_reads();
    std::vector<std::string> notes;
    for (view::Widget* label : code_labels) {
        operator_clicks(*label);
        notes.push_back(text(Text_note_error));
    }
    EXPECT_THAT(notes, ElementsAre("one", "two", "three", "four", "five", "six"));
}

TEST_F(FaultExplained, CodeWithoutEntryEmptiesTheBox) {
    start_with_english_codes("uk");
    for (const char* code : {"P2187", "NO ERROR", "0"}) {
        view::set_text(Text_note_error, "old");
        EXPECT_EQ(explained(code), "") << code;
    }
}

TEST_F(FaultExplained, NoErrorIsLookedUpLikeACode) {
    codes_are("uk", "[NO ERROR]\nNothing is wrong\n-\n");
    start_in("uk");
    operator_reads();
    operator_clicks(lbl_par_6);
    EXPECT_EQ(text(Text_note_error), "Nothing is wrong");
}

TEST_F(FaultExplained, LanguageWithoutAFileUsesTheEnglishOne) {
    start_with_english_codes("pl");
    EXPECT_EQ(explained("P0300"), "Misfire");
    EXPECT_THAT(screen.message_boxes, IsEmpty());
}

TEST_F(FaultExplained, LanguageWithAFileIgnoresTheEnglishOne) {
    codes_are("it", "[P0301]\nMancata accensione cilindro 1\n-\n");
    start_with_english_codes("it");
    EXPECT_EQ(explained("P0301"), "Mancata accensione cilindro 1");
    EXPECT_EQ(explained("P0300"), "");
}

TEST_F(FaultExplained, BoxKeepsItsTextWithoutAnyFile) {
    start_in("uk");
    view::set_text(Text_note_error, "old");
    EXPECT_EQ(explained("P0301"), "old");
}

} // namespace
} // namespace zol::tests
