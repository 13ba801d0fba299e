# Fails when a C++ file of src/, tests/ or tools/ differs from what
# clang-format (with the repository's .clang-format) makes of it.
# ROOT is the repository; CLANG_FORMAT the program.
file(GLOB_RECURSE files
  "${ROOT}/src/*.cpp" "${ROOT}/src/*.h"
  "${ROOT}/tests/*.cpp" "${ROOT}/tests/*.h"
  "${ROOT}/tools/*.cpp")
execute_process(COMMAND "${CLANG_FORMAT}" --dry-run --Werror ${files}
  RESULT_VARIABLE rc ERROR_VARIABLE err)
if(NOT rc EQUAL 0)
  message(FATAL_ERROR "Not formatted (run clang-format -i on these):\n${err}")
endif()
