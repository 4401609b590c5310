# Given to CMake as CMAKE_PROJECT_INCLUDE: what is different in the copy that is broken.

cmake_language(DEFER CALL prepare_copy)
function(prepare_copy)
  # Most of what one source of the logic takes to compile are headers that no edit touches.
  foreach(module view app link monitor calibration diagnostics maintenance program)
    target_precompile_headers(zol_${module} PRIVATE
      <algorithm> <array> <charconv> <cmath> <cstdlib> <deque> <filesystem> <functional> <numeric>
      <optional> <span> <string> <utility> <vector>
      view/view.h view/timers.h view/operator.h view/windows/form1.h app/app_state.h app/numbers.h
      link/ecu_frames.h link/parameter_mirrors.h)
  endforeach()

  # A library that is shared is linked by itself, and its calls of the system are watched from there
  # on; a test program with a watch of its own takes them over.
  foreach(module app link program)
    target_link_libraries(zol_${module} PRIVATE system_calls)
  endforeach()
  set_target_properties(system_calls PROPERTIES POSITION_INDEPENDENT_CODE ON)
endfunction()
