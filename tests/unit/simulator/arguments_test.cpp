// The arguments of the simulated unit.
#include "simulator/arguments.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <vector>

namespace sim {
namespace {

using testing::AllOf;
using testing::HasSubstr;

std::optional<Arguments> read(const std::vector<const char*>& words, std::string* why = nullptr) {
    std::string wrong;
    auto arguments = read_arguments(words, wrong);
    EXPECT_EQ(wrong.empty(), arguments.has_value());
    if (why) *why = wrong;
    return arguments;
}

TEST(ProgramArguments, NoneAreNeeded) {
    const auto arguments = read({});
    ASSERT_TRUE(arguments);
    EXPECT_TRUE(arguments->device.empty());
    EXPECT_FALSE(arguments->unit.warm);
    EXPECT_FALSE(arguments->exit_on_eof);
}

TEST(ProgramArguments, AreAllTaken) {
    const auto arguments = read({"--link", "ports/com1", "--firmware", "2.7.71", "--seed", "42",
                                 "--warm", "--log", "wire.txt", "--scenario=drive.txt",
                                 "--exit-on-eof", "--protocol=4", "--line", "drop=0.5,echo=on"});
    ASSERT_TRUE(arguments);
    EXPECT_EQ(arguments->link, "ports/com1");
    EXPECT_EQ(arguments->unit.family, 2);
    EXPECT_EQ(arguments->unit.version, 7);
    EXPECT_EQ(arguments->unit.revision, 71);
    EXPECT_EQ(arguments->unit.seed, 42u);
    EXPECT_EQ(arguments->line.seed, 42u);
    EXPECT_EQ(arguments->unit.protocol, 4);
    EXPECT_TRUE(arguments->unit.warm);
    EXPECT_TRUE(arguments->exit_on_eof);
    EXPECT_EQ(arguments->log, "wire.txt");
    EXPECT_EQ(arguments->scenario, "drive.txt");
    EXPECT_EQ(arguments->line.drop, 0.5);
    EXPECT_TRUE(arguments->line.echo);
    EXPECT_EQ(read({"--device", "/dev/ttyS0"})->device, "/dev/ttyS0");
    EXPECT_EQ(read({"--replay", "a.zlog"})->replay, "a.zlog");
}

TEST(ProgramArguments, FirmwareHasFamilyVersionAndRevision) {
    for (const char* good : {"0.0.0", "4.255.255", "1.2.35"})
        EXPECT_TRUE(read({"--firmware", good}));
    for (const char* bad : {"5.0.0", "-1.0.0", "1.256.0", "1.0.256", "1.2", "1.2.3.4", "1..2", "",
                            "x", "1.2.3 ", "1,2,3"}) {
        std::string why;
        EXPECT_FALSE(read({"--firmware", bad}, &why)) << bad;
        EXPECT_THAT(why, AllOf(HasSubstr("--firmware"), HasSubstr("2.7.71")));
    }
}

TEST(ProgramArguments, WrongOneIsNamedWithItsRemedy) {
    const std::vector<std::vector<const char*>> bad = {
        {"--fruit"},
        {"fruit"},
        {""},
        {"-x"},
        {"--warm=1"},
        {"--link"},
        {"--link", ""},
        {"--link="},
        {"--seed", "x"},
        {"--seed", "-1"},
        {"--seed"},
        {"--seed", "4294967296"},
        {"--protocol", "1"},
        {"--line", "drop"},
        {"--line", "drop=2"},
        {"--line", "fruit=1"},
        {"--device", "/dev/x", "--link", "ports/com2"}};
    for (const auto& words : bad) {
        std::string why;
        EXPECT_FALSE(read(words, &why)) << words[0];
        EXPECT_THAT(why, testing::EndsWith("."));
        EXPECT_GT(why.size(), 20u);
    }
}

TEST(ProgramArguments, AreAllInTheHelp) {
    const std::string help = help_text();
    for (const char* name :
         {"--link", "--device",   "--firmware", "--warm",        "--seed",    "--protocol",
          "--line", "--scenario", "--log",      "--exit-on-eof", "--help",    "--version",
          "drop",   "double",     "flip",       "insert",        "truncate",  "delay",
          "split",  "join",       "unplug",     "delay-ms",      "unplug-ms", "silence",
          "echo",   "babble",     "denied",     "--replay"})
        EXPECT_THAT(help, HasSubstr(name));
    std::size_t column = 0;
    for (const char c : help) {
        column = c == '\n' ? 0 : column + 1;
        ASSERT_LE(column, 80u) << "fits a terminal";
    }
}

} // namespace
} // namespace sim
