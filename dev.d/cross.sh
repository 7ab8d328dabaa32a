# ./dev cross

readonly CROSS_PACKAGES=(g++-aarch64-linux-gnu qemu-user-static googletest)

# The tests that the emulator can not run: on each line a pattern of test names, and after # why.
readonly LEFT_OUT_TESTS=tests/emulated/left_out.txt

# Every object of the libraries is compiled with signed return addresses and marked branch targets.
# The linked libraries do not say so where, as in Debian 12, the compiler's own start files are not.
check_branch_protection()
{
    local folder object objects=()
    for folder in generic/utils platform/host; do
        mapfile -t -O "${#objects[@]}" objects < <(find "build/aarch64/$folder" -name '*.o')
    done
    ((${#objects[@]} > 0)) || die "no objects of the libraries in build/aarch64."
    for object in "${objects[@]}"; do
        aarch64-linux-gnu-readelf --notes "$object" | grep -q 'AArch64 feature: BTI, PAC' ||
            die "$object is built without branch protection."
    done
    say "branch protection: all ${#objects[@]} objects of the libraries have BTI and PAC"
}

# count_listed [ctest argument...]: how many tests would run.
count_listed() { ctest --preset aarch64 -N "$@" | sed -n 's/^Total Tests: //p'; }

# The patterns of LEFT_OUT_TESTS as one; fails when a line has no reason or stands for no test.
left_out_pattern()
{
    local pattern reason patterns=()
    while IFS='#' read -r pattern reason; do
        pattern=${pattern%"${pattern##*[![:space:]]}"}
        [[ -n $pattern ]] || continue
        [[ -n $reason ]] || die "$LEFT_OUT_TESTS: '$pattern' has no reason."
        (($(count_listed -R "$pattern") > 0)) || die "$LEFT_OUT_TESTS: no test is '$pattern'."
        patterns+=("$pattern")
    done <"$LEFT_OUT_TESTS"
    # A test without a name stands for the list without an entry.
    ((${#patterns[@]} > 0)) || patterns=('^$')
    (IFS='|' && echo "${patterns[*]}")
}

## cross [CTEST ARGUMENT...]
##     Build for 64-bit Arm with branch protection, and run the tests under qemu-user; what the
##     emulator can not do is left out, see tests/emulated/left_out.txt. What follows goes to ctest.
cmd_cross()
{
    local pattern status=0 start=$SECONDS
    need_packages "to build for 64-bit Arm, and to run that here" "${BUILD_PACKAGES[@]}" \
        "${EXAMPLE_PACKAGES[@]}" "${TEST_PACKAGES[@]}" "${CROSS_PACKAGES[@]}"
    build aarch64
    say "aarch64: built in $((SECONDS - start)) s"
    check_branch_protection
    pattern=$(left_out_pattern)
    run_tests aarch64 --exclude-regex "$pattern" "$@" || status=$?
    [[ -s build/aarch64/test-counts ]] || return 1
    say "aarch64: $(<build/aarch64/test-counts), $(count_listed -R "$pattern") left out"
    return "$status"
}
