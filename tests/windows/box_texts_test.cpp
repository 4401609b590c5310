// The texts of boxes are in the operator's language, and a box is as wide as its title.
#include "app/app_state.h"
#include "app/application_folder.h"
#include "app/helper_texts.h"
#include "tests/windows/window_fixture.h"

#include <QAbstractButton>
#include <QColorDialog>
#include <QInputDialog>
#include <QLabel>
#include <QMessageBox>
#include <QPushButton>

namespace zol::view {
namespace {

using namespace test_window;

class BoxTexts : public WindowFixture {
  protected:
    BoxTexts() {
        app::use_application_folder(ZOL_SOURCE_DIR);
        open(Sample);
    }
    static void set_language(const std::string& language) {
        app::state.current_language = language;
        app::apply_helper_texts();
    }
    static QStringList texts_of(const QWidget& box) {
        QStringList texts;
        for (const auto* button : box.findChildren<QAbstractButton*>())
            texts << button->text().remove('&');
        for (const auto* label : box.findChildren<QLabel*>())
            texts << label->text().remove('&');
        return texts;
    }
    QStringList question() {
        QStringList texts;
        answer<QMessageBox>("message_box", [&](QMessageBox& box) {
            texts = texts_of(box);
            box.reject();
        });
        message_box({.text = "?", .title = "", .buttons = Buttons::yes_no});
        return texts;
    }
};

TEST_F(BoxTexts, YesAndNoFollowTheLanguage) {
    const std::vector<std::array<const char*, 3>> words = {{"de", "Ja", "Nein"},
                                                           {"fr", "Oui", "Non"},
                                                           {"it", "Sì", "No"},
                                                           {"pl", "Tak", "Nie"},
                                                           {"uk", "Yes", "No"}};
    for (const auto& [language, yes, no] : words) {
        set_language(language);
        EXPECT_THAT(question(), ::testing::IsSupersetOf({QString(yes), QString(no)})) << language;
    }
}

TEST_F(BoxTexts, ColourDialogIsTranslatedCompletely) {
    QStringList english;
    const auto take = [&](QStringList& texts) {
        answer<QColorDialog>("colour_box", [&texts](QColorDialog& box) {
            texts = texts_of(box) << box.windowTitle();
            box.reject();
        });
        colour_box(red);
    };
    take(english); // the toolkit's own: no language was loaded
    for (const char* language : {"de", "fr", "it", "pl"}) {
        set_language(language);
        QStringList texts;
        take(texts);
        for (const QString& text : texts) {
            const bool same_word =
                text.trimmed().isEmpty() || text == "OK" || text.startsWith("HTML");
            EXPECT_TRUE(same_word || !english.contains(text)) << language << text.toStdString();
        }
    }
}

TEST_F(BoxTexts, CancelInAnInputBoxIsTranslated) {
    set_language("de");
    answer<QInputDialog>("input_box", [](QInputDialog& box) {
        EXPECT_THAT(texts_of(box), ::testing::Contains(QString("Abbrechen")));
        box.reject();
    });
    input_box("Digita", "Modifica");
}

TEST_F(BoxTexts, NoIsTheDefaultWhereTheBoxAsksForIt) {
    for (const bool no_by_default : {true, false}) {
        answer<QMessageBox>("message_box",
                            [](QMessageBox& box) { QTest::keyClick(&box, Qt::Key_Return); });
        EXPECT_EQ(message_box({.text = "reset?",
                               .title = "",
                               .buttons = Buttons::yes_no,
                               .no_by_default = no_by_default}),
                  no_by_default ? Answer::no : Answer::yes);
    }
}

TEST_F(BoxTexts, ABoxIsAsWideAsItsTitle) {
    const std::string title = "        A title that is much longer than the text of the box     ";
    const auto expect_wide = [&](const QWidget& box) {
        EXPECT_GT(box.width(), box.fontMetrics().horizontalAdvance(box.windowTitle()) +
                                   3 * box.fontMetrics().height());
    };
    answer<QMessageBox>("message_box", [&](QMessageBox& box) { expect_wide(box), box.accept(); });
    message_box({.text = "?", .title = title});
    answer<QInputDialog>("input_box", [&](QInputDialog& box) { expect_wide(box), box.accept(); });
    input_box("?", title);
}

} // namespace
} // namespace zol::view
