#include "logbook/commands.h"
#include "logbook/help.h"

#include <algorithm>
#include <cstdio>
#include <string_view>

namespace zol::logbook {
namespace {

struct Command {
    std::string_view name;
    int (*run)(Words words);
};
constexpr Command commands[] = {
    {"record", record_command}, {"release", release_command}, {"check", check_command},
    {"show", show_command},     {"csv", csv_command},         {"compare", compare_command},
    {"backup", backup_command},
};

bool asks_for_help(std::string_view word) { return word == "--help" || word == "-h"; }

void show(std::string_view text) { std::fwrite(text.data(), 1, text.size(), stdout); }

int run(Words words) {
    const std::string_view first = words.empty() ? "" : words[0];
    if (asks_for_help(first)) {
        show(help_text(""));
        return done;
    }
    if (first == "--version" || first == "-V") {
        show("zol-logbook " ZOL_VERSION "\n");
        return done;
    }
    const auto command = std::find_if(std::begin(commands), std::end(commands),
                                      [&](const Command& one) { return one.name == first; });
    if (command == std::end(commands)) {
        complain(words.empty() ? "It takes a command; zol-logbook --help lists them."
                               : "There is no command \"" + std::string(first.substr(0, 40)) +
                                     "\"; zol-logbook --help lists them.");
        return wrong_words;
    }
    const Words rest = words.subspan(1);
    if (std::any_of(rest.begin(), rest.end(), asks_for_help)) {
        show(help_text(first));
        return done;
    }
    return command->run(rest);
}

} // namespace

int run_logbook(Words words) {
    int status = run(words);
    if (std::fflush(stdout) != 0 && status == done) {
        complain("Standard output cannot be written; make room where it leads to.");
        status = failed;
    }
    return status;
}

void complain(const std::string& text) { std::fprintf(stderr, "zol-logbook: %s\n", text.c_str()); }

} // namespace zol::logbook
