// The claim on a port number of an application folder: who may make the link ports/com<n>, and who
// removes it after a kill.
//
// A note beside the link, ports/.com<n>.logbook, is locked while a logbook runs and holds the
// target of the link that the logbook made. A link with another target belongs to somebody else and
// is never changed.
#pragma once

#include <filesystem>
#include <string>

namespace zol::logbook {

class PortClaim {
  public:
    PortClaim() = default;
    PortClaim(const PortClaim&) = delete;
    PortClaim& operator=(const PortClaim&) = delete;
    ~PortClaim();

    // Locks the note, and removes a link that an earlier logbook left behind. Fails if another
    // logbook runs there or if somebody else's link is in the place. An empty text, or why not and
    // what to do.
    std::string take(const std::filesystem::path& application_folder, int port_number);
    // Makes the link. An empty text, or why not and what to do.
    std::string make_link(const std::string& target);
    // Removes the link if it is still the one that was made.
    void remove_link();
    // Removes the link, then the note. For the last process that holds the claim: a fork inherits
    // the lock.
    void end();

    const std::filesystem::path& link() const { return link_; }

  private:
    bool lock();
    bool note_has_its_name() const;
    bool write_note(const std::string& target) const;
    std::string noted_target() const;
    std::string somebodys_link() const;

    int note_ = -1;
    std::filesystem::path link_, note_path_;
};

// Removes what killed logbooks left behind in the folder; a running one keeps its link. The number
// of links removed.
int release_left_links(const std::filesystem::path& application_folder);

} // namespace zol::logbook
