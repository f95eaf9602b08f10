#!/usr/bin/env bash
# make run: starts the desktop program from a build folder. When nothing answers on the program's
# default web server address and that address is on this machine, dorvanta-server starts there
# first in demo mode (synthetic draws, no real results) and stops when the program closes, so
# that "Aggiorna" in the archive window works on a fresh machine.
set -u
dir=${1:-build/release}

url=$(sed -n 's/^DORVANTA_SERVER:STRING=//p' "$dir/CMakeCache.txt" 2>/dev/null)
url=${url:-http://127.0.0.1:8090}
hostport=${url#*://}
hostport=${hostport%%/*}
host=${hostport%:*}
port=${hostport##*:}
[ "$host" = "$hostport" ] && port=80

answers() { (exec 3<>"/dev/tcp/127.0.0.1/$port") 2>/dev/null; }

if [ -x "$dir/dorvanta-server" ] && { [ "$host" = 127.0.0.1 ] || [ "$host" = localhost ]; } && ! answers; then
    data=()
    [ -d "$dir/server-data" ] && data=(--data "$dir/server-data")
    "$dir/dorvanta-server" --demo "${data[@]}" --listen 127.0.0.1 --port "$port" >"$dir/dorvanta-server.log" 2>&1 &
    server=$!
    trap 'kill "$server" 2>/dev/null; wait "$server" 2>/dev/null' EXIT
    for _ in $(seq 50); do answers && break; sleep 0.1; done
    echo "dorvanta-server --demo on $url (synthetic draws, not real results; log: $dir/dorvanta-server.log)"
fi

if [ -x "$dir/dorvanta" ]; then "$dir/dorvanta"; else "$dir/dorvanta-cli" --help; fi
