// The message numbers that the code asks for and those that the language files hold are the same.
#include <filesystem>
#include <fstream>
#include <gmock/gmock.h>
#include <iterator>
#include <map>
#include <regex>
#include <set>
#include <string>
#include <vector>

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

// By the name in the catalogue of messages.
std::map<std::string, int> numbers_by_name() {
    const std::string code = without_comments(text_of(sources / "app/message_catalogue.h"));
    const std::regex row("constexpr int (\\w+) = (\\d+);");
    std::map<std::string, int> found;
    for (std::sregex_iterator it(code.begin(), code.end(), row), end; it != end; ++it)
        found[(*it)[1]] = std::stoi((*it)[2]);
    return found;
}

// The logic and the windows, without the catalogue.
std::vector<fs::path> other_sources() {
    std::vector<fs::path> found;
    for (const char* module :
         {"app", "link", "monitor", "calibration", "diagnostics", "maintenance", "view/windows"})
        for (const auto& entry : fs::directory_iterator(sources / module))
            if (entry.is_regular_file() && entry.path().filename() != "message_catalogue.h")
                found.push_back(entry.path());
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
    std::set<int> named;
    for (const auto& [name, number] : numbers_by_name())
        EXPECT_TRUE(named.insert(number).second) << number << " has two names";
    EXPECT_THAT(numbers_in_file(GetParam()), testing::ContainerEq(named));
}

TEST(MessageNames, AreAllUsed) {
    std::string code;
    for (const fs::path& file : other_sources())
        code += without_comments(text_of(file));
    for (const auto& [name, number] : numbers_by_name())
        EXPECT_TRUE(std::regex_search(code, std::regex("messages::" + name + "\\b"))) << name;
}

// In a call that takes a message, and in a table of captions.
TEST(MessageNames, ReplaceEveryNumber) {
    const std::regex number(
        "(message\\(|replace_by\\(|set_message\\([^;]*, |\\{form1::\\w+, )1[0-2]"
        "[0-9]{2}[^0-9]");
    for (const fs::path& file : other_sources()) {
        std::smatch found;
        const std::string code = without_comments(text_of(file));
        EXPECT_FALSE(std::regex_search(code, found, number)) << file << ": " << found[0];
    }
}

INSTANTIATE_TEST_SUITE_P(Languages, MessageNumbers, testing::Values("it", "uk", "pl", "fr", "de"));

} // namespace
} // namespace zol::tests
