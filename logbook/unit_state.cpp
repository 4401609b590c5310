#include "logbook/unit_state.h"

#include "link/image_layout.h"

namespace zol::logbook {
namespace {

// 0 where the layout has no such word, or none is known.
std::size_t position_of(const link::Parameter& parameter, std::optional<int> family) {
    const link::Positions& at = parameter.positions;
    if (!family) return at.eobd == at.family_1 && at.eobd == at.families_2_to_4 ? at.eobd : 0;
    if (*family == 1) return at.family_1;
    return *family >= 2 && *family <= 4 ? at.families_2_to_4 : at.eobd;
}

} // namespace

std::optional<UnitVersion> version_of(const link::Reply& reply) {
    const auto family = reply.byte(7), version = reply.byte(9), revision = reply.byte(11);
    if (!family || !version || !revision) return std::nullopt;
    return UnitVersion{*family, *version, *revision};
}

std::string version_text(const std::optional<UnitVersion>& version) {
    if (!version) return "unknown";
    return std::to_string(version->family) + "." + std::to_string(version->version) + "." +
           std::to_string(version->revision);
}

ParameterValues values_of_image(const link::Reply& image, std::optional<int> family) {
    ParameterValues values;
    for (const link::Parameter& parameter : link::parameter_catalogue)
        if (const auto word = image.word(position_of(parameter, family)))
            values[parameter.number] = *word;
    return values;
}

} // namespace zol::logbook
