# Writes a source file with the texts of files as string constants, byte for byte.
#
#   cmake -DOUTPUT=FILE.cc -DHEADER=FILE.h "-DTEXTS=CONSTANT=FILE|CONSTANT=FILE" -P EmbedText.cmake
string(REPLACE "|" ";" TEXTS "${TEXTS}")
set(source "#include \"${HEADER}\"\n\nnamespace lumnis {\n")
foreach(text IN LISTS TEXTS)
  string(REGEX MATCH "^([^=]+)=(.+)$" matched "${text}")
  set(constant ${CMAKE_MATCH_1})
  file(READ "${CMAKE_MATCH_2}" content)
  string(FIND "${content}" ")text\"" position)
  if(NOT position EQUAL -1)
    message(FATAL_ERROR "${CMAKE_MATCH_2} holds the end of a raw string")
  endif()
  string(APPEND source "\nconst std::string_view ${constant} =\n    R\"text(${content})text\";\n")
endforeach()
string(APPEND source "\n}  // namespace lumnis\n")
file(WRITE "${OUTPUT}" "${source}")
