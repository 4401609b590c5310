// The entry point of the program: the only place that chooses the real screen, clock and serial
// port.
#include "app/application_folder.h"
#include "app/program/startup.h"
#include "app/program/wiring.h"
#include "link/posix_serial_port.h"
#include "view/qt/qt_view.h"

#include <filesystem>
#include <system_error>

// The program takes no arguments.
int main(int count, char** argv) {
    std::error_code ignored;
    const auto program = std::filesystem::read_symlink("/proc/self/exe", ignored);
    const std::filesystem::path started_as = count > 0 ? argv[0] : "";
    zol::app::use_application_folder(zol::app::find_application_folder(program, started_as));
    if (!zol::app::claim_application_folder()) return 0;
    zol::link::PosixSerialPort port;
    zol::link::use_serial_port(port);
    zol::app::connect_handlers();
    zol::view::qt::run(argv[0], zol::app::sub_main);
}
