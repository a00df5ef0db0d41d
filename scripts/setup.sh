# shellcheck shell=bash
# Set-up, build and test steps shared by ./run, ./test and .ci/run, which source this file.

root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
jobs=$(getconf _NPROCESSORS_ONLN 2>/dev/null || echo 2)

# Debian 12 packages by group: the product with its tests and its simulated controller; the build
# with Qt 5; the formatting check; a display that speaks Wayland alone.
declare -A packages=(
    [build]="g++ cmake ninja-build pkg-config
        qt6-base-dev qt6-tools-dev qt6-l10n-tools qt6-5compat-dev libqt6sql6-sqlite
        libjsoncpp-dev libspdlog-dev libsodium-dev libdeflate-dev
        liborocos-kdl-dev libeigen3-dev
        fonts-wqy-microhei"
    [qt5]="qtbase5-dev qttools5-dev qttools5-dev-tools libqt5sql5-sqlite"
    [format]="clang-format"
    [wayland]="qt6-wayland"
)

# fail SENTENCE: says why nothing more can be done, and ends.
fail() {
    echo "$(basename "$0"): $1" >&2
    exit 1
}

# Where another system than Debian runs, only the presence of the tools is checked; cmake names
# the libraries that it does not find.
check_tools() {
    local tool missing=()
    for tool in c++ cmake ninja pkg-config; do
        command -v "$tool" >/dev/null || missing+=("$tool")
    done
    [ ${#missing[@]} -eq 0 ] ||
        fail "this system has no apt; please install ${missing[*]} and the libraries of scripts/setup.sh."
}

# install_missing GROUP...: installs those packages of the groups (build, qt5, format, wayland)
# that the system lacks. Says nothing when it lacks none.
install_missing() {
    if ! command -v dpkg-query >/dev/null || ! command -v apt-get >/dev/null; then
        check_tools
        return
    fi

    local group names wanted=() present name missing=()
    for group in "$@"; do
        read -r -d '' -a names <<<"${packages[$group]}" || true # ends at the end of the text
        wanted+=("${names[@]}")
    done
    # dpkg-query fails when it does not know one of the names; what it prints is right all the same.
    present=$(dpkg-query -W -f '${db:Status-Status} ${Package}\n' "${wanted[@]}" 2>/dev/null || true)
    for name in "${wanted[@]}"; do
        grep -qxF "installed $name" <<<"$present" || missing+=("$name")
    done
    [ ${#missing[@]} -gt 0 ] || return 0
    # ccache only saves time: it comes along with the rest, and is never asked for alone.
    missing+=(ccache)

    local as_root=(env)
    if [ "$(id -u)" -ne 0 ]; then
        command -v sudo >/dev/null ||
            fail "there is no sudo; please install as root: apt-get install ${missing[*]}"
        # A password is asked for here, where the question can be seen.
        sudo -n true 2>/dev/null || sudo -v ||
            fail "sudo refuses; please install as root: apt-get install ${missing[*]}"
        as_root=(sudo env)
    fi
    as_root+=(DEBIAN_FRONTEND=noninteractive "PATH=$PATH:/usr/sbin:/sbin")

    local log=$root/build/setup.log options=(-q -y -o Dpkg::Use-Pty=0 -o DPkg::Lock::Timeout=300)
    make_folder "$root/build"
    echo "Installing ${missing[*]} (log: build/setup.log)"
    # Old lists may do when fresh ones cannot be had, so it is the installation that decides.
    "${as_root[@]}" apt-get "${options[@]}" update >"$log" 2>&1 </dev/null ||
        echo "The package lists could not be brought up to date." >>"$log"
    "${as_root[@]}" apt-get "${options[@]}" install --no-install-recommends "${missing[@]}" \
        >>"$log" 2>&1 </dev/null ||
        fail "apt could not install ${missing[*]}: $(last_error "$log") The log is build/setup.log."
}

# The first error line that apt left in a log, for the closing sentence.
last_error() {
    local line
    line=$(grep -m1 '^E: ' "$1" || true)
    line=${line#E: }
    line=${line:-no reason given}
    echo "${line%.}."
}

make_folder() {
    mkdir -p "$1" 2>/dev/null || true
    [ -w "$1" ] || fail "cannot write to the folder $1."
}

# Shows what passes by as one changing line on a terminal, and nothing elsewhere.
progress() {
    if [ ! -t 1 ]; then
        cat >/dev/null
        return
    fi
    local line columns
    columns=$(tput cols 2>/dev/null || echo 80)
    while IFS= read -r line; do
        printf '\r\033[K%s' "${line:0:columns-1}"
    done
    printf '\r\033[K'
}

# build PRESET [TARGET...]: configures build/PRESET where that is due, and builds.
build() {
    local preset=$1 folder=$root/build/$1 log=$root/build/$1.log launcher=()
    shift
    make_folder "$root/build"
    if [ ! -f "$folder/build.ninja" ] || [ "$root/CMakePresets.json" -nt "$folder/build.ninja" ]; then
        echo "Building $preset from the start, which takes some minutes (log: build/$preset.log)"
        if command -v ccache >/dev/null; then
            launcher=(-DCMAKE_CXX_COMPILER_LAUNCHER=ccache)
        fi
        (cd "$root" && cmake --preset "$preset" "${launcher[@]}") >"$log" 2>&1 </dev/null || {
            grep -A8 '^CMake Error' "$log" >&2 || tail -n 20 "$log" >&2
            fail "cmake could not configure the preset $preset; the log is build/$preset.log."
        }
    fi
    ninja -C "$folder" -j "$jobs" "$@" 2>&1 </dev/null | tee "$log" | progress || {
        grep -m1 -A25 '^FAILED' "$log" >&2 || tail -n 20 "$log" >&2
        fail "the build of the preset $preset failed; the log is build/$preset.log."
    }
}

# run_tests PRESET [CTEST-ARGUMENT...]: every test of a built preset; ends on ctest's summary.
run_tests() {
    local preset=$1
    shift
    ctest --test-dir "$root/build/$preset" --no-tests=error --output-on-failure -j "$jobs" "$@"
}

# File names and texts are UTF-8 also where the system's locale is the plain C one.
case $(locale charmap 2>/dev/null || true) in
UTF-8) ;;
*) export LC_ALL=C.UTF-8 ;;
esac
