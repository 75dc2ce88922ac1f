# Installs what a command lacks. Sourced by ./dev.
#
#   need_packages native windows ...     groups of Debian packages, a quick look when all are there

packages_of() {
    case $1 in
        native) echo "cmake ninja-build g++ python3 googletest libpugixml-dev nlohmann-json3-dev" ;;
        windows) echo "cmake ninja-build g++-mingw-w64-x86-64-posix g++-mingw-w64-i686-posix" \
                      "mingw-w64-tools googletest libwine libwine-dev nlohmann-json3-dev python3" ;;
        wine) echo "wine wine64 xvfb fonts-liberation fonts-open-sans" ;;
        wine32) echo "debootstrap" ;;
        checks) echo "python3 clang-format clang-tidy" ;;
        format) echo "clang-format" ;;
        *) echo "unknown package group $1" >&2; return 1 ;;
    esac
}

need_packages() {
    local wanted=() missing=() group package installed
    for group in "$@"; do
        read -r -a more <<<"$(packages_of "$group")"
        wanted+=("${more[@]}")
    done
    installed=$(dpkg-query -W -f='${db:Status-Status} ${Package}\n' "${wanted[@]}" 2>/dev/null || true)
    for package in "${wanted[@]}"; do
        [[ $'\n'$installed$'\n' == *$'\n'"installed $package"$'\n'* ]] || missing+=("$package")
    done
    ((${#missing[@]} == 0)) || install_packages "${missing[@]}"
}

install_packages() {
    local asRoot=() log
    if ((EUID != 0)); then
        command -v sudo >/dev/null || {
            echo "Missing packages, and neither root nor sudo is at hand. As root, please: apt-get install $*" >&2
            exit 1
        }
        asRoot=(sudo)
    fi
    mkdir -p "$state/logs"
    log="$state/logs/packages.log"
    echo "Installing: $*" >&2
    {
        "${asRoot[@]}" apt-get -q -o DPkg::Lock::Timeout=300 update
        "${asRoot[@]}" env DEBIAN_FRONTEND=noninteractive \
            apt-get -q -y -o DPkg::Lock::Timeout=300 install --no-install-recommends "$@"
    } >"$log" 2>&1 </dev/null || {
        tail -n 20 "$log" >&2
        echo "The packages could not be installed; the whole log is $log" >&2
        exit 1
    }
}
