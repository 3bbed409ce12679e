# Runs orxsrv check --json on a deck and compares the output, timings and memory left out, with the
# expected file; the exit status must be the one given.
#   cmake -DORXSRV=... -DDECK=... -DEXPECTED=... -DSTATUS=0|1 -P CheckExample.cmake
execute_process(COMMAND "${ORXSRV}" check "${DECK}" --json --quiet
  RESULT_VARIABLE status OUTPUT_VARIABLE output ERROR_VARIABLE errors)
if(NOT status EQUAL STATUS)
  message(FATAL_ERROR "orxsrv exited with ${status}, expected ${STATUS}\n${errors}")
endif()
string(REGEX REPLACE "  \"seconds\"[^\n]*\n" "" output "${output}")
string(REGEX REPLACE "  \"peak_memory_bytes\"[^\n]*\n" "" output "${output}")
file(READ "${EXPECTED}" expected)
if(NOT output STREQUAL expected)
  message(FATAL_ERROR "output differs from ${EXPECTED}:\n${output}")
endif()
