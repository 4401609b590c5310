#include "logbook/recording_file.h"

#include "app/whole_file.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>

namespace zol::logbook {
namespace {

namespace fs = std::filesystem;

constexpr int most_a_day = 9999;

} // namespace

std::string wrong_registration(std::string_view car) {
    constexpr std::size_t longest = 40;
    const bool allowed = car.find('/') == car.npos && !has_control_character(car) &&
                         app::trim(car) == car && app::as_utf8(car) == car;
    if (!car.empty() && car.size() <= longest && car[0] != '.' && allowed) return {};
    return "A registration names the car's folder: 1 to " + std::to_string(longest) +
           " bytes of text with no slash, no blank at either end, not beginning with a point, such "
           "as AB-123-CD.";
}

std::string RecordingFile::create(const fs::path& data_folder, const std::string& car,
                                  const std::string& date, const RecordingHeader& header) {
    close();
    const fs::path folder = data_folder / car;
    std::error_code error;
    fs::create_directories(folder, error);
    if (error)
        return "The folder " + folder.string() + " cannot be made: " + error.message() +
               "; name a folder that you may write to with --data.";
    for (int number = 1; number <= most_a_day && descriptor_ < 0; ++number) {
        path_ = folder / (date + "-" + std::to_string(number) + ".zlog");
        descriptor_ =
            ::open(path_.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_APPEND | O_CLOEXEC, 0644);
        if (descriptor_ < 0 && errno != EEXIST) break;
    }
    if (descriptor_ < 0)
        return path_.string() + " cannot be made: " + std::strerror(errno) +
               "; name a folder that you may write to with --data.";
    std::string wrong = add(header_text(header));
    if (!wrong.empty()) fs::remove(path_, error); // empty, and in the way of the next recording
    return wrong;
}

std::string RecordingFile::add(std::string_view lines) {
    if (!is_open()) return path_.string() + " is closed.";
    struct stat before {};
    const bool known = ::fstat(descriptor_, &before) == 0;
    while (!lines.empty()) {
        const ssize_t written = ::write(descriptor_, lines.data(), lines.size());
        if (written < 0 && errno == EINTR) continue;
        if (written <= 0) {
            const int why = written < 0 ? errno : ENOSPC;
            // A piece that fitted would make the file end in the middle of a line.
            if (known && ::ftruncate(descriptor_, before.st_size) != 0) errno = why;
            close();
            return path_.string() + " cannot be written: " + std::strerror(why) +
                   (why == ENOSPC ? "; make room on the disk." : ".");
        }
        lines.remove_prefix(static_cast<std::size_t>(written));
    }
    return {};
}

void RecordingFile::close() {
    if (descriptor_ >= 0) ::close(descriptor_);
    descriptor_ = -1;
}

ReadResult read_recording(const fs::path& file, RecordingHeader& header,
                          const std::function<void(const Event&)>& take) {
    const auto text = app::read_file(file, largest_recording);
    if (!text) {
        ReadResult result;
        result.wrong =
            file.string() +
            " cannot be read. Name a recording that is there, that you may read and that "
            "has at most " +
            std::to_string(largest_recording >> 20) + " MiB.";
        return result;
    }
    ReadResult result = read_recording_text(*text, header, take);
    if (!result.wrong.empty()) result.wrong = file.string() + ": " + result.wrong;
    return result;
}

} // namespace zol::logbook
