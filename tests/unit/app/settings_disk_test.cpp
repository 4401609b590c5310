// The settings on a full disk.
#include "app/settings_file.h"
#include "tests/support/logic_fixture.h"
#include "tests/support/small_disk.h"
#include "view/windows/form1.h"

namespace zol::tests {
namespace {

using testing::IsEmpty;

constexpr std::size_t sixteen_pages = 65536;

class SettingsOnFullDisk : public LogicTest {
  protected:
    const std::string before = "; a line of the user\n[General]\nLANGUAGE=uk\nCOM=1\n";

    // Makes the application folder on the small disk, and fills the disk.
    void fill_folder() {
        std::filesystem::create_directory(folder / "log");
        std::filesystem::create_directory_symlink(
            std::filesystem::path(ZOL_SOURCE_DIR) / "language", folder / "language");
        write_file("setting.ini", before);
        fill_disk(folder);
    }
    bool nothing_half_written() const {
        return !std::filesystem::exists(folder / "setting.ini.new");
    }
};

TEST_F(SettingsOnFullDisk, StayWholeUntilThereIsRoom) {
    const auto refusal = on_small_disk(folder, sixteen_pages, [this] {
        fill_folder();
        app::write_text_colour("255");
        EXPECT_EQ(read_text("setting.ini"), before);
        EXPECT_TRUE(nothing_half_written());
        std::filesystem::remove(folder / "filler");
        app::write_text_colour("255");
        EXPECT_EQ(read_text("setting.ini"), before + "COLORETESTO=255\n");
    });
    if (refusal) GTEST_SKIP() << *refusal;
}

TEST_F(SettingsOnFullDisk, ChangeForThisRunOnly) {
    const auto refusal = on_small_disk(folder, sixteen_pages, [this] {
        fill_folder();
        start_connected();
        operator_clicks(form1::de);
        run_for(2000);
        EXPECT_TRUE(form1::de.look.checked);
        EXPECT_EQ(read_text("setting.ini"), before);
        EXPECT_TRUE(nothing_half_written());
        EXPECT_THAT(screen.complaints(), IsEmpty());
        forget_wire();
        run_for(2000);
        EXPECT_THAT(frames(), testing::Contains(Send(3)));
    });
    if (refusal) GTEST_SKIP() << *refusal;
}

TEST_F(SettingsOnFullDisk, AreNotBegunWithoutRoom) {
    const auto refusal = on_small_disk(folder, sixteen_pages, [this] {
        fill_disk(folder);
        app::write_language("de");
        EXPECT_FALSE(std::filesystem::exists(folder / "setting.ini"));
        EXPECT_TRUE(nothing_half_written());
    });
    if (refusal) GTEST_SKIP() << *refusal;
}

} // namespace
} // namespace zol::tests
