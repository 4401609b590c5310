#include "app/message_catalogue.h"

#include "app/app_state.h"
#include "app/application_folder.h"
#include "app/whole_file.h"
#include "view/view.h"
#include "view/windows/form1.h"

namespace zol::app {
namespace {

// The text after the first line that holds nothing but the header; nothing if there is none. A
// window looks up dozens of headers when it loads, so the search skips to the lines that contain
// the header.
std::optional<std::string_view> after_header(std::string_view content, std::string_view header) {
    auto at = content.find(header);
    while (at != std::string_view::npos) {
        std::string_view rest = content.substr(content.rfind('\n', at) + 1);
        if (trim(*take_line(rest)) == header) return rest;
        at = content.find(header, content.size() - rest.size());
    }
    return std::nullopt;
}

constexpr const char* missing_message = "manca codice messaggio relativo file INI";

} // namespace

std::optional<std::string> message_in(std::string_view content, int key) {
    content = without_mark(content);
    if (content.empty()) return "";
    auto rest = after_header(content, "[" + std::to_string(key) + "]");
    if (!rest) return missing_message;
    const auto text = take_line(*rest);
    if (!text) return std::nullopt;
    return as_utf8(shortened(*text));
}

std::optional<std::string> message(int key) {
    const auto content =
        read_file(application_file("\\language\\Mivra_" + state.current_language + ".ini"));
    if (!content) return std::nullopt;
    return message_in(*content, key);
}

void set_message(view::Widget& control, int key, const std::string& suffix) {
    if (const auto text = message(key)) view::set_text(control, *text + suffix);
}

std::optional<std::string> trouble_code_in(std::string_view content, const std::string& code) {
    auto rest = after_header(without_mark(content), "[" + code + "]");
    if (!rest) return "";
    const auto description = take_line(*rest);
    if (!description) return std::nullopt;
    if (const auto note = take_line(*rest))
        view::set_text(form1::Text_note_error, as_utf8(shortened(trim(*note))));
    return as_utf8(shortened(trim(*description)));
}

namespace {

std::optional<std::string> trouble_code_file() {
    std::error_code error;
    auto file = application_file("\\language\\codici_eobd_" + state.current_language + ".ini");
    if (!std::filesystem::is_regular_file(file, error))
        file = application_file("\\language\\codici_eobd_uk.ini");
    return read_file(file);
}

} // namespace

std::optional<std::string> trouble_code_text(const std::string& code) {
    const auto content = trouble_code_file();
    if (!content) return std::nullopt;
    return trouble_code_in(*content, code);
}

std::string trouble_code_note(const std::string& code) {
    const auto content = trouble_code_file();
    if (!content) return "";
    auto rest = after_header(without_mark(*content), "[" + code + "]");
    if (!rest || !take_line(*rest)) return ""; // the description
    const auto note = take_line(*rest);
    return note ? as_utf8(shortened(trim(*note))) : "";
}

} // namespace zol::app
