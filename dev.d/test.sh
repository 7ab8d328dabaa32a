# ./dev test

# An attribute of the first element of a JUnit report that has it.
junit_number() { grep -m 1 -oP "^\s*$1=\"\K[0-9]+" "$2"; }

# count_tests PRESET: prints "N passed, N failed". What was skipped or could not be started counts
# as failed: it has shown nothing.
count_tests()
{
    local report=build/$1/ctest.xml total not_passed=0 kind
    total=$(junit_number tests "$report")
    for kind in failures disabled skipped; do
        not_passed=$((not_passed + $(junit_number "$kind" "$report")))
    done
    echo "$((total - not_passed)) passed, $not_passed failed"
}

# run_tests PRESET [ctest argument...]: leaves the counts in build/PRESET/test-counts.
run_tests()
{
    local preset=$1 start=$SECONDS status=0 counts
    shift
    rm -f "build/$preset/ctest.xml" "build/$preset/test-counts"
    say "running the tests of preset $preset"
    "${LAUNCHER[@]}" ctest --preset "$preset" --output-junit "$ROOT/build/$preset/ctest.xml" "$@" ||
        status=$?
    if [[ ! -s build/$preset/ctest.xml ]]; then
        return "$status"
    fi
    counts=$(count_tests "$preset")
    echo "$counts" >"build/$preset/test-counts"
    say "$preset: $counts in $((SECONDS - start)) s"
    [[ $status -eq 0 && $counts == *" 0 failed" ]]
}

test_preset()
{
    local preset=$1
    shift
    if [[ $preset == tsan ]]; then
        use_tsan_launcher
    fi
    build "$preset"
    run_tests "$preset" "$@"
}

## test [PRESET] [CTEST ARGUMENT...]
##     Build and run the tests. PRESET is release (the default), dev, asan, tsan or clang; what
##     follows goes to ctest: ./dev test asan -R Queue
cmd_test()
{
    local preset=release packages
    packages=("${BUILD_PACKAGES[@]}" "${EXAMPLE_PACKAGES[@]}" "${TEST_PACKAGES[@]}")
    if [[ $# -gt 0 && $1 != -* ]]; then
        preset=$1
        shift
    fi
    case $preset in
        release) packages+=("$(newest_clang)" ccache) ;;
        asan) packages+=("${CLANG_SANITIZER_PACKAGES[@]}") ;;
        dev | tsan) ;;
        clang) packages+=("${BENCH_PACKAGES[@]}" "${CHECK_PACKAGES[@]}") ;;
        *) usage_error "unknown preset '$preset' for test" ;;
    esac
    need_packages "to build and run the tests" "${packages[@]}"
    test_preset "$preset" "$@"
}
