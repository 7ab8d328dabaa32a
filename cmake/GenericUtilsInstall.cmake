# What `cmake --install` puts where. Components: runtime (the shared libraries), development (all
# that is needed to build against them) and examples.
#
# The installed tree may be moved: the CMake package and the pkg-config file find their prefix from
# where they are, and the libraries look for each other beside themselves.

include(CMakePackageConfigHelpers)

set(GENERIC_UTILS_CMAKE_DIR "${CMAKE_INSTALL_LIBDIR}/cmake/generic_utils")

# A folder of the pkg-config file: below its prefix, unless an absolute one was asked for.
function(generic_utils_pc_folder result folder)
  if(IS_ABSOLUTE "${folder}")
    set(${result} "${folder}" PARENT_SCOPE)
  else()
    set(${result} "\${prefix}/${folder}" PARENT_SCOPE)
  endif()
endfunction()

function(generic_utils_install_libraries)
  set_target_properties(generic_utils PROPERTIES INSTALL_RPATH "$ORIGIN")
  install(TARGETS generic_utils generic_utils_platform EXPORT generic_utilsTargets
    LIBRARY
      DESTINATION "${CMAKE_INSTALL_LIBDIR}"
      COMPONENT runtime
      NAMELINK_COMPONENT development)
  install(DIRECTORY generic/utils/include/ platform/include/
    DESTINATION "${CMAKE_INSTALL_INCLUDEDIR}"
    COMPONENT development
    FILES_MATCHING PATTERN "*.h")
endfunction()

function(generic_utils_install_cmake_package)
  set(build_dir "${PROJECT_BINARY_DIR}/package")
  configure_package_config_file(cmake/generic_utilsConfig.cmake.in
    "${build_dir}/generic_utilsConfig.cmake"
    INSTALL_DESTINATION "${GENERIC_UTILS_CMAKE_DIR}"
    NO_SET_AND_CHECK_MACRO)
  write_basic_package_version_file("${build_dir}/generic_utilsConfigVersion.cmake"
    COMPATIBILITY SameMajorVersion)
  install(FILES
      "${build_dir}/generic_utilsConfig.cmake"
      "${build_dir}/generic_utilsConfigVersion.cmake"
    DESTINATION "${GENERIC_UTILS_CMAKE_DIR}"
    COMPONENT development)
  install(EXPORT generic_utilsTargets
    NAMESPACE generic_utils::
    DESTINATION "${GENERIC_UTILS_CMAKE_DIR}"
    COMPONENT development)
endfunction()

function(generic_utils_install_pkg_config)
  set(folder "${CMAKE_INSTALL_LIBDIR}/pkgconfig")
  cmake_path(ABSOLUTE_PATH folder BASE_DIRECTORY "${CMAKE_INSTALL_PREFIX}" NORMALIZE
    OUTPUT_VARIABLE absolute_folder)
  cmake_path(RELATIVE_PATH CMAKE_INSTALL_PREFIX BASE_DIRECTORY "${absolute_folder}"
    OUTPUT_VARIABLE GENERIC_UTILS_PC_TO_PREFIX)
  generic_utils_pc_folder(GENERIC_UTILS_PC_INCLUDEDIR "${CMAKE_INSTALL_INCLUDEDIR}")
  generic_utils_pc_folder(GENERIC_UTILS_PC_LIBDIR "${CMAKE_INSTALL_LIBDIR}")
  configure_file(cmake/generic_utils.pc.in "${PROJECT_BINARY_DIR}/package/generic_utils.pc" @ONLY)
  install(FILES "${PROJECT_BINARY_DIR}/package/generic_utils.pc"
    DESTINATION "${folder}"
    COMPONENT development)
endfunction()

function(generic_utils_install_docs)
  install(FILES README.md CHANGELOG.md
    DESTINATION "${CMAKE_INSTALL_DOCDIR}"
    COMPONENT development)
  install(DIRECTORY docs/
    DESTINATION "${CMAKE_INSTALL_DOCDIR}/docs"
    COMPONENT development
    FILES_MATCHING PATTERN "*.md")
endfunction()

# generic_utils_install_example(<target> [FILES <data file>...]): the program, hardened; its sources,
# and with them the files that it reads.
function(generic_utils_install_example target)
  generic_utils_harden(${target})
  if(NOT GENERIC_UTILS_INSTALL)
    return()
  endif()
  cmake_parse_arguments(arg "" "" "FILES" ${ARGN})
  set(program_dir "${CMAKE_INSTALL_LIBDIR}/generic_utils/examples")
  set_target_properties(${target} PROPERTIES INSTALL_RPATH "$ORIGIN/../..")
  install(TARGETS ${target}
    RUNTIME DESTINATION "${program_dir}" COMPONENT examples)
  set(source_dir "${CMAKE_INSTALL_DATADIR}/generic_utils/examples/${target}")
  install(DIRECTORY ./
    DESTINATION "${source_dir}"
    COMPONENT examples
    FILES_MATCHING PATTERN "*.h" PATTERN "*.cpp" PATTERN "*.md")
  install(FILES ${arg_FILES}
    DESTINATION "${source_dir}"
    COMPONENT examples)
endfunction()

if(GENERIC_UTILS_INSTALL)
  generic_utils_install_libraries()
  generic_utils_install_cmake_package()
  generic_utils_install_pkg_config()
  generic_utils_install_docs()
endif()
