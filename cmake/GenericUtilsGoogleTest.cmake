# GTest::gmock and GTest::gtest_main: as installed, or built here from Debian's sources (package
# googletest) for a system whose packages this machine does not have.

if(NOT CMAKE_CROSSCOMPILING)
  find_package(GTest REQUIRED)
  return()
endif()

set(INSTALL_GTEST OFF)
set(CMAKE_COMPILE_WARNING_AS_ERROR OFF)  # not this project's code
add_subdirectory(/usr/src/googletest "${CMAKE_BINARY_DIR}/googletest" EXCLUDE_FROM_ALL)
unset(CMAKE_COMPILE_WARNING_AS_ERROR)
