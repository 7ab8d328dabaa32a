# ./dev abi

readonly ABI_PACKAGES=(python3-pyelftools abigail-tools binutils gzip)

# Each library, and where the build leaves it.
readonly ABI_LIBRARIES=(generic_utils:generic/utils generic_utils_platform:platform/host)

# What is compared: the types that the installed headers tell of.
readonly ABI_SCOPE=(--suppressions abi/abidiff.suppr --drop-private-types
  --exported-interfaces-only)
readonly ABI_HEADERS=(generic/utils/include platform/include)

# headers_options OPTION: OPTION before the name of each folder of headers.
headers_options() { printf -- "$1\n%s\n" "${ABI_HEADERS[@]}"; }

# write_baseline LIBRARY FILE
write_baseline()
{
    local headers
    mapfile -t headers < <(headers_options --headers-dir)
    abidw "${ABI_SCOPE[@]}" "${headers[@]}" --no-corpus-path --no-comp-dir-path --no-show-locs \
        --type-id-style hash "$1" | gzip -9 --no-name >"$2"
}

# compare_baseline LIBRARY FILE: fails for any difference, compatible ones too.
compare_baseline()
{
    local headers status=0 baseline=build/package/baseline.abi
    mapfile -t headers < <(headers_options --headers-dir2)
    gzip --decompress --stdout "$2" >"$baseline"
    abidiff "${ABI_SCOPE[@]}" "${headers[@]}" "$baseline" "$1" || status=$?
    ((status == 0)) || say "$1 differs from $2: see docs/abi.md, then ./dev abi --update"
    return "$status"
}

# check_library NAME FILE UPDATE
check_library()
{
    local name=$1 library=$2 update=$3 baseline
    # What a baseline tells depends on the machine.
    baseline=abi/$name.$(uname -m).abi.gz
    if [[ $update == yes ]]; then
        abi/symbols.py update "$library" "abi/$name.symbols"
        write_baseline "$library" "$baseline"
    else
        abi/symbols.py check "$library" "abi/$name.symbols"
        abi/hardening.py "$library"
        compare_baseline "$library" "$baseline"
    fi
}

check_abi()
{
    local update=${1:-no} entry
    build package --target generic_utils
    for entry in "${ABI_LIBRARIES[@]}"; do
        check_library "${entry%%:*}" "build/package/${entry#*:}/lib${entry%%:*}.so" "$update"
    done
}

## abi [--update]
##     Compare the libraries with the recorded binary interface: the reviewed lists of symbols, and
##     a baseline of all types. --update records what they have now.
cmd_abi()
{
    local update=no
    case "$*" in
        "") ;;
        --update) update=yes ;;
        *) usage_error "abi takes --update or nothing, not '$*'" ;;
    esac
    need_packages "to compare binary interfaces" \
        "${BUILD_PACKAGES[@]}" "${EXAMPLE_PACKAGES[@]}" "${ABI_PACKAGES[@]}"
    check_abi "$update"
    say "abi: done in $SECONDS s"
}
