# vbs_tests(DIR PREFIX): one CTest per DIR/*.vbs, run through the vbs tool.
# The script's standard output must equal NAME.out; when NAME.err exists the
# script must fail with status 1 and write exactly that to standard error
# (the file name in the message is the script's bare name). NAME.args holds
# arguments for the script, one per line; NAME.in is its standard input.
function(vbs_tests dir prefix)
  file(GLOB scripts CONFIGURE_DEPENDS ${dir}/*.vbs)
  foreach(s ${scripts})
    get_filename_component(name ${s} NAME_WE)
    add_test(NAME ${prefix}_${name}
      COMMAND ${CMAKE_COMMAND} -DVBS=$<TARGET_FILE:vbs> -DSCRIPT=${name}.vbs -DDIR=${dir}
              -P ${CMAKE_CURRENT_FUNCTION_LIST_DIR}/RunVbs.cmake)
  endforeach()
endfunction()
