// Numbered messages and trouble codes, from sound and from damaged files.
#include "app/app_state.h"
#include "app/message_catalogue.h"
#include "tests/unit/app/language_folder.h"

namespace zol::tests {
namespace {

using app::message;
using app::trouble_code_text;

constexpr const char* missing = "manca codice messaggio relativo file INI";

class Messages : public LanguageFolder {
  protected:
    void SetUp() override {
        use_own_language_folder();
        app::state.current_language = "uk";
    }
    void messages_are(const std::string& content) { write_file("language/Mivra_uk.ini", content); }
    std::optional<std::string> message_in(const std::string& content, int key) {
        messages_are(content);
        return message(key);
    }
    void codes_are(const std::string& language, const std::string& content) {
        write_file("language/codici_eobd_" + language + ".ini", content);
    }
};

TEST_F(Messages, LineAfterTheNumberIsTheText) {
    const std::string content = "[1]\none\n[12]\ntwelve\n[2]\ntwo\n";
    EXPECT_EQ(message_in(content, 1), "one");
    EXPECT_EQ(message_in(content, 12), "twelve");
    EXPECT_EQ(message_in(content, 2), "two");
}

TEST_F(Messages, BlanksOfTheTextAreKept) {
    EXPECT_EQ(message_in("  [7]\t \n  padded text  \n", 7), "  padded text  ");
    EXPECT_EQ(message_in("[ 7 ]\nx\n", 7), missing);
    EXPECT_EQ(message_in("[7]\n\n", 7), "");
}

TEST_F(Messages, MissingNumberGivesTheItalianText) {
    EXPECT_EQ(message_in("[1]\none\n", 2), missing);
    app::state.current_language = "de";
    write_file("language/Mivra_de.ini", "[1]\neins\n");
    EXPECT_EQ(message(3), missing);
}

TEST_F(Messages, FirstOfTwoEntriesCounts) {
    EXPECT_EQ(message_in("; note\n\nrubbish [1]\n[1] x\n[1]\nfirst\n[1]\nsecond\n", 1), "first");
}

TEST_F(Messages, TextThatIsABracketedNumberIsAHeader) {
    EXPECT_EQ(message_in("[1]\n[2]\nthree\n", 2), "three");
    EXPECT_EQ(message_in("[1]\n[2]\nthree\n", 1), "[2]");
}

TEST_F(Messages, EmptyFileGivesAnEmptyText) {
    EXPECT_EQ(message_in("", 1), "");
    EXPECT_EQ(message_in("\n", 1), missing) << "a line is no empty file";
    EXPECT_EQ(message_in("\xEF\xBB\xBF", 1), "");
}

TEST_F(Messages, MissingFileKeepsTheCaption) {
    EXPECT_EQ(message(1), std::nullopt);
    form1::Command_engine.look.text = "as it was";
    app::set_message(form1::Command_engine, 1058);
    EXPECT_EQ(view::text(form1::Command_engine), "as it was");
    std::filesystem::create_directory(folder / "language/Mivra_uk.ini");
    EXPECT_EQ(message(1), std::nullopt) << "a folder is no file";
}

TEST_F(Messages, WithoutALanguageTheFileNameHasNoCode) {
    app::state.current_language = "";
    EXPECT_EQ(message(1), std::nullopt);
    write_file("language/Mivra_.ini", "[1]\nnameless\n");
    EXPECT_EQ(message(1), "nameless");
}

TEST_F(Messages, HeaderAsTheLastLineGivesNothing) {
    EXPECT_EQ(message_in("[1]\none\n[2]", 2), std::nullopt);
    EXPECT_EQ(message_in("[1]\none\n[2]\n", 2), std::nullopt);
    EXPECT_EQ(message_in("[1]\none", 1), "one") << "a last line without its end is a line";
}

TEST_F(Messages, WindowsLineEndsAreNoPartOfTheText) {
    EXPECT_EQ(message_in("[1]\r\none \r\n[2]\r\ntwo\r\n", 1), "one ");
    EXPECT_EQ(message_in("[1]\r\none \r\n[2]\r\ntwo\r\n", 2), "two");
}

TEST_F(Messages, ByteOrderMarkDoesNotHideTheFirstHeader) {
    EXPECT_EQ(message_in("\xEF\xBB\xBF[1]\none\n", 1), "one");
}

TEST_F(Messages, TextInLatin1IsConverted) {
    EXPECT_EQ(message_in("[1]\nK\xFChlwasser\n", 1), "Kühlwasser");
    EXPECT_EQ(message_in("[1]\nKühlwasser\n", 1), "Kühlwasser");
    EXPECT_EQ(message_in("[1]\nK\xFC ü\n[2]\nü\n", 2), "ü") << "line by line";
}

TEST_F(Messages, SuffixFollowsTheText) {
    messages_are("[1134]\nCHANGEOVER\n");
    app::set_message(form1::Command303, 1134, "...");
    EXPECT_EQ(view::text(form1::Command303), "CHANGEOVER...");
}

TEST_F(Messages, CorrectedFileTakesEffectAtOnce) {
    EXPECT_EQ(message_in("[1]\nold\n", 1), "old");
    EXPECT_EQ(message_in("[1]\nnew\n", 1), "new");
}

TEST_F(Messages, TroubleCodeHasADescriptionWithANote) {
    codes_are("uk", "[P0300]\n  misfire \n\t note \n[P0301]\nmisfire 1\nnote 1\n");
    EXPECT_EQ(trouble_code_text("P0300"), "misfire");
    EXPECT_EQ(view::text(form1::Text_note_error), "note");
    EXPECT_EQ(trouble_code_text("P0301"), "misfire 1");
    EXPECT_EQ(view::text(form1::Text_note_error), "note 1");
}

TEST_F(Messages, CodeWithoutAnEntryLeavesTheNote) {
    codes_are("uk", "[P0300]\nmisfire\nnote\n");
    form1::Text_note_error.look.text = "before";
    for (const char* code : {"NO ERROR", "", "P0301", "p0300", "P0300]"})
        EXPECT_EQ(trouble_code_text(code), "") << code;
    EXPECT_EQ(view::text(form1::Text_note_error), "before");
}

TEST_F(Messages, LanguageWithoutCodesUsesTheEnglishOnes) {
    codes_are("uk", "[P0300]\nmisfire\nnote\n");
    app::state.current_language = "pl";
    EXPECT_EQ(trouble_code_text("P0300"), "misfire");
    std::filesystem::create_directory(folder / "language/codici_eobd_pl.ini");
    EXPECT_EQ(trouble_code_text("P0300"), "misfire") << "a folder is no file";
    std::filesystem::remove(folder / "language/codici_eobd_pl.ini");
    codes_are("pl", "[P0300]\nwypadanie\nuwaga\n");
    EXPECT_EQ(trouble_code_text("P0300"), "wypadanie");
    codes_are("pl", "");
    EXPECT_EQ(trouble_code_text("P0300"), "") << "an empty file of the language is used";
}

TEST_F(Messages, WithoutAnyCodesFileThereIsNothing) {
    EXPECT_EQ(trouble_code_text("P0300"), std::nullopt);
}

TEST_F(Messages, EntryCutByTheEndOfTheFileIsUsed) {
    form1::Text_note_error.look.text = "before";
    codes_are("uk", "[P0300]\nmisfire");
    EXPECT_EQ(trouble_code_text("P0300"), "misfire");
    EXPECT_EQ(view::text(form1::Text_note_error), "before");
    codes_are("uk", "[P0300]\n");
    EXPECT_EQ(trouble_code_text("P0300"), std::nullopt);
}

} // namespace
} // namespace zol::tests
