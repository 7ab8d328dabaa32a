# ./dev bench

readonly BENCH_PACKAGES=(libbenchmark-dev libtbb-dev libboost-dev libboost-thread-dev
  libboost-system-dev libspdlog-dev libgoogle-glog-dev libconcurrentqueue-dev
  libexpat1-dev libxml2-dev libpugixml-dev libsigc++-2.0-dev liblua5.4-dev libmuparser-dev
  libre2-dev libpcre2-dev pkg-config python3)

## bench [ARGUMENT...]
##     Build the benchmarks, run them (some minutes) and compare with others: --theme queue,
##     --filter REGEX and more, see --help.
cmd_bench()
{
    need_packages "to build the benchmarks and what they are compared with" \
        "${BUILD_PACKAGES[@]}" "${BENCH_PACKAGES[@]}"
    build bench
    bench/run build/bench "$@"
    say "bench: done in $SECONDS s"
}
