#include "app/message_catalogue.h"

#include "app/app_state.h"
#include "app/application_folder.h"
#include "app/whole_file.h"
#include "view/view.h"
#include "view/windows/form1.h"

#include <algorithm>

namespace zol::app {
namespace {

// The lines of a language file, one at a time.
class Lines {
  public:
    explicit Lines(std::string_view content) : rest_(content) {
        if (rest_.starts_with("\xEF\xBB\xBF")) rest_.remove_prefix(3); // a byte-order mark
    }

    std::optional<std::string_view> next() {
        if (rest_.empty()) return std::nullopt;
        const auto end = std::min(rest_.find('\n'), rest_.size());
        std::string_view line = rest_.substr(0, end);
        rest_.remove_prefix(std::min(end + 1, rest_.size()));
        if (line.ends_with('\r')) line.remove_suffix(1);
        return line;
    }

  private:
    std::string_view rest_;
};

constexpr const char* missing_message = "manca codice messaggio relativo file INI";

} // namespace

std::optional<std::string> message_in(std::string_view content, int key) {
    Lines lines(content);
    const std::string header = "[" + std::to_string(key) + "]";
    bool found = true; // so that an empty file gives an empty text
    while (const auto line = lines.next()) {
        found = false;
        if (trim(*line) != header) continue;
        const auto text = lines.next();
        if (!text) return std::nullopt;
        return as_utf8(shortened(*text));
    }
    return found ? "" : missing_message;
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
    Lines lines(content);
    const std::string header = "[" + code + "]";
    while (const auto line = lines.next()) {
        if (trim(*line) != header) continue;
        const auto description = lines.next();
        if (!description) return std::nullopt;
        if (const auto note = lines.next())
            view::set_text(form1::Text_note_error, as_utf8(shortened(trim(*note))));
        return as_utf8(shortened(trim(*description)));
    }
    return "";
}

std::optional<std::string> trouble_code_text(const std::string& code) {
    std::error_code error;
    auto file = application_file("\\language\\codici_eobd_" + state.current_language + ".ini");
    if (!std::filesystem::is_regular_file(file, error))
        file = application_file("\\language\\codici_eobd_uk.ini");
    const auto content = read_file(file);
    if (!content) return std::nullopt;
    return trouble_code_in(*content, code);
}

} // namespace zol::app
