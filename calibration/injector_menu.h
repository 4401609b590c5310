// The menus that choose the gas injectors and the type of the car's injection.
#pragma once

namespace zol::calibration {

void connect_injector_menu();

} // namespace zol::calibration
