// Files and lines that are longer than those which the program or its operator writes.
#include "app/app_state.h"
#include "app/captions.h"
#include "app/helper_texts.h"
#include "app/message_catalogue.h"
#include "app/settings_file.h"
#include "tests/unit/app/language_folder.h"

#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

namespace zol::tests {
namespace {

namespace fs = std::filesystem;

constexpr std::uintmax_t terabyte = 1ULL << 40;
constexpr std::size_t mebibyte = 1 << 20;
constexpr std::size_t longest_line = 2000;

class FileSizes : public LanguageFolder {
  protected:
    void SetUp() override {
        use_own_language_folder();
        app::state.current_language = "uk";
    }
    // The rest of the file is a hole, which takes no room on the disk.
    void make_huge(const std::string& name, const std::string& content = "") {
        write_file(name, content);
        rlimit most{};
        ::getrlimit(RLIMIT_FSIZE, &most);
        most.rlim_cur = most.rlim_max; // the user may have set a lower one
        ::setrlimit(RLIMIT_FSIZE, &most);
        fs::resize_file(folder / name, terabyte);
    }
    std::string com() { return app::read_setting("COM", "absent"); }

    // How much the greatest memory of a process grows by this work, measured in another process.
    static long growth_in_kibibytes(const std::function<void()>& work) {
        int ends[2];
        EXPECT_EQ(::pipe(ends), 0);
        const auto most = [] {
            rusage usage{};
            ::getrusage(RUSAGE_SELF, &usage);
            return usage.ru_maxrss;
        };
        if (::fork() == 0) {
            const long before = most();
            work();
            const long growth = most() - before;
            ::_exit(::write(ends[1], &growth, sizeof growth) == sizeof growth ? 0 : 1);
        }
        ::wait(nullptr);
        long growth = -1;
        EXPECT_EQ(::read(ends[0], &growth, sizeof growth), ssize_t{sizeof growth});
        ::close(ends[0]);
        ::close(ends[1]);
        return growth;
    }
};

TEST_F(FileSizes, SettingsOfATerabyteCountAsUnreadable) {
    make_huge("setting.ini", "[General]\nCOM=5\n");
    EXPECT_EQ(com(), "absent");
}

TEST_F(FileSizes, SettingsTooLongToReadAreNotOverwritten) {
    make_huge("setting.ini", "[General]\nCOM=5\n");
    app::write_setting("COM", "6");
    EXPECT_EQ(fs::file_size(folder / "setting.ini"), terabyte);
}

TEST_F(FileSizes, SettingsOfAMebibyteAreStillUsed) {
    const std::string content = "[General]\nCOM=5\n";
    const std::string rest(mebibyte - content.size(), '\n');
    write_file("setting.ini", content + rest);
    EXPECT_EQ(com(), "5");
    app::write_setting("COM", "6");
    EXPECT_TRUE(read_text("setting.ini") == "[General]\nCOM=6\n" + rest);
    write_file("setting.ini", content + rest + "\n");
    EXPECT_EQ(com(), "absent");
}

TEST_F(FileSizes, SettingsDoNotBecomeTooLongToRead) {
    const std::string content = "[General]\nCOM=5\n";
    const std::string full = content + std::string(mebibyte - content.size(), '\n');
    write_file("setting.ini", full);
    app::write_setting("COM", "66");
    EXPECT_EQ(com(), "5");
    EXPECT_TRUE(read_text("setting.ini") == full);
}

TEST_F(FileSizes, SettingsOfLineEndsOnlyTakeLittleMemory) {
    write_file("setting.ini", std::string(mebibyte - 100, '\n'));
    EXPECT_LT(growth_in_kibibytes([] { app::write_setting("COM", "6"); }), 24 * 1024);
    EXPECT_EQ(com(), "6");
}

TEST_F(FileSizes, MessagesOfATerabyteLeaveTheCaptions) {
    make_huge("language/Mivra_uk.ini", "[1058]\nENGINE\n");
    form1::Command_engine.look.text = "as it was";
    app::apply_panel_captions();
    EXPECT_EQ(view::text(form1::Command_engine), "as it was");
    EXPECT_EQ(app::message(1058), std::nullopt);
}

TEST_F(FileSizes, TroubleCodesOfATerabyteHaveNoText) {
    make_huge("language/codici_eobd_uk.ini", "[P0300]\nmisfire\nnote\n");
    EXPECT_EQ(app::trouble_code_text("P0300"), std::nullopt);
}

TEST_F(FileSizes, TipsOfATerabyteGiveTheEnglishOnes) {
    app::state.current_language = "de";
    make_huge("language/tips_de.ini", "[Form1]\nLabel_rpm = huge\n");
    write_file("language/tips_uk.ini", "[Form1]\nLabel_rpm = English\n");
    app::apply_helper_texts();
    EXPECT_EQ(form1::Label_rpm.help.text, "English");
}

TEST_F(FileSizes, FourMebibytesOfMessagesAreReadToTheirEnd) {
    const std::string last = "\n[1]\nat the end\n";
    std::string junk(4 * mebibyte - last.size(), '[');
    for (std::size_t i = 997; i < junk.size(); i += 997)
        junk[i] = i % 2 ? '\n' : '\0';
    write_file("language/Mivra_uk.ini", junk + last);
    EXPECT_EQ(app::message(1), "at the end");
    write_file("language/Mivra_uk.ini", junk + last + "\n");
    EXPECT_EQ(app::message(1), std::nullopt);
}

// Not compared as texts: where they differ, both would be printed.
bool is_many(const std::optional<std::string>& text, std::size_t size, char each) {
    return text == std::string(size, each);
}

TEST_F(FileSizes, ALongMessageIsCut) {
    write_file("language/Mivra_uk.ini", "[1]\n" + std::string(100'000, 'x') + "\n[2]\n" +
                                            std::string(longest_line, 'y') + "\n");
    EXPECT_TRUE(is_many(app::message(1), longest_line, 'x'));
    EXPECT_TRUE(is_many(app::message(2), longest_line, 'y'));
}

TEST_F(FileSizes, ALongMessageIsCutBetweenTwoCharacters) {
    std::string text = std::string(longest_line - 1, 'x');
    for (int i = 0; i < 50'000; ++i)
        text += "\xE2\x82\xAC";
    write_file("language/Mivra_uk.ini", "[1]\n" + text + "\n");
    EXPECT_TRUE(is_many(app::message(1), longest_line - 1, 'x'));
}

TEST_F(FileSizes, ALongDescriptionAndNoteAreCut) {
    write_file("language/codici_eobd_uk.ini",
               "[P1]\n" + std::string(100'000, 'd') + "\n" + std::string(100'000, 'n') + "\n");
    EXPECT_TRUE(is_many(app::trouble_code_text("P1"), longest_line, 'd'));
    EXPECT_TRUE(is_many(view::text(form1::Text_note_error), longest_line, 'n'));
}

TEST_F(FileSizes, ALongTipIsCut) {
    write_file("language/tips_uk.ini", "[Form1]\nLabel_rpm = " + std::string(100'000, 't') + "\n");
    app::apply_helper_texts();
    EXPECT_TRUE(is_many(form1::Label_rpm.help.text, longest_line, 't'));
}

TEST_F(FileSizes, ATipForManyNamesTakesLittleMemory) {
    std::string names = "Label_rpm";
    for (int i = 0; i < 40'000; ++i)
        names += ",n" + std::to_string(i);
    write_file("language/tips_uk.ini",
               "[Form1]\n" + names + " = " + std::string(100'000, 't') + "\n");
    EXPECT_LT(growth_in_kibibytes([] { app::apply_helper_texts(); }), 64 * 1024);
}

} // namespace
} // namespace zol::tests
