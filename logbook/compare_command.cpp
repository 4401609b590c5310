// zol-logbook compare and zol-logbook backup.
#include "logbook/backup.h"
#include "logbook/commands.h"
#include "logbook/options.h"
#include "logbook/parameter_groups.h"
#include "logbook/recording_file.h"
#include "logbook/words.h"

#include <cstdio>
#include <system_error>

namespace zol::logbook {
namespace {

namespace fs = std::filesystem;

struct Difference {
    int number, first, second;
};

struct Comparison {
    std::vector<Difference> differences; // by number
    std::size_t in_both = 0, only_first = 0, only_second = 0;
};

Comparison compare(const ParameterValues& first, const ParameterValues& second) {
    Comparison result;
    for (const auto& [number, value] : first) {
        const auto other = second.find(number);
        if (other == second.end()) {
            ++result.only_first;
            continue;
        }
        ++result.in_both;
        if (other->second != value) result.differences.push_back({number, value, other->second});
    }
    result.only_second = second.size() - result.in_both;
    return result;
}

void show_difference(const Difference& one) {
    std::printf("  %-8s %-48s %6d %6d  %+6d  %s\n", ("PAR_" + std::to_string(one.number)).c_str(),
                parameter_name(one.number).c_str(), one.first, one.second, one.second - one.first,
                parameter_unit(one.number).c_str());
}

void show_comparison(const Comparison& result) {
    const auto groups = parameter_groups();
    for (std::size_t group = 0; group < groups.size(); ++group) {
        bool begun = false;
        for (const Difference& one : result.differences) {
            if (group_of(one.number) != group) continue;
            if (!begun)
                std::printf("\n%-61s%4s%7s%8s  unit\n", std::string(groups[group]).c_str(), "A",
                            "B", "B - A");
            begun = true;
            show_difference(one);
        }
    }
    std::printf("\n%zu of %zu parameters differ; %zu more are in A only, %zu in B only.\n",
                result.differences.size(), result.in_both, result.only_first, result.only_second);
}

// A recording of its own, which any command takes. Never an existing file.
bool write_backup(const Backup& backup, const RecordingHeader& header, const fs::path& file) {
    std::string text = header_text(header);
    for (const Event& event : backup.events)
        text += event_line(event);
    text += event_line({backup.at_us, EventKind::note, {}, "end"});
    std::FILE* const out = std::fopen(file.c_str(), "wx");
    if (!out) return false;
    const bool whole = std::fwrite(text.data(), 1, text.size(), out) == text.size();
    if (std::fclose(out) == 0 && whole) return true;
    std::error_code ignored;
    fs::remove(file, ignored);
    return false;
}

} // namespace

int compare_command(Words words) {
    std::vector<std::string> names;
    if (!read_options(words, {}, names)) return wrong_words;
    if (names.size() != 2) {
        complain("compare takes two files, as in: zol-logbook compare before.zlog after.zlog");
        return wrong_words;
    }
    std::string wrong;
    const auto first = read_backup(names[0], wrong);
    const auto second = first ? read_backup(names[1], wrong) : std::nullopt;
    if (!first || !second) {
        complain(wrong);
        return failed;
    }
    std::printf("A  %s\n   %s\nB  %s\n   %s\n", first->origin.c_str(), description(*first).c_str(),
                second->origin.c_str(), description(*second).c_str());
    show_comparison(compare(first->values, second->values));
    return done;
}

int backup_command(Words words) {
    std::string to;
    std::vector<std::string> names;
    if (!read_options(words, {{"--to", &to}}, names)) return wrong_words;
    if (names.size() != 1) {
        complain("backup takes one recording, as in: zol-logbook backup 2026-11-22-1.zlog");
        return wrong_words;
    }
    const fs::path recording = names[0];
    RecordingHeader header;
    std::string wrong;
    const auto images = images_of(recording, header, wrong);
    for (std::size_t i = 0; i < images.size(); ++i) {
        const fs::path folder = to.empty() ? recording.parent_path() : fs::path(to);
        const fs::path file =
            folder / (recording.stem().string() + "-image-" + std::to_string(i + 1) + ".zlog");
        if (!write_backup(images[i], header, file)) {
            complain(file.string() + " cannot be made. It may be there already; move it away, or "
                                     "name a folder that you may write to with --to.");
            return failed;
        }
        std::printf("%s: %s\n", file.c_str(), description(images[i]).c_str());
    }
    if (!wrong.empty()) complain(wrong);
    return wrong.empty() ? done : failed;
}

} // namespace zol::logbook
