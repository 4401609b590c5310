// What a recording tells about the control unit up to a moment: its version, and the value of each
// parameter, from the last image and the writes after it.
#pragma once

#include "link/ecu_frames.h"

#include <map>
#include <optional>
#include <string>

namespace zol::logbook {

struct UnitVersion {
    int family = 0, version = 0, revision = 0;
    bool operator==(const UnitVersion&) const = default;
};

// Nothing if the reply is too short for it.
std::optional<UnitVersion> version_of(const link::Reply& reply);
std::string version_text(const std::optional<UnitVersion>& version); // "2.7.71" or "unknown"

using ParameterValues = std::map<int, int>; // by number

// The parameters that an image holds. Their places depend on the family; without it, only those
// that every family has in the same place.
ParameterValues values_of_image(const link::Reply& image, std::optional<int> family);

struct UnitState {
    std::optional<UnitVersion> version;
    ParameterValues values;
};

} // namespace zol::logbook
