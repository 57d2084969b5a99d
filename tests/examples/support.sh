# Sourced by the tests of the example programs, which have set `server` and `client`: starts and ends them, in a
# folder `work` that is removed at the end.

work=$(mktemp -d)
pid='' # of the server, as long as it runs
cleanup() {
    local status=$?
    [ -z "$pid" ] || kill -KILL "$pid" 2>/dev/null || true
    wait 2>/dev/null
    if [ $status -ne 0 ]; then
        echo 'The end of what was written last:'
        # shellcheck disable=SC2012
        ls -t "$work"/*.log 2>/dev/null | head -n 2 | xargs -r -d '\n' tail -n 40 || true
    fi
    rm -rf "$work"
    exit $status
}
trap cleanup EXIT
trap 'exit 1' HUP INT TERM

fail() { echo "FAILED: $*"; exit 1; }
same() { [ "$2" = "$3" ] || fail "$1: expected '$2', got '$3'"; }

# start NAME ARGUMENTS...: starts a server with its output in NAME.log; sets pid and port.
start() {
    local log=$work/$1.log tries
    shift
    : >"$log" # or it may not be there yet when it is read
    "$server" "$@" >>"$log" 2>&1 &
    pid=$!
    for ((tries = 0; tries < 600; tries++)); do
        port=$(sed -n 's/^listening on 127\.0\.0\.1:\([0-9][0-9]*\)$/\1/p' "$log")
        [ -z "$port" ] || return 0
        kill -0 "$pid" 2>/dev/null || fail 'the server has ended'
        sleep 0.1
    done
    fail 'the server does not listen'
}

# Waits for the server, which is to end by itself and in order.
ended() {
    local tries status=0
    for ((tries = 0; tries < 600; tries++)); do
        if ! kill -0 "$pid" 2>/dev/null; then
            wait "$pid" || status=$?
            pid=''
            [ $status -eq 0 ] || fail "the server ends with status $status"
            return
        fi
        sleep 0.1
    done
    fail 'the server does not end'
}

# A logged line may come later than what it tells.
logged() {
    local tries
    for ((tries = 0; tries < 200; tries++)); do
        ! grep -qF -e "$2" "$1" || return 0
        sleep 0.1
    done
    fail "the server does not say '$2'"
}

# talk NAME ARGUMENTS...: runs a client, output in NAME.log.
talk() {
    local name=$1
    shift
    timeout 120 "$client" --port "$port" "$@" >"$work/$name.log" 2>&1 || fail "client $name ($*)"
    same "$name" 'Everything was as it should be.' "$(tail -n 1 "$work/$name.log")"
}

# tampered NAME OLD NEW EXPECTED ARGUMENTS...: a client that gets NEW where the server says OLD, as long as that is;
# it has to complain with the line EXPECTED. Output in NAME.log.
tampered() {
    local name=$1 old=$2 new=$3 expected=$4 proxy tries behind=''
    shift 4
    : >"$work/$name.proxy"
    timeout 120 python3 "$(dirname "${BASH_SOURCE[0]}")/tampering_proxy.py" "$port" "$old" "$new" >>"$work/$name.proxy" 2>&1 &
    proxy=$!
    for ((tries = 0; tries < 600; tries++)); do
        behind=$(sed -n 's/^listening on 127\.0\.0\.1:\([0-9][0-9]*\)$/\1/p' "$work/$name.proxy")
        [ -z "$behind" ] || break
        sleep 0.1
    done
    [ -n "$behind" ] || fail 'the proxy does not listen'
    ! timeout 120 "$client" --port "$behind" "$@" >"$work/$name.log" 2>&1 || fail "$name: '$new' for '$old' is not noticed"
    same "$name" "$expected" "$(tail -n 1 "$work/$name.log")"
    wait "$proxy" || fail "$name: the proxy"
}
