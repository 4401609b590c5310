// The unit's terminal and download modes: a plain text terminal, and the memory as text.
#include "simulator/control_unit.h"
#include "simulator/words.h"

#include <utility>

namespace sim {
namespace {

constexpr std::size_t longest_line = 80;
constexpr std::string_view prompt = "\r\n> ";

std::string memory_text(const Memory& memory) {
    std::string all = "\r\nMEMORY\r\n";
    for (int number = 0; number < Memory::size; ++number)
        all += "PAR_" + std::to_string(number) + " = " + std::to_string(memory[number]) + "\r\n";
    return all + "END\r\n";
}

} // namespace

void ControlUnit::hand_over(Mode mode, std::int64_t now_us) {
    mode_ = mode;
    terminal_line_.clear();
    if (mode == Mode::terminal) {
        send_text("\r\nTERMINAL, type help" + std::string(prompt), now_us);
    } else {
        send_text(memory_text(memory_), now_us);
    }
}

void ControlUnit::send_text(std::string_view text, std::int64_t now_us) {
    if (quirks_.silence || text.empty()) return;
    transmitter_.send(Bytes(text.begin(), text.end()), now_us + wire_time_us(1));
}

void ControlUnit::download_byte(std::int64_t now_us) {
    if (!transmitter_.next_byte_at_us()) send_text(memory_text(memory_), now_us);
}

std::string ControlUnit::terminal_byte(std::uint8_t byte, std::int64_t now_us) {
    if (byte >= ' ' && byte < 127) {
        if (terminal_line_.size() >= longest_line) return {};
        terminal_line_ += static_cast<char>(byte);
        return {static_cast<char>(byte)};
    }
    if (byte != '\r' && byte != '\n') return {};
    const std::string line = std::exchange(terminal_line_, {});
    if (line == "restart") {
        restart(now_us);
        return {};
    }
    const std::string shown = terminal_answer(line);
    return (shown.empty() ? shown : "\r\n" + shown) + std::string(prompt);
}

std::string ControlUnit::terminal_answer(std::string_view line) {
    const auto words = split_words(line);
    if (words.empty()) return {};
    const auto number = words.size() > 1 ? number_in(words[1], 0, Memory::size - 1) : std::nullopt;
    const auto value = words.size() > 2 ? number_in(words[2], 0, 65535) : std::nullopt;
    std::string shown = "? type help";
    if (words[0] == "help") shown = "par N, par N VALUE, memory, status, faults, restart";
    if (words[0] == "memory") shown = memory_text(memory_);
    if (words[0] == "status")
        shown = "rpm " + std::to_string(rpm()) + " temp " +
                std::to_string(static_cast<int>(engine_.coolant_c)) + " fuel " +
                std::string(fuel_name(gas_.fuel));
    if (words[0] == "faults") {
        shown = std::to_string(memory_[par::fault_count]) + " stored:";
        for (int slot = 1; slot <= 6; ++slot)
            shown += " " + std::to_string(stored_fault(memory_, slot));
    }
    if (words[0] == "par" && number) {
        if (value) write(*number, static_cast<std::uint16_t>(*value));
        shown = "PAR_" + std::to_string(*number) + " = " + std::to_string(memory_[*number]);
    }
    return shown;
}

} // namespace sim
