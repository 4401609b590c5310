// What is on the disk when the program is killed, or the system fails, in any of the calls of a
// write: the whole old file or the whole new one.
#include "app/whole_file.h"
#include "tests/support/system_calls.h"
#include "tests/unit/app/settings_folder.h"
#include "view/windows/form1.h"

#include <cerrno>
#include <csignal>
#include <cstring>
#include <sys/wait.h>
#include <unistd.h>

namespace zol::tests {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::IsSupersetOf;

constexpr auto untouched = [](int, std::string_view) { return Fate{}; };

class CrashSafety : public SettingsFolder {
  protected:
    // Runs `act` in another process, which is killed ahead of the call of this count. Each write
    // moves half of its bytes, so that a kill also comes with the file half written. False if `act`
    // has fewer calls.
    template <typename Act>
    bool killed_ahead_of(int call, Act act) {
        const pid_t child = ::fork();
        EXPECT_GE(child, 0);
        if (child == 0) {
            act([call](int count, std::string_view name) {
                if (count == call) ::kill(::getpid(), SIGKILL);
                return Fate{.halved = name == "write"};
            });
            ::_exit(0);
        }
        int status = 0;
        ::waitpid(child, &status, 0);
        EXPECT_TRUE(WIFSIGNALED(status) || WEXITSTATUS(status) == 0);
        return WIFSIGNALED(status);
    }
    // Kills a process ahead of each call of `act` in turn. `prepare` runs before and `check` after
    // each; `check` gets whether there was a kill. Gives how many calls there are.
    template <typename Act>
    int kill_ahead_of_each_call(Act act, const std::function<void()>& prepare,
                                const std::function<void(bool killed)>& check) {
        for (int call = 1;; ++call) {
            SCOPED_TRACE("call " + std::to_string(call));
            prepare();
            const bool killed = killed_ahead_of(call, act);
            check(killed);
            if (!killed) return call - 1;
        }
    }
    // The file is the new one, or after a kill perhaps the old one.
    void expect_whole(const std::string& name, const std::string& new_content,
                      const std::string& old_content, bool killed) {
        const std::string left = read_text(name);
        EXPECT_TRUE(left == new_content || (killed && left == old_content))
            << left.size() << " bytes";
    }
    static void store_22(const WatchedCalls::FateOf& fate) {
        const WatchedCalls watch(fate);
        app::write_text_colour("22");
    }
    static std::size_t open_descriptors() {
        const std::filesystem::directory_iterator all("/proc/self/fd");
        return static_cast<std::size_t>(std::distance(begin(all), end(all)));
    }

    const std::string old_settings = "[General]\nCOLORETESTO=1\n[Rest]\nX=" + std::string(900, 'x');
    const std::string new_settings =
        "[General]\nCOLORETESTO=22\n[Rest]\nX=" + std::string(900, 'x') + "\n";
};

TEST_F(CrashSafety, KillLeavesTheSettingsOldOrNew) {
    const int calls = kill_ahead_of_each_call(
        store_22, [this] { write_file(file, old_settings); },
        [this](bool killed) {
            expect_whole(file, new_settings, old_settings, killed);
            app::write_text_colour("22"); // a later write is not hindered
            EXPECT_EQ(read_text(file), new_settings);
            EXPECT_THAT(left_beside(file), IsEmpty());
        });
    EXPECT_GE(calls, 20);
}

TEST_F(CrashSafety, KillOfTheFirstWriteLeavesNoHalfFile) {
    const int calls = kill_ahead_of_each_call(
        store_22, [this] { std::filesystem::remove(folder / file); },
        [this](bool killed) {
            if (killed && !std::filesystem::exists(folder / file)) return;
            EXPECT_EQ(read_text(file), "[General]\nCOLORETESTO=22\n");
        });
    EXPECT_GE(calls, 10);
}

TEST_F(CrashSafety, KillLeavesTheDumpOldOrNew) {
    const std::string old_dump = "Par 1 = an older one\n" + std::string(9000, 'x');
    const auto dump = [this](const WatchedCalls::FateOf& fate) {
        start_connected();
        inside_program([] { form1::mnu_dump_parametri.on.click(); });
        const WatchedCalls watch(fate);
        run_for(10'000);
    };
    // The new dump, also by another process, since a fixture starts its program once.
    ASSERT_FALSE(killed_ahead_of(0, dump));
    const std::string new_dump = read_text("log/setting.txt");
    ASSERT_THAT(new_dump, testing::StartsWith("Par 1  = "));
    const int calls = kill_ahead_of_each_call(
        dump, [&] { write_file("log/setting.txt", old_dump); },
        [&](bool killed) { expect_whole("log/setting.txt", new_dump, old_dump, killed); });
    EXPECT_GE(calls, 15);
    EXPECT_THAT(left_beside("log/setting.txt"), IsEmpty());
}

// A file that takes the name before its bytes are on the disk is an empty file after a power cut.
TEST_F(CrashSafety, NewFileIsFlushedBeforeItTakesTheName) {
    write_file("setting.ini", old_settings);
    const WatchedCalls watch(untouched);
    app::replace_file(folder / "setting.ini", "new");
    EXPECT_THAT(watch.names(), ElementsAre("unlink", "open", "fchmod", "write", "fsync", "close",
                                           "rename", "open", "fsync", "close"));
}

TEST_F(CrashSafety, FailedCallLeavesTheSettingsOldOrNew) {
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
                    return Fate{.error = count == call ? error : 0};
                });
                app::write_text_colour("22");
            }
            if (failed.empty()) break;
            const std::string which = failed + ": " + std::strerror(error);
            // These failures do not matter: the file was read before it is closed, another mode may
            // stay, and there is no file to remove.
            const bool not_needed =
                failed == "fchmod" || failed == "reading's close" || failed == "unlink";
            const bool made_again = error == EINTR && (failed == "read" || failed == "write");
            EXPECT_EQ(has_the_name, had_the_name || not_needed || made_again) << which;
            EXPECT_EQ(read_text("setting.ini"), has_the_name ? new_settings : old_settings)
                << which;
            EXPECT_THAT(left_beside("setting.ini"), IsEmpty()) << which;
        }
    EXPECT_GE(failures, 6 * 13) << "each error in each call";
    EXPECT_EQ(open_descriptors(), descriptors);
}

TEST_F(CrashSafety, UnreadableSettingsAreNotReplaced) {
    write_file("setting.ini", old_settings);
    for (const char* reading : {"open", "fstat", "read"}) {
        bool met = false;
        WatchedCalls watch([&](int, std::string_view name) {
            if (met || name != reading) return Fate{};
            met = true;
            return Fate{.error = EIO};
        });
        app::write_text_colour("22");
        EXPECT_TRUE(met);
        EXPECT_THAT(watch.names(), testing::Not(Contains("rename")));
    }
    EXPECT_EQ(read_text("setting.ini"), old_settings);
}

TEST_F(CrashSafety, ShortReadsAndWritesAreContinued) {
    write_file("setting.ini", old_settings);
    {
        const WatchedCalls watch([](int, std::string_view) { return Fate{.halved = true}; });
        app::write_text_colour("22");
        EXPECT_THAT(watch.names(), IsSupersetOf({"read", "read", "write", "write"}));
    }
    EXPECT_EQ(read_text("setting.ini"), new_settings);
}

TEST_F(CrashSafety, FullDiskLeavesTheOldDump) {
    write_file("log/setting.txt", "an older one\n");
    start_connected();
    operator_clicks(form1::mnu_dump_parametri);
    {
        const WatchedCalls watch(
            [](int, std::string_view name) { return Fate{.error = name == "write" ? ENOSPC : 0}; });
        run_for(10'000);
        EXPECT_THAT(watch.names(), Contains("write"));
    }
    EXPECT_EQ(read_text("log/setting.txt"), "an older one\n");
    EXPECT_THAT(left_beside("log/setting.txt"), IsEmpty());
    EXPECT_EQ(form1::Form1.look.pointer, view::Pointer::normal);
    operator_clicks(form1::mnu_dump_parametri);
    run_for(10'000);
    EXPECT_THAT(read_text("log/setting.txt"), testing::StartsWith("Par 1  = "));
}

} // namespace
} // namespace zol::tests
