// What the mirrors should hold, worked out beside the program from what left it and what it read.
#pragma once

#include "link/serial_port.h"
#include "tests/soak/handlers.h"

#include <map>
#include <set>
#include <string>

namespace zol::soak {

class ExpectedMirrors {
  public:
    ExpectedMirrors();

    // A write by the handler on top; `filling` while an image is being taken further down.
    void written(const Running& by, const Written& written, bool filling);
    // A reply that the handler takes as the unit's image; `filling` as above.
    void image_read(const Running& by, const link::Bytes& image, bool filling);
    // The handler has returned: some set their mirrors only now, or with no frame at all.
    void ended(const Running& by, bool filling);
    // What differs, for the parameters that no running handler is about to change.
    std::string wrong(const Handlers& handlers) const;

  private:
    std::map<int, double> expected_;
    // What a mirror may hold instead because an image was being taken when it changed: the fill
    // waits in its middle, so that an older word may come last.
    std::map<int, std::set<double>> older_;
};

} // namespace zol::soak
