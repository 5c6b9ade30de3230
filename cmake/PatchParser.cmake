# lumnis_insert(TEXT_VARIABLE ANCHOR WHERE ADDITION): puts ADDITION BEFORE or BEHIND the one place in
# the text of the variable where ANCHOR stands. A version of bison whose skeleton reads differently
# stops the build here.
function(lumnis_insert variable anchor where addition)
  string(FIND "${${variable}}" "${anchor}" first)
  string(FIND "${${variable}}" "${anchor}" last REVERSE)
  if(first EQUAL -1 OR NOT first EQUAL last)
    message(FATAL_ERROR "${INPUT}: not the skeleton that is known here")
  endif()
  if(where STREQUAL "BEFORE")
    string(REPLACE "${anchor}" "${addition}${anchor}" text "${${variable}}")
  else()
    string(REPLACE "${anchor}" "${anchor}${addition}" text "${${variable}}")
  endif()
  set(${variable} "${text}" PARENT_SCOPE)
endfunction()
