// Random language files: messages by number, texts of trouble codes, and the captions of windows.
// Holds that each text is one line of UTF-8.
#include "app/app_state.h"
#include "app/captions.h"
#include "app/message_catalogue.h"
#include "tests/fuzz/program.h"
#include "view/view.h"
#include "view/windows/form1.h"

#include <array>

namespace zol::fuzz {
namespace {

constexpr std::array message_numbers = {1134, 1058, 1240, 1252, 0, -1};
constexpr std::array<const char*, 4> trouble_codes = {"P0301", "P1", "", "NO ERROR"};

// The number of bytes of a UTF-8 character with this first byte.
std::size_t length_of(unsigned char lead) {
    if (lead < 0x80) return 1;
    if (lead >= 0xC2 && lead <= 0xDF) return 2;
    if (lead >= 0xE0 && lead <= 0xEF) return 3;
    if (lead >= 0xF0 && lead <= 0xF4) return 4;
    return 0;
}

bool can_be_shown(std::string_view text) {
    for (std::size_t i = 0; i < text.size();) {
        const std::size_t length = length_of(static_cast<unsigned char>(text[i]));
        if (length == 0 || i + length > text.size() || text[i] == '\n') return false;
        for (std::size_t k = 1; k < length; ++k)
            if (static_cast<unsigned char>(text[i + k]) >> 6 != 2) return false;
        i += length;
    }
    return true;
}

void require_a_line(const std::optional<std::string>& text) {
    if (text) require(can_be_shown(*text), "a text is one line of UTF-8");
}

// The same through a file, in few runs because it takes fifty times as long.
void by_file(bool codes, const std::string& code, int number, std::string_view content) {
    Program& program = Program::instance();
    app::state.current_language = "uk";
    program.write_file(codes ? "language/codici_eobd_uk.ini" : "language/Mivra_uk.ini", content);
    if (codes) {
        require(app::trouble_code_text(code) == app::trouble_code_in(content, code),
                "a trouble code has the text of the file");
        return;
    }
    require(app::message(number) == app::message_in(content, number),
            "a message has the text of the file");
    app::set_message(form1::Command303, number, "...");
    app::apply_panel_captions();
    app::apply_control_captions();
}

} // namespace

void run_input(Input input) {
    const bool rarely = input.one_in(64);
    const std::size_t choice = input.byte();
    const bool codes = choice & 1;
    const int number =
        choice & 2 ? input.word() : message_numbers[choice / 4 % message_numbers.size()];
    const std::string code =
        codes && choice & 2 ? input.text_piece() : trouble_codes[choice / 4 % trouble_codes.size()];
    const std::string_view content = input.text();
    Program::instance().run([&] {
        if (codes)
            require_a_line(app::trouble_code_in(content, code));
        else
            require_a_line(app::message_in(content, number));
        require(can_be_shown(view::text(form1::Text_note_error)), "a note is one line of UTF-8");
        if (rarely) by_file(codes, code, number, content);
    });
}

} // namespace zol::fuzz
