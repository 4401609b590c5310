#include "simulator/wire_log.h"

#include "simulator/text.h"

namespace sim {
namespace {

const char* command_name(int command) {
    switch (command) {
    case 1: return "image";
    case 2: return "write";
    case 3: return "status";
    case 4: return "go to petrol";
    case 5: return "factory reset";
    case 6: return "presence";
    case 7: return "version";
    case 15: return "faults";
    case 16: return "live data";
    case 20: return "terminal";
    case 21: return "download";
    case 22: return "go to gas";
    default: return nullptr;
    }
}

// Positions count from 1.
int byte_at(std::span<const std::uint8_t> bytes, std::size_t position) {
    return bytes[position - 1];
}
int word_at(std::span<const std::uint8_t> bytes, std::size_t position) {
    return byte_at(bytes, position) * 256 + byte_at(bytes, position + 1);
}

std::string fields(std::span<const std::uint8_t> bytes) {
    if (bytes[4] == 3 && bytes.size() >= 27)
        return text(" rpm %d tinj %d press %d lambda %d ktar %d temp %d stage %d tank %d fuel %d",
                    word_at(bytes, 6), word_at(bytes, 8), word_at(bytes, 10), word_at(bytes, 12),
                    word_at(bytes, 14), word_at(bytes, 20), word_at(bytes, 22), word_at(bytes, 24),
                    word_at(bytes, 26)) +
               (bytes.size() >= 29 ? text(" batt %d", word_at(bytes, 28)) : "");
    if (bytes[4] == 7 && bytes.size() == 11)
        return text(" %d.%d.%d", word_at(bytes, 6), word_at(bytes, 8), word_at(bytes, 10));
    if (bytes[4] == 15 && bytes.size() == 19) {
        std::string all;
        for (std::size_t position = 6; position < 18; position += 2)
            all += text(" %d", byte_at(bytes, position) * 100 + byte_at(bytes, position + 1));
        return all + text(" count %d", word_at(bytes, 18));
    }
    if (bytes[4] == 16 && bytes.size() == 12)
        return text(" loop %d fast %d long %d load %d lambda %d", byte_at(bytes, 6),
                    byte_at(bytes, 7), byte_at(bytes, 8), word_at(bytes, 9), word_at(bytes, 11));
    return {};
}

} // namespace

std::string describe_request(const Frame& frame) {
    if (frame.command == 2) return text("write PAR_%d = %d", frame.number, frame.value);
    if (const char* name = command_name(frame.command)) return name;
    return text("command %d", frame.command);
}

std::string describe_answer(std::span<const std::uint8_t> bytes) {
    std::string line = text("%zu bytes", bytes.size());
    const bool headed = bytes.size() >= 5 && bytes[0] == 'P' && bytes[1] == 'C';
    if (headed && command_name(bytes[4])) line = command_name(bytes[4]) + fields(bytes);
    line += " :";
    constexpr std::size_t most_shown = 32;
    for (std::size_t i = 0; i < bytes.size() && i < most_shown; ++i)
        line += text(" %02x", bytes[i]);
    if (bytes.size() > most_shown) line += text(" ... %zu in all", bytes.size());
    return line;
}

std::string log_line(double seconds, std::string_view who, std::string_view what) {
    return text("%10.3f  ", seconds) + std::string(who) + "  " + std::string(what);
}

} // namespace sim
