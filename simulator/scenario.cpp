#include "simulator/scenario.h"

#include "simulator/simulation.h"
#include "simulator/words.h"

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <memory>

namespace sim {
namespace {

constexpr double longest_s = 1e7; // about four months
constexpr std::size_t largest_file = 1 << 20;
constexpr std::size_t most_reports = 20;

std::string_view without_comment(std::string_view line) { return line.substr(0, line.find('#')); }

// The rest of the line after its first word.
std::string_view after_word(std::string_view line, std::string_view first) {
    return line.substr(static_cast<std::size_t>(first.data() - line.data()) + first.size());
}

} // namespace

Scenario read_scenario(std::string_view text, std::string_view file) {
    Scenario scenario;
    Simulation trial({});
    double before_s = 0;
    int number = 0;
    const auto report = [&](const std::string& what) {
        if (scenario.wrong.size() < most_reports)
            scenario.wrong.push_back(std::string(file) + ":" + std::to_string(number) + ": " +
                                     what);
    };
    while (!text.empty()) {
        ++number;
        const auto end = text.find('\n');
        const std::string_view line = without_comment(text.substr(0, end));
        text = end == std::string_view::npos ? std::string_view{} : text.substr(end + 1);
        const auto words = split_words(line);
        if (words.empty()) continue;
        const auto at_s = number_in(words[0], 0.0, longest_s);
        if (!at_s) {
            report("a line begins with a time in seconds, as in: 12.5 throttle 40");
            continue;
        }
        if (words.size() == 1) {
            report("there is no command after the time, as in: 12.5 throttle 40");
            continue;
        }
        if (*at_s < before_s) {
            report("the time is before that of an earlier line; sort the lines by time");
            continue;
        }
        before_s = *at_s;
        const bool quit = words.size() == 2 && words[1] == "quit";
        std::string command(after_word(line, words[0]));
        if (!quit) {
            const std::string answer = trial.command(command, 0);
            if (answer.starts_with("Error: ")) report(answer.substr(7));
        }
        scenario.steps.push_back({*at_s, quit ? "quit" : std::move(command), number});
    }
    return scenario;
}

Scenario load_scenario(const std::string& path) {
    Scenario scenario;
    errno = 0;
    const std::unique_ptr<std::FILE, int (*)(std::FILE*)> file(std::fopen(path.c_str(), "rb"),
                                                               &std::fclose);
    std::string text;
    char buffer[4096];
    if (file)
        while (text.size() <= largest_file) {
            const std::size_t got = std::fread(buffer, 1, sizeof buffer, file.get());
            if (got == 0) break;
            text.append(buffer, got);
        }
    if (!file || std::ferror(file.get())) {
        scenario.wrong.push_back(path + ": cannot be read: " + std::strerror(errno) +
                                 "; name a text file that you may read");
        return scenario;
    }
    if (text.size() > largest_file) {
        scenario.wrong.push_back(path + ": is longer than a megabyte; name a scenario file");
        return scenario;
    }
    return read_scenario(text, path);
}

} // namespace sim
