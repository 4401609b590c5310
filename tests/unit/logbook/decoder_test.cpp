// Decoding the two streams of a recording.
#include "logbook/decoder.h"

#include "link/parameter_catalogue.h"
#include "logbook/words.h"
#include "simulator/bad_line.h"
#include "tests/unit/logbook/simulated_session.h"

#include <gmock/gmock.h>

namespace zol::logbook {
namespace {

namespace par = link::par;
using link::Command;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;

struct Meaning {
    std::vector<Decoded> all;
    DecoderCounts counts;
    std::size_t stray_bytes = 0;
    UnitState unit;

    std::vector<std::string> writes() const {
        std::vector<std::string> texts;
        for (const Decoded& one : all)
            if (one.kind == Decoded::Kind::write) texts.push_back(write_text(one));
        return texts;
    }
    std::vector<std::string> replies() const {
        std::vector<std::string> texts;
        for (const Decoded& one : all)
            if (one.kind == Decoded::Kind::reply) texts.push_back(reply_text(one));
        return texts;
    }
};

Meaning decode(const std::vector<Event>& events) {
    Meaning meaning;
    Decoder decoder([&](const Decoded& one) { meaning.all.push_back(one); });
    for (const Event& event : events)
        decoder.push(event);
    decoder.finish();
    meaning.counts = decoder.counts();
    meaning.stray_bytes = decoder.stray_bytes();
    meaning.unit = decoder.unit();
    return meaning;
}

TEST(RequestReader, FindsFramesAmongStrayBytes) {
    RequestReader reader;
    std::vector<int> commands;
    for (const int byte : {1, 80, 80, 67, 0, 5, 3, 9, 80, 67, 0, 9, 2, 0, 3, 4, 226, 80})
        if (const auto request = reader.push(static_cast<std::uint8_t>(byte), 0))
            commands.push_back(request->command * 100000 + request->value);
    EXPECT_THAT(commands, ElementsAre(300000, 201250));
    EXPECT_EQ(reader.stray_bytes(), 3u);
}

TEST(RequestReader, DropsAnIncompleteFrame) {
    RequestReader reader;
    for (const int byte : {80, 67, 0, 5})
        EXPECT_FALSE(reader.push(static_cast<std::uint8_t>(byte), 0));
    EXPECT_FALSE(reader.push(3, 200'000));
    EXPECT_EQ(reader.stray_bytes(), 5u);
}

TEST(Decoder, AnswersBelongToTheirRequests) {
    SimulatedSession session({.family = 4, .version = 7});
    session.ask(Command::presence, 700);
    session.ask(Command::version, 1600);
    session.ask(Command::read_image, 1600);
    for (int pass = 0; pass < 5; ++pass) {
        session.ask(Command::status, 300);
        session.ask(Command::eobd_live, 100);
    }
    const Meaning meaning = decode(session.events);
    EXPECT_EQ(meaning.counts.requests, 13u);
    EXPECT_EQ(meaning.counts.answered, 13u);
    EXPECT_EQ(meaning.counts.lost + meaning.counts.late + meaning.counts.garbled, 0u);
    EXPECT_EQ(meaning.stray_bytes, 0u);
    EXPECT_EQ(version_text(meaning.unit.version), "4.7.71");
    ASSERT_THAT(meaning.replies(), SizeIs(13));
    EXPECT_EQ(meaning.replies()[1], "version: 4.7.71");
    EXPECT_THAT(meaning.replies()[3], HasSubstr("status: Engine speed "));
}

TEST(Decoder, ValuesOfEachFamilyAreThoseOfTheUnit) {
    for (int family = 0; family <= 4; ++family) {
        SimulatedSession session({.family = family, .version = 7});
        session.unit.set_parameter(par::ktar_low, 1234);
        session.unit.set_parameter(par::lambda_open_loop_max, 777);
        session.ask(Command::version, 1600);
        session.ask(Command::read_image, 1600);
        const auto values = decode(session.events).unit.values;
        EXPECT_EQ(values.at(par::ktar_low), 1234) << family;
        EXPECT_EQ(values.count(par::lambda_open_loop_max), family == 0 ? 0u : 1u) << family;
        if (family != 0) {
            EXPECT_EQ(values.at(par::lambda_open_loop_max), 777) << family;
        }
        for (const auto& [number, value] : values)
            EXPECT_EQ(value, session.unit.parameter(number)) << family << " PAR_" << number;
    }
}

TEST(Decoder, UnknownVersionGivesCommonWordsOnly) {
    SimulatedSession session;
    session.ask(Command::read_image, 1600);
    const auto values = decode(session.events).unit.values;
    EXPECT_EQ(values.count(par::ktar_low), 1u);
    EXPECT_EQ(values.count(par::eobd_protocol), 0u);
}

TEST(Decoder, WriteNamesTheValueBefore) {
    SimulatedSession session;
    session.unit.set_parameter(par::ktar_low, 1200);
    session.write(par::ktar_low, 1210);
    session.ask(Command::version, 1600);
    session.ask(Command::read_image, 1600);
    session.write(par::ktar_low, 1250);
    session.write(par::ktar_low, 1260);
    session.write(par::tank_min_mv, 3800);
    session.write(par::fuel_type, 0);
    session.write(75, 90);
    session.write(7000, 1);
    EXPECT_THAT(decode(session.events).writes(),
                ElementsAre("Gain at low load (NORMAL) set to 1210 (1/1000)",
                            "Gain at low load (NORMAL) 1210 → 1250 (1/1000)",
                            "Gain at low load (NORMAL) 1250 → 1260 (1/1000)",
                            "Tank sender, empty 3900 → 3800 mV", "Fuel: 1 LPG, 0 CNG 1 → 0",
                            "Correction cell 75 set to 90", "Parameter 7000 set to 1"));
}

TEST(Decoder, SilenceIsLost) {
    SimulatedSession session;
    session.unit.quirks().silence = true;
    for (int request = 0; request < 4; ++request)
        session.ask(Command::status);
    session.unit.quirks().silence = false;
    session.ask(Command::status);
    const DecoderCounts counts = decode(session.events).counts;
    EXPECT_EQ(counts.requests, 5u);
    EXPECT_EQ(counts.lost, 4u);
    EXPECT_EQ(counts.answered, 1u);
}

TEST(Decoder, LostAtTheEndNeedsTime) {
    SimulatedSession session;
    session.unit.quirks().silence = true;
    session.ask(Command::status, 300);
    EXPECT_EQ(decode(session.events).counts.lost, 0u);
    session.wait(2000);
    session.ask(Command::to_gas, 4);
    EXPECT_EQ(decode(session.events).counts.lost, 1u);
}

TEST(Decoder, AnswerAfterTheNextRequestIsLate) {
    const Bytes status = link::command_frame(Command::status);
    Bytes answer(29, 0);
    answer[4] = 3;
    const auto request = [&](std::int64_t at) { return Event{at, EventKind::request, status, {}}; };
    const auto reply = [&](std::int64_t at) { return Event{at, EventKind::reply, answer, {}}; };
    const DecoderCounts counts = decode({request(0), request(300'000), reply(350'000),
                                         reply(600'000), request(900'000), reply(950'000)})
                                     .counts;
    EXPECT_EQ(counts.requests, 3u);
    EXPECT_EQ(counts.answered, 2u);
    EXPECT_EQ(counts.late, 1u);
    EXPECT_EQ(counts.lost, 0u);
}

// The tool waits 100 ms for live data, which may take a little longer.
TEST(Decoder, RequestDuringAReplyDoesNotSplitIt) {
    const Bytes request = link::command_frame(Command::eobd_live);
    const Bytes answer = {80, 67, 0, 12, 16, 2, 128, 128, 0, 26, 2, 95};
    const Bytes begin(answer.begin(), answer.begin() + 5), rest(answer.begin() + 5, answer.end());
    for (const std::int64_t pause_us : {40'000, 12'000}) {
        const DecoderCounts counts = decode({{0, EventKind::request, request, {}},
                                             {98'000, EventKind::reply, begin, {}},
                                             {100'000, EventKind::request, request, {}},
                                             {108'000, EventKind::reply, rest, {}},
                                             {108'000 + pause_us, EventKind::reply, answer, {}}})
                                         .counts;
        EXPECT_EQ(counts.answered, 2u) << pause_us;
        EXPECT_EQ(counts.lost + counts.garbled, 0u) << pause_us;
    }
}

TEST(Decoder, WrongEchoIsGarbled) {
    SimulatedSession session;
    session.unit.quirks().wrong_echo = 99;
    session.ask(Command::status);
    session.ask(Command::status);
    const DecoderCounts counts = decode(session.events).counts;
    EXPECT_EQ(counts.garbled, 1u);
    EXPECT_EQ(counts.answered, 1u);
    EXPECT_EQ(counts.lost, 1u);
}

TEST(Decoder, ShortAnswerIsGarbled) {
    SimulatedSession session;
    session.unit.quirks().status_length = 26;
    session.ask(Command::status);
    EXPECT_EQ(decode(session.events).counts.garbled, 1u);
    EXPECT_THAT(decode(session.events).replies(), IsEmpty());
}

TEST(Decoder, AnyByteAnswersThePresenceTest) {
    const DecoderCounts counts =
        decode({{0, EventKind::request, link::command_frame(Command::presence), {}},
                {50'000, EventKind::reply, {255}, {}}})
            .counts;
    EXPECT_EQ(counts.answered, 1u);
    EXPECT_EQ(counts.garbled, 0u);
}

TEST(Decoder, AcknowledgedWriteIsNoError) {
    SimulatedSession session;
    session.unit.quirks().acknowledge = true;
    session.write(par::ktar_low, 1250);
    EXPECT_EQ(decode(session.events).counts.garbled, 0u);
}

TEST(Decoder, EachRequestIsCountedOnceOnABadLine) {
    sim::ControlUnit unit({.family = 2, .version = 7});
    sim::BadLine line(unit, {.seed = 7, .drop = 0.01, .flip = 0.005, .delay = 0.005});
    std::vector<Event> events;
    std::int64_t now_us = 0;
    for (int pass = 0; pass < 400; ++pass) {
        const Bytes request =
            link::command_frame(pass % 2 == 0 ? Command::status : Command::eobd_live);
        events.push_back({now_us, EventKind::request, request, {}});
        line.receive(request, now_us);
        for (int step = 0; step < 60; ++step) {
            now_us += 5000;
            Bytes bytes = line.take(now_us);
            if (!bytes.empty()) events.push_back({now_us, EventKind::reply, bytes, {}});
        }
    }
    const DecoderCounts counts = decode(events).counts;
    EXPECT_EQ(counts.requests, 400u);
    EXPECT_GE(counts.answered + counts.late + counts.lost, 398u);
    EXPECT_LE(counts.answered + counts.late + counts.lost, 400u);
    EXPECT_GT(counts.answered, 200u);
    EXPECT_GT(counts.garbled, 20u);
}

TEST(Words, FaultsAreCodes) {
    SimulatedSession session;
    session.unit.set_parameter(par::fault_1, 3 * 256 + 1);
    session.unit.set_parameter(par::fault_count, 1);
    session.ask(Command::eobd_faults, 1000);
    EXPECT_THAT(decode(session.events).replies(), ElementsAre("faults: 1 stored, P0301"));
}

TEST(Words, LiveDataHasTrimsInPercent) {
    Decoded answer;
    answer.request.command = static_cast<int>(Command::eobd_live);
    answer.reply = link::Reply({80, 67, 0, 12, 16, 2, 138, 118, 0, 40, 1, 194});
    EXPECT_EQ(reply_text(answer), "live data: Loop closed, Fast trim 7.8 %, Long trim -7.8 %, "
                                  "CAN VISUAL 40, Lambda (diagnosis) 450 mV");
    answer.reply = link::Reply({80, 67, 0, 12, 16, 255, 255, 255, 255, 255, 255, 255});
    EXPECT_EQ(reply_text(answer), "live data: Loop connection lost");
}

TEST(Words, EachParameterHasTheNameInItsRow) {
    for (const link::Parameter& row : link::parameter_catalogue)
        EXPECT_EQ(parameter_name(row.number), row.meaning);
    EXPECT_EQ(parameter_unit(par::ktar_low), "1/1000");
    EXPECT_EQ(parameter_unit(par::fuel_type), "");
    EXPECT_EQ(parameter_unit(par::gas_cut_off_mode), "");
    EXPECT_EQ(value_text(par::petrol_cut_off_time, 12), "12 (100 ms)");
}

} // namespace
} // namespace zol::logbook
