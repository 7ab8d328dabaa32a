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
cmd_demo()
{
    need_packages "to build the examples" \
        "${BUILD_PACKAGES[@]}" "${EXAMPLE_PACKAGES[@]}" "${TEST_PACKAGES[@]}"
    run_example worker_pool "$@"
}
