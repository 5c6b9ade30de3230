# `cpack` makes three Debian packages of the installed tree: the library for hosts, what a developer
# needs to build one, and the program, which needs neither. scripts/package.sh tries them.
set(LUMNIS_LIBRARY_PACKAGE liblumnisutil${PROJECT_VERSION_MAJOR})

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME lumnisutil)
set(CPACK_PACKAGE_VENDOR "lumnisutil maintainers")
set(CPACK_PACKAGE_CONTACT "lumnisutil maintainers <maintainers@lumnisutil.example>")
set(CPACK_PACKAGE_VERSION ${PROJECT_VERSION})
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_COMPONENTS_ALL library development tool)
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_DEBIAN_ENABLE_COMPONENT_DEPENDS OFF)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
# Man pages and changelogs are compressed, and of the static library only debug symbols may go.
set(CPACK_PRE_BUILD_SCRIPTS ${PROJECT_SOURCE_DIR}/cmake/debian/PrepareFiles.cmake)

set(CPACK_DEBIAN_LIBRARY_PACKAGE_NAME ${LUMNIS_LIBRARY_PACKAGE})
set(CPACK_DEBIAN_LIBRARY_PACKAGE_SECTION libs)
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS ON)
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS_POLICY ">=")
set(CPACK_COMPONENT_LIBRARY_DESCRIPTION
  "encoder for WML decks and compiler for WMLScript - shared library\n\
Turns the source texts of WAP content into what a handset receives: WML 1.1,\n\
1.2, 1.3 and WTA-WML 1.2 decks into WBXML, WMLScript into byte code. Two C\n\
functions; any number of calls may run at once.")

set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_NAME liblumnisutil-dev)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_SECTION libdevel)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_DEPENDS
  "${LUMNIS_LIBRARY_PACKAGE} (= ${PROJECT_VERSION}), libstdc++-12-dev | libstdc++-dev")
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_SHLIBDEPS OFF)
set(CPACK_COMPONENT_DEVELOPMENT_DESCRIPTION
  "encoder for WML decks and compiler for WMLScript - development files\n\
The header, the static library, the pkg-config file, the CMake package and the\n\
man pages for programs that embed the encoder and the compiler.")

set(CPACK_DEBIAN_TOOL_PACKAGE_NAME lumnis)
set(CPACK_DEBIAN_TOOL_PACKAGE_SECTION devel)
set(CPACK_COMPONENT_TOOL_DESCRIPTION
  "encoder for WML decks and compiler for WMLScript - command line\n\
Encodes decks, compiles scripts, validates XML documents and shows what each\n\
byte of a compiled file means. With man pages and completions for bash, zsh and\n\
fish.")

# What Debian wants beside each package. The changelog is made from the one version.
foreach(part library development tool)
  string(TOUPPER ${part} upper)
  set(name ${CPACK_DEBIAN_${upper}_PACKAGE_NAME})
  set(folder ${PROJECT_BINARY_DIR}/debian/${name})
  configure_file(cmake/debian/changelog.in ${folder}/changelog @ONLY)
  configure_file(cmake/debian/copyright ${folder}/copyright COPYONLY)
  install(FILES ${folder}/changelog ${folder}/copyright
    DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/${name} COMPONENT ${part} EXCLUDE_FROM_ALL)
endforeach()

# The linker's cache learns of the library.
file(WRITE ${PROJECT_BINARY_DIR}/debian/triggers "activate-noawait ldconfig\n")
set(CPACK_DEBIAN_LIBRARY_PACKAGE_CONTROL_EXTRA ${PROJECT_BINARY_DIR}/debian/triggers)

include(CPack)
