# Checks that BINARY takes the exported from_handle instances from the library
# (undefined there) instead of instantiating its own copies.
execute_process(COMMAND ${NM} ${BINARY} OUTPUT_VARIABLE raw RESULT_VARIABLE rc)
if(NOT rc EQUAL 0)
  message(FATAL_ERROR "${NM} failed on ${BINARY}")
endif()
foreach(record "NS_3ddk8internal24VideoStreamConfigurationEP30VideoStreamConfigurationHandle"
               "St3mapIiNS_3ddk8internal14ProfileSummaryESt4lessIiESaISt4pairIKiS4_EEEP28VideoAnalyticsProfilesHandle")
  string(FIND "${raw}" " U _ZN7vantrel11from_handleI${record}EERT_T0_" at)
  if(at EQUAL -1)
    message(FATAL_ERROR "${BINARY} does not import from_handle for ${record}")
  endif()
endforeach()
message(STATUS "from_handle instances come from the library")
