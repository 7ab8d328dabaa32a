# How a preset is built, and started where its runtime needs help.

# Put before every program that runs instrumented code; see use_tsan_launcher.
LAUNCHER=()

# build PRESET [build argument...]
build()
{
    local preset=$1
    shift
    say "configuring preset $preset in build/$preset"
    cmake --preset "$preset" --log-level=WARNING >/dev/null
    say "building preset $preset"
    "${LAUNCHER[@]}" cmake --build --preset "$preset" "$@"
}

# GCC 12's ThreadSanitizer finds no room for its shadow memory under kernels that randomise more
# address bits than it was made for, and then fails at random starts. A trivial program tells; the
# launcher is for the build too, which starts the test programs to list their cases.
use_tsan_launcher()
{
    local probe=build/tsan/start_probe
    mkdir -p build/tsan
    echo 'int main() {}' | g++ -fsanitize=thread -x c++ - -o "$probe"
    if starts_reliably "$probe"; then
        return
    fi
    LAUNCHER=(setarch -R)
    say "ThreadSanitizer fails under this kernel's address randomisation: using ${LAUNCHER[*]}"
    if ! starts_reliably "${LAUNCHER[@]}" "$probe"; then
        die "ThreadSanitizer does not start; 'sysctl vm.mmap_rnd_bits=28' on the host may help."
    fi
}

starts_reliably()
{
    local attempt
    for attempt in {1..20}; do
        "$@" 2>/dev/null || return "$attempt"
    done
}
