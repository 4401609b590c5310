// One instance runs for each application folder, also where the lock file cannot be opened.
#include "app/application_folder.h"
#include "app/program/startup.h"
#include "tests/support/small_disk.h"
#include "tests/support/system_calls.h"

#include <cerrno>
#include <fcntl.h>
#include <filesystem>
#include <fstream>
#include <gmock/gmock.h>
#include <sys/mount.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

namespace zol::tests {
namespace {

namespace fs = std::filesystem;

class AnotherInstance : public testing::Test {
  protected:
    AnotherInstance() {
        fs::remove_all(folder);
        fs::create_directories(folder);
        app::use_application_folder(folder);
    }
    ~AnotherInstance() override { fs::remove_all(folder); }

    // A claim belongs to its process, so another process makes it. If given, the first open, which
    // is that of the lock file, fails with this error.
    static bool another_copy_may_run(int without_lock_file = 0) {
        const pid_t child = ::fork();
        if (child == 0) ::_exit(claim(without_lock_file) ? 1 : 0);
        int status = 0;
        ::waitpid(child, &status, 0);
        return WIFEXITED(status) && WEXITSTATUS(status) == 1;
    }
    static bool claim(int without_lock_file = 0) {
        const WatchedCalls watch([&](int count, std::string_view name) {
            return Fate{.error = name == "open" && count == 1 ? without_lock_file : 0};
        });
        return app::claim_application_folder();
    }

    const fs::path folder =
        fs::temp_directory_path() / ("zol_second_" + std::to_string(::getpid()));
};

TEST_F(AnotherInstance, EndsInTheSameFolderOnly) {
    EXPECT_TRUE(another_copy_may_run()); // whose end gives the folder back
    EXPECT_TRUE(claim());
    EXPECT_FALSE(another_copy_may_run());
    fs::create_directory(folder / "other");
    for (const char* elsewhere :
         {"other", "not there"}) { // a folder that is not there holds no lock
        app::use_application_folder(folder / elsewhere);
        EXPECT_TRUE(another_copy_may_run()) << elsewhere;
    }
}

TEST_F(AnotherInstance, EndsWhereNoLockFileCanBeOpened) {
    EXPECT_TRUE(claim(EROFS));
    EXPECT_FALSE(another_copy_may_run(EROFS));
}

TEST_F(AnotherInstance, EndsOnAReadOnlyDisk) {
    const auto refusal = on_small_disk(folder, 8192, [this] {
        const auto flags = MS_REMOUNT | MS_RDONLY;
        ASSERT_EQ(::mount(nullptr, folder.c_str(), nullptr, flags, nullptr), 0) << errno;
        EXPECT_TRUE(app::claim_application_folder());
        EXPECT_FALSE(fs::exists(folder / ".running"));
        EXPECT_FALSE(another_copy_may_run());
    });
    if (refusal) GTEST_SKIP() << *refusal;
}

// The folder may be another user's.
TEST_F(AnotherInstance, ThatMayOnlyReadTheFolderEnds) {
    EXPECT_TRUE(claim());
    for (const int error : {EACCES, EROFS})
        EXPECT_FALSE(another_copy_may_run(error));
}

TEST_F(AnotherInstance, ThatMayWriteEndsAfterOneThatMayNot) {
    EXPECT_TRUE(claim(EACCES));
    EXPECT_FALSE(another_copy_may_run());
}

TEST_F(AnotherInstance, EndsWhereAFolderHasTheNameOfTheLockFile) {
    fs::create_directory(folder / ".running");
    EXPECT_TRUE(claim());
    EXPECT_FALSE(another_copy_may_run());
}

TEST_F(AnotherInstance, OpensNoFileBehindALink) {
    fs::create_symlink("elsewhere", folder / ".running");
    EXPECT_TRUE(claim());
    EXPECT_FALSE(fs::exists(folder / "elsewhere"));
    EXPECT_FALSE(another_copy_may_run());
}

} // namespace
} // namespace zol::tests
