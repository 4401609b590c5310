// The text of files in UTF-8 or Latin-1, the blanks around it, and the descriptors of read and
// written files.
#include "app/whole_file.h"

#include <gmock/gmock.h>
#include <iterator>
#include <unistd.h>

namespace zol::app {
namespace {

TEST(TextOfAFile, InUtf8StaysAsItIs) {
    for (const char* text :
         {"", "volt", "\x7F", "\xC2\x80", "\xDF\xBF", "\xE0\xA0\x80", "\xEF\xBF\xBF",
          "\xF0\x90\x80\x80", "\xF4\x8F\xBF\xBF", "a\xC3\xA9z \xE2\x82\xAC \xF0\x9F\x9A\x97."})
        EXPECT_EQ(as_utf8(text), text);
}

TEST(TextOfAFile, InLatin1IsConverted) {
    EXPECT_EQ(as_utf8("caff\xE8 nero"), "caff\xC3\xA8 nero");
    EXPECT_EQ(as_utf8("\x80"), "\xC2\x80");
    EXPECT_EQ(as_utf8("\xBF"), "\xC2\xBF");
    EXPECT_EQ(as_utf8("\xC0"), "\xC3\x80");
    EXPECT_EQ(as_utf8("\xFF"), "\xC3\xBF");
}

TEST(TextOfAFile, WithAMalformedLetterIsLatin1) {
    EXPECT_EQ(as_utf8("\xC1\x80"), "\xC3\x81\xC2\x80");               // overlong form
    EXPECT_EQ(as_utf8("\xC2\x7F"), "\xC3\x82\x7F");                   // no continuation byte
    EXPECT_EQ(as_utf8("\xC2\xC0"), "\xC3\x82\xC3\x80");               // neither
    EXPECT_EQ(as_utf8("\xE0\xA0y"), "\xC3\xA0\xC2\xA0y");             // one byte too few
    EXPECT_EQ(as_utf8("\xF0\x90\x80y"), "\xC3\xB0\xC2\x90\xC2\x80y"); // of four
    EXPECT_EQ(as_utf8("\xF5\x80\x80\x80"), "\xC3\xB5\xC2\x80\xC2\x80\xC2\x80");
}

TEST(TextOfAFile, CutInTheMiddleOfALetterIsLatin1) {
    const std::string_view longer = "\xC3\xA9\xE2\x82\xAC";
    EXPECT_EQ(as_utf8(longer.substr(0, 1)), "\xC3\x83");
    EXPECT_EQ(as_utf8(longer.substr(0, 4)), "\xC3\x83\xC2\xA9\xC3\xA2\xC2\x82");
    EXPECT_EQ(as_utf8(longer), longer);
}

TEST(TextOfAFile, LosesBlanksAtBothEnds) {
    EXPECT_EQ(trim(" \t\ra \t\rb\r \t"), "a \t\rb");
    EXPECT_EQ(trim("a"), "a");
    EXPECT_EQ(trim(" \t\r"), "");
    EXPECT_EQ(trim(""), "");
    EXPECT_EQ(trim("\n a \n"), "\n a \n");
    for (char c = '!'; c < '\x7F'; ++c)
        EXPECT_EQ(trim(std::string(3, c)), std::string(3, c));
}

std::ptrdiff_t open_files() {
    const std::filesystem::directory_iterator files("/proc/self/fd");
    return std::distance(begin(files), end(files));
}

TEST(AWholeFile, IsClosedHoweverReadingOrWritingEnds) {
    const auto folder =
        std::filesystem::temp_directory_path() / ("zol_whole_" + std::to_string(::getpid()));
    std::filesystem::create_directories(folder / "folder");
    const auto before = open_files();
    EXPECT_TRUE(replace_file(folder / "file", "volt"));
    EXPECT_EQ(read_file(folder / "file"), "volt");
    EXPECT_EQ(read_file(folder / "folder"), std::nullopt);
    EXPECT_EQ(read_file(folder / "nothing"), std::nullopt);
    EXPECT_FALSE(replace_file(folder / "folder", "volt"));
    EXPECT_FALSE(replace_file(folder / "nowhere" / "file", "volt"));
    EXPECT_EQ(open_files(), before);
    EXPECT_FALSE(std::filesystem::exists(folder / "file.new"));
    std::filesystem::remove_all(folder);
}

} // namespace
} // namespace zol::app
