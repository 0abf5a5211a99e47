#!/bin/bash
# Plays the guide to a main machine (docs/network.md) on two servers of its own: user and database, scram passwords, an encrypted line, the
# shop moved there and back, a standby that takes over, and the server's own backup. Says what went wrong, or "well".
# What the guide does by Debian's names (apt, systemctl, /etc/postgresql) is done here by the server's own programs, in a folder of its own.
cd "$(dirname "${BASH_SOURCE[0]}")/.."
. scripts/common.sh
programs=${1:-build/release/bin}
[ -x "$programs/karvel-move" ] || Fail "no karvel-move in $programs"
programs=$(realpath "$programs")
server=/usr/lib/postgresql/15/bin
folder=$(mktemp -d /tmp/karvel-guide-XXXXXX)
chmod 755 "$folder"
# The server refuses to run as root.
asServer=()
if [ "$(id -u)" = 0 ]; then
  asServer=(setpriv --reuid=postgres --regid=postgres --clear-groups --)
  chown postgres "$folder"
fi

SweepUp() {
  for machine in main standby; do
    [ ! -d "$folder/$machine" ] || "${asServer[@]}" "$server/pg_ctl" stop -s -m immediate -D "$folder/$machine" >/dev/null 2>&1 || true
  done
  rm -rf "$folder"
}
trap SweepUp EXIT

FreePort() { python3 -c 'import socket; s = socket.socket(); s.bind(("127.0.0.1", 0)); print(s.getsockname()[1])'; }
mainPort=$(FreePort)
standbyPort=$(FreePort)

# Start MACHINE PORT
Start() {
  "${asServer[@]}" "$server/pg_ctl" start -s -w -D "$folder/$1" -l "$folder/$1.log" -o "-p $2 -c unix_socket_directories=$folder" \
    >/dev/null || Fail "$1 does not start: $(cat "$folder/$1.log")"
}
Reload() { "${asServer[@]}" "$server/pg_ctl" reload -s -D "$folder/main"; }
# AsPostgres PORT PROGRAM…: as "sudo -u postgres PROGRAM" on the machine.
AsPostgres() {
  local port=$1
  shift
  "${asServer[@]}" env PGHOST="$folder" PGPORT="$port" PGUSER=postgres PGPASSFILE="$folder/none" "$@"
}
Psql() { AsPostgres "$1" psql -qAtX -v ON_ERROR_STOP=1 -c "$2"; }

echo "the main machine: server, user and database, the shop's network"
"${asServer[@]}" "$server/initdb" -D "$folder/main" -U postgres -E UTF8 --locale=C.UTF-8 -A peer --no-sync >/dev/null
printf 'local all all trust\nhost MuhasebeData karvel 127.0.0.0/8 scram-sha-256\n' | "${asServer[@]}" tee "$folder/main/pg_hba.conf" >/dev/null
echo "listen_addresses = '*'" | "${asServer[@]}" tee -a "$folder/main/postgresql.conf" >/dev/null
Start main "$mainPort"
# What --pwprompt asks for.
AsPostgres "$mainPort" createuser karvel
Psql "$mainPort" "ALTER ROLE karvel PASSWORD 'gizli'"
AsPostgres "$mainPort" createdb --owner=karvel --encoding=UTF8 --template=template0 MuhasebeData
Psql "$mainPort" "SELECT rolpassword FROM pg_authid WHERE rolname = 'karvel'" | grep -q '^SCRAM-SHA-256' || Fail "the password is no scram one"

echo "a terminal: user and password"
export HOME=$folder/terminal KARVEL_HOME=$folder/terminal/karvel
mkdir -p "$HOME"
shop=$folder/shop
"$programs/karvel-sample-shop" "$shop" >/dev/null || Fail "no sample shop"
data=$(dirname "$(find "$shop" -name Cari.mdb | head -n 1)")
Move() { "$programs/karvel-move" "$@"; }
main=postgres://127.0.0.1:$mainPort
Move --from "$data" --to "$main" >"$folder/said" 2>&1 && Fail "somebody without a password was let in"
grep -q "bu kullanıcıyı almadı" "$folder/said" || Fail "the refusal was not told: $(cat "$folder/said")"
printf '%s\n' "127.0.0.1:$mainPort:MuhasebeData:karvel:gizli" "localhost:$mainPort:MuhasebeData:karvel:gizli" \
  "127.0.0.1:$standbyPort:MuhasebeData:karvel:gizli" >"$HOME/.pgpass"
chmod 600 "$HOME/.pgpass"
export PGPASSFILE=$HOME/.pgpass PGUSER=karvel

echo "the shop is moved there and back"
Move --from "$data" --to "$main" || Fail "the shop could not be moved"
Move --from "$main" --to "$folder/back" >/dev/null || Fail "the shop could not be moved back"
for file in Cari Stok Karvel; do
  cmp <(sqlite3 "$data/$file.mdb" .dump | grep '^INSERT' | sort) <(sqlite3 "$folder/back/$file.mdb" .dump | grep '^INSERT' | sort) ||
    Fail "$file.mdb came back otherwise"
done

echo "an encrypted line"
openssl req -new -x509 -days 3650 -nodes -subj /CN=localhost -addext "subjectAltName=DNS:localhost,IP:127.0.0.1" \
  -keyout "$folder/karvel.key" -out "$folder/karvel.crt" 2>/dev/null
install -m 600 "$folder/karvel.key" "$folder/karvel.crt" "$folder/main/"
[ "$(id -u)" != 0 ] || chown postgres "$folder/main/karvel.key" "$folder/main/karvel.crt"
printf "%s\n" "ssl = on" "ssl_cert_file = '$folder/main/karvel.crt'" "ssl_key_file = '$folder/main/karvel.key'" |
  "${asServer[@]}" tee -a "$folder/main/postgresql.conf" >/dev/null
"${asServer[@]}" sed -i "s/^host MuhasebeData/hostssl MuhasebeData/" "$folder/main/pg_hba.conf"
"${asServer[@]}" "$server/pg_ctl" stop -s -m fast -D "$folder/main"
Start main "$mainPort"
PGSSLMODE=disable Move --from "$main" --to "$folder/clear" >/dev/null 2>&1 && Fail "a line in the clear was taken"
export PGSSLMODE=verify-full PGSSLROOTCERT=$folder/karvel.crt
Move --from "$main" --to "$folder/encrypted" >/dev/null || Fail "no encrypted line"
PGSSLROOTCERT=/etc/ssl/certs/ca-certificates.crt Move --from "$main" --to "$folder/other" >/dev/null 2>&1 && Fail "a strange certificate was taken"
unset PGSSLMODE PGSSLROOTCERT PGUSER
printf '%s\n' '[karvel]' user=karvel sslmode=verify-full "sslrootcert=$folder/karvel.crt" >"$HOME/.pg_service.conf"
PGSERVICE=karvel Move --from "$main" --to "$folder/service" >/dev/null || Fail "no line by the service file"
export PGUSER=karvel

echo "a standby"
# What --pwprompt asks for.
AsPostgres "$mainPort" createuser --replication kopya
Psql "$mainPort" "ALTER ROLE kopya PASSWORD 'kopya'"
echo "host replication kopya 127.0.0.1/32 scram-sha-256" | "${asServer[@]}" tee -a "$folder/main/pg_hba.conf" >/dev/null
Reload
"${asServer[@]}" env PGPASSWORD=kopya "$server/pg_basebackup" -h 127.0.0.1 -p "$mainPort" -U kopya -D "$folder/standby" -R -C -S yedek
Start standby "$standbyPort"
echo "synchronous_standby_names = '*'" | "${asServer[@]}" tee -a "$folder/main/postgresql.conf" >/dev/null
Reload
for turn in $(seq 100); do
  state=$(Psql "$mainPort" "SELECT state || ' ' || sync_state FROM pg_stat_replication")
  [ "$state" != "streaming sync" ] || break
  sleep 0.1
done
[ "$state" = "streaming sync" ] || Fail "the standby is \"$state\""
Move --from "$data" --to "$main/02" >/dev/null || Fail "a firm could not be moved while there is a standby"
Move --from "$data" --to "postgres://127.0.0.1:$standbyPort/03" >"$folder/said" 2>&1 && Fail "a standby took rows"
grep -q "yedek olarak çalışıyor" "$folder/said" || Fail "the standby was not told: $(cat "$folder/said")"

echo "the main machine breaks, the standby takes over"
"${asServer[@]}" "$server/pg_ctl" stop -s -m immediate -D "$folder/main"
Psql "$standbyPort" 'SELECT pg_promote()' >/dev/null
both=$main,127.0.0.1:$standbyPort
Move --from "$both/02" --to "$folder/taken-over" >/dev/null || Fail "the standby did not take over"
Move --from "$data" --to "$both/04" >/dev/null || Fail "the new main machine takes no rows"

echo "the server's own backup"
pg_dump -h 127.0.0.1 -p "$standbyPort" -U karvel -Fc -f "$folder/MuhasebeData.dump" MuhasebeData
Psql "$standbyPort" 'DROP DATABASE "MuhasebeData"'
AsPostgres "$standbyPort" createdb --owner=karvel --encoding=UTF8 --template=template0 MuhasebeData
pg_restore -h 127.0.0.1 -p "$standbyPort" -U karvel -d MuhasebeData --no-owner --exit-on-error "$folder/MuhasebeData.dump"
Move --from "$both/04" --to "$folder/restored" >/dev/null || Fail "what was restored can't be read"
cmp <(sqlite3 "$data/Cari.mdb" .dump | grep '^INSERT' | sort) <(sqlite3 "$folder/restored/Cari.mdb" .dump | grep '^INSERT' | sort) ||
  Fail "Cari.mdb came back otherwise"
echo well
