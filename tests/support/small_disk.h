// A disk of a few pages in memory, visible to one process of the test only.
#pragma once

#include <cstddef>
#include <filesystem>
#include <functional>
#include <optional>
#include <string>

namespace zol::tests {

// Runs `body` in another process, in which the folder `place` is an empty disk of this many bytes,
// rounded up to pages of 4096. A failure in `body` fails the test. Call it before the fixture has
// started its program, because a fork copies only the calling thread. Gives the reason if the
// machine allows no such disk.
std::optional<std::string> on_small_disk(const std::filesystem::path& place, std::size_t bytes,
                                         const std::function<void()>& body);

// Fills the disk of `folder` with a file "filler" there.
void fill_disk(const std::filesystem::path& folder);

} // namespace zol::tests
