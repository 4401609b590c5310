#include "link/image_layout.h"

namespace zol::link {

void take_words(const Reply& image, WordGroup group, Layout layout) {
    for (const Parameter& each : parameter_catalogue)
        if (each.group == group) take_word(image, each, layout);
}

// A reply has no position 0, so a parameter without a position leaves its mirror unchanged.
void take_word(const Reply& image, const Parameter& word, Layout layout) {
    take(image.word(word.positions.*layout), mirrors.*word.mirror);
}

} // namespace zol::link
