#!/usr/bin/env bash
# One door for people: builds, runs, tests and measures TavKit. See --help.
set -uo pipefail
CDPATH='' cd -P -- "$(dirname -- "${BASH_SOURCE[0]}")" || exit 1
source tools/wine/env.sh

PACKAGES=(cmake ninja-build g++ g++-mingw-w64-x86-64-posix googletest clang clang-format
    wine wine64 xvfb fonts-wine fonts-liberation fonts-dejavu-core util-linux)

usage() {
    cat <<'HELP'
Usage: ./tavkit.sh COMMAND [OPTION...]

  setup               install what is missing (Debian packages) and prepare the private Wine prefix
  build [--debug]     build the library, the workbench, tests and benches (build/win64, or build/win64-debug)
  run [FOLDER|FILE]   open the workbench on the samples, or on FOLDER or FILE; without a display: the tour
  test [OPTION...]    everything that CI checks: format, pure logic under the sanitizers, fuzzers, Windows tests
      -R REGEX            only the tests whose names match (afx, host, kit, logic, workbench, consumer, fuzz_...)
      --debug             the Windows tests from the debug build, with assertions and counted resources
      --fuzz-seconds N    how long each fuzzer runs (default 5)
  bench [TASK...]     measure, print a table and write out/bench.tsv
  tour [FOLDER]       drive the workbench through all its windows; pictures and index.html in out/tour, or FOLDER
  clean               remove build/ and out/
  --help              this text

Every command does what it needs beforehand; one that has nothing to do there starts within seconds.
HELP
}

say() { printf '\033[1m== %s\033[0m\n' "$*"; }
fail() {
    printf '%s\n' "$*" >&2
    exit 1
}

# The resource compiler hands paths to a shell as they are; blanks and letters of any kind it can take.
check_place() {
    [[ "$PWD" =~ [\(\)\<\>\&\;\|\$\`\"\'\*\?\\] ]] &&
        fail "This folder can't be built in: its path has a character that means something to a shell. Move it: $PWD"
}

setup() {
    check_place
    local missing=() package
    for package in "${PACKAGES[@]}"; do
        dpkg-query -W -f='${Status}' "$package" 2>/dev/null | grep -q 'ok installed' || missing+=("$package")
    done
    # libFuzzer's run-time has the version of the compiler in its name.
    local clang_major
    if command -v clang >/dev/null; then
        clang_major="$(clang -dumpversion | cut -d. -f1)"
    else
        clang_major="$(apt-cache depends clang 2>/dev/null | sed -n 's/.*Depends: clang-\([0-9]*\)$/\1/p')"
    fi
    if [ -n "$clang_major" ]; then
        dpkg-query -W -f='${Status}' "libclang-rt-$clang_major-dev" 2>/dev/null | grep -q 'ok installed' ||
            missing+=("libclang-rt-$clang_major-dev")
    fi
    if [ ${#missing[@]} -gt 0 ]; then
        command -v apt-get >/dev/null || fail "These Debian packages are missing and there is no apt-get here: ${missing[*]}"
        if [ "$(id -u)" != 0 ]; then
            fail "Some packages are missing; install them with: sudo sh -c 'apt-get update && apt-get install -y --no-install-recommends ${missing[*]}'"
        fi
        say "Installing ${missing[*]}"
        export DEBIAN_FRONTEND=noninteractive
        apt-get update -q && apt-get install -q -y --no-install-recommends "${missing[@]}" ||
            fail "The packages could not be installed; try: apt-get update && apt-get install -y --no-install-recommends ${missing[*]}"
        # Before the package lists were there, nothing told which run-time belongs to clang: the second round asks.
        [[ " ${missing[*]} " == *" clang "* ]] && setup
    fi
    tools/wine/prefix.sh || fail "The Wine prefix could not be made; see $TAVKIT_WINE_DIR/prefix.log."
}

configure_and_build() {
    local preset="$1"
    shift
    # What a checkout has built elsewhere names its old place.
    grep -qsxF "CMAKE_HOME_DIRECTORY:INTERNAL=$PWD" "build/$preset/CMakeCache.txt" || rm -rf "build/$preset"
    if [ ! -f "build/$preset/build.ninja" ]; then
        say "Configuring $preset"
        cmake --preset "$preset" >"build/$preset.log" 2>&1 || {
            cat "build/$preset.log" >&2
            fail "Configuring $preset failed."
        }
    fi
    say "Building $preset"
    cmake --build --preset "$preset" "$@" || fail "Building $preset failed."
}

build() {
    setup
    configure_and_build "$1"
}

check_format() {
    say "Checking the format"
    find automation bench host platform tavkit tests workbench \( -name '*.cpp' -o -name '*.h' \) -print0 | xargs -0 -r clang-format --dry-run --Werror ||
        fail "Run clang-format -i on the files named above."
}

run_tests() {
    local preset=win64 filter="" status=0
    export TAVKIT_FUZZ_SECONDS=5
    while [ $# -gt 0 ]; do
        case "$1" in
        -R) filter="${2:?-R needs a regular expression}" && shift ;;
        --debug) preset=win64-debug ;;
        --fuzz-seconds)
            [[ "${2:-}" =~ ^[0-9]+$ ]] || fail "--fuzz-seconds needs a number."
            TAVKIT_FUZZ_SECONDS="$2"
            export TAVKIT_RUN_SECONDS=$((TAVKIT_FUZZ_SECONDS + 600))
            shift
            ;;
        *) fail "Unknown option: $1 (see ./tavkit.sh --help)" ;;
        esac
        shift
    done
    setup
    check_format
    configure_and_build native-asan
    configure_and_build native-fuzz
    configure_and_build "$preset"
    local part found=0
    for part in native-asan native-fuzz "$preset"; do
        found=$((found + $(ctest --preset "$part" -N ${filter:+-R "$filter"} | sed -n 's/^Total Tests: //p')))
    done
    [ "$found" -gt 0 ] || fail "No test matches $filter."
    for part in native-asan native-fuzz "$preset"; do
        say "Testing $part"
        # Real input shares the machine with whatever else runs: a test has a second try, and the log tells of it.
        ctest --preset "$part" -j "$(nproc)" --repeat until-pass:2 --verbose --no-tests=ignore ${filter:+-R "$filter"} || status=1
    done
    [ "$status" = 0 ] || fail "Some tests failed."
}

tour() {
    local folder="${1:-out/tour}"
    build win64
    mkdir -p "$folder"
    say "Touring the workbench"
    tools/wine/run.sh build/win64/bin/Workbench.exe --tour "$(win_path "$folder")" || fail "The tour failed."
    echo "Pictures and index.html are in $folder."
}

# A prefix of the person's own: what he sets there reaches no test, and what the tests need doesn't bother him.
make_desktop_prefix() {
    export WINEPREFIX="$TAVKIT_WINE_DIR/user"
    if [ ! -f "$WINEPREFIX/.desktop" ]; then
        rm -rf "$WINEPREFIX"
        cp -a "$TAVKIT_GOLDEN" "$WINEPREFIX"
        map_checkout "$WINEPREFIX"
        timeout 60 wine regedit /S "$(win_path tools/wine/desktop.reg)" >"$TAVKIT_WINE_DIR/desktop.log" 2>&1 </dev/null ||
            fail "The settings of the desktop could not be made; see $TAVKIT_WINE_DIR/desktop.log."
        touch "$WINEPREFIX/.desktop"
    fi
    map_checkout "$WINEPREFIX"
}

run_workbench() {
    if [ -z "${DISPLAY:-}" ]; then
        [ $# -eq 0 ] || fail "There is no display to show $1 on."
        echo "There is no display: the workbench is shown by its tour instead."
        tour
        return
    fi
    build win64
    say "Opening the workbench"
    trap 'wineserver -k >/dev/null 2>&1' EXIT
    make_desktop_prefix
    /usr/lib/wine/wine64 build/win64/bin/Workbench.exe "$(win_path "${1:-samples}")" >out/workbench.log 2>&1 </dev/null ||
        fail "The workbench ended with an error on the display $DISPLAY; see out/workbench.log."
}

bench() {
    build win64
    say "Measuring"
    TAVKIT_RUN_SECONDS=1800 TAVKIT_RUN_ALONE=1 tools/wine/run.sh build/win64/bin/tavkit_bench.exe "$@"
}

mkdir -p build out
command="${1:---help}"
[ $# -gt 0 ] && shift
case "$command" in
setup) setup ;;
build)
    if [ "${1:-}" = --debug ]; then build win64-debug; else build win64; fi
    ;;
run) run_workbench "$@" ;;
test) run_tests "$@" ;;
bench) bench "$@" ;;
tour) tour "$@" ;;
clean) rm -rf build out ;;
-h | --help | help) usage ;;
*)
    usage >&2
    fail "Unknown command: $command"
    ;;
esac
