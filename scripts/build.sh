# Where things are built, and building them. Sourced by ./dev and by the wrapper that runs Windows programs.
#
#   find_state                       sets $state, the one folder that everything made here lies in
#   configure_preset PRESET          configures when needed
#   build_preset PRESET [TARGET...]  the same, then builds; one builder at a time per preset
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
        export HOME=${HOME:-$(getent passwd "$EUID" | cut -d: -f6)}
        folder="${XDG_CACHE_HOME:-$HOME/.cache}/dashlonviewer/${name:0:16}"
    fi
    mkdir -p "$folder"
    state=$folder
}

# True when the folder has been configured for this checkout and these presets.
is_configured() {
    local build=$1
    [[ -f $build/build.ninja && -f $build/configured ]] &&
        [[ ! $root/CMakePresets.json -nt $build/configured ]] &&
        grep -qxF "CMAKE_HOME_DIRECTORY:INTERNAL=$root" "$build/CMakeCache.txt"
}

configure_preset() {
    local build=$state/$1
    is_configured "$build" && return 0
    (cd "$root" && cmake --fresh --preset "$1" -B "$build" 9>&-) || return 1
    touch "$build/configured"
}

build_preset() {
    local preset=$1 targets=() status=0
    shift
    (($# == 0)) || targets=(--target "$@")
    mkdir -p "$state/$preset"
    exec 9>"$state/$preset.lock"
    flock 9
    configure_preset "$preset" &&
        cmake --build "$state/$preset" -j "$(nproc)" "${targets[@]}" -- -k 0 9>&- || status=$?
    exec 9>&-
    return $status
}

build_quietly() {
    local log="$state/logs/build-$1.$$.log" status=0
    mkdir -p "$state/logs"
    build_preset "$@" >"$log" 2>&1 </dev/null || status=$?
    ((status == 0)) || cat "$log" >&2
    rm -f "$log"
    return $status
}
