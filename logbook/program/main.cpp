#include "logbook/commands.h"

int main(int count, char** words) {
    const auto size = count > 1 ? static_cast<std::size_t>(count - 1) : 0;
    return zol::logbook::run_logbook({words + (count > 0 ? 1 : 0), size});
}
