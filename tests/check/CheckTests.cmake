# zunwiz-check over broken wizard files (tests/check/NAME.par, one fault each, with
# the findings expected in NAME.expect) and over the examples, which must give none.
# A new case: write NAME.par and NAME.expect (its lines as the tool prints them, the
# file named as "NAME.par"); a case whose expect file has an "error:" line must end
# with status 1, any other with status 0.
file(GLOB chk_cases CONFIGURE_DEPENDS ${CMAKE_CURRENT_LIST_DIR}/*.par)
foreach(par ${chk_cases})
  get_filename_component(n ${par} NAME_WE)
  add_test(NAME check_${n} COMMAND ${CMAKE_COMMAND} -DTOOL=$<TARGET_FILE:zunwiz-check>
           -DPAR=${par} -DEXPECT=${CMAKE_CURRENT_LIST_DIR}/${n}.expect -P ${CMAKE_CURRENT_LIST_DIR}/Check.cmake)
endforeach()
file(GLOB_RECURSE chk_examples CONFIGURE_DEPENDS ${CMAKE_SOURCE_DIR}/examples/*.par)
foreach(par ${chk_examples})
  get_filename_component(d ${par} DIRECTORY)
  get_filename_component(d ${d} NAME)
  get_filename_component(n ${par} NAME_WE)
  add_test(NAME check_example_${d}_${n} COMMAND ${CMAKE_COMMAND} -DTOOL=$<TARGET_FILE:zunwiz-check>
           -DPAR=${par} -P ${CMAKE_CURRENT_LIST_DIR}/Check.cmake)
endforeach()
add_test(NAME check_json COMMAND ${CMAKE_COMMAND} -DTOOL=$<TARGET_FILE:zunwiz-check>
         -DPAR=${CMAKE_CURRENT_LIST_DIR}/compile-error.par -DJSON=1 -P ${CMAKE_CURRENT_LIST_DIR}/Check.cmake)
# Checking changes nothing on the machine: every example and every test wizard,
# checked from an empty folder, leaves it as it was (Inert.cmake).
file(GLOB chk_all CONFIGURE_DEPENDS ${CMAKE_SOURCE_DIR}/examples/*/*.par ${CMAKE_SOURCE_DIR}/tests/wizard/cases/*.par
     ${CMAKE_SOURCE_DIR}/tests/wizlib/*.par ${CMAKE_CURRENT_LIST_DIR}/*.par)
set(chk_vbs "")
if(TARGET vbs)
  set(chk_vbs -DVBS=$<TARGET_FILE:vbs>)
endif()
add_test(NAME check_inert COMMAND ${CMAKE_COMMAND} -DTOOL=$<TARGET_FILE:zunwiz-check> ${chk_vbs}
         "-DPARS=${chk_all}" -DDIR=${CMAKE_CURRENT_BINARY_DIR}/check-inert -P ${CMAKE_CURRENT_LIST_DIR}/Inert.cmake)
