// What a recording shows about the control unit up to a moment: its version, and the value of each
// parameter, from the last image and the later writes.
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

// Nothing if the reply is too short.
std::optional<UnitVersion> version_of(const link::Reply& reply);
std::string version_text(const std::optional<UnitVersion>& version); // "2.7.71" or "unknown"

using ParameterValues = std::map<int, int>; // by number

// The parameters in an image. Their positions depend on the family; without it, only those with the
// same position in every family.
ParameterValues values_of_image(const link::Reply& image, std::optional<int> family);

struct UnitState {
    std::optional<UnitVersion> version;
    ParameterValues values;
};

} // namespace zol::logbook
