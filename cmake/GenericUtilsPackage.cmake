# Debian packages, one a component of the installation: cpack -G DEB, see ./dev package.
#
# They do not depend on when they are made: with SOURCE_DATE_EPOCH set, every time in them is that.

set(GENERIC_UTILS_MAINTAINER "generic_utils maintainers <generic-utils@lists.debian.org>")
set(GENERIC_UTILS_DEBIAN_RELEASE 1)
set(GENERIC_UTILS_DEBIAN_VERSION "${PROJECT_VERSION}-${GENERIC_UTILS_DEBIAN_RELEASE}")

# Read by string(TIMESTAMP): SOURCE_DATE_EPOCH.
string(TIMESTAMP GENERIC_UTILS_CHANGELOG_DATE "%a, %d %b %Y %H:%M:%S +0000" UTC)
set(generic_utils_changelog "${PROJECT_BINARY_DIR}/package/changelog.Debian")
configure_file(packaging/changelog.in "${generic_utils_changelog}" @ONLY)
execute_process(COMMAND gzip -9 --no-name --force --keep "${generic_utils_changelog}"
  COMMAND_ERROR_IS_FATAL ANY)

# What depends on the libraries of a package needs at least this version of it; and the dynamic
# linker's cache is to be renewed.
set(generic_utils_control_dir "${PROJECT_BINARY_DIR}/package/control")
configure_file(packaging/shlibs.in "${generic_utils_control_dir}/shlibs" @ONLY)
configure_file(packaging/triggers "${generic_utils_control_dir}/triggers" COPYONLY)
set(CPACK_DEBIAN_RUNTIME_PACKAGE_CONTROL_EXTRA
  "${generic_utils_control_dir}/shlibs" "${generic_utils_control_dir}/triggers")

# generic_utils_debian_package(<component> <package> <section> <description>): what one component is
# packed as. A line of the description has at most 78 characters.
function(generic_utils_debian_package component package section description)
  string(TOUPPER ${component} name)
  set(CPACK_DEBIAN_${name}_PACKAGE_NAME ${package} PARENT_SCOPE)
  set(CPACK_DEBIAN_${name}_FILE_NAME DEB-DEFAULT PARENT_SCOPE)
  set(CPACK_DEBIAN_${name}_PACKAGE_SECTION ${section} PARENT_SCOPE)
  set(CPACK_DEBIAN_${name}_DESCRIPTION "${description}" PARENT_SCOPE)
  install(FILES packaging/copyright "${generic_utils_changelog}.gz"
    DESTINATION "${CMAKE_INSTALL_DATADIR}/doc/${package}"
    COMPONENT ${component})
  install(FILES "packaging/${package}.lintian-overrides"
    DESTINATION "${CMAKE_INSTALL_DATADIR}/lintian/overrides"
    RENAME ${package}
    COMPONENT ${component})
endfunction()

generic_utils_debian_package(runtime libgeneric-utils1 libs
"Threads that work off queues of commands, traces that can be switched on in
the field, and errors that are always reported in the same way.")
generic_utils_debian_package(development libgeneric-utils-dev libdevel
"The headers of libgeneric-utils1, what CMake and pkg-config need to build
against it, and its documentation.")
generic_utils_debian_package(examples generic-utils-examples misc
"Programs to try libgeneric-utils1 with, and their sources.")

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME generic-utils)
set(CPACK_PACKAGE_VERSION "${PROJECT_VERSION}")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "groundwork for the application processes of an instrument")
set(CPACK_PACKAGE_DIRECTORY "${PROJECT_BINARY_DIR}/debs")
set(CPACK_COMPONENTS_ALL runtime development examples)
set(CPACK_COMPONENT_DEVELOPMENT_DEPENDS runtime)
set(CPACK_COMPONENT_EXAMPLES_DEPENDS runtime)
set(CPACK_STRIP_FILES ON)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
  OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)

set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_DEBIAN_ENABLE_COMPONENT_DEPENDS ON)
set(CPACK_DEBIAN_PACKAGE_RELEASE ${GENERIC_UTILS_DEBIAN_RELEASE})
set(CPACK_DEBIAN_PACKAGE_MAINTAINER "${GENERIC_UTILS_MAINTAINER}")
set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS
  "${PROJECT_BINARY_DIR}/generic/utils" "${PROJECT_BINARY_DIR}/platform/host")
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
include(CPack)
