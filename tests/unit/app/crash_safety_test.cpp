// What is on the disk when the program dies, or the system fails, in any of the calls that a write
// is made of: the old file or the new one, whole.
#include "app/settings_file.h"
#include "app/whole_file.h"
#include "tests/support/bench.h"
#include "tests/support/system_calls.h"
#include "view/windows/form1.h"

#include <cerrno>
#include <csignal>
#include <cstring>
#include <sys/wait.h>
#include <unistd.h>

namespace zol::tests {
namespace {

using testing::AnyOf;
using testing::Contains;
using testing::ElementsAre;
using testing::Eq;
using testing::IsSupersetOf;

constexpr auto untouched = [](int, std::string_view) { return Fate{}; };

class CrashSafety : public Bench {
  protected:
    // Does `act` in a process of its own, which is killed ahead of the call of this count; each
    // write moves half of its bytes, so that the file is also caught half written. False once the
    // act has fewer calls.
    template <typename Act>
    bool killed_ahead_of(int call, Act act) {
        const pid_t child = ::fork();
        EXPECT_GE(child, 0);
        if (child == 0) {
            act([call](int count, std::string_view name) {
                if (count == call) ::kill(::getpid(), SIGKILL);
                return Fate{.error = 0, .halved = name == "write"};
            });
            ::_exit(0);
        }
        int status = 0;
        ::waitpid(child, &status, 0);
        EXPECT_TRUE(WIFSIGNALED(status) || WEXITSTATUS(status) == 0);
        return WIFSIGNALED(status);
    }
    std::vector<std::string> left_beside(const std::string& name) {
        std::vector<std::string> found;
        const auto file = folder / name;
        for (const auto& entry : std::filesystem::directory_iterator(file.parent_path()))
            if (entry.path() != file && entry.path().filename().string().starts_with("setting."))
                found.push_back(entry.path().filename().string());
        return found;
    }
    static std::size_t open_descriptors() {
        const std::filesystem::directory_iterator all("/proc/self/fd");
        return static_cast<std::size_t>(std::distance(begin(all), end(all)));
    }

    const std::string old_settings = "[General]\nCOLORETESTO=1\n[Rest]\nX=" + std::string(900, 'x');
    const std::string new_settings =
        "[General]\nCOLORETESTO=22\n[Rest]\nX=" + std::string(900, 'x') + "\n";
};

TEST_F(CrashSafety, AKillAheadOfAnyCallLeavesTheSettingsOldOrNew) {
    int call = 1;
    for (bool killed = true; killed; ++call) {
        write_file("setting.ini", old_settings);
        killed = killed_ahead_of(call, [](const WatchedCalls::FateOf& fate) {
            const WatchedCalls watch(fate);
            app::write_text_colour("22");
        });
        const std::string left = read_text("setting.ini");
        if (killed) {
            EXPECT_THAT(left, AnyOf(Eq(old_settings), Eq(new_settings))) << "call " << call;
        } else {
            EXPECT_EQ(left, new_settings);
        }
        app::write_text_colour("22");
        EXPECT_EQ(read_text("setting.ini"), new_settings) << "the next write is not held up";
        EXPECT_THAT(left_beside("setting.ini"), testing::IsEmpty());
    }
    EXPECT_GT(call, 20) << "a kill ahead of each call";
}

TEST_F(CrashSafety, AKillBeforeTheFirstSettingLeavesNoFileOrAWholeOne) {
    const std::string first = "[General]\nCOLORETESTO=22\n";
    int call = 1;
    for (bool killed = true; killed; ++call) {
        std::filesystem::remove(folder / "setting.ini");
        killed = killed_ahead_of(call, [](const WatchedCalls::FateOf& fate) {
            const WatchedCalls watch(fate);
            app::write_text_colour("22");
        });
        if (std::filesystem::exists(folder / "setting.ini") || !killed) {
            EXPECT_EQ(read_text("setting.ini"), first) << "call " << call;
        }
    }
    EXPECT_GT(call, 10);
}

TEST_F(CrashSafety, AKillAheadOfAnyCallLeavesTheDumpOldOrNew) {
    const std::string old_dump = "Par 1 = an older one\n" + std::string(9000, 'x');
    const auto dump = [this](const WatchedCalls::FateOf& fate) {
        start_connected();
        inside_program([] { form1::mnu_dump_parametri.on.click(); });
        const WatchedCalls watch(fate);
        run_for(10'000);
    };
    // As it is to become: by a process of its own too, for a bench starts its program once.
    ASSERT_FALSE(killed_ahead_of(0, dump));
    const std::string new_dump = read_text("log/setting.txt");
    ASSERT_THAT(new_dump, testing::StartsWith("Par 1  = "));
    int call = 1;
    for (bool killed = true; killed; ++call) {
        write_file("log/setting.txt", old_dump);
        killed = killed_ahead_of(call, dump);
        const std::string left = read_text("log/setting.txt");
        if (killed) {
            EXPECT_THAT(left, AnyOf(Eq(old_dump), Eq(new_dump))) << "call " << call;
        } else {
            EXPECT_EQ(left, new_dump);
        }
    }
    EXPECT_GT(call, 15);
    EXPECT_THAT(left_beside("log/setting.txt"), testing::IsEmpty());
}

// A file that takes the name before its bytes are on the disk is an empty file after a power cut.
TEST_F(CrashSafety, TheNewFileIsFlushedBeforeItTakesTheNameAndItsFolderAfterwards) {
    write_file("setting.ini", old_settings);
    const WatchedCalls watch(untouched);
    app::replace_file(folder / "setting.ini", "new");
    EXPECT_THAT(watch.names(), ElementsAre("unlink", "open", "fchmod", "write", "fsync", "close",
                                           "rename", "open", "fsync", "close"));
}

TEST_F(CrashSafety, ACallThatFailsLeavesTheSettingsOldOrNewAndNothingBesideThem) {
    const std::size_t descriptors = open_descriptors();
    int failures = 0;
    for (const int error : {ENOSPC, EIO, EINTR, EMFILE, EROFS, EDQUOT})
        for (int call = 1;; ++call, ++failures) {
            write_file("setting.ini", old_settings);
            std::string failed;
            bool has_the_name = false, had_the_name = false, reading = true;
            {
                WatchedCalls watch([&](int count, std::string_view name) {
                    if (count == call) {
                        failed = name == "close" && reading ? "reading's close" : name;
                        had_the_name = has_the_name;
                    }
                    if (name == "fchmod") reading = false;
                    has_the_name = has_the_name || (name == "rename" && count != call);
                    return Fate{.error = count == call ? error : 0, .halved = false};
                });
                app::write_text_colour("22");
            }
            if (failed.empty()) break;
            const std::string which = failed + ": " + std::strerror(error);
            // What is read is read before the file is closed; the mode may stay another one; there
            // is nothing to remove.
            const bool not_needed =
                failed == "fchmod" || failed == "reading's close" || failed == "unlink";
            const bool made_again = error == EINTR && (failed == "read" || failed == "write");
            EXPECT_EQ(has_the_name, had_the_name || not_needed || made_again) << which;
            EXPECT_EQ(read_text("setting.ini"), has_the_name ? new_settings : old_settings)
                << which;
            EXPECT_THAT(left_beside("setting.ini"), testing::IsEmpty()) << which;
        }
    EXPECT_GE(failures, 6 * 13) << "each error in each call";
    EXPECT_EQ(open_descriptors(), descriptors);
}

TEST_F(CrashSafety, SettingsThatCannotBeReadAreNotWrittenAnew) {
    write_file("setting.ini", old_settings);
    for (const char* reading : {"open", "fstat", "read"}) {
        bool met = false;
        WatchedCalls watch([&](int, std::string_view name) {
            if (met || name != reading) return Fate{};
            met = true;
            return Fate{.error = EIO, .halved = false};
        });
        app::write_text_colour("22");
        EXPECT_TRUE(met);
        EXPECT_THAT(watch.names(), testing::Not(Contains("rename")));
    }
    EXPECT_EQ(read_text("setting.ini"), old_settings);
}

TEST_F(CrashSafety, ShortReadsAndWritesMoveEverythingInTheEnd) {
    write_file("setting.ini", old_settings);
    {
        const WatchedCalls watch(
            [](int, std::string_view) { return Fate{.error = 0, .halved = true}; });
        app::write_text_colour("22");
        EXPECT_THAT(watch.names(), IsSupersetOf({"read", "read", "write", "write"}));
    }
    EXPECT_EQ(read_text("setting.ini"), new_settings);
}

TEST_F(CrashSafety, ADiskThatIsFullLeavesTheOldDumpAndTheProgramGoesOn) {
    write_file("log/setting.txt", "an older one\n");
    start_connected();
    operator_clicks(form1::mnu_dump_parametri);
    {
        const WatchedCalls watch([](int, std::string_view name) {
            return Fate{.error = name == "write" ? ENOSPC : 0, .halved = false};
        });
        run_for(10'000);
        EXPECT_THAT(watch.names(), Contains("write"));
    }
    EXPECT_EQ(read_text("log/setting.txt"), "an older one\n");
    EXPECT_THAT(left_beside("log/setting.txt"), testing::IsEmpty());
    EXPECT_EQ(form1::Form1.look.pointer, view::Pointer::normal);
    operator_clicks(form1::mnu_dump_parametri);
    run_for(10'000);
    EXPECT_THAT(read_text("log/setting.txt"), testing::StartsWith("Par 1  = "));
}

} // namespace
} // namespace zol::tests
