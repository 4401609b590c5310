// The expected parameter mirrors, from the frames that the program has sent and the images it has
// read.
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

    // A write by the top handler; `filling` while a handler below reads an image.
    void written(const Running& by, const Written& written, bool filling);
    // An image that the handler reads.
    void image_read(const Running& by, const link::Bytes& image, bool filling);
    // The handler has returned. Some set mirrors at their end, or without a frame.
    void ended(const Running& by, bool filling);
    // A difference in a parameter that no running handler may change, or empty.
    std::string wrong(const Handlers& handlers) const;

  private:
    std::map<int, double> expected_;
    // Other allowed values of mirrors that changed during the read of an image: it waits between
    // its parts, so an older word may be stored last.
    std::map<int, std::set<double>> older_;
};

} // namespace zol::soak
