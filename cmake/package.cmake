# `cpack` in the build directory makes the Debian package.
set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME brusbo)
set(CPACK_PACKAGE_VENDOR "the Brusbo team")
set(CPACK_PACKAGE_CONTACT "The Brusbo team <brusbo@example.org>")
set(CPACK_PACKAGE_VERSION ${PROJECT_VERSION})
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "board game in Swedish for two to four people")
set(CPACK_PACKAGE_DESCRIPTION
"Brusbo is a board game for two to four people who share one computer and
take turns at the mouse or the keyboard. Each player brings four pieces out
of the nest, once round the ring of forty squares and up the home lane to
the goal in the middle of the board, and knocks the others' pieces home on
the way.
.
All texts that the players see are in Swedish.")
set(CPACK_PACKAGE_DIRECTORY ${PROJECT_BINARY_DIR})
set(CPACK_STRIP_FILES ON)
set(CPACK_VERBATIM_VARIABLES ON)
set(CPACK_COMPONENTS_ALL game debian)
set(CPACK_COMPONENTS_GROUPING ALL_COMPONENTS_IN_ONE)

set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_RELEASE 1)
set(CPACK_DEBIAN_PACKAGE_SECTION games)
set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)
set(CPACK_DEBIAN_PACKAGE_HOMEPAGE "https://brusbo.example.org")
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
set(CPACK_DEBIAN_COMPRESSION_TYPE xz)

set(CPACK_PRE_BUILD_SCRIPTS ${PROJECT_SOURCE_DIR}/cmake/package_modes.cmake)
set(CPACK_PROJECT_CONFIG_FILE ${PROJECT_SOURCE_DIR}/cmake/package_run.cmake)
set(CPACK_BRUSBO_EPOCH ${brusbo_release_epoch})
set(CPACK_BRUSBO_PACKAGES ${PROJECT_SOURCE_DIR}/cmake/packages)
include(CPack)
