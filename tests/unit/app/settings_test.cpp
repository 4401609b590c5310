// The settings file: read leniently, and written one key at a time with every other byte kept.
#include "app/whole_file.h"
#include "tests/unit/app/settings_folder.h"

#include <sys/stat.h>
#include <unistd.h>

namespace zol::tests {
namespace {

using app::read_setting;
using app::write_setting;

class Settings : public SettingsFolder {
  protected:
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
    // A file in place of the settings that cannot be read as one.
    void expect_neither_read_nor_written() {
        EXPECT_EQ(read_setting("COM", "1"), "1");
        write_setting("COM", "7");
    }
};

TEST_F(Settings, FirstWriteMakesAMissingFile) {
    std::filesystem::remove(folder / file);
    EXPECT_EQ(read_setting("COM", "1"), "1");
    EXPECT_EQ(read_setting("LANGUAGE", ""), "");
    EXPECT_EQ(app::read_text_colour(), "");
    EXPECT_EQ(app::read_stored_version(), "");
    app::write_text_colour("255");
    EXPECT_EQ(read_text(file), "[General]\nCOLORETESTO=255\n");
    EXPECT_EQ(app::read_text_colour(), "255");
}

TEST_F(Settings, EmptyFileGetsItsSection) {
    EXPECT_EQ(com_of(""), "absent");
    EXPECT_EQ(after_writing("", "COM", "2"), "[General]\nCOM=2\n");
}

TEST_F(Settings, BinaryFileKeepsItsBytes) {
    std::string junk;
    for (int i = 0; i < 4096; ++i)
        junk += static_cast<char>(i * 7 + i / 256);
    EXPECT_EQ(com_of(junk), "absent");
    const std::string written = after_writing(junk, "COM", "2");
    EXPECT_TRUE(written.starts_with(junk));
    EXPECT_EQ(read_setting("COM", ""), "2");
}

TEST_F(Settings, ZeroBytesEndNothing) {
    const std::string content("[General]\nA=\0x\nCOM=5\n", 21);
    EXPECT_EQ(com_of(content), "5");
    EXPECT_EQ(after_writing(content, "COM", "6"), content.substr(0, content.size() - 2) + "6\n");
}

TEST_F(Settings, ReadOnlyFileStaysAsItIs) {
    write_file(file, "[General]\nCOM=4\n");
    ::chmod((folder / file).c_str(), 0444);
    EXPECT_EQ(read_setting("COM", ""), "4");
    write_setting("COM", "7");
    EXPECT_EQ(read_text(file), "[General]\nCOM=4\n");
    EXPECT_THAT(left_beside(file), testing::IsEmpty());
}

TEST_F(Settings, FolderOfThatNameHasNoKeys) {
    std::filesystem::remove(folder / file);
    std::filesystem::create_directory(folder / file);
    expect_neither_read_nor_written();
    EXPECT_TRUE(std::filesystem::is_directory(folder / file));
}

TEST_F(Settings, PipeOfThatNameBlocksNothing) {
    std::filesystem::remove(folder / file);
    ASSERT_EQ(::mkfifo((folder / file).c_str(), 0666), 0);
    expect_neither_read_nor_written();
    EXPECT_TRUE(std::filesystem::is_fifo(folder / file));
}

TEST_F(Settings, LongLinesAreKept) {
    const std::string line(100'000, 'x');
    const std::string before = line + "\n[General]\n" + line + "=" + line + "\nCOM=";
    const std::string content = before + "5\n;" + line;
    EXPECT_EQ(com_of(content), "5");
    EXPECT_EQ(after_writing(content, "COM", "6"), before + "6\n;" + line + "\n");
}

TEST_F(Settings, FileInUtf16IsNeitherReadNorWritten) {
    for (const std::string mark : {"\xFF\xFE", "\xFE\xFF"}) {
        const std::string content = mark + "[General]\nCOM=5\n";
        EXPECT_EQ(com_of(content), "absent");
        EXPECT_EQ(after_writing(content, "LANGUAGE", "de"), content);
    }
}

// What `COM` is in this content.
struct Read {
    const char *name, *content, *com;
};
class ReadFrom : public Settings, public testing::WithParamInterface<Read> {};

TEST_P(ReadFrom, FindsTheValue) { EXPECT_EQ(com_of(GetParam().content), GetParam().com); }

INSTANTIATE_TEST_SUITE_P(
    , ReadFrom,
    testing::Values(Read{"WindowsLineEnds", "[General]\r\nLANGUAGE=it\r\nCOM=5\r\n", "5"},
                    Read{"AByteOrderMark", "\xEF\xBB\xBF[General]\nCOM=5\n", "5"},
                    Read{"Comments", "; COM=1\n[General] ; one\n;COM=2\n  ;COM=3\nCOM=5\n", "5"},
                    Read{"TheFirstOfSeveral", "[General]\nCOM=5\nCOM=6\n[General]\nCOM=7\n", "5"},
                    Read{"OtherSections", "COM=1\n[Other]\nCOM=2\n[General]\nA=1\n[Last]\nCOM=3\n",
                         "absent"},
                    Read{"SimilarSections", "[Generale]\nCOM=1\n[Gener\nCOM=2\n", "absent"},
                    Read{"AnyCaseAndBlanks", "  [ gEnErAl ]  \n   com   =   5   \n", "5"},
                    Read{"AnOpenHeader", "[GENERAL\nCOM=5\n", "5"},
                    Read{"Quotes", "[General]\nCOM=\" 5 \"\n", " 5 "},
                    Read{"SingleQuotes", "[General]\nCOM='5'\n", "5"},
                    Read{"UnlikeQuotes", "[General]\nCOM=\"5'\n", "\"5'"},
                    Read{"TwoPairsOfQuotes", "[General]\nCOM=\"\"5\"\"\n", "\"5\""},
                    Read{"OneQuote", "[General]\nCOM=\"\n", "\""},
                    Read{"EmptyQuotes", "[General]\nCOM=\"\"\n", ""},
                    Read{"AnEmptyValue", "[General]\nCOM=\n", ""},
                    Read{"ALineWithoutASign", "[General]\nCOM\n", "absent"},
                    Read{"ASignInTheValue", "[General]\nCOM=a=b\n", "a=b"},
                    Read{"NoKey", "[General]\n=5\n", "absent"},
                    Read{"NoFinalLineEnd", "[General]\nCOM=5", "5"}),
    [](const auto& row) { return row.param.name; });

// What becomes of this content when `key` is written.
struct Change {
    const char *name, *before, *key, *value, *after;
};
class WriteInto : public Settings, public testing::WithParamInterface<Change> {};

TEST_P(WriteInto, KeepsAllElse) {
    const Change& row = GetParam();
    EXPECT_EQ(after_writing(row.before, row.key, row.value), row.after);
}

INSTANTIATE_TEST_SUITE_P(
    , WriteInto,
    testing::Values(Change{"WindowsLineEnds",
                           "[General]\r\nLANGUAGE=it\r\nCOM=5\r\n\r\n[Other]\r\nA=1\r\n", "COM",
                           "6", "[General]\r\nLANGUAGE=it\r\nCOM=6\r\n\r\n[Other]\r\nA=1\r\n"},
                    Change{"ANewKeyWithWindowsLineEnds",
                           "[General]\r\nCOM=5\r\n\r\n[Other]\r\nA=1\r\n", "VERSIONE", "9",
                           "[General]\r\nCOM=5\r\nVERSIONE=9\r\n\r\n[Other]\r\nA=1\r\n"},
                    Change{"AByteOrderMark", "\xEF\xBB\xBF[General]\nCOM=5\n", "COM", "6",
                           "\xEF\xBB\xBF[General]\nCOM=6\n"},
                    Change{"Comments", "; COM=1\n[General] ; one\n;COM=2\n  ;COM=3\nCOM=5\n", "COM",
                           "6", "; COM=1\n[General] ; one\n;COM=2\n  ;COM=3\nCOM=6\n"},
                    Change{"TheFirstOfSeveral", "[General]\nCOM=5\nCOM=6\n[General]\nCOM=7\n",
                           "COM", "8", "[General]\nCOM=8\nCOM=6\n[General]\nCOM=7\n"},
                    Change{"OtherSections", "[Other]\nCOM=2\n[General]\nA=1\n\n[Last]\nCOM=3\n",
                           "COM", "4", "[Other]\nCOM=2\n[General]\nA=1\nCOM=4\n\n[Last]\nCOM=3\n"},
                    Change{"AFileWithoutItsSection", "[Other]\nCOM=2", "COM", "4",
                           "[Other]\nCOM=2\n[General]\nCOM=4\n"},
                    Change{"NoFinalLineEnd", "[General]\nCOM=5", "COM", "6", "[General]\nCOM=6\n"},
                    Change{"AnEmptySection", "[General]", "COM", "6", "[General]\nCOM=6\n"},
                    Change{"ALastSection", "[General]\nA=1", "COM", "6", "[General]\nA=1\nCOM=6\n"},
                    Change{"TheSameValue", "[General]\nLANGUAGE=uk\nCOM=2\nCOLORETESTO=255\n",
                           "COM", "2", "[General]\nLANGUAGE=uk\nCOM=2\nCOLORETESTO=255\n"},
                    Change{"UnknownLines",
                           "rubbish\n\n\t[Z]\nk = v \n[General]\n  \nLIVELLO=3\n???\nLANGUAGE=it\n"
                           "\xE4\xF6\xFC=\xDF\n\n[A]\n[B]\nx\n\n\n",
                           "LANGUAGE", "de",
                           "rubbish\n\n\t[Z]\nk = v \n[General]\n  \nLIVELLO=3\n???\nLANGUAGE=de\n"
                           "\xE4\xF6\xFC=\xDF\n\n[A]\n[B]\nx\n\n\n"}),
    [](const auto& row) { return row.param.name; });

TEST_F(Settings, ValueIsCutTo255Characters) {
    for (const std::size_t length : {254u, 255u, 256u, 300u, 5000u}) {
        const std::string value = std::string(length - 1, 'v') + "w";
        EXPECT_EQ(com_of("[General]\nCOM=" + value + "\n"), value.substr(0, 255)) << length;
    }
}

TEST_F(Settings, LinkStaysALink) {
    std::filesystem::create_directory(folder / "elsewhere");
    write_file("elsewhere/real.ini", "[General]\nCOM=5\n");
    std::filesystem::remove(folder / file);
    std::filesystem::create_symlink("elsewhere/real.ini", folder / file);
    write_setting("COM", "6");
    EXPECT_TRUE(std::filesystem::is_symlink(folder / file));
    EXPECT_EQ(read_text("elsewhere/real.ini"), "[General]\nCOM=6\n");
    EXPECT_EQ(read_setting("COM", ""), "6");
}

TEST_F(Settings, FileKeepsItsMode) {
    write_file(file, "[General]\n");
    ::chmod((folder / file).c_str(), 0640);
    write_setting("COM", "6");
    struct stat status {};
    ::stat((folder / file).c_str(), &status);
    EXPECT_EQ(status.st_mode & 0777, 0640u);
}

} // namespace
} // namespace zol::tests
