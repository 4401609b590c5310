// Recordings on the disk: their names, and what remains after a full disk or an error.
#include "logbook/recording_file.h"

#include "tests/support/small_disk.h"

#include <fstream>
#include <gmock/gmock.h>
#include <unistd.h>

namespace zol::logbook {
namespace {

namespace fs = std::filesystem;
using testing::AllOf;
using testing::HasSubstr;

class RecordingOnDisk : public testing::Test {
  protected:
    RecordingOnDisk() : folder(fs::path(testing::TempDir()) / ("rec" + std::to_string(getpid()))) {
        fs::remove_all(folder);
        fs::create_directories(folder);
    }
    ~RecordingOnDisk() override { fs::remove_all(folder); }
    std::string create(RecordingFile& file) {
        return file.create(folder / "data", "AB-123", "2026-11-22", header);
    }
    ReadResult read(const fs::path& file) {
        return read_recording(file, header, [](const Event&) {});
    }

    const fs::path folder;
    RecordingHeader header{"zol-logbook 1", "AB-123", "now", "/dev/x", "COM1"};
};

TEST_F(RecordingOnDisk, NameHasCarDateNumber) {
    RecordingFile first, second;
    EXPECT_EQ(create(first), "");
    EXPECT_EQ(create(second), "");
    EXPECT_EQ(first.path(), folder / "data/AB-123/2026-11-22-1.zlog");
    EXPECT_EQ(second.path(), folder / "data/AB-123/2026-11-22-2.zlog");
}

TEST_F(RecordingOnDisk, ExistingFileIsNeverOpened) {
    fs::create_directories(folder / "data/AB-123");
    fs::create_symlink("/dev/null", folder / "data/AB-123/2026-11-22-1.zlog");
    RecordingFile file;
    EXPECT_EQ(create(file), "");
    EXPECT_EQ(file.path().filename(), "2026-11-22-2.zlog");
}

TEST_F(RecordingOnDisk, AddedLinesAreWrittenAtOnce) {
    RecordingFile file;
    ASSERT_EQ(create(file), "");
    EXPECT_EQ(file.add("1 > 50\n"), "");
    EXPECT_EQ(read(file.path()).events, 1u);
    EXPECT_EQ(file.add("2 < 51\n3 < 52\n"), "");
    EXPECT_EQ(read(file.path()).events, 3u);
    EXPECT_EQ(header.car, "AB-123");
}

TEST_F(RecordingOnDisk, UncreatableFolderIsReported) {
    std::ofstream(folder / "data") << "a file";
    RecordingFile file;
    EXPECT_THAT(create(file), AllOf(HasSubstr("cannot be made"), HasSubstr("--data")));
    EXPECT_FALSE(file.is_open());
}

TEST_F(RecordingOnDisk, MissingFileIsReported) {
    EXPECT_THAT(read(folder / "none.zlog").wrong,
                AllOf(HasSubstr("none.zlog"), HasSubstr("cannot be read")));
    EXPECT_THAT(read(folder).wrong, HasSubstr("cannot be read"));
}

TEST_F(RecordingOnDisk, FullDiskLeavesWholeLines) {
    const auto not_possible = tests::on_small_disk(folder, 16384, [this] {
        RecordingFile file;
        ASSERT_EQ(create(file), "");
        const std::string line = "1 < " + std::string(1000, 'a') + "\n";
        std::size_t added = 0;
        std::string why;
        while (why.empty() && added < 100) {
            why = file.add(line);
            if (why.empty()) ++added;
        }
        EXPECT_THAT(why, AllOf(HasSubstr("No space left"), HasSubstr("make room on the disk")));
        EXPECT_FALSE(file.is_open());
        EXPECT_EQ(read(file.path()).events, added);
        EXPECT_FALSE(read(file.path()).torn);
    });
    if (not_possible) GTEST_SKIP() << *not_possible;
}

TEST_F(RecordingOnDisk, FullDiskAtTheStartLeavesNoFile) {
    const auto not_possible = tests::on_small_disk(folder, 16384, [this] {
        fs::create_directories(folder / "data/AB-123");
        tests::fill_disk(folder);
        RecordingFile file;
        EXPECT_THAT(create(file), HasSubstr("make room on the disk"));
        EXPECT_TRUE(fs::is_empty(folder / "data/AB-123"));
    });
    if (not_possible) GTEST_SKIP() << *not_possible;
}

TEST_F(RecordingOnDisk, WrongFileIsNamed) {
    std::ofstream(folder / "x.zlog") << "nonsense\n";
    EXPECT_THAT(read(folder / "x.zlog").wrong, HasSubstr("x.zlog: Line 1 is wrong"));
}

TEST(Registration, NamesAFolderOfTheDataFolder) {
    for (const char* car : {"AB-123-CD", "KÖ AB 1", "practice"})
        EXPECT_EQ(wrong_registration(car), "") << car;
    for (const char* car :
         {"", ".", "..", ".hidden", "a/b", "/etc", "a\nb", "a\xff", " ", "   ", " AB", "AB ",
          "a\xc2\x85"
          "b"})
        EXPECT_NE(wrong_registration(car), "") << car;
    EXPECT_NE(wrong_registration(std::string(41, 'A')), "");
}

} // namespace
} // namespace zol::logbook
