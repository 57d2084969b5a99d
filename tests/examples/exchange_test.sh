#!/bin/bash
# exchange_test.sh SERVER CLIENT: the two example programs against each other, against witnesses that know
# nothing of the library (curl, xmllint), and against peers that mean no good.
set -euo pipefail

server=$1
client=$2
for tool in curl xmllint timeout; do
    command -v "$tool" >/dev/null || { echo "$tool is missing (packages curl, libxml2-utils, coreutils)"; exit 1; }
done

. "$(dirname "${BASH_SOURCE[0]}")/support.sh"

start server --seed 5

# --- Chunks: the same conversation, whatever the cuts.
for seed in 1 2 3 4 5 6 7 8; do talk "seed$seed" --seed "$seed"; done
talk again --seed 3
cmp "$work/seed3.log" "$work/again.log" || fail 'one seed gives two transcripts'
! cmp -s "$work/seed3.log" "$work/seed4.log" || fail 'two seeds give one transcript'
talk whole --no-split
! grep -q '^-->.*chunks$' "$work/whole.log" || fail '--no-split splits'
talk wrap --first-seqnum 4294967294 --heartbeats 12
grep -qxF '    |     <seqnum>-1</seqnum>' "$work/wrap.log" || fail 'no sequence number 4294967295'
grep -qxF '    decoded: status 200, GetAllDeviceList, seqnum 2' "$work/wrap.log" || fail 'the sequence number does not wrap'

# --- What the table shows.
while IFS= read -r line; do
    grep -qxF -e "$line" "$work/seed1.log" || fail "the table has no line '$line'"
done <<'END'
    decoded: 4 devices, 16 channels
    decoded: 2 devices, 8 channels
      192.0.2.11:8000  Zentrale Süd: "Halle" <A> & Hof
      192.0.2.12:8000  北门录像机
      192.0.2.13:8000  Gewächshaus – Übergang
      192.0.2.14:8000  📹 Dach 🏢
         3           stream 1  Tür <3>
         4  hidden   stream 0  Büro "Größe"
         5           stream 1  O'Brien's Tor
         4  hidden   stream 0  电梯 "一"
         1           stream 1  🌙 Nachtsicht
END

# --- Users: passwords with colons, quotes and angles; one user without devices; a wrong password.
talk admin --user admin --password "&<K>\"f'7"
talk gardener --user gärtner --password rosen:tulpen
grep -qxF '    decoded: 1 device, 3 channels' "$work/gardener.log" || fail 'the gardener sees another list'
talk guest --user guest --password guest
grep -qxF '    decoded: 0 devices, 0 channels' "$work/guest.log" || fail 'the guest sees devices'
! timeout 120 "$client" --port "$port" --password horse >"$work/refused.log" 2>&1 || fail 'any password will do'
grep -qF 'HTTP/1.1 401 Unauthorized' "$work/refused.log" || fail 'a refusal without status 401'

# --- Several at once.
declare -a clients=()
for seed in 11 12 13 14 15 16; do
    timeout 120 "$client" --port "$port" --seed "$seed" >"$work/at_once$seed.log" 2>&1 &
    clients+=($!)
done
for one in "${clients[@]}"; do wait "$one" || fail 'one of several clients'; done

# --- Secrets do not show. The Base64 text is operator:correct horse.
mkdir "$work/bodies"
talk saved --full --save "$work/bodies"
listed=$work/bodies/010-GetAllDeviceList-response.xml
token=$(xmllint --xpath 'string(/servercommandservice/response/Token)' "$work/bodies/004-Login-response.xml")
[[ $token =~ ^[0-9a-f]{32}$ ]] || fail "the token is '$token'"
for secret in b3BlcmF0b3I6Y29ycmVjdCBob3JzZQ== 'correct horse' 密码 'schlüssel' 🔑 "$token"; do
    ! grep -qF -e "$secret" "$work/saved.log" "$work/server.log" || fail "a transcript tells '$secret'"
done

# --- xmllint: every body is well-formed, and the names are what they are without the library's reader too.
bodies=("$work"/bodies/*.xml)
same 'number of bodies' 18 "${#bodies[@]}"
xmllint --noout "${bodies[@]}" || fail 'a body is not well-formed'
# reads WHAT EXPECTED XPATH FILE
reads() { same "$1" "$2" "$(xmllint --xpath "$3" "$4")"; }
reads 'devices' 4 'count(//Devices/Device)' "$listed"
reads 'channels' 16 'count(//Channels/Video/Channel)' "$listed"
reads 'first name' 'Zentrale Süd: "Halle" <A> & Hof' 'string((//Device)[1]/@DisplayName)' "$listed"
reads 'first password' "p&ss\"w<o>rd'1" 'string((//Device)[1]/@Password)' "$listed"
reads 'second name' '北门录像机' 'string((//Device)[2]/@DisplayName)' "$listed"
reads 'fourth name' '📹 Dach 🏢' 'string((//Device)[4]/@DisplayName)' "$listed"
reads 'last channel' '🅿️ Parkdeck' 'string((//Channel)[16]/@DisplayName)' "$listed"
reads 'owner of channel 8' 'd0000000-0000-4000-8000-000000000002' 'string((//Channels)[8]/DeviceGuid)' "$listed"

# --- curl, with a head of its own around the library's body.
# post BODY [ARGUMENTS...]: prints the status; the answer's body is in $work/answer.xml.
post() {
    local body=$1
    shift
    curl --silent --noproxy '*' --max-time 60 --output "$work/answer.xml" --write-out '%{http_code}' "$@" \
        --header 'Content-Type: text/xml; charset=utf-8' --data-binary "@$body" \
        "http://127.0.0.1:$port/servercommandservice"
}
result() { xmllint --xpath 'string(/servercommandservice/response/Result)' "$work/answer.xml"; }
# The body FILE with another token.
with_token() { sed "s|<Token>[^<]*</Token>|<Token>$1</Token>|" "$2" >"$work/request.xml"; }

login=$work/bodies/003-Login-request.xml
same 'status of a login' 200 "$(post "$login" --user 'operator:correct horse')"
same 'result of a login' 0 "$(result)"
reads 'name of the answer' Login 'string(/servercommandservice/response/@name)' "$work/answer.xml"
reads 'seqnum of the answer' 2 'string(/servercommandservice/seqnum)' "$work/answer.xml"
reads 'version of the answer' 1.0.0 'string(/servercommandservice/version)' "$work/answer.xml"
token=$(xmllint --xpath 'string(/servercommandservice/response/Token)' "$work/answer.xml")

same 'status with a wrong password' 401 "$(post "$login" --user 'operator:wrong horse')"
same 'result with a wrong password' 1 "$(result)"
reads 'no token with a wrong password' 0 'count(//Token)' "$work/answer.xml"
same 'status without credentials' 401 "$(post "$login")"
same 'status of an unknown user' 401 "$(post "$login" --user 'nobody:correct horse')"
same 'status with a colon in the password' 200 "$(post "$login" --user 'gärtner:rosen:tulpen')"

with_token "$token" "$work/bodies/009-GetAllDeviceList-request.xml"
same 'status of the devices' 200 "$(post "$work/request.xml")"
cmp "$work/answer.xml" "$listed" || fail 'curl gets other devices than the client'
with_token "$token" "$work/bodies/017-Logout-request.xml"
same 'status of a logout' 200 "$(post "$work/request.xml")"
same 'result of a logout' 0 "$(result)"
with_token "$token" "$work/bodies/009-GetAllDeviceList-request.xml"
same 'status of the devices after the logout' 200 "$(post "$work/request.xml")"
same 'result of the devices after the logout' 3 "$(result)"
reads 'no devices after the logout' 0 'count(//Devices)' "$work/answer.xml"
! curl --silent --noproxy '*' --max-time 60 "http://127.0.0.1:$port/" >"$work/page" || fail 'a web page'

# --- Messages cut in the worst places: two in one go, but for the last byte; that one together with the third.
post_head() { printf 'POST %s HTTP/1.1\r\nHost: here\r\nContent-Length: %s\r\n\r\n' "$1" "$2"; }
message() { post_head /servercommandservice "$(wc -c <"$1")"; cat "$1"; }
for body in 013-Heartbeat 015-Heartbeat 017-Logout; do message "$work/bodies/$body-request.xml" >"$work/$body"; done
{ cat "$work/013-Heartbeat"; head -c -1 "$work/015-Heartbeat"; } >"$work/first"
{ tail -c 1 "$work/015-Heartbeat"; cat "$work/017-Logout"; } >"$work/second"
# shellcheck disable=SC2016
timeout 60 bash -c 'exec 3<>"/dev/tcp/127.0.0.1/$1" && cat "$2" >&3 && sleep 0.3 && cat "$3" >&3 && cat <&3' cut \
    "$port" "$work/first" "$work/second" >"$work/answers" || fail 'three messages, cut in the worst places'
same 'answers' '7 Heartbeat 8 Heartbeat 9 Logout' "$(sed -n -e 's|^ *<seqnum>\([0-9]*\)</seqnum>$|\1|p' \
    -e 's|^ *<response name="\([A-Za-z]*\)".*|\1|p' "$work/answers" | tr '\n' ' ' | sed 's/ $//')"

# --- Peers that mean no good lose their connection, and get no answer.
# hostile REASON: sends standard input on a connection of its own and waits for the server to end it.
hostile() {
    local status=0
    cat >"$work/hostile"
    # shellcheck disable=SC2016
    timeout 60 bash -c 'exec 3<>"/dev/tcp/127.0.0.1/$1" && cat "$2" >&3; cat <&3' hostile "$port" "$work/hostile" \
        >"$work/hostile.answer" 2>/dev/null || status=$?
    [ $status -ne 124 ] || fail "the server bears with: $1"
    [ ! -s "$work/hostile.answer" ] || fail "the server answers to: $1"
    logged "$work/server.log" "$1"
}
repeat() { head -c "$2" /dev/zero | tr '\0' "$1"; }

# The reason that is waited for must not be an older one.
refused() { same "number of '$1'" "$2" "$(grep -cF -e "hanging up: $1" "$work/server.log")"; }

printf 'SSH-2.0-OpenSSH_9.2\r\n' | hostile 'this is not HTTP'
{ printf '\200\001'; head -c 200000 /dev/urandom; } | hostile 'this is not HTTP'
refused 'this is not HTTP' 2
{ printf 'POST / HTTP/1.1\r\nX: '; repeat a 20000; } | hostile 'the head is too long'
post_head /servercommandservice 1048577 | hostile 'the body is too long'
post_head /servercommandservice 2147483647 | hostile 'the body is too long'
refused 'the body is too long' 2
printf 'POST /servercommandservice HTTP/1.1\r\nHost: here\r\n\r\n' | hostile 'the head names no length'
post_head /servercommandservice 0 | hostile 'the head names no length'
post_head /servercommandservice 99999999999999999999 | hostile 'the head names no length'
refused 'the head names no length' 4 # with the web page that curl asked for
{ printf 'POST / HTTP/1.1\r\nHost: here\r\nX-Number: 100\r\n\r\n'; repeat 7 100; } | hostile 'the length of the message is in doubt'
{ post_head /servercommandservice 9; printf '<no xml ='; } | hostile 'this is no command'
{ post_head /servercommandservice 1048576; repeat ' ' 1048576; } | hostile 'this is no command'
{ post_head /servercommandservice 30000; for ((i = 0; i < 10000; i++)); do printf '<a>'; done; } | hostile 'this is no command'
{ post_head /elsewhere "$(wc -c <"$login")"; cat "$login"; } | hostile 'this is no command'
refused 'this is no command' 4

# Gone in the middle of a message: in the head, in the body, before the first byte.
gone() { cat >"$work/gone" && bash -c 'exec 3<>"/dev/tcp/127.0.0.1/$1" && cat "$2" >&3' gone "$port" "$work/gone"; }
printf 'POST /servercommandservice HT' | gone
logged "$work/server.log" 'the client is gone, 29 bytes into a message'
{ post_head /servercommandservice 500; repeat x 99; } >"$work/half"
gone <"$work/half"
logged "$work/server.log" "the client is gone, $(wc -c <"$work/half") bytes into a message"
gone </dev/null

# Many connections that say half of something, while a client is served.
declare -a half=()
for ((i = 0; i < 20; i++)); do
    exec {fd}<>"/dev/tcp/127.0.0.1/$port"
    printf 'POST /serv' >&"$fd"
    half+=("$fd")
done
talk among_others
for fd in "${half[@]}"; do exec {fd}>&-; done

# --- After all that the server still serves, and ends in order when it is told to.
talk afterwards --seed 99
! grep -qE 'ERROR: |runtime error: |given up' "$work"/*.log || fail 'an error on the way'
kill -TERM "$pid"
ended

# --- A peer that falls silent in the middle of a message does not keep its connection.
start patience --patience 1
printf 'POST /servercommandservice HT' >"$work/silent"
# shellcheck disable=SC2016
timeout 60 bash -c 'exec 3<>"/dev/tcp/127.0.0.1/$1" && cat "$2" >&3; cat <&3' silent "$port" "$work/silent" \
    >/dev/null 2>&1 || [ $? -ne 124 ] || fail 'the server waits for ever'
logged "$work/patience.log" 'hanging up: it takes too long'
kill -TERM "$pid"
ended

# --- --once: the server ends by itself, and the command line is read with care.
start once --once
talk once_client
ended
for wrong in '--port 65536' '--port x' '--port' '--sead 1' '--seed -1'; do
    # shellcheck disable=SC2086
    ! timeout 60 "$server" $wrong >"$work/arguments.log" 2>&1 || fail "the server takes $wrong"
done
! timeout 60 "$client" >"$work/arguments.log" 2>&1 || fail 'the client takes no port'
echo 'All is well.'
