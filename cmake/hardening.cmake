# What guards the program that players get against faults that slip through.
include(CheckPIESupported)
check_pie_supported(LANGUAGES CXX)
if(NOT BRUSBO_SANITIZE AND NOT BRUSBO_FUZZERS)
  target_compile_options(brusbo_options INTERFACE
    $<$<CONFIG:Release>:-U_FORTIFY_SOURCE>
    $<$<CONFIG:Release>:-D_FORTIFY_SOURCE=2>
    $<$<CONFIG:Release>:-fstack-protector-strong>)
  if(WIN32)
    target_link_options(brusbo_options INTERFACE
      -fstack-protector-strong -Wl,--dynamicbase,--high-entropy-va,--nxcompat)
  else()
    target_link_options(brusbo_options INTERFACE -Wl,-z,relro,-z,now)
  endif()
endif()
