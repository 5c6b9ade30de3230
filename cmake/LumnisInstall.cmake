# What `cmake --install` puts in place. tests/install/tree.txt lists all of it.
include(GNUInstallDirs)
include(CMakePackageConfigHelpers)

set_target_properties(lumnisutil PROPERTIES
  VERSION ${PROJECT_VERSION}
  SOVERSION ${PROJECT_VERSION_MAJOR}
  EXPORT_NAME lumnisutil)

# The static library. One object holds what the two calls need, and it defines nothing else for
# the linker: a host may have another std::vector, or another CpsString, of its own. The sections of
# inline functions lose their groups first, as a name that is no longer public cannot be shared.
set(static_archives)
foreach(folder entry wml xa xp wsc cc fw cps)
  list(APPEND static_archives $<TARGET_FILE:lumnis_${folder}>)
  list(APPEND static_targets lumnis_${folder})
endforeach()
set(STATIC_LIBRARY ${PROJECT_BINARY_DIR}/liblumnisutil.a)
set(STATIC_OBJECT ${PROJECT_BINARY_DIR}/lumnisutil.o)
set(static_link -r --force-group-allocation -u WMLEncode -u WMLSCompile
                --start-group ${static_archives} --end-group)
if(LUMNIS_LTO)
  list(TRANSFORM static_link REPLACE "^--" "-Wl,--")
  set(static_link ${CMAKE_CXX_COMPILER} -O3 -fPIC -fno-gnu-unique -nostdlib -flto=auto -flinker-output=nolto-rel
                  -Wno-free-nonheap-object
                  ${static_link})
else()
  list(PREPEND static_link ${CMAKE_LINKER})
endif()
add_custom_command(OUTPUT ${STATIC_LIBRARY}
  COMMAND ${static_link} -o ${STATIC_OBJECT}
  COMMAND ${CMAKE_OBJCOPY} --keep-global-symbol=WMLEncode --keep-global-symbol=WMLSCompile
          ${STATIC_OBJECT}
  COMMAND ${CMAKE_COMMAND} -E rm -f ${STATIC_LIBRARY}
  COMMAND ${CMAKE_AR} rcsD ${STATIC_LIBRARY} ${STATIC_OBJECT}
  COMMAND ${CMAKE_COMMAND} -E rm -f ${STATIC_OBJECT}
  DEPENDS ${static_targets} ${static_archives} VERBATIM
  COMMENT "Linking the static library liblumnisutil.a")
add_custom_target(lumnisutil_static ALL DEPENDS ${STATIC_LIBRARY})

# A man page for each verb, made of its help text, and the two of the calls.
set(MAN_FOLDER ${PROJECT_BINARY_DIR}/man)
set(MAN_SCRIPT ${PROJECT_SOURCE_DIR}/cmake/ManPage.awk)
file(MAKE_DIRECTORY ${MAN_FOLDER})
set(man_pages)
foreach(verb "" ${LUMNIS_VERBS})
  string(JOIN "-" name lumnis ${verb})
  add_custom_command(OUTPUT ${MAN_FOLDER}/${name}.1
    COMMAND lumnis ${verb} --help > ${MAN_FOLDER}/${name}.txt
    COMMAND awk -v name=${name} -v version=${PROJECT_VERSION} -v "verbs=${LUMNIS_VERBS}"
            -f ${MAN_SCRIPT} ${MAN_FOLDER}/${name}.txt > ${MAN_FOLDER}/${name}.1
    COMMAND ${CMAKE_COMMAND} -E rm ${MAN_FOLDER}/${name}.txt
    DEPENDS lumnis ${MAN_SCRIPT} VERBATIM)
  list(APPEND man_pages ${MAN_FOLDER}/${name}.1)
endforeach()
foreach(call WMLEncode WMLSCompile)
  configure_file(docs/man/${call}.3.in ${MAN_FOLDER}/${call}.3 @ONLY)
endforeach()

set(COMPLETION_FOLDER ${PROJECT_BINARY_DIR}/completions)
file(MAKE_DIRECTORY ${COMPLETION_FOLDER})
set(completions)
foreach(shell bash zsh fish)
  add_custom_command(OUTPUT ${COMPLETION_FOLDER}/lumnis.${shell}
    COMMAND lumnis completions ${shell} > ${COMPLETION_FOLDER}/lumnis.${shell}
    DEPENDS lumnis VERBATIM)
  list(APPEND completions ${COMPLETION_FOLDER}/lumnis.${shell})
endforeach()
add_custom_target(lumnis_pages ALL DEPENDS ${man_pages} ${completions})

# The pkg-config file and the CMake package find everything from where they stand themselves: the
# tree may be moved.
set(PKGCONFIG_FOLDER ${CMAKE_INSTALL_LIBDIR}/pkgconfig)
set(PACKAGE_FOLDER ${CMAKE_INSTALL_LIBDIR}/cmake/lumnisutil)
file(RELATIVE_PATH PREFIX_OF_PKGCONFIG /${PKGCONFIG_FOLDER} /)
configure_file(cmake/lumnisutil.pc.in ${PROJECT_BINARY_DIR}/lumnisutil.pc @ONLY)
configure_package_config_file(cmake/lumnisutilConfig.cmake.in
  ${PROJECT_BINARY_DIR}/lumnisutilConfig.cmake
  INSTALL_DESTINATION ${PACKAGE_FOLDER}
  PATH_VARS CMAKE_INSTALL_LIBDIR CMAKE_INSTALL_INCLUDEDIR)
write_basic_package_version_file(${PROJECT_BINARY_DIR}/lumnisutilConfigVersion.cmake
  COMPATIBILITY SameMinorVersion)

install(TARGETS lumnis RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR} COMPONENT tool)
install(TARGETS lumnisutil
  LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT library NAMELINK_COMPONENT development)
install(FILES ${STATIC_LIBRARY} DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT development)
install(FILES include/lumnisutil.h DESTINATION ${CMAKE_INSTALL_INCLUDEDIR} COMPONENT development)
install(FILES ${PROJECT_BINARY_DIR}/lumnisutil.pc
  DESTINATION ${PKGCONFIG_FOLDER} COMPONENT development)
install(FILES
    ${PROJECT_BINARY_DIR}/lumnisutilConfig.cmake
    ${PROJECT_BINARY_DIR}/lumnisutilConfigVersion.cmake
  DESTINATION ${PACKAGE_FOLDER} COMPONENT development)
install(FILES ${man_pages} DESTINATION ${CMAKE_INSTALL_MANDIR}/man1 COMPONENT tool)
install(FILES ${MAN_FOLDER}/WMLEncode.3 ${MAN_FOLDER}/WMLSCompile.3
  DESTINATION ${CMAKE_INSTALL_MANDIR}/man3 COMPONENT development)
install(FILES ${COMPLETION_FOLDER}/lumnis.bash RENAME lumnis
  DESTINATION ${CMAKE_INSTALL_DATADIR}/bash-completion/completions COMPONENT tool)
install(FILES ${COMPLETION_FOLDER}/lumnis.zsh RENAME _lumnis
  DESTINATION ${CMAKE_INSTALL_DATADIR}/zsh/vendor-completions COMPONENT tool)
install(FILES ${COMPLETION_FOLDER}/lumnis.fish
  DESTINATION ${CMAKE_INSTALL_DATADIR}/fish/vendor_completions.d COMPONENT tool)
