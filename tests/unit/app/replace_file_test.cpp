// Replacing a file where another file already has a name that the write needs.
#include "app/whole_file.h"
#include "tests/unit/app/settings_folder.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace zol::tests {
namespace {

namespace fs = std::filesystem;

using testing::IsEmpty;
using testing::UnorderedElementsAre;

class ReplacingAFile : public SettingsFolder {
  protected:
    ReplacingAFile() { write_file("setting.ini", "[General]\nCOM=1\n"); }

    // A change of the settings is stored whole, in a regular file.
    void expect_saved() {
        for (const char* colour : {"1", "22"}) {
            app::write_text_colour(colour);
            ASSERT_TRUE(fs::is_regular_file(fs::symlink_status(settings)));
            EXPECT_EQ(read_text("setting.ini"),
                      "[General]\nCOM=1\nCOLORETESTO=" + std::string(colour) + "\n");
        }
    }
    void link_settings_to(const fs::path& target) {
        fs::remove(settings);
        fs::create_symlink(target, settings);
    }

    const fs::path settings = folder / "setting.ini";
    const fs::path temporary = folder / "setting.ini.new";
};

TEST_F(ReplacingAFile, DoesNotWriteIntoAPipe) {
    ASSERT_EQ(::mkfifo(temporary.c_str(), 0600), 0);
    // With a reader there, opening the pipe would not wait for one.
    const int reader = ::open(temporary.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC);
    expect_saved();
    ::close(reader);
    EXPECT_THAT(left_beside(file), IsEmpty());
}

TEST_F(ReplacingAFile, LeavesTheOtherNameOfAHardLinkAlone) {
    write_file("victim", "precious");
    fs::create_hard_link(folder / "victim", temporary);
    expect_saved();
    EXPECT_EQ(read_text("victim"), "precious");
    EXPECT_THAT(left_beside(file), IsEmpty());
}

TEST_F(ReplacingAFile, LeavesTheOtherNameOfTheFileItselfAlone) {
    fs::create_hard_link(settings, folder / "victim");
    expect_saved();
    EXPECT_EQ(read_text("victim"), "[General]\nCOM=1\n");
}

TEST_F(ReplacingAFile, LeavesTheTargetOfALinkAlone) {
    write_file("victim", "precious");
    fs::create_symlink("victim", temporary);
    expect_saved();
    EXPECT_EQ(read_text("victim"), "precious");
    EXPECT_THAT(left_beside(file), IsEmpty());
}

TEST_F(ReplacingAFile, TakesAnotherNameWhereAFolderHasTheFirst) {
    fs::create_directories(temporary / "kept");
    expect_saved();
    EXPECT_TRUE(fs::is_directory(temporary / "kept"));
    EXPECT_THAT(left_beside(file), UnorderedElementsAre("setting.ini.new"));
}

TEST_F(ReplacingAFile, RemovesWhatAKillLeft) {
    fs::create_directory(temporary);
    write_file("setting.ini.new2", "half of");
    expect_saved();
    EXPECT_THAT(left_beside(file), UnorderedElementsAre("setting.ini.new"));
}

TEST_F(ReplacingAFile, LeavesTheOldOneWhereEveryNameIsTaken) {
    fs::create_directory(temporary);
    for (int number = 2; number < 10; ++number)
        fs::create_directory(temporary.string() + std::to_string(number));
    EXPECT_FALSE(app::replace_file(settings, "new"));
    EXPECT_EQ(read_text("setting.ini"), "[General]\nCOM=1\n");
    EXPECT_EQ(left_beside(file).size(), 9U);
}

TEST_F(ReplacingAFile, MakesTheTargetOfADanglingLink) {
    fs::create_directory(folder / "elsewhere");
    for (const fs::path& target :
         {fs::path("elsewhere/real.ini"), folder / "elsewhere" / "absolute.ini"}) {
        link_settings_to(target);
        app::write_text_colour("1");
        EXPECT_EQ(fs::read_symlink(settings), target);
        EXPECT_EQ(read_text("elsewhere/" + target.filename().string()),
                  "[General]\nCOLORETESTO=1\n");
    }
    EXPECT_THAT(left_beside(file), IsEmpty());
}

TEST_F(ReplacingAFile, FollowsALinkToALinkToNoFile) {
    fs::create_directory(folder / "elsewhere");
    fs::create_symlink("real.ini", folder / "elsewhere" / "second");
    link_settings_to("elsewhere/second");
    app::write_text_colour("1");
    EXPECT_TRUE(fs::is_symlink(settings));
    EXPECT_TRUE(fs::is_symlink(folder / "elsewhere" / "second"));
    EXPECT_EQ(read_text("elsewhere/real.ini"), "[General]\nCOLORETESTO=1\n");
}

TEST_F(ReplacingAFile, KeepsALinkIntoAFolderThatIsNotThere) {
    link_settings_to("nowhere/real.ini");
    app::write_text_colour("1");
    EXPECT_EQ(fs::read_symlink(settings), "nowhere/real.ini");
    EXPECT_FALSE(fs::exists(folder / "nowhere"));
    EXPECT_THAT(left_beside(file), IsEmpty());
}

TEST_F(ReplacingAFile, KeepsALinkThatLeadsToItself) {
    link_settings_to("setting.ini");
    app::write_text_colour("1");
    EXPECT_EQ(fs::read_symlink(settings), "setting.ini");
    EXPECT_THAT(left_beside(file), IsEmpty());
}

TEST_F(ReplacingAFile, KeepsALinkToADevice) {
    link_settings_to("/dev/null");
    app::write_text_colour("1");
    EXPECT_EQ(fs::read_symlink(settings), "/dev/null");
}

} // namespace
} // namespace zol::tests
