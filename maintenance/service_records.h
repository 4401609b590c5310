// The service records that the unit keeps, the time on gas and the date of the last check, and the
// two software versions.
#pragma once

#include <functional>

namespace zol::maintenance {

struct Date {
    int day = 0;   // 1 to 31
    int month = 0; // 1 to 12
    int year = 0;  // all its digits
};

// Today by the computer's clock, in its time zone.
Date local_date();
// What the check's date is taken from.
struct CalendarState {
    std::function<Date()> today = local_date;
};
inline CalendarState calendar_state;

void connect_service_records();

} // namespace zol::maintenance
