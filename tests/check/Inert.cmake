# Checking a wizard changes nothing: zunwiz-check runs on every wizard file given in
# PARS (";"-separated) from inside an empty folder DIR that holds one file,
# guarda.txt, and the folder must be exactly as it was afterwards. The cases
# efe-*.par try to create files there (zw-sentinela-*.txt, by relative paths), and
# to copy, rename, append to and delete guarda.txt, while the file is read. With
# VBS (the script tool) their programs first run for real in a folder of their
# own, which shows that the same lines do create and delete files when nothing
# stops them.
file(REMOVE_RECURSE ${DIR})
file(MAKE_DIRECTORY ${DIR}/vazia ${DIR}/real)
set(guarda "kept as it is\n")

# What a folder holds: every entry, hidden ones too, with each file's contents.
function(retrato pasta var)
  file(GLOB_RECURSE ents LIST_DIRECTORIES true RELATIVE ${pasta} ${pasta}/* ${pasta}/.*)
  list(SORT ents)
  set(r "")
  foreach(e ${ents})
    if(IS_DIRECTORY ${pasta}/${e})
      string(APPEND r "${e}/\n")
    else()
      file(READ ${pasta}/${e} c)
      string(APPEND r "${e}: ${c}\n")
    endif()
  endforeach()
  set(${var} "${r}" PARENT_SCOPE)
endfunction()

if(VBS)
  file(WRITE ${DIR}/real/guarda.txt "${guarda}")
  foreach(n efe-fso efe-getobject efe-shell)
    # the "VBS" group's lines, as the script tool takes a program
    file(STRINGS ${CMAKE_CURRENT_LIST_DIR}/${n}.par lins)
    set(dentro 0)
    set(pgm "")
    foreach(l IN LISTS lins)
      if(l MATCHES "^#VBS")
        set(dentro 1)
      elseif(dentro AND l STREQUAL "##")
        break()
      elseif(dentro)
        string(APPEND pgm "${l}\n")
      endif()
    endforeach()
    file(WRITE ${DIR}/${n}.vbs "${pgm}")
    execute_process(COMMAND ${VBS} ${DIR}/${n}.vbs WORKING_DIRECTORY ${DIR}/real TIMEOUT 20
                    OUTPUT_QUIET ERROR_QUIET)
  endforeach()
  # what the commands started by Exec do may come a moment after the script ends
  foreach(i RANGE 50)
    if(EXISTS ${DIR}/real/zw-sentinela-get.txt)
      break()
    endif()
    execute_process(COMMAND ${CMAKE_COMMAND} -E sleep 0.1)
  endforeach()
  foreach(f zw-sentinela-fso.txt zw-sentinela-cop.txt zw-sentinela-get.txt zw-sentinela-shell.txt)
    if(NOT EXISTS ${DIR}/real/${f})
      message(FATAL_ERROR "run for real, the hostile programs did not make ${f}: the test proves nothing")
    endif()
  endforeach()
  if(EXISTS ${DIR}/real/guarda.txt)
    message(FATAL_ERROR "run for real, the hostile programs left guarda.txt: the test proves nothing")
  endif()
endif()

file(WRITE ${DIR}/vazia/guarda.txt "${guarda}")
retrato(${DIR}/vazia antes)
foreach(par ${PARS})
  execute_process(COMMAND ${TOOL} ${par} WORKING_DIRECTORY ${DIR}/vazia TIMEOUT 60
                  OUTPUT_QUIET ERROR_VARIABLE err RESULT_VARIABLE rc)
  if(NOT (rc STREQUAL "0" OR rc STREQUAL "1"))
    message(FATAL_ERROR "zunwiz-check ${par}: status ${rc}\n${err}")
  endif()
  retrato(${DIR}/vazia depois)
  if(NOT depois STREQUAL antes)
    message(FATAL_ERROR "checking ${par} changed the folder it ran in.\n--- before:\n${antes}--- after:\n${depois}")
  endif()
endforeach()
list(LENGTH PARS n)
message(STATUS "${n} wizard files checked, the folder unchanged")
