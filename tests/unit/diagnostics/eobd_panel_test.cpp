// The diagnosis panel: reading, explaining and clearing the faults.
#include "diagnostics/eobd_panel.h"

#include "tests/support/logic_fixture.h"
#include "view/windows/form1.h"

namespace zol::tests {
namespace {

using diagnostics::fault_code_text;
using testing::ElementsAre;
using testing::ElementsAreArray;
using testing::IsEmpty;
using view::Pointer;

class FaultPanel : public LogicTest {
  protected:
    void open_panel() {
        start_connected();
        operator_clicks(form1::Command_diagnosi);
        run_for(1000);
        forget_wire();
    }
    void fitter_reads(int ms = 1300) {
        operator_clicks(form1::cmd_richiesta_par_diagnosi);
        run_for(ms);
    }
    void store_faults(const std::vector<int>& faults) {
        for (const int fault : faults)
            ASSERT_TRUE(sim::add_fault(unit->memory(), fault));
    }
    // A reply to command 15 with faults 101 to 601 and a count of 6, cut or filled to this length.
    static link::Bytes reply_of(std::size_t length) {
        link::Bytes reply{80, 67, 0, 19, 15, 1, 1, 2, 1, 3, 1, 4, 1, 5, 1, 6, 1, 1, 44};
        reply.resize(length, 7);
        return reply;
    }
    static std::vector<std::string> shown() {
        return {view::text(form1::lbl_par_1),     view::text(form1::lbl_par_2),
                view::text(form1::lbl_par_3),     view::text(form1::lbl_par_4),
                view::text(form1::lbl_par_5),     view::text(form1::lbl_par_6),
                view::text(form1::lbl_num_errori)};
    }
    static void mark_labels() {
        for (view::Widget* label :
             {&form1::lbl_par_1, &form1::lbl_par_2, &form1::lbl_par_3, &form1::lbl_par_4,
              &form1::lbl_par_5, &form1::lbl_par_6, &form1::lbl_num_errori})
            view::set_text(*label, "old");
    }
};

TEST(FaultCode, IsFilledToFourDigitsWithAGapFrom1000To2000) {
    EXPECT_EQ(fault_code_text(0), "NO ERROR");
    EXPECT_EQ(fault_code_text(1), "P0001");
    EXPECT_EQ(fault_code_text(9), "P0009");
    EXPECT_EQ(fault_code_text(10), "P0010");
    EXPECT_EQ(fault_code_text(99), "P0099");
    EXPECT_EQ(fault_code_text(100), "P0100");
    EXPECT_EQ(fault_code_text(999), "P0999");
    EXPECT_EQ(fault_code_text(1000), "");
    EXPECT_EQ(fault_code_text(1500), "");
    EXPECT_EQ(fault_code_text(2000), "");
    EXPECT_EQ(fault_code_text(2001), "P2001");
    EXPECT_EQ(fault_code_text(25755), "P25755");
}

TEST_F(FaultPanel, OpeningShowsItInPlaceOfTheOthersAndEndsThePolling) {
    start_connected();
    form1::Timer3.on();
    operator_clicks(form1::Command_diagnosi);
    EXPECT_TRUE(view::visible(form1::Frame_diagnosi));
    for (const view::Widget* other :
         {&form1::frame_engine, &form1::Frame_impostazioni, &form1::Frame_Lambda})
        EXPECT_FALSE(view::visible(*other)) << other->name;
    EXPECT_FALSE(view::enabled(form1::Command5));
    EXPECT_FALSE(view::visible(form1::Command_exit));
    EXPECT_FALSE(form1::Timer3.is_on());
    EXPECT_TRUE(form1::Timer_chiusura_stato.is_on());
    run_for(200);
    EXPECT_FALSE(form1::Timer_chiusura_stato.is_on());
    EXPECT_FALSE(app::state.poll_enabled);
    run_for(500);
    forget_wire();
    run_for(5000);
    EXPECT_THAT(frames(), IsEmpty());
}

TEST_F(FaultPanel, OpenedBetweenTwoTelegramsItStopsThePollingAtOnce) {
    start_connected();
    while (!form1::Timer_stato_sistema.is_on())
        run_for(10);
    forget_wire();
    operator_clicks(form1::Command_diagnosi);
    EXPECT_FALSE(app::state.poll_enabled);
    EXPECT_FALSE(form1::Timer_stato_sistema.is_on());
    run_for(599);
    EXPECT_TRUE(form1::Timer2.is_on()); // the opening still waits
    run_for(1);
    EXPECT_FALSE(form1::Timer2.is_on());
    run_for(2000);
    EXPECT_THAT(frames(), IsEmpty());
}

TEST_F(FaultPanel, TheEngineButtonLeavesIt) {
    open_panel();
    operator_clicks(form1::Command_engine);
    run_for(2000);
    EXPECT_FALSE(view::visible(form1::Frame_diagnosi));
    EXPECT_TRUE(view::visible(form1::frame_engine));
    EXPECT_TRUE(view::enabled(form1::Command5));
    EXPECT_THAT(frames(), testing::Contains(Send(3)));
}

TEST_F(FaultPanel, ShowsSixFaultsAndTheirNumber) {
    open_panel();
    store_faults({301, 5, 42, 2187, 1500, 562});
    fitter_reads();
    EXPECT_THAT(shown(), ElementsAre("P0301", "P0005", "P0042", "P2187", "", "P0562", "6"));
}

TEST_F(FaultPanel, AnEmptyStoreReadsNoErrorSixTimes) {
    open_panel();
    fitter_reads();
    EXPECT_THAT(shown(), ElementsAre("NO ERROR", "NO ERROR", "NO ERROR", "NO ERROR", "NO ERROR",
                                     "NO ERROR", "0"));
}

TEST_F(FaultPanel, ReadingClosesThePortWaitsOpensItAndAsks) {
    open_panel();
    view::set_text(form1::Text_note_error, "old");
    const int opened = port->opened, closed = port->closed;
    const auto clicked = now_ms();
    operator_clicks(form1::cmd_richiesta_par_diagnosi);
    EXPECT_FALSE(port->is_open());
    EXPECT_EQ(port->closed, closed + 1);
    EXPECT_EQ(view::text(form1::Text_note_error), "");
    EXPECT_EQ(form1::Form1.look.pointer, Pointer::hourglass);
    EXPECT_EQ(form1::cmd_richiesta_par_diagnosi.look.pointer, Pointer::hourglass);
    EXPECT_FALSE(view::enabled(form1::cmd_richiesta_par_diagnosi));
    run_for(300);
    EXPECT_TRUE(port->is_open());
    EXPECT_EQ(port->opened, opened + 1);
    run_for(999);
    EXPECT_FALSE(view::enabled(form1::cmd_richiesta_par_diagnosi));
    run_for(1);
    EXPECT_TRUE(view::enabled(form1::cmd_richiesta_par_diagnosi));
    EXPECT_EQ(form1::Form1.look.pointer, Pointer::normal);
    EXPECT_EQ(form1::cmd_richiesta_par_diagnosi.look.pointer, Pointer::custom);
    EXPECT_THAT(frames(), ElementsAre(Send(15)));
    EXPECT_EQ(port->sent[0].at_ms - clicked, 300);
    EXPECT_THAT(port->sent[0].bytes, ElementsAre(80, 67, 0, 5, 15));
}

TEST_F(FaultPanel, ASilentUnitIsAskedForEverOnAPortOpenedAnewEachTime) {
    open_panel();
    mark_labels();
    port->silent = true;
    const int opened = port->opened;
    fitter_reads(130'000);
    EXPECT_EQ(frames().size(), 100u);
    EXPECT_EQ(port->opened - opened, 100);
    EXPECT_EQ(port->sent[1].at_ms - port->sent[0].at_ms, 1300);
    EXPECT_FALSE(view::enabled(form1::cmd_richiesta_par_diagnosi));
    EXPECT_EQ(form1::Form1.look.pointer, Pointer::hourglass);
    EXPECT_EQ(shown()[0], "old");
    port->silent = false;
    run_for(1300);
    EXPECT_EQ(shown()[0], "NO ERROR");
    EXPECT_TRUE(view::enabled(form1::cmd_richiesta_par_diagnosi));
}

// The fifth byte decides alone; a field behind the end keeps what its label shows.
TEST_F(FaultPanel, RepliesOfEveryLengthAreTakenAsFarAsTheyGo) {
    open_panel();
    const std::vector<std::string> whole{"P0101", "P0201", "P0301", "P0401",
                                         "P0501", "P0601", "300"};
    for (std::size_t length = 0; length <= 40; ++length) {
        SCOPED_TRACE(length);
        mark_labels();
        port->alter = [length](const link::Bytes&) { return reply_of(length); };
        fitter_reads();
        std::vector<std::string> expected(7, "old");
        for (std::size_t i = 0; i < 7; ++i)
            if (length >= 7 + 2 * i) expected[i] = whole[i];
        EXPECT_THAT(shown(), ElementsAreArray(expected));
        EXPECT_EQ(view::enabled(form1::cmd_richiesta_par_diagnosi), length >= 5);
        port->alter = nullptr;
        if (length < 5) run_for(1300);
        EXPECT_TRUE(view::enabled(form1::cmd_richiesta_par_diagnosi));
    }
}

TEST_F(FaultPanel, AForeignEchoAndAGarbledReplyAreAskedForAgain) {
    open_panel();
    mark_labels();
    unit->quirks().wrong_echo = 3;
    fitter_reads();
    EXPECT_EQ(shown()[0], "old");
    unit->quirks().garble = 1; // the fifth byte is among those that it changes
    run_for(1300);
    EXPECT_EQ(shown()[0], "old");
    run_for(1300);
    EXPECT_EQ(shown()[0], "NO ERROR");
    EXPECT_THAT(frames(), ElementsAre(Send(15), Send(15), Send(15)));
}

TEST_F(FaultPanel, ALateReplyGoesWithTheClosingOfThePort) {
    open_panel();
    mark_labels();
    unit->quirks().late_ms = 1000; // comes when the tool has just closed the port
    fitter_reads();
    EXPECT_EQ(shown()[0], "old");
    run_for(1300);
    EXPECT_EQ(shown()[0], "old");
    unit->quirks().late_ms = 0;
    run_for(2600);
    EXPECT_EQ(shown()[0], "NO ERROR");
}

TEST_F(FaultPanel, APortThatDoesNotOpenIsTriedAgain) {
    open_panel();
    mark_labels();
    port->open_error = "no such device";
    fitter_reads(13'000);
    EXPECT_THAT(frames(), IsEmpty());
    EXPECT_FALSE(port->is_open());
    port->open_error.reset();
    run_for(1300);
    EXPECT_EQ(shown()[0], "NO ERROR");
    EXPECT_THAT(screen.message_boxes, IsEmpty());
}

TEST_F(FaultPanel, ACablePulledAndPutBackIsWaitedFor) {
    open_panel();
    operator_clicks(form1::cmd_richiesta_par_diagnosi);
    run_for(500);
    port->unplugged = true;
    run_for(10'000);
    EXPECT_FALSE(view::enabled(form1::cmd_richiesta_par_diagnosi));
    port->unplugged = false;
    run_for(2600);
    EXPECT_TRUE(view::enabled(form1::cmd_richiesta_par_diagnosi));
}

TEST_F(FaultPanel, ClearingSendsSevenNoughtsOneOfThemForTheNumber) {
    open_panel();
    store_faults({301, 171});
    fitter_reads();
    forget_wire();
    const auto clicked = now_ms();
    operator_clicks(form1::Command10);
    run_for(5000);
    EXPECT_THAT(frames(), ElementsAre(Write(145, 0), Write(146, 0), Write(147, 0), Write(148, 0),
                                      Write(149, 0), Write(150, 0), Write(151, 0)));
    EXPECT_EQ(port->sent[0].at_ms, clicked);
    EXPECT_THAT(gaps_between_writes(), ElementsAre(400, 400, 400, 400, 400, 400));
    EXPECT_EQ(sim::stored_fault(unit->memory(), 1), 0);
    EXPECT_EQ(unit->parameter(151), 0);
}

TEST_F(FaultPanel, ClearingShowsNoughtsAtItsEndAndTheNextReadNoError) {
    open_panel();
    store_faults({301});
    fitter_reads();
    view::set_text(form1::Text_note_error, "old");
    operator_clicks(form1::Command10);
    EXPECT_EQ(view::text(form1::Text_note_error), "");
    EXPECT_EQ(form1::Command10.look.pointer, Pointer::hourglass);
    EXPECT_EQ(form1::Form1.look.pointer, Pointer::hourglass);
    run_for(2799);
    EXPECT_EQ(shown()[0], "P0301");
    EXPECT_EQ(form1::Form1.look.pointer, Pointer::hourglass);
    run_for(1);
    EXPECT_THAT(shown(), ElementsAre("0", "0", "0", "0", "0", "0", "0"));
    EXPECT_EQ(form1::Command10.look.pointer, Pointer::custom);
    EXPECT_EQ(form1::Form1.look.pointer, Pointer::normal);
    fitter_reads();
    EXPECT_EQ(shown()[0], "NO ERROR");
}

TEST_F(FaultPanel, ACablePulledInTheMiddleOfTheClearingLosesFramesUnnoticed) {
    open_panel();
    store_faults({301, 302, 303, 304, 305, 306});
    operator_clicks(form1::Command10);
    run_for(900);
    port->unplugged = true;
    run_for(800);
    port->unplugged = false;
    run_for(3000);
    EXPECT_THAT(writes(), ElementsAre(Write(145, 0), Write(146, 0), Write(147, 0), Write(150, 0),
                                      Write(151, 0)));
    EXPECT_THAT(shown(), ElementsAre("0", "0", "0", "0", "0", "0", "0"));
    EXPECT_EQ(form1::Form1.look.pointer, Pointer::normal);
}

class FaultExplained : public FaultPanel {
  protected:
    FaultExplained() {
        std::filesystem::remove(folder / "language");
        std::filesystem::create_directory(folder / "language");
    }
    void start_in(const std::string& language) {
        write_file("setting.ini", "[General]\nLANGUAGE=" + language + "\n");
        open_panel();
    }
    void english_file() {
        write_file("language/codici_eobd_uk.ini", "[P0300]\nMisfire\nAny cylinder.\n"
                                                  " [P0301] \n  Cylinder 1 misfire  \n"
                                                  "  Plug, coil or injector. \n"
                                                  "[]\nThe gap\nNo code.\n");
    }
    static std::string note() { return view::text(form1::Text_note_error); }
};

TEST_F(FaultExplained, AClickOnACodeShowsItsShortDescription) {
    english_file();
    start_in("uk");
    view::set_text(form1::lbl_par_1, "P0301");
    std::vector<std::string> notes;
    screen.on_changed = [&](view::Widget& w, view::Aspect) {
        if (&w == &form1::Text_note_error) notes.push_back(view::text(w));
    };
    operator_clicks(form1::lbl_par_1);
    EXPECT_THAT(notes, ElementsAre("Plug, coil or injector.", "Cylinder 1 misfire"));
}

TEST_F(FaultExplained, EachOfTheSixLabelsExplainsItsOwnCode) {
    write_file("language/codici_eobd_uk.ini",
               "[P0001]\none\n-\n[P0002]\ntwo\n-\n[P0003]\nthree\n-\n"
               "[P0004]\nfour\n-\n[P0005]\nfive\n-\n[P0006]\nsix\n-\n");
    start_in("uk");
    store_faults({1, 2, 3, 4, 5, 6});
    fitter_reads();
    std::vector<std::string> notes;
    for (view::Widget* label : {&form1::lbl_par_1, &form1::lbl_par_2, &form1::lbl_par_3,
                                &form1::lbl_par_4, &form1::lbl_par_5, &form1::lbl_par_6}) {
        operator_clicks(*label);
        notes.push_back(note());
    }
    EXPECT_THAT(notes, ElementsAre("one", "two", "three", "four", "five", "six"));
}

TEST_F(FaultExplained, ACodeWithoutEntryEmptiesTheBox) {
    english_file();
    start_in("uk");
    for (const char* code : {"P2187", "NO ERROR", "0"}) {
        view::set_text(form1::Text_note_error, "old");
        view::set_text(form1::lbl_par_2, code);
        operator_clicks(form1::lbl_par_2);
        EXPECT_EQ(note(), "") << code;
    }
}

TEST_F(FaultExplained, NoErrorIsLookedUpLikeACode) {
    write_file("language/codici_eobd_uk.ini", "[NO ERROR]\nNothing is wrong\n-\n");
    start_in("uk");
    fitter_reads();
    operator_clicks(form1::lbl_par_6);
    EXPECT_EQ(note(), "Nothing is wrong");
}

TEST_F(FaultExplained, ALanguageWithoutItsOwnFileUsesTheEnglishOne) {
    english_file();
    start_in("pl");
    view::set_text(form1::lbl_par_1, "P0300");
    operator_clicks(form1::lbl_par_1);
    EXPECT_EQ(note(), "Misfire");
    EXPECT_THAT(screen.message_boxes, IsEmpty());
}

TEST_F(FaultExplained, ALanguageWithItsOwnFileDoesNotLookIntoTheEnglishOne) {
    english_file();
    write_file("language/codici_eobd_it.ini", "[P0301]\nMancata accensione cilindro 1\n-\n");
    start_in("it");
    view::set_text(form1::lbl_par_1, "P0301");
    operator_clicks(form1::lbl_par_1);
    EXPECT_EQ(note(), "Mancata accensione cilindro 1");
    view::set_text(form1::lbl_par_1, "P0300");
    operator_clicks(form1::lbl_par_1);
    EXPECT_EQ(note(), "");
}

TEST_F(FaultExplained, WithNoFileAtAllTheBoxKeepsItsText) {
    start_in("uk");
    view::set_text(form1::Text_note_error, "old");
    view::set_text(form1::lbl_par_1, "P0301");
    operator_clicks(form1::lbl_par_1);
    EXPECT_EQ(note(), "old");
}

} // namespace
} // namespace zol::tests
