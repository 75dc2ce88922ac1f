# Where things are built, and building them. Sourced by ./dev and by the wrapper that runs Windows programs.
#
#   find_state                       sets $state, the one folder that everything made here lies in
#   build_preset PRESET [TARGET...]  configures when needed and builds; one builder at a time per preset
#   build_quietly PRESET [TARGET...] the same, shows its output only when it fails

# build/ in the checkout when it is ours to write, else a folder of this user's own cache.
find_state() {
    local folder="$root/build"
    if [[ -e $folder ]]; then
        [[ -O $folder && -w $folder ]] || folder=""
    elif [[ ! -w $root ]]; then
        folder=""
    fi
    if [[ -z $folder ]]; then
        local name
        name=$(printf '%s' "$root" | sha256sum)
        folder="${XDG_CACHE_HOME:-$HOME/.cache}/dashlonviewer/${name:0:16}"
    fi
    mkdir -p "$folder"
    state=$folder
}

# True when the folder has been configured for this checkout and these presets.
is_configured() {
    local build=$1
    [[ -f $build/build.ninja && -f $build/CMakeCache.txt ]] &&
        [[ ! $root/CMakePresets.json -nt $build/CMakeCache.txt ]] &&
        grep -qxF "CMAKE_HOME_DIRECTORY:INTERNAL=$root" "$build/CMakeCache.txt"
}

build_preset() (
    preset=$1
    build=$state/$preset
    shift
    targets=()
    (($# == 0)) || targets=(--target "$@")
    mkdir -p "$build"
    exec 9>"$build.lock"
    flock 9
    if ! is_configured "$build"; then
        cd "$root" && cmake --fresh --preset "$preset" -B "$build" 9>&- || exit 1
        touch "$build/CMakeCache.txt"
    fi
    cmake --build "$build" -j "$(nproc)" "${targets[@]}" -- -k 0 9>&-
)

build_quietly() {
    local log="$state/logs/build-$1.$$.log" status=0
    mkdir -p "$state/logs"
    build_preset "$@" >"$log" 2>&1 </dev/null || status=$?
    ((status == 0)) || cat "$log" >&2
    rm -f "$log"
    return $status
}
