# Wizard cases: whole runs of a wizard through zunwiz-run, compared line by line
# with the trace they must write.
#
# wiz_cases(DIR PREFIX) makes one CTest, PREFIX_NAME, for each DIR/NAME.trace. A
# case is three files side by side:
#   NAME.par    the option file, run as "-FP DIR/NAME.par"; cases GROUP-VARIANT
#               that differ only in their answers may share GROUP.par instead;
#   NAME.ans    the answers (none when the file is missing): ANT, SEG, CNF, CAN,
#               CLOSE, BOX R, INPUT text, CHECK NAME 0|1, OPTION NAME N;
#   NAME.trace  the trace expected, exactly (docs/zunwiz-run.md tells its lines).
# NAME.args, when it exists, holds more command-line words, one per line
# ("KEY=value"...); NAME.opts zunwiz-run's own options, one word per line
# ("--timeout", "2"); NAME.env variables for the run's environment, one "KEY=value"
# a line, where @CASO@ stands for an empty folder of the run's own (written "<CASO>"
# in the trace). Where the case's folder appears in the trace (a box that names
# the option file, say) it is written "<DIR>". The exit status must be the one the
# trace's last line stands for: 3 after "end answers", 4 after "end exit", 5 after
# "end build", 6 after "end timeout" (reached within 12 s), after "result WORD" the
# verdict's status (0 CONCLUIDO, 8 FALHOU or another word, 9 CANCELADO, 10
# RECUSADO), else 0; a case with no option file is the missing option file, status 2.
#
# To add a case: write NAME.par and NAME.ans in the folder, run
#   build/tools/zunwiz-run/zunwiz-run --answers NAME.ans --trace NAME.trace -FP $PWD/NAME.par
# there, read NAME.trace through (it is the test's expectation: check every line
# against what the wizard must do, and replace the folder by "<DIR>"), and re-run
# cmake. A case whose name ends in "-raiz" runs as root inside the throwaway copy
# of the machine (tests/support/caixa.sh): it may install into /usr/local and /etc.
# A case whose name ends in "-xvfb" runs on a virtual X server of its own
# (tests/support/xvfb.sh), skipped only where Xvfb is not installed; its NAME.opts
# give "--platform" "xcb" and its NAME.env the screen's settings (QT_FONT_DPI...).
# A failing case leaves what it wrote as NAME.got in the build's folder.
function(wiz_cases dir prefix)
  file(GLOB traces CONFIGURE_DEPENDS ${dir}/*.trace)
  foreach(t ${traces})
    get_filename_component(name ${t} NAME_WE)
    set(dentro "")
    if(name MATCHES "-raiz$")
      set(dentro bash ${PROJECT_SOURCE_DIR}/tests/support/caixa.sh)
    elseif(name MATCHES "-xvfb$")
      set(dentro bash ${PROJECT_SOURCE_DIR}/tests/support/xvfb.sh)
    endif()
    add_test(NAME ${prefix}_${name}
      COMMAND ${dentro} ${CMAKE_COMMAND} -DRUN=$<TARGET_FILE:zunwiz-run> -DNAME=${name} -DDIR=${dir}
              -DOUT=${CMAKE_CURRENT_BINARY_DIR}/${prefix}_${name}.got
              -P ${CMAKE_CURRENT_FUNCTION_LIST_DIR}/RunWiz.cmake)
    if(dentro)
      set_tests_properties(${prefix}_${name} PROPERTIES SKIP_RETURN_CODE 77)
    endif()
  endforeach()
endfunction()
