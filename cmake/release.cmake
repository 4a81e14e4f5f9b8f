# The version stands in VERSION alone; the day of its release and what it brings stand in
# CHANGELOG.md under the heading "## VERSION, YEAR-MONTH-DAY". Sets brusbo_release_date (ISO),
# brusbo_release_epoch (seconds), and brusbo_release_changes (Debian's form of the entry).
file(STRINGS CHANGELOG.md brusbo_changelog ENCODING UTF-8)
set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS CHANGELOG.md VERSION)
string(REPLACE "." "\\." version_pattern "${PROJECT_VERSION}")
set(brusbo_release_date)
set(brusbo_release_changes)
foreach(line IN LISTS brusbo_changelog)
  if(line MATCHES "^## ${version_pattern}, ([0-9]+-[0-9][0-9]-[0-9][0-9])$")
    set(brusbo_release_date ${CMAKE_MATCH_1})
  elseif(brusbo_release_date)
    if(line MATCHES "^## ")
      break()
    elseif(line MATCHES "^- (.*)$")
      string(APPEND brusbo_release_changes "  * ${CMAKE_MATCH_1}\n")
    elseif(line MATCHES "^  ([^ ].*)$")
      string(APPEND brusbo_release_changes "    ${CMAKE_MATCH_1}\n")
    endif()
  endif()
endforeach()
if(NOT brusbo_release_date)
  message(FATAL_ERROR "CHANGELOG.md has no heading \"## ${PROJECT_VERSION}, YEAR-MONTH-DAY\".")
endif()
execute_process(COMMAND date --utc --date=${brusbo_release_date} +%s
  OUTPUT_VARIABLE brusbo_release_epoch OUTPUT_STRIP_TRAILING_WHITESPACE
  COMMAND_ERROR_IS_FATAL ANY)
execute_process(
  COMMAND ${CMAKE_COMMAND} -E env LC_ALL=C date --utc --rfc-email --date=${brusbo_release_date}
  OUTPUT_VARIABLE brusbo_release_rfc_date OUTPUT_STRIP_TRAILING_WHITESPACE
  COMMAND_ERROR_IS_FATAL ANY)
