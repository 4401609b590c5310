// What happened in a run, in words and with times; and what should not have.
#pragma once

#include <cstdint>
#include <deque>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace zol::soak {

class Log {
  public:
    // `keep_all`: every line, else only the last ones.
    explicit Log(bool keep_all) : keep_all_(keep_all) {}
    // The clock that stands before each line.
    std::function<std::int64_t()> now_us = [] { return std::int64_t{0}; };

    void note(const std::string& what);
    // The same, and the run has failed. At most `most_findings` are kept.
    void find(const std::string& what);
    // Counts for the digest without a line of its own: what happens too often to be written down.
    void count(std::string_view what);

    const std::vector<std::string>& findings() const { return findings_; }
    const std::deque<std::string>& lines() const { return lines_; }
    // Two runs that did the same have the same one.
    std::uint64_t digest() const { return digest_; }

    static constexpr std::size_t most_findings = 20, most_lines = 120;

  private:
    bool keep_all_;
    std::deque<std::string> lines_;
    std::vector<std::string> findings_;
    std::uint64_t digest_ = 14695981039346656037u; // FNV-1a, as are the steps
};

} // namespace zol::soak
