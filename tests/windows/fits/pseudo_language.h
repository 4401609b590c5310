// A pseudo-language whose messages and captions are as long as those of any translation.
#pragma once

#include <QString>

namespace zol::view {

// 2.2 times as long where it has up to 12 letters, else 1.4 times, with as many words as before.
QString stretched(const QString& text);

// The language files of the program in `folder`/language, and beside them the pseudo-language's,
// whose code is "xx", made from the longest text that each message has.
void write_language_files(const QString& folder);

} // namespace zol::view
