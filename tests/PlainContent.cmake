# cmake -DSHORT=PROGRAM -DSTEPS=PROGRAM -P PlainContent.cmake
#
# Both programs must print the same: the parser with its short cut through plain content, and
# without. Where they differ, PROGRAM NUMBER shows what each makes of that document.
foreach(program SHORT STEPS)
  execute_process(COMMAND ${${program}} OUTPUT_VARIABLE ${program}_output RESULT_VARIABLE result)
  if(NOT result EQUAL 0)
    message(FATAL_ERROR "${${program}}: ${result}")
  endif()
endforeach()
if(NOT SHORT_output STREQUAL STEPS_output)
  string(REPLACE "\n" ";" short "${SHORT_output}")
  string(REPLACE "\n" ";" steps "${STEPS_output}")
  foreach(line IN LISTS short)
    if(NOT line IN_LIST steps)
      message(FATAL_ERROR "The programs differ, first on document: ${line}")
    endif()
  endforeach()
  message(FATAL_ERROR "The programs differ")
endif()
string(LENGTH "${SHORT_output}" length)
if(length LESS 100000)
  message(FATAL_ERROR "Too little was printed: ${length} characters")
endif()
