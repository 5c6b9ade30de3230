# lumnis_warnings(TARGET): the warnings that our own code is held to.
function(lumnis_warnings target)
  target_compile_options(${target} PRIVATE
    -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wsign-conversion
    $<$<COMPILE_LANGUAGE:CXX>:-Wnon-virtual-dtor -Woverloaded-virtual -Wold-style-cast>
    # GCC 12 sees overlaps in std::string's operator+ that are not there (GCC bug 105651).
    $<$<CXX_COMPILER_ID:GNU>:-Wno-restrict>
    $<$<BOOL:${LUMNIS_WERROR}>:-Werror>)
endfunction()

# lumnis_optimize_whole(TARGET): a program or shared library that is optimized across folders.
function(lumnis_optimize_whole target)
  if(LUMNIS_LTO)
    # GCC 12 sees CpsString free the array that is a part of it.
    target_link_options(${target} PRIVATE
      -flto=auto -fno-gnu-unique -Wno-free-nonheap-object)
  endif()
endfunction()

# lumnis_link_as_is(): the targets of this folder from here on are linked without that optimization.
macro(lumnis_link_as_is)
  if(LUMNIS_LTO)
    add_link_options(-fno-lto)
  endif()
endmacro()

# lumnis_own_types(SOURCE PREFIX): the types of a generated parser get names of their own, which
# bison gives to its functions alone.
function(lumnis_own_types source prefix)
  set_property(SOURCE ${source} APPEND PROPERTY COMPILE_DEFINITIONS
    yysymbol_kind_t=${prefix}SymbolKind yyalloc=${prefix}StackItem)
endfunction()

# lumnis_folder(NAME SOURCES... [DEPENDS TARGETS...] [INCLUDE DIRS...]): one folder of the
# library as a static target. INCLUDE are the folders whose headers others may see (src if left
# out); DEPENDS are the folders that this one may call.
function(lumnis_folder name)
  cmake_parse_arguments(ARG "" "" "SOURCES;DEPENDS;INCLUDE" ${ARGN})
  if(NOT ARG_INCLUDE)
    set(ARG_INCLUDE src)
  endif()
  add_library(lumnis_${name} STATIC ${ARG_SOURCES})
  target_include_directories(lumnis_${name} PUBLIC ${ARG_INCLUDE})
  foreach(dependency IN LISTS ARG_DEPENDS)
    target_link_libraries(lumnis_${name} PUBLIC lumnis_${dependency})
  endforeach()
  # A unique symbol stays public when the static library hides the others.
  target_compile_options(lumnis_${name} PRIVATE
    $<$<COMPILE_LANG_AND_ID:CXX,GNU>:-fno-gnu-unique>)
  if(LUMNIS_LTO)
    target_compile_options(lumnis_${name} PRIVATE -flto=auto -ffat-lto-objects)
  endif()
  lumnis_warnings(lumnis_${name})
endfunction()
