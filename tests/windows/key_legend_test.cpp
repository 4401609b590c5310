// The key legend below the engine panel.
#include "app/app_state.h"
#include "app/application_folder.h"
#include "app/helper_texts.h"
#include "tests/windows/window_fixture.h"
#include "view/windows/form1.h"

namespace zol::view {
namespace {

class Legend : public WindowFixture {
  protected:
    Legend() {
        app::use_application_folder(ZOL_SOURCE_DIR);
        set_language("uk");
        open(form1::Form1);
    }
    void set_language(const char* language) {
        app::state.current_language = language;
        app::apply_helper_texts();
        settle();
    }
    QWidget& legend() { return *top(form1::Form1).findChild<QWidget*>("Legend"); }
};

TEST_F(Legend, IsInEachLanguageWithTheTuningFirst) {
    const std::map<const char*, const char*> first{{"uk", "Ctrl+T: automatic tuning, Space: "},
                                                   {"it", "Ctrl+T: taratura automatica, Spazio: "},
                                                   {"pl", "Ctrl+T: kalibracja automatyczna, "},
                                                   {"de", "Strg+T: automatischer Abgleich, "},
                                                   {"fr", "Ctrl+T: calibrage automatique, "}};
    for (const auto& [language, begins] : first) {
        set_language(language);
        EXPECT_TRUE(legend().isVisible()) << language;
        EXPECT_THAT(legend().accessibleName().toStdString(), testing::StartsWith(begins));
        EXPECT_EQ(legend().accessibleName().count(": "), 8) << language;
    }
}

TEST_F(Legend, IsShownOnlyBelowTheEnginePanel) {
    EXPECT_TRUE(legend().isVisible());
    set_visible(form1::frame_engine, false);
    set_visible(form1::Frame_Lambda, true);
    settle();
    EXPECT_FALSE(legend().isVisible());
    set_visible(form1::Frame_Lambda, false);
    set_visible(form1::frame_engine, true);
    settle();
    EXPECT_TRUE(legend().isVisible());
}

TEST_F(Legend, IsHiddenWhileAControlIsInItsBand) {
    for (Widget* w : {&form1::lbl_tuning, &form1::Command_scarico, &form1::Label_sfondo}) {
        set_visible(*w, true);
        settle();
        EXPECT_FALSE(legend().isVisible()) << w->name;
        set_visible(*w, false);
        settle();
        EXPECT_TRUE(legend().isVisible()) << w->name;
    }
}

TEST_F(Legend, LetsClicksThrough) {
    EXPECT_TRUE(legend().testAttribute(Qt::WA_TransparentForMouseEvents));
}

} // namespace
} // namespace zol::view
