# ./dev check

readonly CHECK_PACKAGES=(git clang clang-tidy clang-format cppcheck shellcheck)

cpp_files() { git ls-files -z '*.h' '*.cpp'; }

check_scripts()
{
    local script
    for script in dev dev.d/*.sh .ci/run tests/consumers/run; do
        bash -n "$script"
    done
    # The parts of ./dev share its variables, so they are looked at as one script.
    shellcheck --shell=bash --external-sources dev .ci/run tests/consumers/run
}

check_format()
{
    cpp_files | xargs -0 -r clang-format --dry-run -Werror --ferror-limit=1 ||
        die "run 'clang-format -i' on these files."
}

# clang-tidy runs beside the compiler, so that ninja checks again only what has changed. Ninja does
# not know of the rules themselves: when they are newer than the last run, everything is checked.
check_clang()
{
    local stamp=build/clang/rules_seen
    if [[ -e $stamp && -n $(git ls-files -z '*.clang-tidy' |
        xargs -0 -I {} find {} -newer "$stamp") ]]; then
        cmake --build --preset clang --target clean
    fi
    mkdir -p build/clang
    touch "$stamp"
    build clang -- -k 0
}

check_cppcheck()
{
    mkdir -p build/cppcheck
    cppcheck --project=build/clang/compile_commands.json --cppcheck-build-dir=build/cppcheck \
        --enable=warning,performance,portability --inline-suppr --library=googletest \
        --suppressions-list=.cppcheck-suppressions --error-exitcode=1 --quiet \
        -j "$CMAKE_BUILD_PARALLEL_LEVEL"
}

# phase NAME COMMAND...: runs one check and notes how it went in CHECK_RESULTS.
CHECK_RESULTS=()
CHECK_FAILURES=0
phase()
{
    local name=$1 start=$SECONDS status
    shift
    say "check: $name"
    # Not "if (...)", in which set -e would be off for all that the command calls.
    set +e
    (
        set -e
        "$@"
    )
    status=$?
    set -e
    if ((status == 0)); then
        CHECK_RESULTS+=("$name ok ($((SECONDS - start)) s)")
    else
        CHECK_RESULTS+=("$name FAILED")
        CHECK_FAILURES=$((CHECK_FAILURES + 1))
    fi
}

## check [--fast]
##     Scripts, clang-format, the reference of the headers, a build of everything with Clang and
##     clang-tidy, cppcheck, the binary interface, then the tests under the sanitizers; --fast
##     leaves the sanitizers out.
cmd_check()
{
    local fast=no
    case "$*" in
        "") ;;
        --fast) fast=yes ;;
        *) usage_error "check takes --fast or nothing, not '$*'" ;;
    esac
    need_packages "to check the code" "${BUILD_PACKAGES[@]}" "${EXAMPLE_PACKAGES[@]}" \
        "${TEST_PACKAGES[@]}" "${BENCH_PACKAGES[@]}" "${CLANG_SANITIZER_PACKAGES[@]}" \
        "${CHECK_PACKAGES[@]}" "${DOCS_PACKAGES[@]}" "${ABI_PACKAGES[@]}"
    phase scripts check_scripts
    phase clang-format check_format
    phase docs make_docs
    phase clang check_clang
    phase cppcheck check_cppcheck
    phase abi check_abi
    if [[ $fast == no ]]; then
        phase asan test_preset asan
        phase tsan test_preset tsan
    fi
    say "check: $(printf '%s, ' "${CHECK_RESULTS[@]}" | sed 's/, $//')"
    ((CHECK_FAILURES == 0)) || die "$CHECK_FAILURES of ${#CHECK_RESULTS[@]} checks failed."
    say "check: all ${#CHECK_RESULTS[@]} checks passed in $SECONDS s"
}
