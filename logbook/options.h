// Reading the words behind a command: options with a value, and files.
#pragma once

#include "logbook/commands.h"

#include <filesystem>
#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

namespace zol::logbook {

struct Option {
    std::string_view name; // "--car"
    std::string* value;
};

// Puts "--name value" and "--name=value" into the options and everything else into `files`. False,
// with the sentence said, for an option that is unknown, empty or without a value.
bool read_options(Words words, std::initializer_list<Option> options,
                  std::vector<std::string>& files);

// The tool's application folder: the named one, else that of this program, else the user's own. An
// empty path, with the sentence said, where there is none.
std::filesystem::path tools_folder(const std::string& named);

} // namespace zol::logbook
