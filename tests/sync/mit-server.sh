#!/usr/bin/env bash
# Runs a test program against a throwaway PostgreSQL cluster of its own (pg_virtualenv, in a
# temporary directory, also as root), on a port nobody listens on, so that neither a server of the
# machine nor another test program is in the way.
set -euo pipefail
for ((port = 20000 + $$ % 20000; ; port++)); do
    (exec 3<>"/dev/tcp/127.0.0.1/$port") 2>/dev/null || break
done
exec pg_virtualenv -t -c "-p $port" "$@"
