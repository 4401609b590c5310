// Faults, the diagnosis link to the car, and its live data.
#include "tests/unit/simulator/workshop.h"

namespace sim {
namespace {

using testing::ElementsAre;
using testing::SizeIs;

class Faults : public WorkshopTest {
  protected:
    Faults() : WorkshopTest({.family = 4, .version = 7, .revision = 71, .warm = true}) {
        wait_s(5);
    }
    std::vector<int> stored() {
        const Bytes answer = ask(15);
        EXPECT_THAT(answer, SizeIs(19));
        EXPECT_EQ(answer[4], 15);
        std::vector<int> all;
        for (std::size_t at = 5; at < 17; at += 2)
            if (const int fault = answer[at] * 100 + answer[at + 1]) all.push_back(fault);
        EXPECT_EQ(static_cast<std::size_t>(word(answer, 18)), all.size());
        return all;
    }
};

TEST_F(Faults, FaultIsTwoDecimalBytes) {
    type("fault add 301");
    type("fault add 2187");
    const Bytes answer = ask(15);
    ASSERT_THAT(answer, SizeIs(19));
    EXPECT_THAT(Bytes(answer.begin() + 5, answer.begin() + 9), ElementsAre(3, 1, 21, 87));
    EXPECT_THAT(Bytes(answer.begin() + 17, answer.end()), ElementsAre(0, 2));
    EXPECT_EQ(unit.parameter(145), 3 * 256 + 1);
    EXPECT_EQ(word(ask(1), 92), 21 * 256 + 87);
}

TEST_F(Faults, StoreHoldsSixDifferentOnes) {
    for (const int fault : {101, 102, 103, 104, 105, 106, 107})
        type("fault add " + std::to_string(fault));
    EXPECT_THAT(stored(), ElementsAre(101, 102, 103, 104, 105, 106));
    EXPECT_THAT(type("fault add 101"), testing::HasSubstr("already"));
    EXPECT_EQ(type("fault"), "6 faults: P0101 P0102 P0103 P0104 P0105 P0106");
    type("fault clear");
    EXPECT_THAT(stored(), ElementsAre());
}

TEST_F(Faults, SevenWritesOfZeroClearThem) {
    type("fault add 301");
    type("fault add 302");
    for (int number = 145; number <= 151; ++number)
        write(number, 0);
    EXPECT_THAT(stored(), ElementsAre());
    type("fault add 303");
    EXPECT_THAT(stored(), ElementsAre(303));
}

TEST_F(Faults, LeanGainSets171AfterAWhile) {
    write(3, 1101);
    send_command(22);
    wait_s(10);
    EXPECT_THAT(stored(), ElementsAre());
    wait_s(20);
    EXPECT_THAT(stored(), ElementsAre(171));
}

TEST_F(Faults, RichGainSets172) {
    write(3, 1799);
    write(4, 1799);
    send_command(22);
    wait_s(30);
    EXPECT_THAT(stored(), ElementsAre(172));
}

TEST_F(Faults, SilentProbeSets130) {
    type("lambda silent");
    wait_s(8);
    EXPECT_THAT(stored(), ElementsAre());
    wait_s(5);
    EXPECT_THAT(stored(), ElementsAre(130));
    EXPECT_LE(status_word(lambda_at), 20);
    type("lambda normal");
    wait_s(5);
    EXPECT_GT(status_word(lambda_at), 20);
}

TEST_F(Faults, FlatBatterySets562) {
    type("battery 9.5");
    wait_s(14);
    EXPECT_THAT(stored(), ElementsAre(562));
}

TEST_F(Faults, ClearThemselvesIfTheParameterIsSet) {
    type("fault add 301");
    wait_s(60);
    EXPECT_THAT(stored(), ElementsAre(301));
    write(153, 1);
    wait_s(9);
    EXPECT_THAT(stored(), ElementsAre(301));
    wait_s(2);
    EXPECT_THAT(stored(), ElementsAre());
}

TEST_F(Faults, ClearedFaultReturnsWithANewCause) {
    type("lambda silent");
    wait_s(15);
    type("fault clear");
    wait_s(60);
    EXPECT_THAT(stored(), ElementsAre()) << "stored once, until its cause has gone and come back";
    type("lambda normal");
    wait_s(5);
    type("lambda silent");
    wait_s(15);
    EXPECT_THAT(stored(), ElementsAre(130));
}

class LiveData : public Faults {
  protected:
    Bytes live() {
        const Bytes answer = ask(16);
        EXPECT_THAT(answer, SizeIs(12));
        EXPECT_EQ(answer[4], 16);
        return answer;
    }
};

TEST_F(LiveData, ShowLoopTrimsLoadAndLambda) {
    write(3, 1400);
    send_command(22);
    wait_s(90);
    const Bytes answer = live();
    EXPECT_EQ(answer[5], 2) << "closed loop";
    const double quick = (answer[6] - 128) * 0.78, learnt = (answer[7] - 128) * 0.78;
    EXPECT_NEAR(quick + learnt, unit.engine().trim * 100, 3);
    EXPECT_NEAR(word(answer, 9), 26, 3);
    EXPECT_GT(word(answer, 11), 50);
}

TEST_F(LiveData, LoopIsOpenWhileThePedalMoves) {
    type("gas off");
    type("throttle 60");
    wait_ms(200);
    EXPECT_EQ(unit.engine().loop, Engine::Loop::transient);
    wait_s(4);
    EXPECT_EQ(live()[5], 2);
    type("throttle 100");
    wait_s(4);
    EXPECT_EQ(live()[5], 0);
}

TEST_F(LiveData, SearchEndsOnTheProtocolOfTheCar) {
    type("protocol 4");
    write(143, 1);
    EXPECT_EQ(word(ask(1), 86), 1);
    const Bytes searching = live();
    EXPECT_EQ(searching[6], 0);
    EXPECT_EQ(searching[7], 0);
    wait_s(7);
    EXPECT_EQ(word(ask(1), 86), 4);
    EXPECT_NE(live()[6], 0);
}

TEST_F(LiveData, SearchFindsTheProtocolThatWasSet) {
    unit.set_parameter(143, 9);
    write(143, 1);
    wait_s(7);
    EXPECT_EQ(unit.parameter(143), 9);
}

TEST_F(LiveData, AreLostWithoutALinkToTheCar) {
    const auto lost = [this] {
        const Bytes answer = live();
        return answer[5] == 255 && answer[6] == 255;
    };
    EXPECT_FALSE(lost());
    write(143, 5);
    EXPECT_TRUE(lost());
    write(143, 0);
    EXPECT_FALSE(lost()) << "0 searches";
    EXPECT_EQ(unit.parameter(143), 0);
    type("diagnosis off");
    EXPECT_TRUE(lost());
    type("diagnosis on");
    EXPECT_FALSE(lost());
    type("engine off");
    EXPECT_TRUE(lost());
}

TEST_F(LiveData, FuelTrimShiftsTheGasTime) {
    const auto lean_us = [](int direction) {
        Workshop shop({.family = 4, .warm = true});
        shop.write(142, direction);
        shop.write(3, 1330);
        shop.write(4, 1330);
        shop.send_command(22);
        shop.wait_s(15);
        return shop.unit.engine().injection_us;
    };
    EXPECT_GT(lean_us(257), lean_us(0) + 30);
}

} // namespace
} // namespace sim
