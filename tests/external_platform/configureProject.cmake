# Configures the project in SOURCE_FOLDER and looks at what its build would link.

execute_process(
  COMMAND ${CMAKE_COMMAND} -S ${SOURCE_FOLDER} -B ${BUILD_FOLDER} -G Ninja --fresh
  OUTPUT_QUIET
  COMMAND_ERROR_IS_FATAL ANY)
execute_process(
  COMMAND ninja -C ${BUILD_FOLDER} -t commands integrator
  OUTPUT_VARIABLE commands
  COMMAND_ERROR_IS_FATAL ANY)

if(NOT commands MATCHES "-soname,libgeneric_utils\\.so[^\n]*libintegrator_platform\\.so")
  message(FATAL_ERROR "The library is not linked with the project's platform:\n${commands}")
endif()
if(commands MATCHES "generic_utils_platform|platform/host")
  message(FATAL_ERROR "The host's platform is built all the same:\n${commands}")
endif()
