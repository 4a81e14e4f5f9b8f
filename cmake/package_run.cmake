# Read by cpack as it starts.

# Without another wish a package carries the day of its release, so that the same commit gives the
# same bytes whenever it is packed.
if(NOT DEFINED ENV{SOURCE_DATE_EPOCH})
  set(ENV{SOURCE_DATE_EPOCH} ${CPACK_BRUSBO_EPOCH})
endif()

# The linked libraries' packages are computed from the binaries; what is only opened at run time
# leaves no trace in them and comes from the list that ./run installs from.
file(STRINGS ${CPACK_BRUSBO_RUNTIME_LIST} runtime REGEX "^[^#]")
list(JOIN runtime ", " CPACK_DEBIAN_PACKAGE_DEPENDS)
