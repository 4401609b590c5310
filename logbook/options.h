// Reads the arguments of a command: options with a value, and files. Errors are printed here.
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

// Stores "--name value" and "--name=value" in the options, and all other arguments in `files`.
// Returns false, after printing the error, for an option that is unknown, empty or without a value.
bool read_options(Words words, std::initializer_list<Option> options,
                  std::vector<std::string>& files);

// The tool's application folder: `named`, else that of this program, else the user's. Returns an
// empty path, after printing the error, if there is none.
std::filesystem::path tools_folder(const std::string& named);

} // namespace zol::logbook
