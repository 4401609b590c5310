// The parameters that the text of a control names are those that it writes when it is used.
#include "app/helper_texts.h"
#include "tests/support/logic_fixture.h"
#include "view/windows/acquisizione.h"
#include "view/windows/form1.h"
#include "view/windows/form3.h"

#include <map>
#include <set>

namespace zol::tests {
namespace {

using testing::ContainerEq;
using view::Kind;
using view::Widget;

class ParametersInTips : public WarmCar {
  protected:
    // Shows and enables the control with all that contains it.
    static void make_reachable(Widget& control) {
        for (Widget* w = &control; w; w = w->parent) {
            view::set_visible(*w, true);
            view::set_enabled(*w, true);
        }
    }

    void use(Widget& control) {
        switch (control.kind) {
        case Kind::slider: {
            const double value = view::value(control), step = control.look.small_change;
            operator_drags(control, value + step <= control.look.max ? value + step : value - step);
            break;
        }
        case Kind::text_box: operator_enters(control, "1200"); break;
        case Kind::combo_box: operator_chooses(control, 3); break;
        default: operator_clicks(control);
        }
    }

    std::set<int> written_by(Widget& control) {
        inside_program([&control] { make_reachable(control); });
        forget_wire();
        use(control);
        run_for(15'000);
        std::set<int> numbers;
        for (const Frame& frame : writes())
            numbers.insert(frame.number);
        return numbers;
    }

    void expect_named_and_written(Widget& control) {
        const auto named = app::parameters_of(control);
        EXPECT_THAT(written_by(control), ContainerEq(std::set<int>(named.begin(), named.end())))
            << full_name(control);
    }

    static bool is_usable(const Widget& w) {
        return w.kind != Kind::label && w.kind != Kind::frame && !app::parameters_of(w).empty();
    }
};

TEST_F(ParametersInTips, OfTheMainWindowAreThoseThatItWrites) {
    start_connected();
    change_over_to_gas();
    inside_program([] { link::mirrors.pressure_sensor = 1; });
    int used = 0;
    for (auto* list : {&form1::Form1.controls, &form1::Form1.menus})
        for (Widget* w : *list) {
            if (!is_usable(*w)) continue;
            // The pair acts only on a change from the opposite choice.
            inside_program([w] {
                link::mirrors.modular_changeover = w == &form1::Opt_modulare_no ? 1 : 0;
                app::state.ui_loading = false;
            });
            expect_named_and_written(*w);
            ++used;
        }
    EXPECT_GT(used, 40);
}

TEST_F(ParametersInTips, OfTheChangeoverWindowAreThoseThatItWrites) {
    start_connected();
    operator_clicks(form1::Command_impostazioni);
    run_for(1000);
    operator_clicks(form1::Command303);
    run_for(500);
    for (Widget* w : form3::Form3.controls)
        if (is_usable(*w)) expect_named_and_written(*w);
}

TEST_F(ParametersInTips, OfTheAcquisitionAreThoseThatItWrites) {
    start_connected();
    operator_clicks(form1::Command5);
    run_for(2000);
    inside_program([] { view::set_text(acquisizione::Label_max, "6000"); });
    expect_named_and_written(acquisizione::Command_salva);
}

TEST_F(ParametersInTips, OfTheFaultCodesAreThoseOfTheUnit) {
    int number = 145;
    for (Widget* label :
         {&form1::lbl_par_1, &form1::lbl_par_2, &form1::lbl_par_3, &form1::lbl_par_4,
          &form1::lbl_par_5, &form1::lbl_par_6, &form1::lbl_num_errori})
        EXPECT_THAT(app::parameters_of(*label), testing::ElementsAre(number++));
}

TEST_F(ParametersInTips, AreNamedByTheMenuItemsThatWriteThem) {
    start_connected();
    for (Widget* item :
         {&form1::mnu_search, &form1::mnu_direction_normal_eobd, &form1::mnu_direction_inverse_eobd,
          &form1::mnu_mivra, &form1::mnu_matrix_2_ohm, &form1::mnu_matrix_3_ohm,
          &form1::mnu_debug_yes, &form1::mnu_debug_no, &form1::mnu_valtek, &form1::mnu_reset_check,
          &form1::mnu_reset_time_ongas, &form1::type_a, &form1::type_b, &form1::type_c})
        EXPECT_FALSE(app::parameters_of(*item).empty()) << full_name(*item);
}

TEST_F(ParametersInTips, AreNamedByTheControlsThatWriteThem) {
    start_connected();
    for (auto* list : {&form1::Form1.controls, &form1::Form1.menus})
        for (Widget* w : *list) {
            const bool is_option = w->kind == Kind::option_button || w->kind == Kind::text_box ||
                                   w->kind == Kind::combo_box || w->kind == Kind::check_box ||
                                   (w->kind == Kind::slider && full_name(*w) != "Slider1(4)");
            if (!is_option || !(w->on.click || w->on.change || w->on.key)) continue;
            EXPECT_FALSE(app::parameters_of(*w).empty()) << full_name(*w);
        }
}

} // namespace
} // namespace zol::tests
