# ./dev demo

# run_example NAME [argument...]: runs it where the caller stands, so that file names given as
# arguments mean what they say.
run_example()
{
    local name=$1
    shift
    build release --target "$name"
    say "running $name${*:+ $*}"
    (cd "$START_DIR" && "$ROOT/build/release/examples/$name/$name" "$@")
    say "$name: done in $SECONDS s"
}

## demo [ARGUMENT...]
##     Build and run the worker pool example; the arguments are its own (try --help).
## demo --legacy [COMMAND...]
##     Build and run the front panel that is made of the older classes (examples/legacy_panel).
cmd_demo()
{
    need_packages "to build the examples" \
        "${BUILD_PACKAGES[@]}" "${EXAMPLE_PACKAGES[@]}" "${TEST_PACKAGES[@]}"
    case ${1:-} in
        --legacy) run_example legacy_panel "${@:2}" ;;
        *) run_example worker_pool "$@" ;;
    esac
}
