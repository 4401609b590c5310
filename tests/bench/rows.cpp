#include "tests/bench/rows.h"

#include <cstdio>
#include <fstream>
#include <sys/resource.h>
#include <unistd.h>

namespace zol::bench {

void print_row(const std::string& what, double figure, const std::string& unit,
               const std::string& asked_for) {
    std::printf("| %-58s | %10.3f %-5s | %-18s |\n", what.c_str(), figure, unit.c_str(),
                asked_for.c_str());
    std::fflush(stdout);
}

double processor_ms() {
    rusage used{};
    ::getrusage(RUSAGE_SELF, &used);
    const auto ms = [](const timeval& time) {
        return static_cast<double>(time.tv_sec) * 1000 + static_cast<double>(time.tv_usec) / 1000;
    };
    return ms(used.ru_utime) + ms(used.ru_stime);
}

double resident_mib() {
    long size = 0, resident = 0;
    std::ifstream("/proc/self/statm") >> size >> resident;
    return static_cast<double>(resident * ::sysconf(_SC_PAGESIZE)) / (1024.0 * 1024.0);
}

} // namespace zol::bench
