// The settings file: read leniently, written one key at a time, with every other byte kept.
#include "app/app_state.h"
#include "app/application_folder.h"
#include "app/settings_file.h"
#include "app/whole_file.h"
#include "tests/support/bench.h"
#include "view/windows/form1.h"

#include <sys/stat.h>
#include <unistd.h>

namespace zol::tests {
namespace {

using app::read_setting;
using app::write_setting;

class Settings : public Bench {
  protected:
    static constexpr const char* file = "setting.ini";
    std::string after_writing(const std::string& before, std::string_view key,
                              std::string_view value) {
        write_file(file, before);
        write_setting(key, value);
        return read_text(file);
    }
    std::string com_of(const std::string& content) {
        write_file(file, content);
        return read_setting("COM", "absent");
    }
    std::vector<std::string> files_of_folder() const {
        std::vector<std::string> names;
        for (const auto& entry : std::filesystem::directory_iterator(folder))
            names.push_back(entry.path().filename());
        return names;
    }
};

TEST_F(Settings, AMissingFileHasNoKeysAndTheFirstWriteMakesIt) {
    std::filesystem::remove(folder / file);
    EXPECT_EQ(read_setting("COM", "1"), "1");
    EXPECT_EQ(read_setting("LANGUAGE", ""), "");
    EXPECT_EQ(app::read_text_colour(), "");
    EXPECT_EQ(app::read_stored_version(), "");
    app::write_text_colour("255");
    EXPECT_EQ(read_text(file), "[General]\nCOLORETESTO=255\n");
    EXPECT_EQ(app::read_text_colour(), "255");
}

TEST_F(Settings, AnEmptyFileGetsItsSection) {
    EXPECT_EQ(com_of(""), "absent");
    EXPECT_EQ(after_writing("", "COM", "2"), "[General]\nCOM=2\n");
}

TEST_F(Settings, ABinaryFileHasNoKeysAndKeepsItsBytes) {
    std::string junk;
    for (int i = 0; i < 4096; ++i)
        junk += static_cast<char>(i * 7 + i / 256);
    EXPECT_EQ(com_of(junk), "absent");
    const std::string written = after_writing(junk, "COM", "2");
    EXPECT_TRUE(written.starts_with(junk));
    EXPECT_EQ(read_setting("COM", ""), "2");
}

TEST_F(Settings, ZeroBytesInTheFileEndNothing) {
    const std::string content("[General]\nA=\0x\nCOM=5\n", 21);
    EXPECT_EQ(com_of(content), "5");
    EXPECT_EQ(after_writing(content, "COM", "6"), content.substr(0, content.size() - 2) + "6\n");
}

TEST_F(Settings, AReadOnlyFileIsReadAndStaysAsItIs) {
    write_file(file, "[General]\nCOM=4\n");
    ::chmod((folder / file).c_str(), 0444);
    EXPECT_EQ(read_setting("COM", ""), "4");
    write_setting("COM", "7");
    EXPECT_EQ(read_text(file), "[General]\nCOM=4\n");
    EXPECT_THAT(files_of_folder(),
                testing::Not(testing::Contains(testing::StartsWith("setting.ini."))));
}

TEST_F(Settings, AFileThatCannotBeReadIsNotReplacedByAnotherOne) {
    write_file(file, "[General]\nCOM=4\n");
    ::chmod((folder / file).c_str(), 0200);
    ::chmod(folder.c_str(), 0777);
    const bool superuser = ::geteuid() == 0; // who may read everything: be somebody else
    ASSERT_EQ(superuser ? ::seteuid(65534) : 0, 0);
    EXPECT_EQ(read_setting("COM", "1"), "1");
    write_setting("LANGUAGE", "de");
    ASSERT_EQ(superuser ? ::seteuid(0) : 0, 0);
    ::chmod((folder / file).c_str(), 0644);
    EXPECT_EQ(read_text(file), "[General]\nCOM=4\n");
}

TEST_F(Settings, AFolderOfThatNameHasNoKeysAndTakesNone) {
    std::filesystem::remove(folder / file);
    std::filesystem::create_directory(folder / file);
    EXPECT_EQ(read_setting("COM", "1"), "1");
    write_setting("COM", "7");
    EXPECT_TRUE(std::filesystem::is_directory(folder / file));
}

TEST_F(Settings, APipeOfThatNameHoldsNothingUp) {
    std::filesystem::remove(folder / file);
    ASSERT_EQ(::mkfifo((folder / file).c_str(), 0666), 0);
    EXPECT_EQ(read_setting("COM", "1"), "1");
    write_setting("COM", "7");
    EXPECT_TRUE(std::filesystem::is_fifo(folder / file));
}

TEST_F(Settings, LinesOfAHundredThousandCharactersAreKept) {
    const std::string line(100'000, 'x');
    const std::string content = line + "\n[General]\n" + line + "=" + line + "\nCOM=5\n;" + line;
    EXPECT_EQ(com_of(content), "5");
    EXPECT_EQ(after_writing(content, "COM", "6"),
              line + "\n[General]\n" + line + "=" + line + "\nCOM=6\n;" + line + "\n");
}

TEST_F(Settings, AFileWithWindowsLineEndsKeepsThem) {
    const std::string content = "[General]\r\nLANGUAGE=it\r\nCOM=5\r\n\r\n[Other]\r\nA=1\r\n";
    EXPECT_EQ(com_of(content), "5");
    EXPECT_EQ(after_writing(content, "COM", "6"),
              "[General]\r\nLANGUAGE=it\r\nCOM=6\r\n\r\n[Other]\r\nA=1\r\n");
    EXPECT_EQ(after_writing(content, "VERSIONE", "9"),
              "[General]\r\nLANGUAGE=it\r\nCOM=5\r\nVERSIONE=9\r\n\r\n[Other]\r\nA=1\r\n");
}

TEST_F(Settings, AByteOrderMarkIsNoPartOfTheHeader) {
    const std::string content = "\xEF\xBB\xBF[General]\nCOM=5\n";
    EXPECT_EQ(com_of(content), "5");
    EXPECT_EQ(after_writing(content, "COM", "6"), "\xEF\xBB\xBF[General]\nCOM=6\n");
}

TEST_F(Settings, AFileInUtf16IsNeitherReadNorWritten) {
    for (const std::string mark : {"\xFF\xFE", "\xFE\xFF"}) {
        const std::string content = mark + "[General]\nCOM=5\n";
        EXPECT_EQ(com_of(content), "absent");
        EXPECT_EQ(after_writing(content, "LANGUAGE", "de"), content);
    }
}

TEST_F(Settings, CommentsAreNoKeysAndStay) {
    const std::string content = "; COM=1\n[General] ; the one section\n;COM=2\n  ;COM=3\nCOM=5\n";
    EXPECT_EQ(com_of(content), "5");
    EXPECT_EQ(after_writing(content, "COM", "6"),
              "; COM=1\n[General] ; the one section\n;COM=2\n  ;COM=3\nCOM=6\n");
}

TEST_F(Settings, OfDuplicateKeysAndSectionsTheFirstCounts) {
    const std::string content = "[General]\nCOM=5\nCOM=6\n[General]\nCOM=7\n";
    EXPECT_EQ(com_of(content), "5");
    EXPECT_EQ(after_writing(content, "COM", "8"), "[General]\nCOM=8\nCOM=6\n[General]\nCOM=7\n");
}

TEST_F(Settings, KeysOfOtherSectionsDoNotCount) {
    EXPECT_EQ(com_of("COM=1\n[Other]\nCOM=2\n[General]\nA=1\n[Last]\nCOM=3\n"), "absent");
    EXPECT_EQ(after_writing("[Other]\nCOM=2\n[General]\nA=1\n\n[Last]\nCOM=3\n", "COM", "4"),
              "[Other]\nCOM=2\n[General]\nA=1\nCOM=4\n\n[Last]\nCOM=3\n");
    EXPECT_EQ(after_writing("[Other]\nCOM=2", "COM", "4"), "[Other]\nCOM=2\n[General]\nCOM=4\n");
    EXPECT_EQ(com_of("[Generale]\nCOM=1\n[Gener\nCOM=2\n"), "absent");
}

TEST_F(Settings, SectionAndKeyAreFoundInAnyCaseAndWithBlanks) {
    EXPECT_EQ(com_of("  [ gEnErAl ]  \n   com   =   5   \n"), "5");
    EXPECT_EQ(com_of("[GENERAL\nCOM=5\n"), "5");
}

TEST_F(Settings, OnePairOfQuotesAroundAValueIsTakenOff) {
    EXPECT_EQ(com_of("[General]\nCOM=\" 5 \"\n"), " 5 ");
    EXPECT_EQ(com_of("[General]\nCOM='5'\n"), "5");
    EXPECT_EQ(com_of("[General]\nCOM=\"5'\n"), "\"5'");
    EXPECT_EQ(com_of("[General]\nCOM=\"\"5\"\"\n"), "\"5\"");
    EXPECT_EQ(com_of("[General]\nCOM=\"\n"), "\"");
    EXPECT_EQ(com_of("[General]\nCOM=\"\"\n"), "");
}

TEST_F(Settings, AKeyWithoutAValueIsThereAndEmpty) {
    EXPECT_EQ(com_of("[General]\nCOM=\n"), "");
    EXPECT_EQ(com_of("[General]\nCOM\n"), "absent") << "a line without a sign is no key";
    EXPECT_EQ(com_of("[General]\nCOM=a=b\n"), "a=b");
    EXPECT_EQ(com_of("[General]\n=5\n"), "absent");
}

TEST_F(Settings, AFileWithoutAFinalLineEndIsReadAndGetsOne) {
    EXPECT_EQ(com_of("[General]\nCOM=5"), "5");
    EXPECT_EQ(after_writing("[General]\nCOM=5", "COM", "6"), "[General]\nCOM=6\n");
    EXPECT_EQ(after_writing("[General]", "COM", "6"), "[General]\nCOM=6\n");
    EXPECT_EQ(after_writing("[General]\nA=1", "COM", "6"), "[General]\nA=1\nCOM=6\n");
}

TEST_F(Settings, AValueIsCutTo255Characters) {
    for (const std::size_t length : {254u, 255u, 256u, 300u, 5000u}) {
        const std::string value = std::string(length - 1, 'v') + "w";
        EXPECT_EQ(com_of("[General]\nCOM=" + value + "\n"), value.substr(0, 255)) << length;
    }
}

TEST_F(Settings, UnknownLinesAndTheirOrderAreKeptByteForByte) {
    const std::string before = "rubbish\n\n\t[Z]\nk = v \n[General]\n  \nLIVELLO=3\n???\n";
    const std::string behind = "\xE4\xF6\xFC=\xDF\n\n[A]\n[B]\nx\n\n\n";
    EXPECT_EQ(after_writing(before + "LANGUAGE=it\n" + behind, "LANGUAGE", "de"),
              before + "LANGUAGE=de\n" + behind);
}

TEST_F(Settings, WritingTheSameAgainChangesNothing) {
    const std::string content = "[General]\nLANGUAGE=uk\nCOM=2\nCOLORETESTO=255\n";
    EXPECT_EQ(after_writing(content, "COM", "2"), content);
}

TEST_F(Settings, ALinkStaysALinkAndItsFileIsReplaced) {
    std::filesystem::create_directory(folder / "elsewhere");
    write_file("elsewhere/real.ini", "[General]\nCOM=5\n");
    std::filesystem::remove(folder / file);
    std::filesystem::create_symlink("elsewhere/real.ini", folder / file);
    write_setting("COM", "6");
    EXPECT_TRUE(std::filesystem::is_symlink(folder / file));
    EXPECT_EQ(read_text("elsewhere/real.ini"), "[General]\nCOM=6\n");
    EXPECT_EQ(read_setting("COM", ""), "6");
}

TEST_F(Settings, TheFileKeepsItsRights) {
    write_file(file, "[General]\n");
    ::chmod((folder / file).c_str(), 0640);
    write_setting("COM", "6");
    struct stat status {};
    ::stat((folder / file).c_str(), &status);
    EXPECT_EQ(status.st_mode & 0777, 0640u);
}

} // namespace
} // namespace zol::tests
