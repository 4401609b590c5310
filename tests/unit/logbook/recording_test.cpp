// The text of a recording: what is written can be read, and an error names its line.
#include "logbook/recording.h"

#include <gmock/gmock.h>
#include <vector>

namespace zol::logbook {
namespace {

using testing::AllOf;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;

const RecordingHeader sample_header = {"zol-logbook 1.2.3", "AB-123", "2026-11-22T14:10:05+01:00",
                                       "/dev/ttyUSB0", "COM1"};

struct Read {
    ReadResult result;
    RecordingHeader header;
    std::vector<Event> events;
};

Read read(const std::string& text) {
    Read all;
    all.result = read_recording_text(text, all.header,
                                     [&](const Event& event) { all.events.push_back(event); });
    return all;
}

std::string with_events(const std::string& lines) { return header_text(sample_header) + lines; }

std::string wrong_of(const std::string& lines) { return read(with_events(lines)).result.wrong; }

TEST(Recording, HeaderIsReadBack) {
    const Read all = read(header_text(sample_header));
    EXPECT_EQ(all.result.wrong, "");
    EXPECT_EQ(all.header.program, "zol-logbook 1.2.3");
    EXPECT_EQ(all.header.car, "AB-123");
    EXPECT_EQ(all.header.started, "2026-11-22T14:10:05+01:00");
    EXPECT_EQ(all.header.device, "/dev/ttyUSB0");
    EXPECT_EQ(all.header.port, "COM1");
}

TEST(Recording, EventIsOneLineOfTimeDirectionBytes) {
    EXPECT_EQ(event_line({1500, EventKind::request, {80, 67, 0, 5, 3}, {}}), "1500 > 5043000503\n");
    EXPECT_EQ(event_line({0, EventKind::reply, {0, 255}, {}}), "0 < 00ff\n");
    EXPECT_EQ(event_line({7, EventKind::note, {}, "opened"}), "7 ! opened\n");
}

TEST(Recording, EveryByteIsReadBack) {
    Bytes bytes;
    for (int byte = 0; byte < 256; ++byte)
        bytes.push_back(static_cast<std::uint8_t>(byte));
    const Read all = read(with_events(event_line({5, EventKind::reply, bytes, {}})));
    ASSERT_THAT(all.events, SizeIs(1));
    EXPECT_EQ(all.events[0].bytes, bytes);
    EXPECT_EQ(all.events[0].kind, EventKind::reply);
    EXPECT_EQ(all.events[0].at_us, 5);
}

TEST(Recording, TornLastLineIsLeftOut) {
    const std::string text = with_events("1 > 50\n2 < 51\n");
    for (std::size_t cut = text.size() - 1; cut > text.size() - 7; --cut) {
        const Read all = read(text.substr(0, cut));
        EXPECT_TRUE(all.result.torn) << cut;
        EXPECT_EQ(all.result.wrong, "") << cut;
        EXPECT_THAT(all.events, SizeIs(1)) << cut;
    }
}

TEST(Recording, LineEndsOfAnotherSystemAreRead) {
    std::string text = with_events("1 > 50\n");
    for (std::size_t at = 0; (at = text.find('\n', at)) != text.npos; at += 2)
        text.insert(at, "\r");
    EXPECT_EQ(read(text).result.wrong, "");
    EXPECT_THAT(read(text).events, SizeIs(1));
}

TEST(Recording, ErrorNamesItsLineWithTheRemedy) {
    EXPECT_THAT(wrong_of("1 > 50\nsoon > 50\n"),
                AllOf(HasSubstr("Line 9 is wrong"), HasSubstr("time in microseconds"),
                      HasSubstr("head -n 8 FILE")));
    EXPECT_THAT(read(with_events("1 > 50\nsoon > 50\n3 > 51\n")).events, SizeIs(1));
}

TEST(Recording, WrongEventsAreRefused) {
    EXPECT_THAT(wrong_of("5 > 50\n4 > 50\n"), HasSubstr("before that of the line above"));
    for (const char* line : {"-1 > 50\n", "1\n", "1 > \n", "1 > 5\n", "1 > 5g\n", "1 > 5A\n",
                             "1 ? 50\n", "1>50\n", "99999999999999999999 > 50\n", "\n"})
        EXPECT_THAT(wrong_of(line), HasSubstr("Line 8 is wrong")) << line;
}

TEST(Recording, EventLongerThanTheLimitIsRefused) {
    const std::string most(2 * most_event_bytes, '0');
    EXPECT_EQ(wrong_of("1 > " + most + "\n"), "");
    EXPECT_THAT(wrong_of("1 > " + most + "00\n"), HasSubstr("1024 bytes at most"));
    EXPECT_THAT(wrong_of("1 ! " + std::string(5000, 'x') + "\n"), HasSubstr("4096 characters"));
}

TEST(Recording, FileThatIsNoRecordingIsReported) {
    EXPECT_THAT(read("").result.wrong, HasSubstr("no recording"));
    EXPECT_THAT(read("Par 1  = 10\n").result.wrong, HasSubstr("no recording"));
    EXPECT_THAT(read(std::string(3, '\0') + "\n").result.wrong, HasSubstr("no recording"));
}

TEST(Recording, OtherFormatAsksForItsProgram) {
    EXPECT_THAT(read("zol-logbook recording 2\n\n").result.wrong, HasSubstr("reads format 1 only"));
}

TEST(Recording, HeaderWithoutItsEndIsWrong) {
    EXPECT_THAT(read("zol-logbook recording 1\ncar: A\n").result.wrong,
                HasSubstr("no empty line at its end"));
    std::string endless = "zol-logbook recording 1\n";
    for (int line = 0; line < 100; ++line)
        endless += "more: lines\n";
    EXPECT_THAT(read(endless + "\n").result.wrong, HasSubstr("no empty line at its end"));
}

TEST(Recording, UnknownHeaderLinesAreIgnored) {
    EXPECT_EQ(read("zol-logbook recording 1\ncolour: red\ncar: A\n\n").header.car, "A");
}

TEST(Recording, ControlCharactersCannotMakeALine) {
    RecordingHeader header = sample_header;
    header.car = "A\n\n1 > 50";
    EXPECT_THAT(read(header_text(header)).events, IsEmpty());
    EXPECT_EQ(event_line({1, EventKind::note, {}, "a\nb\x1b"}), "1 ! a b \n");
}

} // namespace
} // namespace zol::logbook
