# The zips for host developers. Sourced by ./dev.
#
#   make_packages          both zips into $state/package, from what is built; prints where they lie
#   try_package ZIP BITS   unpacks a zip and uses it in a Wine where the control was never installed

make_packages() {
    local bits architecture doc=/usr/share/doc licences
    for bits in 64 32; do
        architecture=x86-64
        ((bits == 64)) || architecture=i686
        licences="mingw-w64=$doc/mingw-w64-common/copyright"
        licences+=",gcc=$doc/gcc-mingw-w64-$architecture-posix-runtime/copyright"
        licences+=",nlohmann-json=$doc/nlohmann-json3-dev/copyright"
        python3 "$root/packaging/package.py" "$root" "$state/win$bits" "$bits" "$licences" "$state/package"
    done
}

try_package() {
    local folder=$state/package/unpacked-$2 wine=(wine)
    rm -rf "$folder" "$state/wine-bare"
    mkdir -p "$folder"
    python3 -m zipfile -e "$1" "$folder" || return 1
    trap 'wine_end; display_end' EXIT
    display_begin || return 1
    if (($2 == 64)); then
        wine_begin 96 bare || return 1
    else
        export DLV_STATE=$state
        wine=("$root/scripts/wine32" run)
        trap '"$root/scripts/wine32" end; display_end' EXIT
    fi
    cd "$folder"/*/ &&
        timeout -k 5 60 "${wine[@]}" dlcheck.exe DashlonViewer.ocx &&
        timeout -k 5 60 "${wine[@]}" demo.exe --smoke
}
