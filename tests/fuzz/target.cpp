// The fuzzer's entry point, the same for each target.
#include "tests/fuzz/input.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    zol::fuzz::run_input({data, size});
    return 0;
}
