// What the mirrors should hold, worked out beside the program from what left it and what it read.
#pragma once

#include "link/serial_port.h"
#include "tests/soak/handlers.h"

#include <map>
#include <string>

namespace zol::soak {

class ExpectedMirrors {
  public:
    ExpectedMirrors();

    // A write by the handler on top.
    void written(const Running& by, const Written& written);
    // A reply that the handler takes as the unit's image.
    void image_read(const Running& by, const link::Bytes& image);
    // The handler has returned: some set their mirrors only now, or with no frame at all.
    void ended(const Running& by);
    // What differs, for the parameters that no running handler is about to change.
    std::string wrong(const Handlers& handlers) const;

  private:
    std::map<int, double> expected_;
};

} // namespace zol::soak
