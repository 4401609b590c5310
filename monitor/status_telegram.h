// The status telegram, the reply to command 3. All fields are words, high byte first.
#pragma once

#include "link/ecu_frames.h"
#include "link/telegram_positions.h"

namespace zol::monitor {

using link::shortest_telegram;
using link::TelegramPosition;

// Shows every field, always in the same order. A field that the telegram does not have leaves its
// control unchanged.
void show_telegram(const link::Reply& telegram);

} // namespace zol::monitor
