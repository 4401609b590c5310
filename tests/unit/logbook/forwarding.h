// The fixture of a running recording: the tool's port on one side, the far end of the adapter on
// the other.
#pragma once

#include "app/application_folder.h"
#include "link/device_identity.h"
#include "link/port_devices.h"
#include "link/posix_serial_port.h"
#include "logbook/recording_file.h"
#include "tests/unit/link/serial_cable.h"
#include "tests/unit/logbook/running_logbook.h"

#include <functional>
#include <memory>

namespace zol::logbook {

class Forwarding : public LogbookFolder {
  protected:
    Forwarding() {
        app::use_application_folder(folder);
        link::machine_state.root = folder / "machine";
        std::filesystem::create_directories(folder / "machine/dev");
        // The real /proc, from which the drivers of terminals are known.
        std::filesystem::create_directory_symlink("/proc", folder / "machine/proc");
        lead_adapter_to(cable);
    }
    ~Forwarding() override {
        port.close();
        link::machine_state.root = "/";
        link::found_devices = {};
    }

    void lead_adapter_to(const link::Cable& it) {
        // The program must not inherit the far end of the cable, or pulling it would have no
        // effect.
        ::fcntl(it.far_end, F_SETFD, FD_CLOEXEC);
        std::filesystem::remove(adapter);
        std::filesystem::create_symlink(it.device, adapter);
    }
    std::vector<std::string> record_words() const {
        return {"record", "--car", "AB-123", "--folder", folder, "--device", adapter};
    }
    // Returns when the tool can open its port.
    std::unique_ptr<sim::RunningProgram> start() {
        auto program = std::make_unique<sim::RunningProgram>(record_words(), ZOL_LOGBOOK);
        EXPECT_THAT(program->said_until(" now.\n"), testing::HasSubstr("com1"));
        return program;
    }
    // Starts the tool, which has no state from earlier runs.
    std::optional<std::string> open_as_a_new_tool() {
        port.close();
        link::found_devices = {};
        port.set_number(1);
        port.set_line_settings("9600,n,8,1");
        return port.open();
    }
    Bytes read_port(std::size_t length) {
        Bytes all;
        EXPECT_TRUE(soon([&] {
            if (const auto some = port.read_all())
                all.insert(all.end(), some->begin(), some->end());
            return all.size() >= length;
        }));
        return all;
    }
    static bool soon(const std::function<bool()>& true_now) {
        for (int ms = 0; ms < sim::patience_ms; ++ms) {
            if (true_now()) return true;
            ::usleep(1000);
        }
        return false;
    }
    bool link_is_there() const {
        return std::filesystem::symlink_status(com1).type() !=
               std::filesystem::file_type::not_found;
    }
    bool note_is_there() const { return std::filesystem::exists(folder / "ports/.com1.logbook"); }
    std::filesystem::path recording(int number = 1) const {
        for (const auto& entry : std::filesystem::directory_iterator(folder / "logbook/AB-123"))
            if (entry.path().stem().string().ends_with("-" + std::to_string(number)))
                return entry.path();
        return {};
    }
    struct Recorded {
        Bytes requests, replies;
        std::string notes; // one per line
    };
    Recorded recorded(int number = 1) const {
        Recorded all;
        RecordingHeader header;
        const auto result = read_recording(recording(number), header, [&](const Event& event) {
            if (event.kind == EventKind::note) all.notes += event.text + "\n";
            Bytes& way = event.kind == EventKind::request ? all.requests : all.replies;
            way.insert(way.end(), event.bytes.begin(), event.bytes.end());
        });
        EXPECT_EQ(result.wrong, "");
        EXPECT_FALSE(result.torn);
        return all;
    }

    link::Cable cable;
    const std::filesystem::path adapter = folder / "machine/dev/ttyUSB0";
    const std::filesystem::path com1 = folder / "ports/com1";
    link::PosixSerialPort port; // the tool's
};

inline const Bytes status_request = {80, 67, 0, 5, 3};

inline Bytes every_byte(int times) {
    Bytes all;
    for (int i = 0; i < 256 * times; ++i)
        all.push_back(static_cast<std::uint8_t>(i * 7 + i / 256));
    return all;
}

} // namespace zol::logbook
