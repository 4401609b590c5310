# Given to CMake as CMAKE_PROJECT_INCLUDE: what is different in the copy that is broken.

# Most of what one source of the logic takes to compile are headers that no edit touches.
cmake_language(DEFER CALL target_precompile_headers zol_logic PRIVATE
  <algorithm> <array> <charconv> <cmath> <cstdlib> <deque> <filesystem> <functional> <numeric>
  <optional> <span> <string> <utility> <vector>
  view/view.h view/timers.h view/operator.h view/windows/form1.h app/app_state.h app/numbers.h
  link/ecu_frames.h link/parameter_mirrors.h)

# A library that is shared is linked by itself, and its calls of the system are watched from there on;
# a test program with a watch of its own takes them over.
cmake_language(DEFER CALL target_link_libraries zol_logic PRIVATE system_calls)
cmake_language(DEFER CALL set_target_properties system_calls PROPERTIES POSITION_INDEPENDENT_CODE ON)
