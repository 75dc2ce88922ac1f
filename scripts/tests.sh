# The runners behind ./dev test. Sourced by ./dev.
#
# A runner is a function that closes with a line "N passed, N failed". run_runner keeps its output as a log, adds
# the counts up and shows what failed; a runner without that line, or with a bad exit status and nothing failed,
# counts as one failure.

allPassed=0
allFailed=0

run_runner() {
    local name=$1 log="$state/logs/test-$1.log" status=0 last passed=0 failed=0 started=$SECONDS
    shift
    mkdir -p "$state/logs"
    ("$@") >"$log" 2>&1 </dev/null || status=$?
    last=$(grep -v '^[[:space:]]*$' "$log" | tail -n 1)
    if [[ $last =~ ^([0-9]+)\ passed,\ ([0-9]+)\ failed$ ]]; then
        passed=${BASH_REMATCH[1]} failed=${BASH_REMATCH[2]}
    fi
    if ((failed == 0)) && { ((status != 0)) || ((passed == 0)); }; then
        failed=1
    fi
    if ((failed > 0)); then
        echo "--- $name"
        grep -E 'error|FAILED|HUNG|ERROR' "$log" | head -n 40 || tail -n 20 "$log"
        echo "--- the whole log: $log"
    fi
    grep '^NOT RUN' "$log" || true
    printf '%-22s %6d passed %4d failed %5d s\n' "$name" "$passed" "$failed" $((SECONDS - started))
    allPassed=$((allPassed + passed))
    allFailed=$((allFailed + failed))
}

build_runner() {
    if build_preset "$@"; then
        echo "1 passed, 0 failed"
    else
        echo "0 passed, 1 failed"
    fi
}

# Runs test programs of a build: ctest_runner PRESET JOBS NAME [ctest's choice of programs...]; NAME tells runs of the
# same build apart.
ctest_runner() {
    local build=$state/$1 jobs=$2 name=$3
    shift 3
    mkdir -p "$build/results"
    # Closed so that a Wine server started by a test cannot hold the lock of its users.
    timeout -k 20 900 ctest --test-dir "$build" --parallel "$jobs" --output-on-failure --no-tests=error "$@" \
        --output-junit "$build/results/ctest-$name.xml" 8>&- || true
    python3 "$root/scripts/count_results.py" "$build" "ctest-$name.xml"
}

# Runs a kind of tests beside what follows, which goes first where both want the processor: beside KIND. What it says
# and counts is taken over by join_beside.
beside() {
    mkdir -p "$state/logs"
    rm -f "$state/logs/beside.counts"
    (
        renice -n 10 -p "$BASHPID" >/dev/null
        allPassed=0 allFailed=0
        "$@"
        echo "$allPassed $allFailed" >"$state/logs/beside.counts"
    ) >"$state/logs/beside.log" 2>&1 </dev/null &
    besidePid=$!
}

join_beside() {
    local passed=0 failed=1
    wait "$besidePid" || true
    cat "$state/logs/beside.log"
    [[ ! -s $state/logs/beside.counts ]] || read -r passed failed <"$state/logs/beside.counts"
    allPassed=$((allPassed + passed))
    allFailed=$((allFailed + failed))
}

reference_runner() {
    UBSAN_OPTIONS=print_stacktrace=1 timeout -k 20 600 python3 "$root/tests/reference/compare.py" \
        "$state/sanitize/player/play" --seeds 1-300 --parts all
}

checks_runner() {
    configure_preset sanitize || return 1
    timeout -k 20 600 python3 "$root/tests/checks/run.py" "$root" "$state/sanitize"
}

# Looks into the built control without running it: binary_runner BITS
binary_runner() {
    timeout -k 20 120 python3 "$root/tests/checks/binary.py" "$root" "$state/win$1" "$1"
}

# Runs Windows test programs on a display and in a prefix of their own: windows_runner NAME USE [ctest's choice...]
windows_runner() {
    local name=$1 use=$2
    shift 2
    display_begin && wine_begin 96 "$use" || return 1
    trap 'wine_end; display_end' EXIT
    ctest_runner win64 1 "$name" "$@"
}

# Each package works where nothing was installed, and both hold the same files.
package_runner() {
    local packages passed=0 failed=0 reason
    mapfile -t packages < <(make_packages)
    ((${#packages[@]} == 2)) || { echo "0 passed, 1 failed"; return 1; }
    count() { if "$@"; then passed=$((passed + 1)); else failed=$((failed + 1)) && echo "FAILED $*"; fi; }
    count try_package_here "${packages[0]}" 64
    if reason=$("$root/scripts/wine32" make); then
        count try_package_here "${packages[1]}" 32
    else
        echo "NOT RUN: the 32-bit package, since $reason"
    fi
    count cmp <(python3 -m zipfile -l "${packages[0]}" | sed 's/win64/win/' | awk '{print $1}') \
        <(python3 -m zipfile -l "${packages[1]}" | sed 's/win32/win/' | awk '{print $1}')
    echo "$passed passed, $failed failed"
}
try_package_here() (try_package "$@")

# Runs the Windows tests as 32-bit programs. What the registry of a 64-bit system holds is not to be seen there.
windows32_runner() {
    display_begin || return 1
    export DLV_WINE_READY=yes DLV_WINE_BITS=32 DLV_STATE=$state
    trap '"$root/scripts/wine32" end; display_end' EXIT
    ctest_runner win32-tests 1 all --exclude-regex '^registration'
}

test_native() {
    rm -rf "$state/sanitize/results"
    run_runner "native build" build_runner sanitize
    run_runner "native tests" ctest_runner sanitize "$(nproc)" all
}
test_reference() { run_runner "reference model" reference_runner; }
test_checks() { run_runner "checks" checks_runner; }
# What takes long and needs nobody's hands stands beside the tests that type and click.
test_windows() {
    rm -rf "$state/win64/results"
    run_runner "64-bit build" build_runner win64
    beside test_beside_windows
    run_runner "64-bit tests" windows_runner hands "" --exclude-regex '^(hostile|soak)'
    join_beside
}
test_beside_windows() {
    run_runner "hostile and soak" windows_runner long long --tests-regex '^(hostile|soak)'
    run_runner "64-bit control" binary_runner 64
    run_runner "32-bit build" build_runner win32
    run_runner "32-bit control" binary_runner 32
    run_runner "package" package_runner
}
test_windows32() {
    local reason
    reason=$("$root/scripts/wine32" make) || { echo "No 32-bit Wine: $reason" >&2; exit 1; }
    run_runner "32-bit build" build_runner win32-tests
    run_runner "32-bit tests" windows32_runner
}
