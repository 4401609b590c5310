// What each control says of itself: a name to be spoken, a line on what it does with its unit, and
// the parameters of the control unit behind it. In the operator's language. With them come the few
// captions that have no message number (app/captions.h shows them).
//
// The texts stand in "\language\tips_<language>.ini", one section for each window, one line for
// each control: "names = spoken name | text", or "names = text" where the caption is the name.
// Further names behind a comma are those of its captions and units, which share the text and keep
// their own words. An element of an array goes by its own name, else by the array's, with its
// number from 1 in the place of "{n}". A text goes on for 2000 bytes at most.
#pragma once

#include "view/widget.h"

#include <initializer_list>
#include <map>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace zol::app {

struct HelperTextsState {
    // All of these are parts of the file's content: many controls may share a text.
    struct Entry {
        std::string_view name, text;
        std::string_view owner; // the control whose parameters the text names
    };
    using Section = std::map<std::string_view, Entry>; // by control
    struct Texts {
        std::string content;
        std::map<std::string_view, Section> windows;
        std::map<std::string_view, std::string_view> captions, words;
    };
    Texts texts;                                                // of the language's file
    std::map<const view::Widget*, std::vector<int>> parameters; // as noted
};
inline HelperTextsState helper_texts_state;

// Said where a control's handler is tied: the parameters that the control writes or shows. Its text
// names them.
void note_parameters(const view::Widget& control, std::initializer_list<int> numbers);
// In the order in which they were noted.
std::span<const int> parameters_of(const view::Widget& control);

// Gives every control of every window its texts in the present language, from that language's file
// or, where it cannot be read, the English one. A control that the file lacks has none.
void apply_helper_texts();

// The caption of a control that takes no numbered message: the line "window.control = caption" of
// the section "captions" of the same file. Nothing where there is none.
std::optional<std::string> own_caption(const view::Widget& control);

// A word of the section "words" of the same file, for texts that are put together at run time. The
// key itself where there is none.
std::string helper_word(const std::string& key);

} // namespace zol::app
