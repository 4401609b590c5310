#include "simulator/arguments.h"

#include "simulator/words.h"

#include <array>

namespace sim {
namespace {

// For example "2.7.71". Like the functions below, returns an empty text or what is wrong.
std::string read_firmware(std::string_view value, Options& options) {
    const auto first = value.find('.');
    const auto second = first == std::string_view::npos ? first : value.find('.', first + 1);
    if (second != std::string_view::npos) {
        const auto family = number_in(value.substr(0, first), 0, 4);
        const auto version = number_in(value.substr(first + 1, second - first - 1), 0, 255);
        const auto revision = number_in(value.substr(second + 1), 0, 255);
        if (family && version && revision) {
            options.family = *family;
            options.version = *version;
            options.revision = *revision;
            return {};
        }
    }
    return "takes a family from 0 to 4, a version and a revision from 0 to 255, such as 2.7.71";
}

// For example "drop=0.01,echo=on".
std::string read_line_switches(std::string_view value, BadLineOptions& options) {
    while (!value.empty()) {
        const auto comma = value.find(',');
        const std::string_view one = value.substr(0, comma);
        const auto equals = one.find('=');
        if (equals == std::string_view::npos) return "takes switches, such as drop=0.01,echo=on";
        const std::string wrong =
            set_switch(options, one.substr(0, equals), one.substr(equals + 1));
        if (!wrong.empty()) return "is wrong: " + wrong;
        value = comma == std::string_view::npos ? std::string_view{} : value.substr(comma + 1);
    }
    return {};
}

std::string read_path(std::string_view value, std::string& path) {
    if (value.empty()) return "takes a path, which must not be empty";
    path = value;
    return {};
}

std::string read_seed(std::string_view value, Arguments& arguments) {
    const auto seed = number_in<std::uint32_t>(value, 0, UINT32_MAX);
    if (!seed) return "takes a number from 0 to 4294967295";
    arguments.unit.seed = arguments.line.seed = *seed;
    return {};
}

std::string read_protocol(std::string_view value, Options& options) {
    const auto protocol = number_in(value, 2, 10);
    if (!protocol) return "takes a number from 2 to 10";
    options.protocol = *protocol;
    return {};
}

struct Valued {
    std::string_view name;
    std::string (*read)(std::string_view value, Arguments&);
};
constexpr std::array<Valued, 9> valued = {
    {{"--device", [](std::string_view v, Arguments& a) { return read_path(v, a.device); }},
     {"--link", [](std::string_view v, Arguments& a) { return read_path(v, a.link); }},
     {"--log", [](std::string_view v, Arguments& a) { return read_path(v, a.log); }},
     {"--scenario", [](std::string_view v, Arguments& a) { return read_path(v, a.scenario); }},
     {"--replay", [](std::string_view v, Arguments& a) { return read_path(v, a.replay); }},
     {"--firmware", [](std::string_view v, Arguments& a) { return read_firmware(v, a.unit); }},
     {"--line", [](std::string_view v, Arguments& a) { return read_line_switches(v, a.line); }},
     {"--seed", read_seed},
     {"--protocol", [](std::string_view v, Arguments& a) { return read_protocol(v, a.unit); }}}};

struct Bare {
    std::string_view name;
    void (*set)(Arguments&);
};
constexpr std::array<Bare, 6> bare = {
    {{"--warm", [](Arguments& a) { a.unit.warm = true; }},
     {"--exit-on-eof", [](Arguments& a) { a.exit_on_eof = true; }},
     {"--help", [](Arguments& a) { a.help = true; }},
     {"-h", [](Arguments& a) { a.help = true; }},
     {"--version", [](Arguments& a) { a.version = true; }},
     {"-V", [](Arguments& a) { a.version = true; }}}};

constexpr std::string_view see_help = "; see control-unit --help";

} // namespace

std::optional<Arguments> read_arguments(std::span<const char* const> words, std::string& wrong) {
    Arguments arguments;
    for (std::size_t i = 0; i < words.size(); ++i) {
        const std::string_view word = words[i];
        const auto equals = word.starts_with("--") ? word.find('=') : std::string_view::npos;
        const std::string_view name = word.substr(0, equals);
        bool known = false;
        for (const Bare& one : bare) {
            if (one.name != word) continue;
            one.set(arguments);
            known = true;
        }
        for (const Valued& one : valued) {
            if (one.name != name) continue;
            known = true;
            std::string_view value;
            if (equals != std::string_view::npos)
                value = word.substr(equals + 1);
            else if (i + 1 < words.size())
                value = words[++i];
            else {
                wrong = std::string(name) + " needs a value" + std::string(see_help) + ".";
                return std::nullopt;
            }
            const std::string fault = one.read(value, arguments);
            if (fault.empty()) continue;
            wrong = std::string(name) + " " + fault + ", but got " + quoted(value) + ".";
            return std::nullopt;
        }
        if (known) continue;
        wrong = "Unknown argument " + quoted(word) + std::string(see_help) + ".";
        return std::nullopt;
    }
    if (!arguments.device.empty() && !arguments.link.empty()) {
        wrong =
            "--link is for a pseudo-terminal and cannot be used with --device; remove one of them.";
        return std::nullopt;
    }
    if (!arguments.replay.empty() && !arguments.scenario.empty()) {
        wrong = "--replay has no car that --scenario could steer; leave one of them out.";
        return std::nullopt;
    }
    return arguments;
}

} // namespace sim
