// A recording as a table for a spreadsheet.
#include "tests/unit/logbook/running_logbook.h"
#include "tests/unit/logbook/simulated_session.h"

#include <gmock/gmock.h>

namespace zol::logbook {
namespace {

using testing::Each;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::SizeIs;
using testing::StartsWith;

using Rows = std::vector<std::vector<std::string>>;

// Splits a table into rows of fields by RFC 4180; fails on a quote in the wrong place.
Rows parse(const std::string& text, char separator) {
    Rows rows(1, {""});
    bool quoted = false;
    for (std::size_t i = 0; i < text.size(); ++i) {
        std::string& field = rows.back().back();
        if (quoted && text[i] == '"' && i + 1 < text.size() && text[i + 1] == '"') {
            field += text[++i];
        } else if (text[i] == '"') {
            EXPECT_TRUE(quoted || field.empty());
            quoted = !quoted;
        } else if (!quoted && text[i] == separator) {
            rows.back().emplace_back();
        } else if (!quoted && text[i] == '\r') {
            EXPECT_EQ(text[++i], '\n');
            rows.push_back({""});
        } else {
            field += text[i];
        }
    }
    EXPECT_FALSE(quoted);
    EXPECT_THAT(rows.back(), ElementsAre("")) << "the last row has its end, too";
    rows.pop_back();
    return rows;
}

class Csv : public LogbookFolder {
  protected:
    std::string file_of_a_session() {
        SimulatedSession session({.family = 4, .version = 7, .warm = true});
        session.ask(link::Command::version, 1600);
        session.ask(link::Command::read_image, 1600);
        session.ask(link::Command::status);
        session.ask(link::Command::eobd_live, 100);
        session.write(3, 1250);
        session.write(122, 3);
        session.ask(link::Command::status);
        return write("a.zlog", session.text());
    }
};

TEST_F(Csv, HasARowForEachTelegram) {
    const Ended ended = run({"csv", file_of_a_session()});
    EXPECT_EQ(ended.status, 0);
    ASSERT_THAT(ended.said, StartsWith("\xEF\xBB\xBF"));
    const Rows rows = parse(ended.said.substr(3), ',');
    ASSERT_THAT(rows, SizeIs(6));
    EXPECT_THAT(rows, Each(SizeIs(rows[0].size())));
    std::vector<std::string> kinds;
    for (const auto& row : rows)
        kinds.push_back(row[1]);
    EXPECT_THAT(kinds, ElementsAre("Kind", "status", "live data", "write", "write", "status"));
}

TEST_F(Csv, HeaderNamesTheUnits) {
    const Rows rows = parse(run({"csv", file_of_a_session()}).said.substr(3), ',');
    EXPECT_EQ(rows[0][0], "Time [s]");
    EXPECT_EQ(rows[0][2], "Engine speed [rpm]");
    EXPECT_EQ(rows[0][3], "Injection time [µs]");
    EXPECT_EQ(rows[0].back(), "Unit");
}

TEST_F(Csv, WriteHasOldValueWithNewValue) {
    const Rows rows = parse(run({"csv", file_of_a_session()}).said.substr(3), ',');
    const auto& write = rows.at(3);
    const std::vector<std::string> last(write.end() - 5, write.end());
    EXPECT_EQ(last[0], "PAR_3");
    EXPECT_EQ(last[1], "Gain at low load (NORMAL)");
    EXPECT_NE(last[2], "");
    EXPECT_EQ(last[3], "1250");
    EXPECT_EQ(last[4], "1/1000");
}

TEST_F(Csv, SeparatorInAFieldIsQuoted) {
    const std::string said = run({"csv", file_of_a_session()}).said;
    EXPECT_THAT(said, HasSubstr("\"Forced start: 0 normal, 1 permanent, 3 on acceleration\""));
    const Rows rows = parse(said.substr(3), ',');
    EXPECT_EQ(rows.at(4).at(rows[0].size() - 4),
              "Forced start: 0 normal, 1 permanent, 3 on acceleration");
}

TEST_F(Csv, SemicolonComesWithDecimalCommas) {
    const auto file = file_of_a_session();
    const Rows points = parse(run({"csv", file}).said.substr(3), ',');
    const Rows commas = parse(run({"csv", "--separator", "semicolon", file}).said.substr(3), ';');
    const auto battery = 2 + 9;
    EXPECT_EQ(points[0][battery], "Battery [V]");
    EXPECT_THAT(points[1][battery], testing::MatchesRegex("1[0-9]\\.[0-9]+"));
    std::string battery_text = commas[1][battery];
    EXPECT_THAT(battery_text, HasSubstr(","));
    battery_text.replace(battery_text.find(','), 1, ".");
    EXPECT_EQ(battery_text, points[1][battery]);
    EXPECT_EQ(commas[1][0].find('.'), std::string::npos);
}

TEST_F(Csv, WrongSeparatorEndsWithTwo) {
    EXPECT_EQ(run({"csv", "--separator", "pipe", file_of_a_session()}).status, 2);
    EXPECT_EQ(run({"csv"}).status, 2);
}

TEST_F(Csv, DamagedRecordingGivesTheRowsBeforeTheDamage) {
    SimulatedSession session;
    session.ask(link::Command::status);
    const Ended ended = run({"csv", write("a.zlog", session.text() + "damage\n")});
    EXPECT_EQ(ended.status, 1);
    EXPECT_THAT(ended.complaint, HasSubstr("is wrong"));
    EXPECT_THAT(parse(ended.said.substr(3), ','), SizeIs(2));
}

} // namespace
} // namespace zol::logbook
