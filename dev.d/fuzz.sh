# ./dev fuzz

readonly FUZZ_SECONDS=30

# The targets, one a line: those with seeds.
fuzz_targets() { find fuzz/corpus -mindepth 1 -maxdepth 1 -type d -printf '%f\n' | sort; }

# Makes a folder for the files of targets, in memory if there is such a place. A target that ends by
# a finding leaves them.
make_fuzz_folder()
{
    local memory=/dev/shm
    [[ -w $memory ]] || memory=${TMPDIR:-/tmp}
    mktemp -d -p "$memory" fuzz-XXXXXX
}

# What makes libFuzzer keep an input; it keeps slow ones too, which are no findings.
found_inputs() { find "$1" -type f ! -name 'slow-unit-*' | sort; }

run_fuzzer()
{
    local target=$1 folder status=0
    shift
    folder=$(make_fuzz_folder)
    TMPDIR=$folder \
    ASAN_OPTIONS=detect_leaks=1:strict_string_checks=1:detect_stack_use_after_return=1 \
    UBSAN_OPTIONS=print_stacktrace=1 \
        "build/fuzz/fuzz/fuzz_$target" -timeout=25 -rss_limit_mb=2048 "$@" ||
        status=$?
    rm -rf "$folder"
    return "$status"
}

# store_finding TARGET INPUT: makes it as small as half a minute allows, and keeps it as a seed.
store_finding()
{
    local target=$1 input=$2 work=build/fuzz/work/$1 seed
    run_fuzzer "$target" -minimize_crash=1 -max_total_time=30 \
        -exact_artifact_path="$work/smallest" "$input" >"$work/minimize.log" 2>&1 || :
    [[ -s $work/smallest ]] || cp "$input" "$work/smallest"
    seed=fuzz/corpus/$target/found-$(sha1sum "$work/smallest" | head -c 8)
    mv "$work/smallest" "$seed"
    echo "fuzz: $target: found $seed; name it for what it shows"
}

# The last number behind a word in a target's log; "?" when there is none.
logged()
{
    local number
    number=$(grep -oP "$1:? +\K[0-9]+" "build/fuzz/work/$2/log" | tail -n 1) || :
    echo "${number:-?}"
}

# fuzz_target TARGET SECONDS: leaves the number of findings in work/TARGET/findings.
fuzz_target()
{
    local target=$1 work=build/fuzz/work/$1 status=0 inputs input findings
    rm -rf "$work/inputs" "$work/smallest" "$work/findings"
    mkdir -p "$work/inputs" "$work/corpus"
    run_fuzzer "$target" "$work/corpus" "fuzz/corpus/$target" -max_len=1024 \
        -max_total_time="$2" -dict="fuzz/dictionaries/$target.dict" -print_final_stats=1 \
        -artifact_prefix="$work/inputs/" >"$work/log" 2>&1 || status=$?
    mapfile -t inputs < <(found_inputs "$work/inputs")
    findings=${#inputs[@]}
    if ((status != 0 && findings == 0)); then
        findings=1
        echo "fuzz: $target: failed without an input (exit status $status)"
    fi
    for input in "${inputs[@]}"; do
        grep -m 3 -e '^Does not hold' -e 'ERROR:' -e 'runtime error' "$work/log" || :
        store_finding "$target" "$input"
    done
    printf 'fuzz: %s: %s runs (%s/s), coverage %s, corpus %s, %d findings (%s)\n' "$target" \
        "$(logged stat::number_of_executed_units "$target")" \
        "$(logged stat::average_exec_per_sec "$target")" "$(logged 'cov' "$target")" \
        "$(logged 'corp' "$target")" "$findings" "$work/log"
    echo "$findings" >"$work/findings"
}

# fuzz_all SECONDS TARGET...: as many at a time as tests.
fuzz_all()
{
    local seconds=$1 target findings=0
    shift
    for target in "$@"; do
        while (($(jobs -rp | wc -l) >= CTEST_PARALLEL_LEVEL)); do
            wait -n || :
        done
        fuzz_target "$target" "$seconds" &
    done
    wait
    for target in "$@"; do
        # Nothing there: the job itself has failed.
        findings=$((findings + $(cat "build/fuzz/work/$target/findings" 2>/dev/null || echo 1)))
    done
    echo "fuzz: $# targets, $findings findings"
    ((findings == 0))
}

## fuzz [TARGET] [SECONDS]
##     Search with libFuzzer for inputs that break what always has to hold; without a target all
##     of fuzz/, 30 s each. What is found is made small and kept as a seed in fuzz/corpus.
cmd_fuzz()
{
    local targets seconds=$FUZZ_SECONDS
    mapfile -t targets < <(fuzz_targets)
    if [[ $# -gt 0 && ! $1 =~ ^[0-9]+$ ]]; then
        printf '%s\n' "${targets[@]}" | grep -qxF -- "$1" ||
            usage_error "unknown target '$1' for fuzz; there are: ${targets[*]}"
        targets=("$1")
        shift
    fi
    if [[ $# -gt 0 ]]; then
        [[ $# -eq 1 && $1 =~ ^[1-9][0-9]*$ ]] || usage_error "fuzz takes [TARGET] [SECONDS]"
        seconds=$1
    fi
    need_packages "to build the fuzzers" \
        "${BUILD_PACKAGES[@]}" "${EXAMPLE_PACKAGES[@]}" "${CLANG_SANITIZER_PACKAGES[@]}"
    build fuzz
    say "fuzzing ${targets[*]}, $seconds s each"
    fuzz_all "$seconds" "${targets[@]}"
}
