// The service records in the unit (time on gas, date of the last check) and the box with the two
// software versions.
#pragma once

#include <functional>

namespace zol::maintenance {

struct Date {
    int day = 0;   // 1 to 31
    int month = 0; // 1 to 12
    int year = 0;  // four digits
};

// Today's date by the computer's clock and time zone.
Date local_date();
// Where the date of the last check comes from. Tests replace it.
struct CalendarState {
    std::function<Date()> today = local_date;
};
inline CalendarState calendar_state;

void connect_service_records();

} // namespace zol::maintenance
