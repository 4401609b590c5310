// Which folder a started program uses as its own.
#include "app/application_folder.h"

#include <gtest/gtest.h>

#include <fstream>
#include <string>
#include <unistd.h>

namespace zol::tests {
namespace {

namespace fs = std::filesystem;

class ApplicationFolder : public testing::Test {
  protected:
    ApplicationFolder() {
        std::string pattern = (fs::temp_directory_path() / "zol folder XXXXXX").string();
        root_ = fs::canonical(mkdtemp(pattern.data()));
        fs::create_directories(root_ / "shared");
        fs::create_directories(root_ / "Anna's own" / "language");
        program_ = root_ / "shared" / "zol-injection";
        link_ = root_ / "Anna's own" / "zol-injection";
        std::ofstream(program_) << "program";
        fs::create_symlink(program_, link_);
    }
    ~ApplicationFolder() override {
        fs::current_path(before_);
        fs::remove_all(root_);
    }

    fs::path folder_when_started_as(const fs::path& name) const {
        return app::find_application_folder(program_, name);
    }

    fs::path root_, program_, link_;

  private:
    const fs::path before_ = fs::current_path();
};

TEST_F(ApplicationFolder, IsTheOneThatHoldsTheProgram) {
    EXPECT_EQ(folder_when_started_as(program_), root_ / "shared");
    fs::create_directories(root_ / "shared" / "language");
    EXPECT_EQ(folder_when_started_as(program_), root_ / "shared");
}

TEST_F(ApplicationFolder, IsTheOneThatHoldsTheStartedLink) {
    EXPECT_EQ(folder_when_started_as(link_), root_ / "Anna's own");
}

TEST_F(ApplicationFolder, DoesNotChangeWithTheWorkingDirectory) {
    fs::current_path(root_ / "Anna's own");
    const fs::path folder = folder_when_started_as("./zol-injection");
    fs::current_path(root_);
    EXPECT_TRUE(fs::equivalent(folder, root_ / "Anna's own")) << folder;
}

TEST_F(ApplicationFolder, IsNotThatOfAShortcut) {
    fs::create_directories(root_ / "Desktop");
    fs::create_symlink(program_, root_ / "Desktop" / "zol-injection");
    EXPECT_EQ(folder_when_started_as(root_ / "Desktop" / "zol-injection"), root_ / "shared");
}

TEST_F(ApplicationFolder, IsThatOfTheProgramForANameWithoutFolder) {
    fs::current_path(root_ / "Anna's own");
    EXPECT_EQ(folder_when_started_as("zol-injection"), root_ / "shared");
    EXPECT_EQ(folder_when_started_as(""), root_ / "shared");
    EXPECT_EQ(folder_when_started_as("/nowhere/zol-injection"), root_ / "shared");
}

} // namespace
} // namespace zol::tests
