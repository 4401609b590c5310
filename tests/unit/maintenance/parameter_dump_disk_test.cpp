// The parameter dump onto a disk that has no room left, or beside files that have its names.
#include "tests/support/small_disk.h"
#include "tests/unit/maintenance/dump_bench.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace zol::tests {
namespace {

using testing::IsEmpty;
using testing::UnorderedElementsAre;

constexpr std::size_t two_pages = 8192;

class DumpOntoFullDisk : public DumpBench {
  protected:
    std::filesystem::path log() const { return folder / "log"; }
};

TEST_F(DumpOntoFullDisk, KeepsTheOldFileWholeAndIsMadeOnceThereIsRoom) {
    const auto refusal = on_small_disk(log(), two_pages, [this] {
        start_quietly();
        write_file(dump_file, "old\n");
        fill_disk(log());
        fitter_dumps();
        EXPECT_EQ(read_text(dump_file), "old\n");
        EXPECT_THAT(files_in_log(), UnorderedElementsAre("setting.txt", "filler"));
        EXPECT_EQ(form1::Form1.look.pointer, view::Pointer::normal);
        EXPECT_THAT(screen.complaints(), IsEmpty());
        std::filesystem::remove(log() / "filler");
        fitter_dumps();
        EXPECT_EQ(lines(), 51);
    });
    if (refusal) GTEST_SKIP() << *refusal;
}

TEST_F(DumpOntoFullDisk, LeavesNoPartOfAFileThatWasNotThere) {
    const auto refusal = on_small_disk(log(), two_pages, [this] {
        start_quietly();
        fill_disk(log());
        fitter_dumps();
        EXPECT_THAT(files_in_log(), UnorderedElementsAre("filler"));
        EXPECT_EQ(form1::Form1.look.pointer, view::Pointer::normal);
        forget_wire();
        run_for(5000);
        EXPECT_THAT(frames(), IsEmpty());
    });
    if (refusal) GTEST_SKIP() << *refusal;
}

class DumpBesideOtherFiles : public DumpBench {
  protected:
    void expect_dumped() {
        start_quietly();
        fitter_dumps();
        ASSERT_TRUE(
            std::filesystem::is_regular_file(std::filesystem::symlink_status(folder / dump_file)));
        EXPECT_EQ(lines(), 51);
    }
};

TEST_F(DumpBesideOtherFiles, LeavesTheOtherNameOfAHardLinkAlone) {
    write_file("victim", "precious");
    std::filesystem::create_hard_link(folder / "victim", folder / "log/setting.txt.new");
    expect_dumped();
    EXPECT_EQ(read_text("victim"), "precious");
    EXPECT_THAT(files_in_log(), UnorderedElementsAre("setting.txt"));
}

TEST_F(DumpBesideOtherFiles, DoesNotWriteIntoAPipe) {
    ASSERT_EQ(::mkfifo((folder / "log/setting.txt.new").c_str(), 0600), 0);
    const int reader =
        ::open((folder / "log/setting.txt.new").c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC);
    expect_dumped();
    ::close(reader);
    EXPECT_THAT(files_in_log(), UnorderedElementsAre("setting.txt"));
}

TEST_F(DumpBesideOtherFiles, IsMadeWhereAFolderHasItsTemporaryName) {
    std::filesystem::create_directory(folder / "log/setting.txt.new");
    expect_dumped();
    EXPECT_THAT(files_in_log(), UnorderedElementsAre("setting.txt", "setting.txt.new"));
}

} // namespace
} // namespace zol::tests
