# Runs orxsrv check on a deck with an input error: exit status 2 and one line on standard error
# that holds the expected text.
#   cmake -DORXSRV=... -DDECK=... -DMESSAGE=... -P CheckBadDeck.cmake
execute_process(COMMAND "${ORXSRV}" check "${DECK}" --quiet
  RESULT_VARIABLE status OUTPUT_VARIABLE output ERROR_VARIABLE errors)
if(NOT status EQUAL 2)
  message(FATAL_ERROR "orxsrv exited with ${status}, expected 2\n${errors}")
endif()
string(FIND "${errors}" "${MESSAGE}" at)
if(at EQUAL -1)
  message(FATAL_ERROR "the message lacks \"${MESSAGE}\":\n${errors}")
endif()
string(REGEX MATCHALL "\n" lines "${errors}")
list(LENGTH lines count)
if(NOT count EQUAL 1)
  message(FATAL_ERROR "expected one line of message:\n${errors}")
endif()
