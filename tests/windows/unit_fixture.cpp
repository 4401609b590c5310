#include "tests/windows/unit_fixture.h"

#include "app/app_state.h"
#include "app/application_folder.h"
#include "app/program/wiring.h"
#include "monitor/polling.h"
#include "view/qt/live_values.h"
#include "view/qt/signs.h"

#include <QTimer>

#include <filesystem>

namespace zol::view {

std::optional<std::string> UnitFixture::Port::open() {
    unit_.take(now_us());
    open_ = true;
    return std::nullopt;
}

bool UnitFixture::Port::write(std::span<const std::uint8_t> bytes) {
    if (open_) unit_.receive(bytes, now_us());
    return open_;
}

std::optional<link::Bytes> UnitFixture::Port::read_all() {
    return open_ ? std::optional(unit_.take(now_us())) : std::nullopt;
}

UnitFixture::UnitFixture() {
    std::filesystem::create_directory_symlink(std::filesystem::path(ZOL_SOURCE_DIR) / "language",
                                              folder.filePath("language").toStdString());
    app::use_application_folder(folder.path().toStdString());
    app::state.current_language = "uk";
    app::connect_handlers();
    form1::Form1.on.load = form1::Form1.on.activate = form1::Form1.on.unload = nullptr;
    form1::Form1.on.closing = nullptr;
    link::use_serial_port(port_);
    port_.open();
    open(form1::Form1);
    app::state.panel_colour = form1::Form1.look.back;
    form1::Timer_rpm.on();
}

UnitFixture::~UnitFixture() {
    monitor::stop_polling();
    run_for(700); // a poll pass that is running ends
}

void UnitFixture::poll() {
    monitor::start_polling();
    run_until([] { return form1::Label_rpm.look.text != "0"; });
}

bool UnitFixture::is_stale(const Widget& control) const {
    return screen.face(form1::Form1)->signs().live_values()->is_stale(control);
}

void UnitFixture::later(int ms, const std::function<void()>& work) {
    QTimer::singleShot(ms, QCoreApplication::instance(), work);
}

} // namespace zol::view
