# Read by cpack as it starts.

# Without another wish a package carries the day of its release, so that the same commit gives the
# same bytes whenever it is packed.
if(NOT DEFINED ENV{SOURCE_DATE_EPOCH})
  set(ENV{SOURCE_DATE_EPOCH} ${CPACK_BRUSBO_EPOCH})
endif()

# The linked libraries' packages are computed from the binaries; what is only opened at run time
# leaves no trace in them and comes from the list that ./run installs from.
execute_process(COMMAND ${CPACK_BRUSBO_PACKAGES}/install --names runtime
  OUTPUT_VARIABLE runtime OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY)
string(REPLACE "\n" ", " CPACK_DEBIAN_PACKAGE_DEPENDS "${runtime}")
