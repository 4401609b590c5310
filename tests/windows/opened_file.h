// Watches files and folders: has the program opened one since the last call?
#pragma once

#include <QString>

#include <stdexcept>
#include <sys/inotify.h>
#include <unistd.h>

namespace zol::view {

class OpenedFile {
  public:
    explicit OpenedFile(const QString& file) { add(file); }
    OpenedFile(const OpenedFile&) = delete;
    OpenedFile& operator=(const OpenedFile&) = delete;
    ~OpenedFile() { ::close(watch_); }
    // A file, or a folder for all files in it.
    void add(const QString& file) {
        if (::inotify_add_watch(watch_, file.toLocal8Bit(), IN_OPEN) < 0)
            throw std::runtime_error("no watch on " + file.toStdString());
    }
    bool was_opened() const {
        char notes[4096];
        return ::read(watch_, notes, sizeof notes) > 0;
    }

  private:
    const int watch_ = ::inotify_init1(IN_NONBLOCK | IN_CLOEXEC);
};

} // namespace zol::view
