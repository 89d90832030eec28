# Compares the library's ABI with the committed baseline using abidiff.
# Fails on an incompatible change (removed or changed symbols or types);
# additions pass. UPDATE=ON rewrites the baseline on purpose.
if(UPDATE)
  execute_process(COMMAND ${ABIDW} --no-corpus-path --no-comp-dir-path --out-file ${BASELINE} ${LIBRARY}
                  RESULT_VARIABLE rc)
  if(NOT rc EQUAL 0)
    message(FATAL_ERROR "abidw failed (${rc})")
  endif()
  message(STATUS "baseline written: ${BASELINE}")
  return()
endif()
execute_process(COMMAND ${ABIDIFF} --no-added-syms ${BASELINE} ${LIBRARY}
                RESULT_VARIABLE rc OUTPUT_VARIABLE out ERROR_VARIABLE err)
message(STATUS "${out}${err}")
# abidiff's status is a bit field: 1 error, 2 usage error, 4 ABI change,
# 8 incompatible ABI change.
if(NOT rc MATCHES "^[0-9]+$")
  message(FATAL_ERROR "abidiff did not run: ${rc}")
endif()
math(EXPR bad "${rc} & 11")
if(NOT bad EQUAL 0)
  message(FATAL_ERROR "incompatible ABI change against ${BASELINE} (abidiff status ${rc})")
endif()
message(STATUS "ABI compatible with ${BASELINE} (abidiff status ${rc})")
