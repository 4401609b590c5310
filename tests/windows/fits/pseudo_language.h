// A pseudo-language whose messages and captions are as long as those of any translation.
#pragma once

#include <QString>

namespace zol::view {

// Stretches the text to 2.2 times its length if it has up to 12 letters, else to 1.4 times, with as
// many words as before.
QString stretched(const QString& text);

// Copies the program's language files to `folder`/language and adds those of the pseudo-language,
// "xx", made from the longest text of each message.
void write_language_files(const QString& folder);

} // namespace zol::view
