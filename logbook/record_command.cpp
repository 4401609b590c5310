// zol-logbook record and zol-logbook release.
#include "app/application_folder.h"
#include "logbook/commands.h"
#include "logbook/forwarder.h"
#include "logbook/options.h"

#include <cstdio>
#include <ctime>
#include <system_error>

namespace zol::logbook {
namespace {

struct Choice {
    std::string car, port = "1", device, folder, data;
    int port_number = 0;
};

// False, with the sentence said.
bool read_choice(Words words, Choice& choice) {
    std::vector<std::string> files;
    if (!read_options(words,
                      {{"--car", &choice.car},
                       {"--port", &choice.port},
                       {"--device", &choice.device},
                       {"--folder", &choice.folder},
                       {"--data", &choice.data}},
                      files))
        return false;
    std::string wrong;
    if (choice.car.empty()) wrong = "record needs the car, as in: zol-logbook record --car AB-123.";
    if (!files.empty()) wrong = "record takes no file; name the car with --car.";
    if (choice.port.size() != 1 || choice.port[0] < '1' || choice.port[0] > '8')
        wrong = "--port takes a port number of the tool, from 1 to 8.";
    if (wrong.empty()) wrong = wrong_registration(choice.car);
    if (!wrong.empty()) complain(wrong);
    choice.port_number = choice.port[0] - '0';
    return wrong.empty();
}

std::string local_time(const char* format) {
    const std::time_t now = std::time(nullptr);
    std::tm local{};
    ::localtime_r(&now, &local);
    char text[64] = {};
    std::strftime(text, sizeof text, format, &local);
    return text;
}

// "2026-11-22T14:10:05+01:00"
std::string start_time() {
    std::string text = local_time("%Y-%m-%dT%H:%M:%S%z");
    return text.insert(text.size() - 2, ":");
}

int record(const Choice& choice, const std::filesystem::path& folder) {
    PortClaim claim;
    RecordingFile file;
    Recorder recorder;
    const auto fails = [&claim](const std::string& wrong) {
        claim.end();
        complain(wrong);
        return failed;
    };
    if (const auto wrong = claim.take(folder, choice.port_number); !wrong.empty())
        return fails(wrong);
    app::use_application_folder(folder);
    std::filesystem::path device = choice.device;
    if (device.empty()) device = link::device_of_port(choice.port_number);
    const RecordingHeader header{"zol-logbook " ZOL_VERSION, choice.car, start_time(),
                                 device.string(), "COM" + choice.port};
    const auto data = choice.data.empty() ? folder / "logbook" : std::filesystem::path(choice.data);
    if (const auto wrong = file.create(data, choice.car, local_time("%Y-%m-%d"), header);
        !wrong.empty())
        return fails(wrong);
    std::printf("Recording to %s; Ctrl+C ends it.\n", file.path().c_str());
    std::fflush(stdout);
    if (const auto wrong = recorder.start(file, claim); !wrong.empty()) return fails(wrong);
    std::string wrong;
    {
        Forwarder forwarder(device, claim, recorder);
        wrong = forwarder.run();
    }
    const bool whole = recorder.end();
    if (wrong.empty()) return whole ? done : failed;
    std::error_code ignored;
    std::filesystem::remove(file.path(), ignored); // nothing was recorded
    return fails(wrong);
}

} // namespace

int record_command(Words words) {
    Choice choice;
    if (!read_choice(words, choice)) return wrong_words;
    const auto folder = tools_folder(choice.folder);
    return folder.empty() ? failed : record(choice, folder);
}

int release_command(Words words) {
    std::string named;
    std::vector<std::string> files;
    if (!read_options(words, {{"--folder", &named}}, files)) return wrong_words;
    if (!files.empty()) {
        complain("release takes no file.");
        return wrong_words;
    }
    const auto folder = tools_folder(named);
    if (folder.empty()) return failed;
    std::vector<std::string> held;
    const int removed = release_left_links(folder, held);
    std::printf("%d %s removed.\n", removed, removed == 1 ? "link" : "links");
    for (const std::string& wrong : held)
        complain(wrong);
    return held.empty() ? done : failed;
}

} // namespace zol::logbook
