#!/usr/bin/env bash
# A PostgreSQL server for the suite, in a folder of its own, on a unix socket and no port.
#
# Usage: postgres_server.sh start FOLDER [durable] | stop FOLDER | kill FOLDER | resume FOLDER [durable]
#
# "kill" ends the server in the middle of whatever it does and leaves its files, "resume" brings it back on them.
# The user is "app" without a password; "keyed" needs one, and so does "stranger", whom the server does not know. The
# socket lies in FOLDER. Nothing here is meant to outlive a power failure, so the server does without waiting for the
# disk. A "durable" one waits for it, with the settings that a server has.
set -euo pipefail

programs=/usr/lib/postgresql/15/bin

# The server refuses to run as root.
as_server() {
    if [[ $EUID -eq 0 ]]; then
        runuser -u postgres -- "$@"
    else
        "$@"
    fi
}

kill_server() {
    if [[ -f $1/data/postmaster.pid ]]; then
        as_server "$programs/pg_ctl" -D "$1/data" -m immediate -w -t 30 stop >/dev/null || true
    fi
}

stop() {
    kill_server "$1"
    rm -rf "$1"
}

resume() {
    local haste="-c fsync=off -c full_page_writes=off -c synchronous_commit=off"
    [[ $2 != durable ]] || haste=""
    cd "$1"
    as_server "$programs/pg_ctl" -D "$1/data" -l "$1/server.log" -w -t 60 start \
        -o "-c listen_addresses='' -c unix_socket_directories='$1' -c max_connections=60 $haste" \
        >/dev/null || { cat "$1/server.log" >&2 && exit 1; }
}

start() {
    stop "$1"
    mkdir -p "$1"
    [[ $EUID -ne 0 ]] || chown postgres: "$1"
    cd "$1"
    as_server "$programs/initdb" -D "$1/data" -U app -A trust -E UTF8 --locale=C.UTF-8 --no-sync >"$1/initdb.log" 2>&1 ||
        { cat "$1/initdb.log" >&2 && exit 1; }
    printf 'local all keyed,stranger scram-sha-256\nlocal all all trust\n' >"$1/data/pg_hba.conf"
    resume "$1" "$2"
    psql -X -q -h "$1" -U app -d postgres -c "CREATE ROLE keyed LOGIN PASSWORD 'open: sesame/1@'"
}

case ${1:-} in
start | stop | resume) "$1" "${2:?the folder is missing}" "${3:-}" ;;
kill) kill_server "${2:?the folder is missing}" ;;
*)
    sed -n '2,11s/^# \{0,1\}//p' "$0" >&2
    exit 2
    ;;
esac
