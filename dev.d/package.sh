# ./dev package

readonly PACKAGE_PACKAGES=(git dpkg-dev file lintian debootstrap pkg-config)
readonly DEBS=build/package/debs

as_root()
{
    if ((EUID == 0)); then
        "$@"
    else
        sudo "$@"
    fi
}

# The Debian mirror that this system uses.
debian_mirror()
{
    local mirror
    mirror=$(apt-get indextargets --format '$(REPO_URI)' \
        'Created-By: Packages' 'Origin: Debian' 'Codename: bookworm' | head -n 1)
    echo "${DEBIAN_MIRROR:-${mirror:-http://deb.debian.org/debian}}"
}

# make_debs SOURCE: makes the packages from the sources in that folder. All times in them are that of
# the last commit.
make_debs()
(
    SOURCE_DATE_EPOCH=$(git log -1 --format=%ct)
    export SOURCE_DATE_EPOCH
    cd "$1" || exit
    rm -rf "$DEBS"
    build package
    cd build/package
    cpack -G DEB >cpack.log 2>&1 || {
        cat cpack.log
        die "cpack failed."
    }
)

lint_debs() { lintian --allow-root --fail-on error --tag-display-limit 0 "$DEBS"/*.deb; }

# A second build of the same sources, in a folder with another name, must give the same packages.
check_reproducible()
{
    local copy deb status=0
    copy=$(mktemp -d -t generic_utils_second_build.XXXXXX)
    git ls-files -z --cached --others --exclude-standard |
        xargs -0 sh -c 'for f; do [ -e "$f" ] && printf "%s\0" "$f"; done' sh |
        tar --create --null --files-from=- | tar --extract --directory="$copy"
    make_debs "$copy" || status=$?
    for deb in "$DEBS"/*.deb; do
        cmp "$deb" "$copy/$deb" || status=1
    done
    rm -rf "$copy"
    ((status == 0)) && say "package: a second build gave the same bytes"
    return "$status"
}

# A Debian system with nothing but what every one has, kept for the next time.
make_clean_root()
{
    local base=build/clean-root/base
    if [[ ! -e $base.done ]]; then
        as_root rm -rf "$base"
        mkdir -p build/clean-root
        say "package: making a clean Debian system in $base"
        as_root debootstrap --variant=minbase bookworm "$base" "$(debian_mirror)" \
            >build/clean-root/debootstrap.log || die "see build/clean-root/debootstrap.log"
        touch "$base.done"
    fi
}

# Every file of the clean system, but for what package tools write down.
list_files() { as_root find "$1" -xdev \( -path "$1/var" -o -path "$1/debs" \) -prune -o -print; }

in_root() { as_root chroot "$ROOT/build/clean-root/work" "$@"; }

# in_apt SUBCOMMAND...: its shell expands what is given.
in_apt()
{
    in_root sh -c "DEBIAN_FRONTEND=noninteractive apt-get -qq --yes -o Dpkg::Use-Pty=0 $*" \
        >>build/clean-root/apt.log 2>&1 || die "see build/clean-root/apt.log"
}

# expect TEXT COMMAND...: the command succeeds and prints that text.
expect()
{
    local text=$1 output
    shift
    output=$("$@" 2>&1) || die "'$*' failed: $output"
    [[ $output == *"$text"* ]] || die "'$*' did not print '$text' but: $output"
}

run_installed_examples()
{
    local examples
    examples=/usr/lib/$(gcc -print-multiarch)/generic_utils/examples
    expect 'channel 1' in_root "$examples/quick_start"
    expect 'worker-01' in_root "$examples/worker_pool" /usr/share/generic_utils
    expect 'generic_utils,Virtual Instrument' \
        in_root sh -c "echo '*IDN?' | $examples/instrument --script -"
    expect '' in_root "$examples/legacy_panel"
}

# With this system's compiler, and what the packages have installed.
build_against_packages()
{
    local work=build/clean-root/work folder flags
    tests/consumers/run find_package g++ "$ROOT/build/clean-root/consumer" "$ROOT/$work/usr" \
        >build/clean-root/consumer.log || die "see build/clean-root/consumer.log"
    folder=$work/usr/lib/$(gcc -print-multiarch)/pkgconfig
    read -ra flags <<<"$(PKG_CONFIG_LIBDIR=$folder pkg-config --cflags --libs generic_utils)"
    as_root g++ -std=c++17 examples/quick_start/main.cpp -o "$work/debs/quick_start" "${flags[@]}"
    expect 'channel 1' in_root /debs/quick_start
}

# Installs the packages in a copy of the clean system, uses them and removes them.
try_debs()
{
    local work=build/clean-root/work
    make_clean_root
    as_root rm -rf "$work"
    as_root cp -a build/clean-root/base "$work"
    as_root mkdir "$work/debs"
    as_root cp "$DEBS"/*.deb "$work/debs"
    list_files "$work" | sort >build/clean-root/before
    in_apt install --no-install-recommends /debs/*.deb
    expect libgeneric_utils.so.1 in_root ldconfig -p
    run_installed_examples
    build_against_packages
    in_apt purge libgeneric-utils1 libgeneric-utils-dev generic-utils-examples
    # What the examples needed besides.
    in_apt autoremove --purge
    list_files "$work" | sort >build/clean-root/after
    diff build/clean-root/before build/clean-root/after || die "removed packages leave files."
    as_root rm -rf "$work"
    say "package: installed, used, built against and removed in a clean system"
}

## package [--no-root]
##     Make the Debian packages in build/package/debs, look at them with lintian, build them a second
##     time and compare, and try them in a clean Debian system, for which root is needed; --no-root
##     leaves that out.
cmd_package()
{
    local needs_root=yes
    case "$*" in
        "") ;;
        --no-root) needs_root=no ;;
        *) usage_error "package takes --no-root or nothing, not '$*'" ;;
    esac
    need_packages "to make packages" \
        "${BUILD_PACKAGES[@]}" "${EXAMPLE_PACKAGES[@]}" "${PACKAGE_PACKAGES[@]}"
    make_debs .
    lint_debs
    check_reproducible
    if [[ $needs_root == yes ]]; then
        try_debs
    fi
    ls -l "$DEBS"/*.deb
    say "package: done in $SECONDS s"
}
