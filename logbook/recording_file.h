// Recordings on the disk: <data folder>/<registration>/<date>-<n>.zlog. recording.h has the format.
#pragma once

#include "logbook/recording.h"

#include <filesystem>

namespace zol::logbook {

// Why this registration cannot be the name of a folder, and what is allowed; empty if it can.
std::string wrong_registration(std::string_view car);

// A recording that is being written. Lines are only appended, each with one system call, so a kill
// at any moment damages at most the last line.
class RecordingFile {
  public:
    RecordingFile() = default;
    RecordingFile(const RecordingFile&) = delete;
    RecordingFile& operator=(const RecordingFile&) = delete;
    ~RecordingFile() { close(); }

    // Creates the car's folder and in it the first file of the date ("2026-11-22") that does not
    // exist yet. Never opens an existing file. Returns an empty text, or the reason and the remedy;
    // then there is no new file.
    std::string create(const std::filesystem::path& data_folder, const std::string& car,
                       const std::string& date, const RecordingHeader& header);
    // Appends whole lines. Returns an empty text, or the error; then none of them is in the file,
    // and the file is closed.
    std::string add(std::string_view lines);
    void close();

    bool is_open() const { return descriptor_ >= 0; }
    const std::filesystem::path& path() const { return path_; }

  private:
    int descriptor_ = -1;
    std::filesystem::path path_;
};

// Reads a whole file. An error names the file, too.
ReadResult read_recording(const std::filesystem::path& file, RecordingHeader& header,
                          const std::function<void(const Event&)>& take);

} // namespace zol::logbook
