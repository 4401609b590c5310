// The commands of zol-logbook. Each takes the arguments after its name, writes its result to
// standard output and errors to standard error, and returns the exit status.
#pragma once

#include <span>
#include <string>

namespace zol::logbook {

using Words = std::span<const char* const>;

// The exit statuses: 0 for success, 1 for an error, 2 for wrong arguments.
inline constexpr int done = 0, failed = 1, wrong_words = 2;

int check_command(Words words);
int show_command(Words words);
int csv_command(Words words);
int compare_command(Words words);
int backup_command(Words words);
int record_command(Words words);
int release_command(Words words);

// Runs the command that the first argument names. The program's own name is not among the
// arguments.
int run_logbook(Words words);

// Prints one sentence to standard error, after the name of the program.
void complain(const std::string& text);

} // namespace zol::logbook
