#include "logbook/backup.h"

#include "app/whole_file.h"
#include "link/parameter_catalogue.h"
#include "logbook/decoder.h"
#include "logbook/recording_file.h"
#include "logbook/words.h"

#include <algorithm>
#include <charconv>
#include <utility>

namespace zol::logbook {
namespace {

namespace fs = std::filesystem;
namespace par = link::par;
using link::Command;

constexpr std::size_t largest_parameter_file = 65536;

Bytes bytes_of(const link::Reply& reply) {
    Bytes bytes;
    for (std::size_t position = 1; position <= reply.length(); ++position)
        bytes.push_back(static_cast<std::uint8_t>(*reply.byte(position)));
    return bytes;
}

// The request with its answer.
void add_exchange(std::vector<Event>& events, const Decoded& answer) {
    const auto command = static_cast<Command>(answer.request.command);
    events.push_back({answer.at_us, EventKind::request, link::command_frame(command), {}});
    const Bytes bytes = bytes_of(answer.reply);
    for (std::size_t from = 0; from < bytes.size(); from += most_event_bytes) {
        const auto end = std::min(from + most_event_bytes, bytes.size());
        events.push_back({answer.at_us,
                          EventKind::reply,
                          Bytes(bytes.begin() + static_cast<std::ptrdiff_t>(from),
                                bytes.begin() + static_cast<std::ptrdiff_t>(end)),
                          {}});
    }
}

// Takes "Par 3  = 1200  ..." apart.
std::optional<std::pair<int, int>> number_with_value(std::string_view line) {
    constexpr std::string_view begin = "Par ";
    if (!line.starts_with(begin)) return std::nullopt;
    const auto equals = line.find('=');
    if (equals == line.npos) return std::nullopt;
    const auto whole = [](std::string_view text) -> std::optional<int> {
        text = app::trim(text);
        int number = -1;
        const auto [stop, fault] = std::from_chars(text.data(), text.data() + text.size(), number);
        if (fault != std::errc{} || stop != text.data() + text.size() || number < 0 ||
            number > 65535)
            return std::nullopt;
        return number;
    };
    const std::string_view behind = app::trim(line.substr(equals + 1));
    const auto number = whole(line.substr(begin.size(), equals - begin.size()));
    const auto value = whole(behind.substr(0, behind.find(' ')));
    if (!number || !value) return std::nullopt;
    return std::pair{*number, *value};
}

// "a.zlog#2" in its parts; a file that has the whole name goes first.
std::pair<std::string, std::optional<std::size_t>> parts_of(const std::string& name) {
    std::error_code error;
    const auto mark = name.rfind('#');
    if (mark == name.npos || fs::exists(name, error)) return {name, std::nullopt};
    std::size_t image = 0;
    const char* const end = name.data() + name.size();
    const auto [stop, fault] = std::from_chars(name.data() + mark + 1, end, image);
    if (fault != std::errc{} || stop != end || image == 0) return {name, std::nullopt};
    return {name.substr(0, mark), image};
}

} // namespace

std::vector<Backup> images_of(const fs::path& recording, RecordingHeader& header,
                              std::string& wrong) {
    std::vector<Backup> images;
    std::optional<Decoded> version;
    bool more = false;
    Decoder decoder([&](const Decoded& decoded) {
        if (decoded.kind != Decoded::Kind::reply) return;
        const auto command = static_cast<Command>(decoded.request.command);
        if (command == Command::version) version = decoded;
        if (command != Command::read_image) return;
        more = images.size() >= most_images;
        if (more) return;
        Backup backup;
        backup.origin = recording.string() + "#" + std::to_string(images.size() + 1);
        backup.car = header.car;
        backup.started = header.started;
        backup.at_us = decoded.at_us;
        if (version) {
            backup.version = version_of(version->reply);
            add_exchange(backup.events, *version);
        }
        add_exchange(backup.events, decoded);
        const auto family = backup.version ? std::optional(backup.version->family) : std::nullopt;
        backup.values = values_of_image(decoded.reply, family);
        images.push_back(std::move(backup));
    });
    const ReadResult result =
        read_recording(recording, header, [&](const Event& event) { decoder.push(event); });
    decoder.finish();
    wrong = result.wrong;
    if (wrong.empty() && more)
        wrong = recording.string() + " has more than " + std::to_string(most_images) +
                " images, and the later ones were left out. zol-logbook backup makes a file of "
                "each of the first " +
                std::to_string(most_images) + ".";
    if (wrong.empty() && images.empty())
        wrong = recording.string() +
                ": no image passed in this recording. The tool reads one when it starts; record "
                "from before its start.";
    return images;
}

std::optional<ParameterValues> values_of_parameter_file(std::string_view text) {
    ParameterValues values;
    while (const auto line = app::take_line(text)) {
        const auto found = number_with_value(*line);
        if (!found) return std::nullopt;
        auto [number, value] = *found;
        // The last line repeats the number of the one before it.
        if (number == par::ktar_low_copy && values.count(number) != 0) number = par::fault_clearing;
        values[number] = value;
    }
    if (values.empty()) return std::nullopt;
    return values;
}

std::optional<Backup> read_backup(const std::string& name, std::string& wrong) {
    const auto [file, image] = parts_of(name);
    if (const auto text = app::read_file(file, largest_parameter_file)) {
        if (auto values = values_of_parameter_file(*text)) {
            Backup backup;
            backup.origin = file;
            backup.values = std::move(*values);
            return backup;
        }
    }
    RecordingHeader header;
    auto images = images_of(file, header, wrong);
    // The last image here need not be the last one that passed.
    if (!wrong.empty()) return std::nullopt;
    if (image && *image > images.size()) {
        wrong = file + " has " + std::to_string(images.size()) +
                " images; name one of them, as in " + file + "#1.";
        return std::nullopt;
    }
    return std::move(images[image.value_or(images.size()) - 1]);
}

std::string description(const Backup& backup) {
    if (backup.car.empty()) return "the tool's parameter file, in the layout of family 0";
    const std::string seconds(app::trim(time_text(backup.at_us)));
    return "car " + backup.car + ", unit " + version_text(backup.version) + ", read " + seconds +
           " s after " + backup.started;
}

} // namespace zol::logbook
