// The claim on a port number of an application folder: which process may make the link
// ports/com<n>, and which removes it after a kill.
//
// The note ports/.com<n>.logbook is locked while a logbook runs and contains the target of the link
// that the logbook made. A link with another target belongs to another program or the user and is
// never changed.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

namespace zol::logbook {

class PortClaim {
  public:
    PortClaim() = default;
    PortClaim(const PortClaim&) = delete;
    PortClaim& operator=(const PortClaim&) = delete;
    ~PortClaim();

    // Locks the note and removes the link of an earlier logbook. Fails if another logbook runs
    // there or if there is a link of another owner. Returns an empty text, or the reason and the
    // remedy.
    std::string take(const std::filesystem::path& application_folder, int port_number);
    // Makes the link. Returns an empty text, or the reason and the remedy.
    std::string make_link(const std::string& target);
    // Removes the link if it still is the one that was made here.
    void remove_link();
    // Removes the link, then the note. Only the last process with the claim may call this, because
    // a fork inherits the lock.
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

// Removes links and notes of killed logbooks in the folder, but not those of a running one. Returns
// the number of removed links; `held` gets a sentence for each port that could not be claimed.
int release_left_links(const std::filesystem::path& application_folder,
                       std::vector<std::string>& held);

} // namespace zol::logbook
