// Backups of a unit's parameters, and the differences between two of them.
#include "link/parameter_catalogue.h"
#include "logbook/backup.h"
#include "maintenance/parameter_dump.h"
#include "tests/unit/logbook/running_logbook.h"
#include "tests/unit/logbook/simulated_session.h"

#include <gmock/gmock.h>

namespace zol::logbook {
namespace {

namespace fs = std::filesystem;
namespace par = link::par;
using testing::AllOf;
using testing::HasSubstr;
using testing::Not;

class Compare : public LogbookFolder {
  protected:
    // Three images of a unit; between the first and the second the gain was changed.
    std::string recording(const std::string& name, const sim::Options& options = {}) {
        SimulatedSession session(options);
        session.unit.set_parameter(par::ktar_low, 1200);
        session.ask(link::Command::version, 1600);
        session.ask(link::Command::read_image, 1600);
        session.write(par::ktar_low, 1250);
        session.ask(link::Command::read_image, 1600);
        session.write(par::tank_min_mv, 3800);
        session.ask(link::Command::read_image, 1600);
        return write(name, session.text());
    }
};

TEST_F(Compare, ShowsWhatDiffersInItsGroup) {
    const auto file = recording("a.zlog");
    const Ended ended = run({"compare", file + "#1", file});
    EXPECT_EQ(ended.status, 0);
    EXPECT_THAT(ended.said,
                AllOf(HasSubstr("car AB-123, unit 0.2.71, read "),
                      HasSubstr("Gains and calibration "),
                      testing::ContainsRegex(
                          "PAR_3 +Gain at low load \\(NORMAL\\) +1200 +1250 +\\+50  1/1000"),
                      HasSubstr("Tank gauge "),
                      testing::ContainsRegex("PAR_30 +Tank sender, empty +3900 +3800 +-100  mV"),
                      Not(HasSubstr("Lambda")), HasSubstr("in A only, 0 in B only")));
}

TEST_F(Compare, NumberChoosesTheImage) {
    const auto file = recording("a.zlog");
    EXPECT_THAT(run({"compare", file + "#1", file + "#2"}).said,
                AllOf(HasSubstr("PAR_3 "), Not(HasSubstr("PAR_30 "))));
    EXPECT_THAT(run({"compare", file + "#3", file}).said, HasSubstr("0 of "));
    const Ended ended = run({"compare", file, file + "#4"});
    EXPECT_EQ(ended.status, 1);
    EXPECT_THAT(ended.complaint, HasSubstr("has 3 images"));
}

TEST_F(Compare, UnitsOfOtherFamiliesShareTheirCommonWords) {
    const Ended ended = run({"compare", recording("a.zlog", {.family = 1, .version = 7}),
                             recording("b.zlog", {.family = 4, .version = 7})});
    EXPECT_EQ(ended.status, 0);
    EXPECT_THAT(ended.said, AllOf(HasSubstr("unit 1.7.71"), HasSubstr("unit 4.7.71"),
                                  Not(HasSubstr("PAR_3 "))));
}

TEST_F(Compare, ToolsParameterFileIsRead) {
    SimulatedSession session;
    session.unit.set_parameter(par::ktar_low, 1300);
    session.unit.set_parameter(par::ktar_low_copy, 1111);
    session.unit.set_parameter(par::fault_clearing, 1);
    session.ask(link::Command::read_image, 1600);
    Bytes image;
    for (const Event& event : session.events)
        if (event.kind == EventKind::reply)
            image.insert(image.end(), event.bytes.begin(), event.bytes.end());
    const std::string text = maintenance::dump_text(link::Reply(image));
    const auto values = values_of_parameter_file(text);
    ASSERT_TRUE(values);
    EXPECT_EQ(values->size(), 51u);
    for (const auto& [number, value] : *values)
        EXPECT_EQ(value, session.unit.parameter(number)) << number;
    EXPECT_THAT(run({"compare", write("setting.txt", text), recording("a.zlog")}).said,
                AllOf(HasSubstr("the tool's parameter file"),
                      testing::ContainsRegex("PAR_3 .* 1300 +1250 +-50")));
}

TEST_F(Compare, OtherTextsAreNoParameterFile) {
    for (const char* text : {"", "\n", "Par 3 = 1\nnonsense\n", "Par 3 = -1\n", "Par 3 = 70000\n",
                             "Par x = 1\n", "Par 3 1\n", "Par 3 = 1x  label\n"})
        EXPECT_EQ(values_of_parameter_file(text), std::nullopt) << text;
}

TEST_F(Compare, RecordingWithoutAnImageIsReported) {
    SimulatedSession session;
    session.ask(link::Command::status);
    const auto file = write("a.zlog", session.text());
    const Ended ended = run({"compare", file, file});
    EXPECT_EQ(ended.status, 1);
    EXPECT_THAT(ended.complaint, AllOf(HasSubstr("no image"), HasSubstr("before its start")));
    EXPECT_EQ(run({"compare", file}).status, 2);
}

TEST_F(Compare, DamagedRecordingIsNotCompared) {
    const auto whole = recording("a.zlog");
    const auto damaged = write("b.zlog", text_of(whole) + "nonsense\n");
    const Ended ended = run({"compare", whole, damaged});
    EXPECT_EQ(ended.status, 1);
    EXPECT_THAT(ended.complaint, testing::ContainsRegex("b.zlog: Line [0-9]+ is wrong"));
    EXPECT_EQ(ended.said, "");
}

TEST_F(Compare, TooManyImagesAreReported) {
    SimulatedSession session;
    for (std::size_t i = 0; i <= most_images; ++i)
        session.ask(link::Command::read_image, 1600);
    const auto file = write("a.zlog", session.text());
    fs::create_directories(folder / "backups");
    const Ended backup = run({"backup", "--to", folder / "backups", file});
    EXPECT_EQ(backup.status, 1);
    EXPECT_THAT(backup.complaint, HasSubstr("has more than 1000 images"));
    EXPECT_TRUE(fs::exists(folder / "backups/a-image-1000.zlog"));
    const Ended compared = run({"compare", file, file});
    EXPECT_EQ(compared.status, 1);
    EXPECT_THAT(compared.complaint, HasSubstr("has more than 1000 images"));
}

TEST_F(Compare, BackupMakesAFileOfEachImage) {
    const auto file = recording("a.zlog");
    const Ended ended = run({"backup", file});
    EXPECT_EQ(ended.status, 0);
    for (const char* name : {"a-image-1.zlog", "a-image-2.zlog", "a-image-3.zlog"})
        EXPECT_THAT(ended.said, HasSubstr(std::string(name) + ": car AB-123, unit 0.2.71"));
    EXPECT_THAT(run({"compare", folder / "a-image-2.zlog", file + "#2"}).said, HasSubstr("0 of "));
    EXPECT_THAT(run({"compare", folder / "a-image-1.zlog", file + "#2"}).said, HasSubstr("2 of "))
        << "the unit keeps a copy of the gain";
}

TEST_F(Compare, BackupNeverReplacesAFile) {
    const auto file = recording("a.zlog");
    write("a-image-2.zlog", "precious");
    const Ended ended = run({"backup", file});
    EXPECT_EQ(ended.status, 1);
    EXPECT_THAT(ended.complaint, HasSubstr("move it away"));
    EXPECT_EQ(text_of(folder / "a-image-2.zlog"), "precious");
}

TEST_F(Compare, BackupGoesToTheNamedFolder) {
    fs::create_directories(folder / "backups");
    EXPECT_EQ(run({"backup", "--to", folder / "backups", recording("a.zlog")}).status, 0);
    EXPECT_TRUE(fs::exists(folder / "backups/a-image-3.zlog"));
    EXPECT_EQ(run({"backup", "--to", folder / "none", recording("a.zlog")}).status, 1);
}

} // namespace
} // namespace zol::logbook
