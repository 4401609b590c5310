// What each handler may send: parameters in their order, and commands.
#pragma once

#include "tests/soak/handlers.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace zol::soak {

struct Step {
    int parameter;            // any_parameter: the one that the operator has entered
    std::optional<int> value; // none: any value
    enum class Need {
        must,
        may,      // may be left out
        if_a_word // left out if the number does not fit a word
    } need = Need::must;
};
constexpr int any_parameter = -1;

enum class Guard {
    none,
    loading, // no write while the program fills its widgets
    locked   // of the changeover window: no write while polling is allowed
};

struct WriteRule {
    std::string handler;
    Guard guard;
    std::vector<Step> steps;
};

// The rule of a handler that begins; null if it must not write.
const WriteRule* write_rule(const Running& running);
bool names(const WriteRule& rule, int parameter);
bool silenced(const Running& running);

// What is wrong with the writes so far, or with all of them after the handler's end; or empty.
std::string wrong_in(const Running& running, bool over);

// Whether a handler of this name may send a 5-byte command.
bool may_send(std::string_view handler, int command);

} // namespace zol::soak
