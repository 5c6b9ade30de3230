# Run by cpack on the folders of the packages before they are packed.
file(GLOB_RECURSE files LIST_DIRECTORIES false ${CPACK_TEMPORARY_DIRECTORY}/*)
if(NOT files)
  message(FATAL_ERROR "no files in ${CPACK_TEMPORARY_DIRECTORY}")
endif()
foreach(file IN LISTS files)
  if(file MATCHES "/man/man[0-9]/[^/]*[0-9]$|/doc/[^/]*/changelog$")
    execute_process(COMMAND gzip -9nf ${file} COMMAND_ERROR_IS_FATAL ANY)
  elseif(file MATCHES "/liblumnisutil[.]a$")
    # What is local in its one object need not be named.
    execute_process(COMMAND strip --strip-unneeded --enable-deterministic-archives
      --remove-section=.comment --remove-section=.note ${file} COMMAND_ERROR_IS_FATAL ANY)
  endif()
endforeach()
