// Scenario files, good and bad.
#include "simulator/scenario.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdio>
#include <filesystem>
#include <fstream>

namespace sim {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;
using testing::StartsWith;

TEST(ScenarioFile, HoldsTimesAndCommands) {
    const Scenario drive = read_scenario("# a drive\n"
                                         "0 coolant 85\n"
                                         "\n"
                                         "  12.5\tthrottle 40 # off we go\r\n"
                                         "12.5 line drop 0.01\n"
                                         "30 quit",
                                         "drive.txt");
    EXPECT_THAT(drive.wrong, IsEmpty());
    ASSERT_THAT(drive.steps, SizeIs(4));
    EXPECT_EQ(drive.steps[0].at_s, 0);
    EXPECT_THAT(drive.steps[0].command, HasSubstr("coolant 85"));
    EXPECT_EQ(drive.steps[1].at_s, 12.5);
    EXPECT_EQ(drive.steps[1].line, 4);
    EXPECT_THAT(drive.steps[1].command, HasSubstr("throttle 40"));
    EXPECT_EQ(drive.steps[3].command, "quit");
}

TEST(ScenarioFile, EveryBadLineIsNamed) {
    const Scenario drive = read_scenario("1 throttle 40\n"
                                         "throttle 40\n"
                                         "2\n"
                                         "3 fly\n"
                                         "-1 gas on\n"
                                         "2 gas on\n"
                                         "4 throttle 400\n"
                                         "nan gas on\n"
                                         "1 gas on\n",
                                         "drive.txt");
    EXPECT_THAT(drive.wrong,
                ElementsAre(StartsWith("drive.txt:2: a line begins with a time"),
                            StartsWith("drive.txt:3: there is no command"),
                            StartsWith("drive.txt:4: there is no command \"fly\""),
                            StartsWith("drive.txt:5: a line begins with a time"),
                            StartsWith("drive.txt:6: the time is before"),
                            StartsWith("drive.txt:7: throttle: wrong or missing value"),
                            StartsWith("drive.txt:8: a line begins with a time"),
                            StartsWith("drive.txt:9: the time is before")));
}

TEST(ScenarioFile, EmptyOneIsValid) {
    for (const char* text : {"", "\n\n", "# nothing", "\r\n"}) {
        EXPECT_THAT(read_scenario(text, "f").steps, IsEmpty());
        EXPECT_THAT(read_scenario(text, "f").wrong, IsEmpty());
    }
}

TEST(ScenarioFile, InvalidOneGivesFewMessages) {
    std::string noise;
    for (int i = 0; i < 100'000; ++i)
        noise += static_cast<char>(i * 7919 >> 3);
    const Scenario bad = read_scenario(noise, "noise");
    EXPECT_FALSE(bad.wrong.empty());
    EXPECT_LE(bad.wrong.size(), 20u);
    EXPECT_THAT(load_scenario("/dev/zero").wrong, ElementsAre(HasSubstr("longer than a megabyte")));
}

TEST(ScenarioFile, MissingOneIsNamed) {
    EXPECT_THAT(load_scenario("/no/such/drive.txt").wrong,
                ElementsAre(StartsWith("/no/such/drive.txt: cannot be read: No such file")));
    EXPECT_THAT(load_scenario("/").wrong, ElementsAre(HasSubstr("directory")));
}

TEST(ScenarioFile, IsReadFromDisk) {
    const std::string path = testing::TempDir() + "drive.txt";
    std::ofstream(path) << "1 throttle 10\n2 nonsense\n";
    const Scenario drive = load_scenario(path);
    EXPECT_THAT(drive.wrong, ElementsAre(StartsWith(path + ":2: ")));
    std::filesystem::remove(path);
}

} // namespace
} // namespace sim
