// Backups of a unit's parameters: the images in a recording, and the tool's parameter file. This
// only reads files.
#pragma once

#include "logbook/recording.h"
#include "logbook/unit_state.h"

#include <filesystem>
#include <string>
#include <vector>

namespace zol::logbook {

inline constexpr std::size_t most_images = 1000;

struct Backup {
    std::string origin; // file and number of the image: "a.zlog#2"
    std::string car;    // empty for a parameter file, as are the next two
    std::string started;
    std::int64_t at_us = 0; // since `started`
    std::optional<UnitVersion> version;
    ParameterValues values;
    std::vector<Event> events; // the events of a recording of only this image
};

// All images of a recording, oldest first. Empty, with a sentence in `wrong`, if the recording
// cannot be read or has no image. A damaged line ends the reading: the images before it are
// returned, with a sentence in `wrong`. So are the first `most_images` of a recording with more.
std::vector<Backup> images_of(const std::filesystem::path& recording, RecordingHeader& header,
                              std::string& wrong);

// The values in the text of the parameter file that the tool writes, "log/setting.txt". Nothing if
// the text is not such a file.
std::optional<ParameterValues> values_of_parameter_file(std::string_view text);

// Reads a backup by name: "a.zlog#2" is the second image of a.zlog, "a.zlog" its last one, any
// other name a parameter file. Nothing, with a sentence in `wrong`, if there is none
// or if the recording is damaged or has more than `most_images`.
std::optional<Backup> read_backup(const std::string& name, std::string& wrong);

// "car AB-123, unit 2.7.71, read 1.9 s after 2026-11-22T14:10:05+01:00"
std::string description(const Backup& backup);

} // namespace zol::logbook
