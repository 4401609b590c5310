// The parameter dump onto a full or closed disk, and with other files under its names.
#include "tests/support/small_disk.h"
#include "tests/unit/maintenance/dump_fixture.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace zol::tests {
namespace {

using testing::UnorderedElementsAre;

class DumpOntoFullDisk : public DumpTest {
  protected:
    // Does `work` with the log folder on a disk of two pages; skips the test where none can be had.
    void with_log_on_small_disk(const std::function<void()>& work) {
        if (const auto refusal = on_small_disk(folder / "log", 8192, work))
            GTEST_SKIP() << *refusal;
    }
};

TEST_F(DumpOntoFullDisk, KeepsTheOldFile) {
    with_log_on_small_disk([this] {
        start_quietly();
        write_file(dump_file, "old\n");
        fill_disk(folder / "log");
        operator_dumps();
        EXPECT_EQ(read_text(dump_file), "old\n");
        EXPECT_THAT(files_in_log(), UnorderedElementsAre("setting.txt", "filler"));
        EXPECT_FALSE(busy(form1::Form1));
        EXPECT_THAT(screen.complaints(), IsEmpty());
        std::filesystem::remove(folder / "log/filler");
        operator_dumps();
        EXPECT_EQ(lines(), 51) << "made once there is room";
    });
}

TEST_F(DumpOntoFullDisk, LeavesNoPartOfANewFile) {
    with_log_on_small_disk([this] {
        start_quietly();
        fill_disk(folder / "log");
        operator_dumps();
        EXPECT_THAT(files_in_log(), UnorderedElementsAre("filler"));
        EXPECT_FALSE(busy(form1::Form1));
        EXPECT_THAT(frames_in(5000), IsEmpty());
    });
}

class DumpWithOldFile : public DumpTest {
  protected:
    void start_with_old_file() {
        start_quietly();
        write_file(dump_file, "old\n");
    }
    void expect_old_file() {
        EXPECT_EQ(read_text(dump_file), "old\n");
        EXPECT_THAT(files_in_log(), UnorderedElementsAre("setting.txt"));
        EXPECT_FALSE(busy(form1::Form1));
    }
};

TEST_F(DumpWithOldFile, IsKeptIfItIsReadOnly) {
    start_with_old_file();
    std::filesystem::permissions(folder / dump_file, std::filesystem::perms(0444));
    operator_dumps();
    expect_old_file();
}

// The superuser may write everywhere, so the dump is made as another user.
TEST_F(DumpWithOldFile, IsKeptIfTheFolderIsReadOnly) {
    start_with_old_file();
    std::filesystem::permissions(folder / "log", std::filesystem::perms(0555));
    const uid_t user = ::geteuid();
    constexpr uid_t nobody = 65534;
    if (user == 0) {
        ASSERT_EQ(::seteuid(nobody), 0);
    }
    operator_dumps();
    if (user == 0) {
        ASSERT_EQ(::seteuid(user), 0);
    }
    expect_old_file();
    std::filesystem::permissions(folder / "log", std::filesystem::perms(0755));
}

class DumpBesideOtherFiles : public DumpTest {
  protected:
    const std::filesystem::path new_file = folder / "log/setting.txt.new"; // the temporary name

    void expect_dumped() {
        start_quietly();
        operator_dumps();
        ASSERT_TRUE(
            std::filesystem::is_regular_file(std::filesystem::symlink_status(folder / dump_file)));
        EXPECT_EQ(lines(), 51);
    }
};

TEST_F(DumpBesideOtherFiles, LeavesTheOtherNameOfAHardLinkAlone) {
    write_file("victim", "precious");
    std::filesystem::create_hard_link(folder / "victim", new_file);
    expect_dumped();
    EXPECT_EQ(read_text("victim"), "precious");
    EXPECT_THAT(files_in_log(), UnorderedElementsAre("setting.txt"));
}

TEST_F(DumpBesideOtherFiles, DoesNotWriteIntoAPipe) {
    ASSERT_EQ(::mkfifo(new_file.c_str(), 0600), 0);
    const int reader = ::open(new_file.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC);
    expect_dumped();
    ::close(reader);
    EXPECT_THAT(files_in_log(), UnorderedElementsAre("setting.txt"));
}

TEST_F(DumpBesideOtherFiles, IsMadeWhereAFolderHasItsTemporaryName) {
    std::filesystem::create_directory(new_file);
    expect_dumped();
    EXPECT_THAT(files_in_log(), UnorderedElementsAre("setting.txt", "setting.txt.new"));
}

} // namespace
} // namespace zol::tests
