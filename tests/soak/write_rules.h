// What each handler may send: its parameters in their order, and the commands besides.
#pragma once

#include "tests/soak/handlers.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace zol::soak {

struct Step {
    int parameter;            // any_parameter: whatever the operator named
    std::optional<int> value; // nothing: whatever its mirror holds
    enum class Need {
        must,
        may,      // left out under conditions that are the handler's own affair
        if_a_word // left out when the number has no byte form
    } need = Need::must;
};
constexpr int any_parameter = -1;

enum class Guard {
    none,
    loading, // silent while the program fills its widgets
    locked   // the changeover window's: silent while polling is allowed
};

struct WriteRule {
    std::string handler;
    Guard guard;
    std::vector<Step> steps;
};

// The rule for what has just begun; null if it may write nothing.
const WriteRule* write_rule(const Running& running);
bool names(const WriteRule& rule, int parameter);
bool silenced(const Running& running);

// What is wrong with the writes so far, or with all of them once the handler is over; empty if
// nothing is.
std::string wrong_in(const Running& running, bool over);

// Whether a handler of this name may send a 5-byte command.
bool may_send(std::string_view handler, int command);

} // namespace zol::soak
