// Every text that changes with the language: numbered messages in one plain file per language, and
// the texts of the EOBD trouble codes in another. No table in memory: each lookup reads its file
// from the first line, so a corrected file takes effect at once. A file of more than 4 mebibytes
// counts as one that cannot be read, and a text goes on for 2000 bytes at most.
#pragma once

#include "view/widget.h"

#include <optional>
#include <string>
#include <string_view>

namespace zol::app {

// The text behind the line "[key]" of "\language\Mivra_<language>.ini", not trimmed. A number that
// the file lacks gives a literal that says so, in Italian for every language; an empty file gives
// an empty text. Nothing if the file cannot be read or the header is its very last line.
std::optional<std::string> message(int key);
// The same in the content of such a file.
std::optional<std::string> message_in(std::string_view content, int key);

// Puts the message and `suffix` into the control's text, which keeps what it has if there is none.
void set_message(view::Widget& control, int key, const std::string& suffix = "");

// The short description of a trouble code, from the language's own file or, where that does not
// exist, the English one. Puts the long note into Text_note_error first. Empty if the code has no
// entry; nothing if there is no file to read.
std::optional<std::string> trouble_code_text(const std::string& code);
// The same in the content of such a file, the note included.
std::optional<std::string> trouble_code_in(std::string_view content, const std::string& code);

} // namespace zol::app
