# ./dev demo

# For the demo of the instrument: a VISA client, and what plots the wave form.
readonly CLIENT_PACKAGES=(python3-pyvisa python3-pyvisa-py gnuplot-nox)

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

# A session with the virtual instrument, by a VISA client.
run_instrument_demo()
{
    local picture=build/demo/waveform.svg
    need_packages "to talk to the instrument" "${CLIENT_PACKAGES[@]}"
    build release --target instrument
    mkdir -p build/demo
    PYTHONDONTWRITEBYTECODE=1 \
        examples/instrument/client/demo.py build/release/examples/instrument/instrument "$picture"
    say "demo: done in $SECONDS s; the picture is $picture"
}

## demo
##     Build the virtual instrument, acquire a wave form from it with a VISA client, and plot it.
## demo --pool [ARGUMENT...]
##     Build and run the worker pool example; the arguments are its own (try --help), and without
##     --pool taken as its as well.
## demo --legacy [COMMAND...]
##     Build and run the front panel that is made of the older classes (examples/legacy_panel).
cmd_demo()
{
    need_packages "to build the examples" \
        "${BUILD_PACKAGES[@]}" "${EXAMPLE_PACKAGES[@]}" "${TEST_PACKAGES[@]}"
    case ${1:-} in
        "") run_instrument_demo ;;
        --pool) run_example worker_pool "${@:2}" ;;
        --legacy) run_example legacy_panel "${@:2}" ;;
        *) run_example worker_pool "$@" ;;
    esac
}
