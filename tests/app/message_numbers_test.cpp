// The message numbers that the code asks for and those that the language files hold are the same.
#include <filesystem>
#include <fstream>
#include <gmock/gmock.h>
#include <iterator>
#include <regex>
#include <set>
#include <string>

namespace zol::tests {
namespace {

namespace fs = std::filesystem;
const fs::path sources = ZOL_SOURCE_DIR;

std::string text_of(const fs::path& file) {
    std::ifstream in(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
}

std::string without_comments(const std::string& code) {
    return std::regex_replace(code, std::regex("//[^\n]*"), "");
}

// A message number is four digits from 1035 to 1276, standing alone. Other numbers of the code in
// that stretch are listed here, so that a new one is looked at once.
std::set<int> numbers_in_code() {
    const std::set<int> no_messages = {1100, 1200};
    const std::regex number("(^|[^0-9A-Za-z_.])(1[0-2][0-9]{2})(?![0-9A-Za-z_.])");
    std::set<int> found;
    for (const char* room :
         {"app", "link", "monitor", "calibration", "diagnostics", "maintenance"}) {
        if (!fs::exists(sources / room)) continue;
        for (const auto& entry : fs::recursive_directory_iterator(sources / room)) {
            if (entry.path().extension() != ".cpp") continue;
            const std::string code = without_comments(text_of(entry.path()));
            for (std::sregex_iterator it(code.begin(), code.end(), number), end; it != end; ++it) {
                const int n = std::stoi((*it)[2]);
                if (n >= 1035 && n <= 1276 && !no_messages.contains(n)) found.insert(n);
            }
        }
    }
    return found;
}

std::set<int> numbers_in_file(const std::string& language) {
    const std::string content = text_of(sources / "language" / ("Mivra_" + language + ".ini"));
    const std::regex header("(^|\n)\\[([0-9]+)\\]");
    std::set<int> found;
    for (std::sregex_iterator it(content.begin(), content.end(), header), end; it != end; ++it)
        EXPECT_TRUE(found.insert(std::stoi((*it)[2])).second) << (*it)[2] << " twice";
    return found;
}

class MessageNumbers : public testing::TestWithParam<const char*> {};

TEST_P(MessageNumbers, OfTheCodeAreThoseOfTheFile) {
    EXPECT_THAT(numbers_in_file(GetParam()), testing::ContainerEq(numbers_in_code()));
}

INSTANTIATE_TEST_SUITE_P(Languages, MessageNumbers, testing::Values("it", "uk", "pl", "fr", "de"));

} // namespace
} // namespace zol::tests
