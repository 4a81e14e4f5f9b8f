# What the program for Windows carries and what its packages hold: everything in one folder, since
# the game looks for its files where it is started.
if(NOT TARGET brusbo)
  return()
endif()
set(brusbo_icon ${PROJECT_SOURCE_DIR}/assets/icon/brusbo.ico)
enable_language(RC)
configure_file(packaging/windows/brusbo.rc.in brusbo.rc @ONLY)
set_source_files_properties(${PROJECT_BINARY_DIR}/brusbo.rc TARGET_DIRECTORY brusbo PROPERTIES
  OBJECT_DEPENDS "${brusbo_icon};${PROJECT_SOURCE_DIR}/packaging/windows/brusbo.manifest"
  COMPILE_OPTIONS "-c;65001")
target_sources(brusbo PRIVATE ${PROJECT_BINARY_DIR}/brusbo.rc)
# Nothing that is not called, no time of day.
target_link_options(brusbo PRIVATE -Wl,--gc-sections -Wl,--no-insert-timestamp -Wl,-s)

install(TARGETS brusbo RUNTIME DESTINATION .)
install(FILES assets/data/brs.dat assets/data/s1.wav assets/data/s2.wav assets/data/s3.wav
  DESTINATION .)
configure_file(packaging/windows/NOTICE.txt.in NOTICE.txt @ONLY)
install(FILES ${PROJECT_BINARY_DIR}/NOTICE.txt DESTINATION licenses)
install(FILES LICENSE RENAME Brusbo.txt DESTINATION licenses)
foreach(name IN ITEMS LGPL-3 GPL-3)
  install(FILES /usr/share/common-licenses/${name} RENAME ${name}.txt DESTINATION licenses)
endforeach()
foreach(package IN ITEMS libqt6core6 g++-mingw-w64-x86-64-posix mingw-w64-x86-64-dev)
  install(FILES /usr/share/doc/${package}/copyright RENAME ${package}.txt DESTINATION licenses)
endforeach()
