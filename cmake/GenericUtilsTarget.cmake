# What every target of this project is compiled with.

# Names the sources as seen from the project's root, wherever it is checked out, so that trace and
# error headers, debug information and so the whole build do not depend on the folder.
set(GENERIC_UTILS_PREFIX_MAP "-ffile-prefix-map=${PROJECT_SOURCE_DIR}/=")

function(generic_utils_sanitize target)
  if(NOT GENERIC_UTILS_SANITIZE)
    return()
  endif()
  list(JOIN GENERIC_UTILS_SANITIZE "," sanitizers)
  target_compile_options(${target} PRIVATE
    -fsanitize=${sanitizers} -fno-omit-frame-pointer -fno-sanitize-recover=all)
  target_link_options(${target} PRIVATE -fsanitize=${sanitizers})
endfunction()

# Applies the project's settings to a target: language level, warnings, hidden symbols, sanitizers.
function(generic_utils_configure target)
  target_compile_features(${target} PRIVATE cxx_std_20)
  target_compile_options(${target} PRIVATE
    -Wall -Wextra -Wpedantic -Wshadow -Wconversion "${GENERIC_UTILS_PREFIX_MAP}")
  set_target_properties(${target} PROPERTIES
    CXX_EXTENSIONS OFF
    # What is built finds its libraries wherever the build folder is, and does not name it.
    BUILD_RPATH_USE_ORIGIN ON
    CXX_VISIBILITY_PRESET hidden
    VISIBILITY_INLINES_HIDDEN ON)
  generic_utils_sanitize(${target})
endfunction()

# generic_utils_precompile(<target> <header>...): compiles headers once for all sources of a target,
# where it is built together with tests, hence often. Builds for use do without, and so tell when a
# source does not include what it needs.
function(generic_utils_precompile target)
  if(GENERIC_UTILS_BUILD_TESTS OR GENERIC_UTILS_BUILD_FUZZERS)
    target_precompile_headers(${target} PRIVATE ${ARGN})
  endif()
endfunction()

# For what is installed: checks against overrun buffers and redirected control flow, tables that are
# read-only once the program runs. Sanitizers check more, and in their own way.
function(generic_utils_harden target)
  if(GENERIC_UTILS_SANITIZE)
    return()
  endif()
  if(CMAKE_SYSTEM_PROCESSOR MATCHES "^(x86_64|AMD64)$")
    set(control_flow -fcf-protection=full)
  elseif(CMAKE_SYSTEM_PROCESSOR STREQUAL "aarch64")
    set(control_flow -mbranch-protection=standard)
  endif()
  target_compile_options(${target} PRIVATE
    -fstack-protector-strong
    ${control_flow}
    # Works on optimised code only, and says so with a warning.
    $<$<CONFIG:Release,RelWithDebInfo,MinSizeRel>:-U_FORTIFY_SOURCE;-D_FORTIFY_SOURCE=2>)
  target_link_options(${target} PRIVATE LINKER:-z,relro,-z,now)
endfunction()

# Keeps all symbols of a shared library local but those that a version script of abi/ names.
function(generic_utils_export_only target map)
  set(file "${PROJECT_SOURCE_DIR}/abi/${map}")
  target_link_options(${target} PRIVATE "LINKER:--version-script=${file}")
  set_property(TARGET ${target} APPEND PROPERTY LINK_DEPENDS "${file}")
endfunction()
