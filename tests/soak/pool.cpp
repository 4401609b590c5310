#include "tests/soak/pool.h"

#include "tests/soak/run.h"

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <map>
#include <sched.h>
#include <sstream>
#include <string>
#include <sys/wait.h>
#include <unistd.h>
#include <utility>

namespace zol::soak {
namespace {

// A run takes a second or two.
constexpr unsigned hung_after_s = 300;

struct Child {
    std::uint32_t seed;
    std::FILE* out;
};

struct Summary {
    std::uint32_t runs = 0, failed = 0;
    double hours = 0;
    std::uint64_t acts = 0, starts = 0;
    int deepest_wait = 0;
    std::map<std::string, int> recoveries;
};

// The output of a child: a line of figures and the kind of recovery, then the text for the reader.
void print_result(const RunResult& result, bool whole_transcript) {
    std::printf("%g %llu %llu %d %zu %s\n", result.hours,
                static_cast<unsigned long long>(result.acts),
                static_cast<unsigned long long>(result.starts), result.deepest_wait,
                result.findings.size(), result.recovery.c_str());
    if (whole_transcript || !result.findings.empty())
        for (const std::string& line : result.transcript)
            std::puts(line.c_str());
    for (const std::string& finding : result.findings)
        std::puts(finding.c_str());
}

[[noreturn]] void run_child(const PoolOptions& options, std::uint32_t seed, int out) {
    dup2(out, STDOUT_FILENO);
    alarm(hung_after_s);
    // Program and operator are two threads that take turns: one processor switches faster.
    cpu_set_t one;
    CPU_ZERO(&one);
    CPU_SET(seed % static_cast<unsigned>(std::max(1L, sysconf(_SC_NPROCESSORS_ONLN))), &one);
    sched_setaffinity(0, sizeof one, &one);
    print_result(run({.seed = seed, .hours = options.hours, .keep_all = options.whole_transcript}),
                 options.whole_transcript);
    std::fflush(stdout);
    _exit(0);
}

pid_t start(const PoolOptions& options, std::uint32_t seed, std::map<pid_t, Child>& children) {
    // A file has room for a transcript of any length.
    std::FILE* const out = std::tmpfile();
    if (!out) return -1;
    std::fflush(stdout);
    const pid_t child = fork();
    if (child == 0) run_child(options, seed, fileno(out));
    if (child > 0)
        children[child] = {seed, out};
    else
        std::fclose(out);
    return child;
}

std::string all_of(std::FILE* file) {
    std::rewind(file);
    std::string text;
    char block[65536];
    while (const std::size_t got = std::fread(block, 1, sizeof block, file))
        text.append(block, got);
    return text;
}

void add_result(const Child& child, int status, bool whole_transcript, Summary& summary) {
    const std::string text = all_of(child.out);
    std::fclose(child.out);
    ++summary.runs;
    if (!WIFEXITED(status) || WEXITSTATUS(status) != 0) {
        ++summary.failed;
        const bool hung = WIFSIGNALED(status) && WTERMSIG(status) == SIGALRM;
        std::printf("FINDING: seed %u %s (status %d); scripts/prove soak --seed %u\n%s\n",
                    child.seed, hung ? "hangs" : "crashes", status, child.seed, text.c_str());
        return;
    }
    std::istringstream in(text);
    double hours = 0;
    std::uint64_t acts = 0, starts = 0;
    int deepest = 0;
    std::size_t findings = 0;
    std::string recovery;
    in >> hours >> acts >> starts >> deepest >> findings;
    std::getline(in >> std::ws, recovery);
    summary.hours += hours;
    summary.acts += acts;
    summary.starts += starts;
    summary.deepest_wait = std::max(summary.deepest_wait, deepest);
    ++summary.recoveries[recovery];
    if (findings > 0) {
        ++summary.failed;
        std::printf("=== seed %u: %zu findings; scripts/prove soak --seed %u shows it again\n",
                    child.seed, findings, child.seed);
    }
    if (findings > 0 || whole_transcript) {
        const auto body = text.find('\n');
        std::fputs(text.c_str() + (body == std::string::npos ? 0 : body + 1), stdout);
    }
}

void print(const Summary& summary, double taken_s) {
    std::printf("%u runs, %.0f simulated hours, %llu starts, %llu acts, %.0f s\n", summary.runs,
                summary.hours, static_cast<unsigned long long>(summary.starts),
                static_cast<unsigned long long>(summary.acts), taken_s);
    for (const auto& [how, count] : summary.recoveries)
        std::printf("  %5d %s\n", count, how.c_str());
    std::printf("deepest nesting of waits: %d\nruns with findings: %u\n", summary.deepest_wait,
                summary.failed);
}

} // namespace

bool soak(const PoolOptions& options) {
    const auto began = std::chrono::steady_clock::now();
    Summary summary;
    std::map<pid_t, Child> children;
    std::uint32_t next = 0;
    while (next < options.count || !children.empty()) {
        if (next < options.count && std::cmp_less(children.size(), options.jobs)) {
            if (start(options, options.first + next, children) > 0) {
                ++next;
                continue;
            }
            std::perror("soak: no process for another run");
            return false;
        }
        int status = 0;
        const pid_t ended = wait(&status);
        const auto child = children.find(ended);
        if (child == children.end()) continue;
        add_result(child->second, status, options.whole_transcript, summary);
        children.erase(child);
    }
    const std::chrono::duration<double> taken = std::chrono::steady_clock::now() - began;
    print(summary, taken.count());
    return summary.failed == 0;
}

} // namespace zol::soak
