# Shell functions that ./run, ./test and .ci/run share. Sourced, with the top folder as working directory.

export LC_ALL="${LC_ALL:-C.UTF-8}"
export PATH="${PATH:-/usr/local/sbin:/usr/local/bin:/usr/sbin:/usr/bin:/sbin:/bin}"

fail() {
    echo "$1" >&2
    exit 1
}

# install_packages [ci]: installs those packages of .ci/packages that are missing, with ci those of .ci/run too; prints the
# line to type where that is not allowed.
install_packages() {
    local missing=() package status
    while read -r package _; do
        case "$package" in
        '' | '#'*) continue ;;
        ci:*)
            [ "${1:-}" = ci ] || continue
            package=${package#ci:}
            ;;
        esac
        status=$(dpkg-query -W -f '${db:Status-Status}' "$package" 2>/dev/null || true)
        [ "$status" = installed ] || missing+=("$package")
    done <.ci/packages
    [ "${#missing[@]}" -eq 0 ] && return
    local sudo=()
    if [ "$(id -u)" -ne 0 ]; then
        if command -v sudo >/dev/null && { [ -t 0 ] || sudo -n true 2>/dev/null; }; then
            sudo=(sudo)
        else
            fail "Some packages are missing. Type this, then start again:
    sudo apt-get install -y ${missing[*]}"
        fi
    fi
    echo "Installing ${#missing[@]} packages: ${missing[*]}"
    local log
    log=$(mktemp)
    if ! { "${sudo[@]}" apt-get update && "${sudo[@]}" env DEBIAN_FRONTEND=noninteractive apt-get install -y --no-install-recommends "${missing[@]}"; } >"$log" 2>&1; then
        tail -n 20 "$log" >&2
        fail "The packages could not be installed; the whole log is in $log"
    fi
    rm -f "$log"
}

# build PRESET [target...]: configures and builds all, or the targets, into build/PRESET, with progress on a terminal. With
# KELVOR_STRICT a warning is an error.
build() {
    local preset=$1 targets=()
    shift
    [ $# -eq 0 ] || targets=(--target "$@")
    echo "Building into build/$preset ..."
    cmake --preset "$preset" -G Ninja "-DCMAKE_COMPILE_WARNING_AS_ERROR=${KELVOR_STRICT:-OFF}" >"build-$preset.log" 2>&1 || {
        tail -n 30 "build-$preset.log" >&2
        fail "The configuration failed."
    }
    rm -f "build-$preset.log"
    cmake --build "build/$preset" "${targets[@]}" || fail "The build failed."
}

# A private runtime directory, without which Qt warns at every start.
make_runtime_dir() {
    if [ -z "${XDG_RUNTIME_DIR:-}" ] || [ ! -d "${XDG_RUNTIME_DIR:-}" ]; then
        XDG_RUNTIME_DIR=$(mktemp -d "${TMPDIR:-/tmp}/kelvor-runtime-XXXXXX")
        chmod 700 "$XDG_RUNTIME_DIR"
        export XDG_RUNTIME_DIR
        trap 'rm -rf "$XDG_RUNTIME_DIR"' EXIT
    fi
}
