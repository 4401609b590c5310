// The transcript of a run with times, and its findings.
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
    // `keep_all`: keeps every line, else only the last ones.
    explicit Log(bool keep_all) : keep_all_(keep_all) {}
    // The time before each line.
    std::function<std::int64_t()> now_us = [] { return std::int64_t{0}; };

    void note(const std::string& what);
    // The same for a broken rule: the run fails. Keeps at most `most_findings`.
    void find(const std::string& what);
    // Adds to the digest only.
    void count(std::string_view what);

    const std::vector<std::string>& findings() const { return findings_; }
    const std::deque<std::string>& lines() const { return lines_; }
    // Equal for equal runs.
    std::uint64_t digest() const { return digest_; }

    static constexpr std::size_t most_findings = 20, most_lines = 120;

  private:
    bool keep_all_;
    std::deque<std::string> lines_;
    std::vector<std::string> findings_;
    std::uint64_t digest_ = 14695981039346656037u; // FNV-1a
};

} // namespace zol::soak
