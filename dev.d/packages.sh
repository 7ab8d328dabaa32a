# Debian packages: what the builds need, and how it is installed.

# The presets configure the tests and the examples together, so both are needed to build either.
readonly BUILD_PACKAGES=(g++ cmake ninja-build)
readonly EXAMPLE_PACKAGES=(libboost-dev libcli11-dev libfmt-dev)
readonly TEST_PACKAGES=(libgtest-dev libgmock-dev pkg-config python3-pyelftools python3-pytest
  python3-pyvisa python3-pyvisa-py)
# llvm names the lines in what the sanitizers report.
readonly CLANG_SANITIZER_PACKAGES=(clang libclang-rt-14-dev llvm)

# The newest Clang that this system's package lists know, to build against the library with.
newest_clang()
{
    local newest
    newest=$(apt-cache pkgnames clang- 2>/dev/null | grep -xE 'clang-[0-9]+' | sort -V | tail -n 1) || :
    echo "${newest:-clang}"
}

# The packages among those given that are not installed, one a line.
missing_packages()
{
    local installed
    installed=$(dpkg-query -W -f '${db:Status-Status} ${Package}\n' "$@" 2>/dev/null |
        sed -n 's/^installed //p') || :
    printf '%s\n' "$@" | grep -vxF -f <(printf '%s\n' "$installed") || :
}

# need_packages REASON PACKAGE...: installs those that are missing.
need_packages()
{
    local reason=$1 missing as_root=()
    shift
    if ! command -v dpkg-query >/dev/null; then
        say "no Debian packages on this system: relying on its own compiler, libraries and tools."
        return
    fi
    mapfile -t missing < <(missing_packages "$@")
    if ((${#missing[@]} == 0)); then
        return
    fi
    if ((EUID != 0)); then
        command -v sudo >/dev/null ||
            die "${missing[*]} must be installed ($reason), and here is neither root nor sudo."
        as_root=(sudo)
    fi
    say "installing ${missing[*]} ($reason)"
    "${as_root[@]}" apt-get update -qq
    "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive \
        apt-get install -qq -o Dpkg::Use-Pty=0 --yes --no-install-recommends "${missing[@]}"
}
