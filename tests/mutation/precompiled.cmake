# Given to CMake as CMAKE_PROJECT_INCLUDE: most of what one source of the logic takes to compile are
# headers that no edit touches.
cmake_language(DEFER CALL target_precompile_headers zol_logic PRIVATE
  <algorithm> <array> <charconv> <cmath> <cstdlib> <deque> <filesystem> <functional> <numeric>
  <optional> <span> <string> <utility> <vector>
  view/view.h view/timers.h view/operator.h view/windows/form1.h app/app_state.h app/numbers.h
  link/ecu_frames.h link/parameter_mirrors.h)
