// Texts that explain each control in the operator's language: an accessible name, a tip, and the
// parameters that the control writes or shows. Also the few captions and words that have no message
// number.
//
// The texts are in "\language\tips_<language>.ini", one section for each window and one line for
// each control: "names = accessible name | text", or "names = text" if the caption is the name. The
// first of the names is the control; further names, separated by commas, are those of its captions
// and units, which share the text but keep their own captions. An element of a control array uses
// the line of its own name, else that of the array; "{n}" in the text is replaced by its number,
// counted from 1. A text is cut after 2000 bytes. The section "keys" lists the keys of the main
// window in the order of their legend: "key = cap | what it does". The section "boxes" has the
// texts of the toolkit's own boxes, by their English.
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
    // The views point into `content`, so that many controls can share a text.
    struct Entry {
        std::string_view name, text;
        std::string_view owner; // the control whose parameters are listed after the text
    };
    using Section = std::map<std::string_view, Entry>; // by control
    struct Key {
        std::string_view cap, does;
    };
    struct Texts {
        std::string content;
        std::map<std::string_view, Section> windows;
        std::vector<Key> keys; // of the main window, in the order of its legend
        std::map<std::string_view, std::string_view> captions, words, boxes;
    };
    Texts texts;                                                // of the present language
    std::map<const view::Widget*, std::vector<int>> parameters; // see note_parameters
};
inline HelperTextsState helper_texts_state;

// Notes the parameters that the control writes or shows; its tip lists them. Call this where the
// control's handler is connected.
void note_parameters(const view::Widget& control, std::initializer_list<int> numbers);
// The noted parameters, in the order in which they were noted.
std::span<const int> parameters_of(const view::Widget& control);

// Gives every control of every window its texts in the present language. If that language's file
// cannot be read, the English one is used. A control without a line has no text.
void apply_helper_texts();

// The caption of a control that has no message number: the line "window.control = caption" in the
// section "captions" of the same file. Nothing if there is no such line.
std::optional<std::string> own_caption(const view::Widget& control);

// A word from the section "words" of the same file, for texts that are composed at run time. If
// there is none, the key itself.
std::string helper_word(const std::string& key);

} // namespace zol::app
