// The colours of the main window: at the start, and from the text colour dialog.
#include "app/app_state.h"
#include "app/application_folder.h"
#include "app/colours.h"
#include "app/settings_file.h"
#include "link/activation.h"
#include "tests/support/logic_fixture.h"
#include "tests/support/program_state.h"
#include "view/windows/acquisizione.h"
#include "view/windows/form1.h"

#include <iterator>
#include <set>
#include <sstream>

namespace zol::tests {
namespace {

std::set<std::string> names(const std::string& list) {
    std::istringstream in(list);
    return {std::istream_iterator<std::string>(in), {}};
}

const std::set<std::string> on_panel_colour =
    names("Label24 Label46 Label45 Label25 Label26 Label_attenuazione Label12 Label18 Label5 "
          "Label6 Label7 Label8 Label9 Label10 Label11 Label_led0 Label_led1 Label_led2 "
          "Label_led3 Label_led4 Label_livello_att lbl_200 lbl_201 lbl_202 lbl_203 lbl_204 "
          "lbl_205 Label2 Label3 Label4 lbl204 lbl205 Lbl_fast lbl_low Label38 Label39 Label32 "
          "Label33 Label_medio_closed_loop Label29 Label21 Label_lambda_open_loop Label23 Label22 "
          "Label31");
const std::set<std::string> on_dark_red = names("Label1 Label16 Label19 Label20");
const std::set<std::string> coloured_by_dialog =
    names("LabeL_pressure Label27 Label_tinj Label_temp Label_rpm lbl_lambda lbl_rpm lbl_press "
          "lbl_tinj lbl_temp Label13 Label14 Label_lambda");
const std::set<std::string> coloured_at_start_only =
    names("Label20 Label42 Label49 Label48 Label44 Label43 Label1 Label19 Label16");

class Colours : public LogicTest {
  protected:
    static constexpr view::Colour chosen = view::rgb(10, 20, 30);
    void start_with_colour(const std::string& colour) {
        write_file("setting.ini", "[General]\nLANGUAGE=uk\nCOLORETESTO=" + colour + "\n");
        start_connected();
        // These blink.
        for (view::Widget* w : {&form1::Command5, &form1::lbl_ore})
            w->look.back = w == &form1::Command5 ? view::rgb(192, 192, 192) : ground();
    }
    void choose_colour(view::Colour colour, int after_ms = 0) {
        screen.answer_colour(colour, after_ms);
        operator_clicks(form1::mnu_color_testo);
    }
    static view::Colour ground() { return app::state.panel_colour; }
    // Names of the labels whose text has the colour.
    static std::set<std::string> labels_in(view::Colour colour) {
        std::set<std::string> names;
        for (const view::Widget* w : form1::Form1.controls)
            if (w->kind == view::Kind::label && w->look.fore == colour) names.insert(w->name);
        names.erase("lbl_tuning"); // which blinks in a colour of its own
        return names;
    }
    static std::set<std::string> both_lists() {
        std::set<std::string> names = coloured_by_dialog;
        names.insert(coloured_at_start_only.begin(), coloured_at_start_only.end());
        return names;
    }
};

TEST_F(Colours, PanelColourIsThatOfTheWindow) {
    EXPECT_EQ(app::state.panel_colour, view::rgb(192, 192, 0));
    start_connected();
    EXPECT_EQ(app::state.panel_colour, form1::Form1.look.back);
}

TEST_F(Colours, EachKindOfControlGetsItsBackground) {
    start_with_colour("255");
    // Another colour than that of the tables, so that the assignment shows.
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
        // Other handlers colour lamps, heartbeat and service line.
        if (w->kind == view::Kind::shape || w == &form1::lbl_ore) continue;
        EXPECT_EQ(w->look.back, expected) << view::full_name(*w);
    }
    for (const auto* names : {&on_panel_colour, &on_dark_red})
        for (const std::string& name : *names)
            EXPECT_NE(view::find_widget(form1::Form1, name), nullptr) << name;
}

TEST_F(Colours, LabelsTakeTheStoredTextColour) {
    start_with_colour(std::to_string(chosen));
    EXPECT_EQ(labels_in(chosen), both_lists());
    EXPECT_EQ(form1::lbl_ore.look.fore, view::rgb(79, 89, 81));
}

TEST_F(Colours, ServiceLineIsSetToItsOwnGrey) {
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

TEST_P(NoColour, LeavesTheTextsOfTheTables) {
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

TEST_F(Colours, BlackOrWhiteIsAColour) {
    start_with_colour("16777215");
    EXPECT_EQ(form1::Label_rpm.look.fore, view::white);
    app::state.text_colour = "0";
    EXPECT_EQ(app::text_colour(), view::black);
}

TEST_F(Colours, DialogColoursTheShorterListAtOnce) {
    start_with_colour("255");
    choose_colour(chosen);
    EXPECT_THAT(screen.colour_boxes, testing::ElementsAre(255));
    EXPECT_EQ(labels_in(chosen), coloured_by_dialog);
    EXPECT_EQ(labels_in(255), coloured_at_start_only);
    EXPECT_EQ(app::state.text_colour, std::to_string(chosen));
    EXPECT_EQ(app::read_text_colour(), std::to_string(chosen));
}

TEST_F(Colours, OtherLabelsFollowAtTheNextStart) {
    start_with_colour("255");
    choose_colour(chosen);
    // As after another window has closed.
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

TEST_F(Colours, CancellingStoresTheColourBefore) {
    start_with_colour("255");
    choose_colour(255);
    EXPECT_EQ(app::read_text_colour(), "255");
    EXPECT_EQ(labels_in(255), both_lists());
}

TEST_F(Colours, DialogOpensAtTheColourOnViewIfNoneIsStored) {
    start_with_colour("");
    const view::Colour on_view = form1::Label_rpm.look.fore;
    EXPECT_NE(on_view, view::black);
    choose_colour(on_view);
    EXPECT_THAT(screen.colour_boxes, testing::ElementsAre(on_view));
    EXPECT_EQ(app::read_text_colour(), std::to_string(on_view)) << "cancelling stores it";
}

TEST_F(Colours, PollingContinuesWhileTheDialogIsOpen) {
    start_connected();
    choose_colour(chosen, 3500);
    run_for(3500);
    EXPECT_GE(port->sent.size(), 9u);
    EXPECT_EQ(app::read_text_colour(), std::to_string(chosen));
}

TEST_F(Colours, NoRereadColoursNothing) {
    view::load(form1::Form1);
    app::state.no_reread = true;
    link::main_window_activated();
    EXPECT_EQ(form1::Label1.look.back, form1::Label1.design.back);
    EXPECT_EQ(form1::Label24.look.back, form1::Label24.design.back);
    EXPECT_FALSE(form1::Timer_rpm.is_on());
}

} // namespace
} // namespace zol::tests
