# Cross compilation for 64-bit Arm with Debian's compiler; programs run under qemu-user.

set(CMAKE_SYSTEM_NAME Linux)
set(CMAKE_SYSTEM_PROCESSOR aarch64)
set(CMAKE_CXX_COMPILER aarch64-linux-gnu-g++)
set(CMAKE_C_COMPILER aarch64-linux-gnu-gcc)
# pauth-impdef: return addresses are signed in the way that is fast to emulate.
set(CMAKE_CROSSCOMPILING_EMULATOR
  qemu-aarch64-static -cpu max,pauth-impdef=on -L /usr/aarch64-linux-gnu)
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
# Of fmt only the headers are used, which the host's package has.
set(fmt_DIR "/usr/lib/${CMAKE_HOST_SYSTEM_PROCESSOR}-linux-gnu/cmake/fmt")
