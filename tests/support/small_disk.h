// A disk of a few pages that only the test sees.
#pragma once

#include <cstddef>
#include <filesystem>
#include <functional>
#include <optional>
#include <string>

namespace zol::tests {

// Runs `body` in a process of its own, in which the folder `place` is an empty disk of so many
// bytes in memory; rounded up to whole pages of 4096. What fails in `body` fails the test. Before
// the program of the bench has been started: a fork takes along no thread but its own. Gives why
// it could not be done where the machine allows no such disk.
std::optional<std::string> on_small_disk(const std::filesystem::path& place, std::size_t bytes,
                                         const std::function<void()>& body);

// Takes all the room that is left on the disk of `folder`, in a file "filler" there.
void fill_disk(const std::filesystem::path& folder);

} // namespace zol::tests
