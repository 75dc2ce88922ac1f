# A Wine of our own: prefix, home and runtime folder under $state, shared with nothing else of this user, and a
# virtual display. Sourced by ./dev and by the wrapper that runs Windows programs.
#
#   wine_begin [DPI [USE [LOOK]]]  environment, prefix (made once for each resolution, use and look) and a warm server;
#                         a prefix has one user at a time, since its desktop lives on that user's display. A look
#                         is a file wine-LOOK.reg beside this one
#   display_is_there      whether the user has a display
#   display_begin         a virtual display on a free number, in $DISPLAY
#   wine_end, display_end end what the two began; safe to call when nothing was begun

displayPid=""
wineBegun=""

wine_environment() {
    wineDpi=$1
    wineLook=${3:+$root/scripts/wine-$3.reg}
    wineRoot=$state/wine${2:+-$2}${3:+-$3}
    ((wineDpi == 96)) || wineRoot+=-$wineDpi
    mkdir -p "$wineRoot/home" "$wineRoot/runtime"
    chmod 700 "$wineRoot/runtime"
    export WINEPREFIX=$wineRoot/prefix HOME=$wineRoot/home XDG_RUNTIME_DIR=$wineRoot/runtime
    export WINEARCH=win64 WINEDEBUG=-all
    export WINEDLLOVERRIDES="mscoree,mshtml=;winemenubuilder.exe=d;winedbg.exe=d"
    export DLV_WINE_READY=$wineRoot
}

wine_begin() {
    wine_environment "${1:-96}" "${2:-}" "${3:-}"
    exec 8>"$wineRoot/user.lock"
    flock -n 8 || {
        echo "Waiting for another command that uses $wineRoot" >&2
        flock 8
    }
    wineBegun=yes
    if [[ ! -f $wineRoot/ready || $root/scripts/wine.reg -nt $wineRoot/ready ||
        ( -n $wineLook && $wineLook -nt $wineRoot/ready ) ]]; then
        make_prefix >"$wineRoot/prefix.log" 2>&1 </dev/null 8>&- || {
            cat "$wineRoot/prefix.log" >&2
            echo "Wine could not make its prefix $WINEPREFIX" >&2
            return 1
        }
    fi
    wineserver -p 8>&- 2>/dev/null || true
}

make_prefix() {
    wineserver -k || true
    rm -rf "$WINEPREFIX" "$wineRoot/ready"
    env -u DISPLAY timeout -k 5 180 wine wineboot -i &&
        env -u DISPLAY timeout -k 5 60 wine regedit /S "Z:$root/scripts/wine.reg" &&
        { [[ -z $wineLook ]] || env -u DISPLAY timeout -k 5 60 wine regedit /S "Z:$wineLook"; } &&
        env -u DISPLAY timeout -k 5 60 wine reg add 'HKCU\Control Panel\Desktop' /v LogPixels \
            /t REG_DWORD /d "$wineDpi" /f || return 1
    # The desktop that these have begun has no display; nothing could make a window on it.
    wineserver -k || true
    wineserver -w
    touch "$wineRoot/ready"
}

wine_end() {
    [[ -n $wineBegun ]] || return 0
    wineserver -k 2>/dev/null || true
    exec 8>&-
    wineBegun=""
}

# Whether $DISPLAY names a display that answers, as far as can be told without an X client.
display_is_there() {
    case ${DISPLAY:-} in
        "") return 1 ;;
        :*)
            local number=${DISPLAY#:}
            grep -q "/tmp/.X11-unix/X${number%%.*}\$" /proc/net/unix
            ;;
        *) return 0 ;;
    esac
}

display_begin() {
    local numberFile="$state/wine/display.$BASHPID" waited=0
    mkdir -p "$state/wine"
    : >"$numberFile"
    Xvfb -displayfd 3 -screen 0 3840x2400x24 -dpi 96 -nolisten tcp -noreset \
        3>"$numberFile" 8>&- >/dev/null 2>&1 </dev/null &
    displayPid=$!
    until [[ -s $numberFile ]]; do
        if ((++waited > 200)) || ! kill -0 "$displayPid" 2>/dev/null; then
            echo "The virtual display did not start" >&2
            rm -f "$numberFile"
            return 1
        fi
        sleep 0.05
    done
    export DISPLAY=":$(tr -d '[:space:]' <"$numberFile")"
    rm -f "$numberFile"
}

display_end() {
    [[ -n $displayPid ]] || return 0
    kill "$displayPid" 2>/dev/null || true
    wait "$displayPid" 2>/dev/null || true
    displayPid=""
}
