// The colours of the main window: once at the start, and from the text colour dialog.
#include "app/app_state.h"
#include "app/application_folder.h"
#include "app/colours.h"
#include "app/settings_file.h"
#include "link/activation.h"
#include "tests/support/bench.h"
#include "tests/support/program_state.h"
#include "view/windows/acquisizione.h"
#include "view/windows/form1.h"

#include <set>

namespace zol::tests {
namespace {

const std::set<std::string> on_panel_colour = {
    "Label24",    "Label46",    "Label45",
    "Label25",    "Label26",    "Label_attenuazione",
    "Label12",    "Label18",    "Label5",
    "Label6",     "Label7",     "Label8",
    "Label9",     "Label10",    "Label11",
    "Label_led0", "Label_led1", "Label_led2",
    "Label_led3", "Label_led4", "Label_livello_att",
    "lbl_200",    "lbl_201",    "lbl_202",
    "lbl_203",    "lbl_204",    "lbl_205",
    "Label2",     "Label3",     "Label4",
    "lbl204",     "lbl205",     "Lbl_fast",
    "lbl_low",    "Label38",    "Label39",
    "Label32",    "Label33",    "Label_medio_closed_loop",
    "Label29",    "Label21",    "Label_lambda_open_loop",
    "Label23",    "Label22",    "Label31"};
const std::set<std::string> on_dark_red = {"Label1", "Label16", "Label19", "Label20"};
const std::set<std::string> coloured_by_dialog = {
    "LabeL_pressure", "Label27",  "Label_tinj", "Label_temp", "Label_rpm", "lbl_lambda",  "lbl_rpm",
    "lbl_press",      "lbl_tinj", "lbl_temp",   "Label13",    "Label14",   "Label_lambda"};
const std::set<std::string> coloured_at_start_only = {"Label20", "Label42", "Label49",
                                                      "Label48", "Label44", "Label43",
                                                      "Label1",  "Label19", "Label16"};

class Colours : public Bench {
  protected:
    static constexpr view::Colour chosen = view::rgb(10, 20, 30);
    void start_with_colour(const std::string& colour) {
        write_file("setting.ini", "[General]\nLANGUAGE=uk\nCOLORETESTO=" + colour + "\n");
        start_connected();
        // What blinks is put back to rest.
        for (view::Widget* w : {&form1::Command5, &form1::lbl_ore})
            w->look.back = w == &form1::Command5 ? view::rgb(192, 192, 192) : ground();
    }
    static view::Colour ground() { return app::state.panel_colour; }
    // Names of the labels whose text has the colour.
    static std::set<std::string> labels_in(view::Colour colour) {
        std::set<std::string> names;
        for (const view::Widget* w : form1::Form1.controls)
            if (w->kind == view::Kind::label && w->look.fore == colour) names.insert(w->name);
        names.erase("lbl_tuning"); // blinks in it
        return names;
    }
    static std::set<std::string> both_lists() {
        std::set<std::string> names = coloured_by_dialog;
        names.insert(coloured_at_start_only.begin(), coloured_at_start_only.end());
        return names;
    }
};

TEST_F(Colours, ThePanelColourFollowsTheWindowsGround) {
    EXPECT_EQ(app::state.panel_colour, view::rgb(192, 192, 0));
    start_connected();
    EXPECT_EQ(app::state.panel_colour, form1::Form1.look.back);
}

TEST_F(Colours, AtTheStartEachKindOfControlGetsItsGround) {
    start_with_colour("255");
    // Another ground than the tables have, so that it shows who takes it.
    app::state.panel_colour = view::rgb(1, 2, 3);
    inside_program([] { app::colour_all_controls(); });
    for (const view::Widget* w : form1::Form1.controls) {
        const view::Colour expected =
            w->kind == view::Kind::command_button ? view::rgb(192, 192, 192)
            : w->kind == view::Kind::option_button || w->kind == view::Kind::frame ? ground()
            : w->kind == view::Kind::check_box                                     ? ground()
            : on_dark_red.contains(w->name)                                        ? view::dark_red
            : on_panel_colour.contains(w->name)                                    ? ground()
                                                                                   : w->design.back;
        // Lamps, heartbeat and service line live their own life.
        if (w->kind == view::Kind::shape || w == &form1::lbl_ore) continue;
        EXPECT_EQ(w->look.back, expected) << view::full_name(*w);
    }
    for (const auto* names : {&on_panel_colour, &on_dark_red})
        for (const std::string& name : *names)
            EXPECT_NE(view::find_widget(form1::Form1, name), nullptr) << name;
}

TEST_F(Colours, AtTheStartBothListsOfLabelsTakeTheStoredTextColour) {
    start_with_colour(std::to_string(chosen));
    EXPECT_EQ(labels_in(chosen), both_lists());
    EXPECT_EQ(form1::lbl_ore.look.fore, view::rgb(79, 89, 81));
}

TEST_F(Colours, TheServiceLineAndTheButtonsGetTheirGreysBackWhateverTheyHad) {
    start_with_colour(std::to_string(chosen));
    view::set_fore(form1::lbl_ore, view::red);
    view::set_back(form1::Command_exit, view::red);
    app::colour_all_controls();
    EXPECT_EQ(form1::lbl_ore.look.fore, view::rgb(79, 89, 81));
    EXPECT_EQ(form1::Command_exit.look.back, view::rgb(192, 192, 192));
    view::set_back(form1::Label16, view::white);
    app::colour_dark_labels();
    EXPECT_EQ(form1::Label16.look.back, view::dark_red);
    auto others_too = both_lists();
    others_too.insert({"lbl_ore", "lbl_tuning"});
    for (const view::Widget* w : form1::Form1.controls)
        if (w->kind == view::Kind::label && !others_too.contains(w->name)) {
            EXPECT_EQ(w->look.fore, w->design.fore) << view::full_name(*w);
        }
}

class NoColour : public Colours, public testing::WithParamInterface<const char*> {};

TEST_P(NoColour, LeavesEveryTextInItsOwn) {
    start_with_colour(GetParam());
    EXPECT_EQ(app::text_colour(), std::nullopt);
    for (const std::string& name : both_lists()) {
        const view::Widget* label = view::find_widget(form1::Form1, name);
        ASSERT_NE(label, nullptr) << name;
        EXPECT_EQ(label->look.fore, label->design.fore) << name;
    }
}

INSTANTIATE_TEST_SUITE_P(Texts, NoColour,
                         testing::Values("", "red", "16777216", "-1", "255x", "0xFF", "1.5",
                                         "99999999999999999999"));

TEST_F(Colours, BlackAndWhiteAreColours) {
    start_with_colour("16777215");
    EXPECT_EQ(form1::Label_rpm.look.fore, view::white);
    app::state.text_colour = "0";
    EXPECT_EQ(app::text_colour(), view::black);
}

TEST_F(Colours, TheDialogColoursTheShorterListAtOnceAndStoresTheColour) {
    start_with_colour("255");
    screen.answer_colour(chosen);
    operator_clicks(form1::mnu_color_testo);
    EXPECT_THAT(screen.colour_boxes, testing::ElementsAre(255));
    EXPECT_EQ(labels_in(chosen), coloured_by_dialog);
    EXPECT_EQ(labels_in(255), coloured_at_start_only);
    EXPECT_EQ(app::state.text_colour, std::to_string(chosen));
    EXPECT_EQ(app::read_text_colour(), std::to_string(chosen));
}

TEST_F(Colours, TheOtherLabelsFollowAtTheNextStartAndNotEarlier) {
    start_with_colour("255");
    screen.answer_colour(chosen);
    operator_clicks(form1::mnu_color_testo);
    // Another window gives way: the main window is activated again.
    inside_program([] { form1::Form1.on.activate(); });
    run_for(10'000);
    EXPECT_EQ(labels_in(255), coloured_at_start_only);
    time.finish();
    reset_program_state();
    app::use_application_folder(folder);
    app::state.text_colour = app::read_text_colour();
    app::colour_all_controls();
    EXPECT_EQ(labels_in(chosen), both_lists());
}

TEST_F(Colours, CancellingTheDialogStoresTheColourThatItOpenedWith) {
    start_with_colour("255");
    screen.answer_colour(255);
    operator_clicks(form1::mnu_color_testo);
    EXPECT_EQ(app::read_text_colour(), "255");
    EXPECT_EQ(labels_in(255), both_lists());
}

TEST_F(Colours, WithoutAStoredColourTheDialogOpensWithBlackAndCancellingStoresIt) {
    start_with_colour("");
    screen.answer_colour(view::black);
    operator_clicks(form1::mnu_color_testo);
    EXPECT_THAT(screen.colour_boxes, testing::ElementsAre(view::black));
    EXPECT_EQ(app::read_text_colour(), "0");
    EXPECT_EQ(form1::Label_rpm.look.fore, view::black);
}

TEST_F(Colours, PollingGoesOnBeneathTheDialog) {
    start_connected();
    screen.answer_colour(chosen, 3500);
    operator_clicks(form1::mnu_color_testo);
    run_for(3500);
    EXPECT_GE(port->sent.size(), 9u);
    EXPECT_EQ(app::read_text_colour(), std::to_string(chosen));
}

TEST_F(Colours, NothingIsColouredWhenTheUnitIsNotToBeReadAgain) {
    view::load(form1::Form1);
    app::state.no_reread = true;
    link::main_window_activated();
    EXPECT_EQ(form1::Label1.look.back, form1::Label1.design.back);
    EXPECT_EQ(form1::Label24.look.back, form1::Label24.design.back);
    EXPECT_FALSE(form1::Timer_rpm.is_on());
}

} // namespace
} // namespace zol::tests
