// Recordings on the disk: <data folder>/<registration>/<date>-<n>.zlog.
#pragma once

#include "logbook/recording.h"

#include <filesystem>

namespace zol::logbook {

// Why the text cannot name a car's folder, and what is right; empty if it can.
std::string wrong_registration(std::string_view car);

// A recording that is being written. Lines are only ever added at its end, each with one call of
// the system, so that a kill at any moment leaves every line but the last whole.
class RecordingFile {
  public:
    RecordingFile() = default;
    RecordingFile(const RecordingFile&) = delete;
    RecordingFile& operator=(const RecordingFile&) = delete;
    ~RecordingFile() { close(); }

    // Makes the car's folder and in it the first free file of the date "2026-11-22". Never opens a
    // file that is there. An empty text, or why not and what to do.
    std::string create(const std::filesystem::path& data_folder, const std::string& car,
                       const std::string& date, const RecordingHeader& header);
    // Adds whole lines. An empty text, or why not: then nothing of them is in the file, which is
    // closed.
    std::string add(std::string_view lines);
    void close();

    bool is_open() const { return descriptor_ >= 0; }
    const std::filesystem::path& path() const { return path_; }

  private:
    int descriptor_ = -1;
    std::filesystem::path path_;
};

// Reads a whole file. What is wrong names the file, too.
ReadResult read_recording(const std::filesystem::path& file, RecordingHeader& header,
                          const std::function<void(const Event&)>& take);

} // namespace zol::logbook
