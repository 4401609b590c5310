// The commands of zol-logbook: each takes the words after its name and returns the exit status. It
// writes its result to standard output, and what is wrong to standard error.
#pragma once

#include <span>
#include <string>

namespace zol::logbook {

using Words = std::span<const char* const>;

// 0 when it was done, 1 when it could not be done, 2 for wrong words.
inline constexpr int done = 0, failed = 1, wrong_words = 2;

int check_command(Words words);
int show_command(Words words);
int csv_command(Words words);
int compare_command(Words words);
int backup_command(Words words);
int record_command(Words words);
int release_command(Words words);

// All of main, without the program's own name.
int run_logbook(Words words);

// One sentence on standard error; the program's name goes before it.
void complain(const std::string& text);

} // namespace zol::logbook
