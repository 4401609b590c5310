# For the mutated copy only: given to CMake as CMAKE_PROJECT_INCLUDE.

cmake_language(DEFER CALL prepare_copy)
function(prepare_copy)
  # These headers take most of the time to compile a source, and no drawn edit changes them.
  foreach(module view app link monitor calibration diagnostics maintenance program)
    target_precompile_headers(zol_${module} PRIVATE
      <algorithm> <array> <charconv> <cmath> <cstdlib> <deque> <filesystem> <functional> <numeric>
      <optional> <span> <string> <utility> <vector>
      view/view.h view/timers.h view/operator.h view/windows/form1.h app/app_state.h app/numbers.h
      link/ecu_frames.h link/parameter_mirrors.h)
  endforeach()

  # A shared library is linked by itself, so its system calls must be wrapped in it. A test program
  # that wraps them too replaces these wrappers.
  foreach(module app link program)
    target_link_libraries(zol_${module} PRIVATE system_calls)
  endforeach()
  set_target_properties(system_calls PROPERTIES POSITION_INDEPENDENT_CODE ON)
endfunction()
