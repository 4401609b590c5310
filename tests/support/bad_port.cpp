#include "tests/support/bad_port.h"

#include <utility>

namespace zol::tests {

void BadPort::FarEnd::receive(std::span<const std::uint8_t> bytes, std::int64_t) {
    faulty = !port_.write(bytes);
}

void BadPort::FarEnd::fetch(std::int64_t now_us) {
    const auto bytes = port_.read_all();
    faulty = !bytes;
    if (!bytes || bytes->empty()) return;
    here_.insert(here_.end(), bytes->begin(), bytes->end());
    here_at_us_ = now_us;
}

std::vector<std::uint8_t> BadPort::FarEnd::take(std::int64_t now_us) {
    if (now_us < here_at_us_) return {};
    return std::exchange(here_, {});
}

std::optional<std::int64_t> BadPort::FarEnd::next_byte_at_us() const {
    if (here_.empty()) return std::nullopt;
    return here_at_us_;
}

std::optional<std::string> BadPort::open() {
    if (options().denied) return "Permission denied";
    if (!plugged()) return "No such file or directory";
    return inner_.open();
}

void BadPort::close() {
    inner_.close();
    far_end_.clear();
    line_.take(now_us_());
    line_.clear(); // a closed port loses its unread bytes
}

bool BadPort::write(std::span<const std::uint8_t> bytes) {
    if (!plugged()) return false;
    line_.receive(bytes, now_us_());
    return !far_end_.faulty;
}

std::optional<link::Bytes> BadPort::read_all() {
    if (!plugged()) return std::nullopt;
    far_end_.fetch(now_us_());
    const bool faulty = far_end_.faulty;
    auto bytes = line_.take(now_us_());
    if (faulty) return std::nullopt;
    return bytes;
}

} // namespace zol::tests
