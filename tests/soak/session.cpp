#include "tests/soak/session.h"

#include "app/program/startup.h"
#include "maintenance/service_records.h"
#include "view/screen.h"
#include "view/timers.h"

#include <algorithm>

namespace zol::soak {

// The program's port. Checks frames before line faults change them.
class Session::Watched final : public link::SerialPort {
  public:
    Watched(link::SerialPort& inner, Checks& checks) : inner_(inner), checks_(checks) {}
    void set_number(int port_number) override { inner_.set_number(port_number); }
    void set_line_settings(const std::string& settings) override {
        inner_.set_line_settings(settings);
    }
    std::optional<std::string> open() override { return inner_.open(); }
    void close() override {
        checks_.closed();
        inner_.close();
    }
    bool is_open() const override { return inner_.is_open(); }
    bool write(std::span<const std::uint8_t> bytes) override {
        checks_.leaves(bytes);
        return inner_.write(bytes);
    }
    std::optional<link::Bytes> read_all() override {
        auto bytes = inner_.read_all();
        if (bytes) checks_.read(*bytes);
        return bytes;
    }

  private:
    link::SerialPort& inner_;
    Checks& checks_;
};

Session::Session(Log& session_log, Carried before, std::uint32_t seed)
    : log(session_log), handlers(log), checks(log, handlers), boxes(log, seed) {
    log.note("the program starts");
    log.now_us = [this] { return time.now_us(); };
    unit = std::move(before.unit);
    port = std::make_unique<tests::SimulatedPort>(*unit, time);
    line = std::make_unique<tests::BadPort>(*port, [this] { return time.now_us(); });
    watched_ = std::make_unique<Watched>(*line, checks);
    link::use_serial_port(*watched_);
    view::use_screen(boxes);
    boxes.on_changed = [this](view::Widget& w, view::Aspect aspect) { checks.changed(w, aspect); };
    maintenance::calendar_state.today = [] { return maintenance::Date{21, 11, 2026}; };
    handlers.wrap();
    if (!before.settings.empty()) write_file("setting.ini", before.settings);
    time.start([start_us = before.now_us] {
        while (view::now_us() < start_us)
            view::pump_until(start_us);
        app::sub_main();
        for (;;)
            view::pump();
    });
    time.run_for_us(before.now_us);
}

Session::~Session() {
    time.finish();
    handlers.began = handlers.ended = nullptr;
    maintenance::calendar_state.today = maintenance::local_date;
    log.now_us = [at_us = time.now_us()] { return at_us; };
}

void Session::act(const std::string& what, std::function<void()> work) {
    time.act([this, what, work = std::move(work)] { handlers.act(what, work); });
}

void Session::pass(std::int64_t ms) {
    constexpr std::int64_t between_checks_ms = 5000;
    while (ms > 0 && !ended()) {
        const std::int64_t some_ms = std::min(ms, between_checks_ms);
        time.run_for(some_ms);
        ms -= some_ms;
        if (!ended()) checks.step(!box_is_up());
        port->sent.clear();
    }
}

void Session::car(const std::string& command) {
    log.note("car: " + command);
    const std::string said = unit->command(command, time.now_us());
    if (said.starts_with("Error")) log.find("the car does not know: " + command);
}

Carried Session::leave() {
    time.finish();
    return {std::move(unit), read_text("setting.ini"), time.now_us()};
}

} // namespace zol::soak
