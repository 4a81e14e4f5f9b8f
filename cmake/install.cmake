# Where the game goes when it is installed. The program looks for its files in the current
# directory only; the launcher on the path goes to the data directory before it starts it.
if(NOT TARGET brusbo)
  return()
endif()
include(GNUInstallDirs)
include(cmake/release.cmake)

# The program with all it loads at run time, and nothing else.
add_custom_target(program DEPENDS brusbo $<TARGET_NAME_IF_EXISTS:brusbo_sound>)

# The sound part is looked for beside the program. It is no library for others, so the folder is not
# one that ldconfig reads.
set(brusbo_program_dir ${CMAKE_INSTALL_LIBEXECDIR}/brusbo)
set(brusbo_data_dir ${CMAKE_INSTALL_DATADIR}/brusbo)
set(brusbo_doc_dir ${CMAKE_INSTALL_DATAROOTDIR}/doc/brusbo)
set(brusbo_generated ${PROJECT_BINARY_DIR}/packaging)

# The launcher knows the other folders by their way from its own, so that the whole tree can be
# moved, or be looked at in a staging folder.
file(RELATIVE_PATH brusbo_data_from_bin
  ${CMAKE_INSTALL_FULL_BINDIR} ${CMAKE_INSTALL_FULL_DATADIR}/brusbo)
file(RELATIVE_PATH brusbo_program_from_bin
  ${CMAKE_INSTALL_FULL_BINDIR} ${CMAKE_INSTALL_FULL_LIBEXECDIR}/brusbo)

foreach(name IN ITEMS brusbo brusbo.6 brusbo.sv.6 org.example.brusbo.metainfo.xml
                      changelog.Debian)
  configure_file(packaging/${name}.in ${brusbo_generated}/${name} @ONLY)
endforeach()

# The same bytes from the same text: no name and no time of day in the compressed file.
function(brusbo_compress source target)
  add_custom_command(OUTPUT ${brusbo_generated}/${target}
    COMMAND gzip -9nc ${source} > ${brusbo_generated}/${target}
    DEPENDS ${source}
    VERBATIM)
  set_property(GLOBAL APPEND PROPERTY brusbo_compressed ${brusbo_generated}/${target})
endfunction()
file(MAKE_DIRECTORY ${brusbo_generated}/sv)
brusbo_compress(${brusbo_generated}/brusbo.6 brusbo.6.gz)
brusbo_compress(${brusbo_generated}/brusbo.sv.6 sv/brusbo.6.gz)
brusbo_compress(${brusbo_generated}/changelog.Debian changelog.Debian.gz)
brusbo_compress(${PROJECT_SOURCE_DIR}/CHANGELOG.md changelog.gz)
get_property(brusbo_compressed GLOBAL PROPERTY brusbo_compressed)
add_custom_target(packaging ALL DEPENDS ${brusbo_compressed})

install(TARGETS brusbo RUNTIME DESTINATION ${brusbo_program_dir} COMPONENT game)
if(TARGET brusbo_sound)
  install(TARGETS brusbo_sound LIBRARY DESTINATION ${brusbo_program_dir} COMPONENT game)
endif()
install(PROGRAMS ${brusbo_generated}/brusbo DESTINATION ${CMAKE_INSTALL_BINDIR} COMPONENT game)
install(FILES assets/data/brs.dat assets/data/s1.wav assets/data/s2.wav assets/data/s3.wav
  DESTINATION ${brusbo_data_dir} COMPONENT game)
install(FILES assets/icon/brusbo.svg
  DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/scalable/apps COMPONENT game)
install(FILES assets/icon/brusbo-48.png RENAME brusbo.png
  DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/48x48/apps COMPONENT game)
install(FILES packaging/brusbo.desktop
  DESTINATION ${CMAKE_INSTALL_DATADIR}/applications COMPONENT game)
install(FILES ${brusbo_generated}/org.example.brusbo.metainfo.xml
  DESTINATION ${CMAKE_INSTALL_DATADIR}/metainfo COMPONENT game)
install(FILES ${brusbo_generated}/brusbo.6.gz
  DESTINATION ${CMAKE_INSTALL_MANDIR}/man6 COMPONENT game)
install(FILES ${brusbo_generated}/sv/brusbo.6.gz
  DESTINATION ${CMAKE_INSTALL_MANDIR}/sv/man6 COMPONENT game)

# Debian wants the licence and the list of changes under names of its own.
install(FILES LICENSE CHANGELOG.md DESTINATION ${brusbo_doc_dir} COMPONENT documents)
install(FILES packaging/copyright ${brusbo_generated}/changelog.Debian.gz
              ${brusbo_generated}/changelog.gz
  DESTINATION ${brusbo_doc_dir} COMPONENT debian EXCLUDE_FROM_ALL)
install(FILES packaging/lintian-overrides RENAME brusbo
  DESTINATION ${CMAKE_INSTALL_DATADIR}/lintian/overrides COMPONENT debian EXCLUDE_FROM_ALL)

include(cmake/package.cmake)
