// Walks through the program as an operator would: the real windows, a real serial device, the
// simulated unit at its other end. Leaves numbered pictures and the decoded wire log, and says what
// it saw. Arguments: the build folder and the folder for what it leaves. Ends with 1 if something
// was not seen.
#include "app/application_folder.h"
#include "app/startup.h"
#include "app/wiring.h"
#include "link/posix_serial_port.h"
#include "tests/tour/stages.h"
#include "view/qt/qt_view.h"

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <thread>
#include <unistd.h>

namespace {

namespace fs = std::filesystem;

// An application folder of the tour's own, so that nobody's settings are touched.
void make_folder(const fs::path& build, const fs::path& folder) {
    fs::remove_all(folder);
    for (const char* part : {"ports", "log"})
        fs::create_directories(folder / part);
    for (const char* part : {"language", "manual"})
        if (fs::exists(build / "app" / part))
            fs::copy(build / "app" / part, folder / part, fs::copy_options::recursive);
    std::ofstream(folder / "setting.ini") << "[General]\nLANGUAGE=uk\n";
}

[[noreturn]] void walk(const fs::path& build, const fs::path& out) {
    using namespace zol::tour;
    Hands hands(out);
    {
        UnitProcess unit(build / "simulator" / "control-unit",
                         {"--link", (out / "app" / "ports" / "com1").string(), "--warm",
                          "--firmware", "2.7.71", "--log", (out / "wire.log").string()});
        run_stages(hands, unit);
    }
    std::printf("%d things seen, %d missed, %d pictures and the wire log in %s\n", hands.seen(),
                hands.missed(), hands.pictures(), out.c_str());
    std::fflush(stdout);
    ::_exit(hands.missed() == 0 ? 0 : 1);
}

} // namespace

int main(int count, char** arguments) {
    if (count != 3) {
        std::fprintf(stderr, "usage: tour BUILD_FOLDER OUTPUT_FOLDER\n");
        return 2;
    }
    const fs::path build = fs::absolute(arguments[1]), out = fs::absolute(arguments[2]);
    fs::remove_all(out);
    make_folder(build, out / "app");
    zol::app::use_application_folder(out / "app");
    zol::link::PosixSerialPort port;
    zol::link::use_serial_port(port);
    zol::app::connect_handlers();
    zol::view::qt::run(arguments[0], [&] {
        std::thread([build, out] { walk(build, out); }).detach();
        zol::app::sub_main();
    });
}
