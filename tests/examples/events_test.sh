#!/bin/bash
# events_test.sh SERVER CLIENT: events that the server pushes among its answers, the search in the history of
# alarms, and peers of all kinds: several at once, silent ones, deaf ones, and such as go while they are pushed to.
set -euo pipefail

server=$1
client=$2
for tool in curl python3 timeout xmllint; do
    command -v "$tool" >/dev/null || { echo "$tool is missing (packages curl, python3, coreutils, libxml2-utils)"; exit 1; }
done

. "$(dirname "${BASH_SOURCE[0]}")/support.sh"

peer=$(dirname "${BASH_SOURCE[0]}")/event_peer.py
says() { grep -qxF -e "$2" "$work/$1.log" || fail "$1 does not say '$2'"; }
stop() { kill -TERM "$pid"; ended; }
no_errors() { ! grep -qE 'ERROR: |runtime error: |given up' "$work"/*.log || fail 'an error on the way'; }

# --- The seeds decide what is asked and what is pushed when: the same ones give the same conversation.
# The first conversation with a server of the seed $2, in $1.log.
first_talk() { start "server_$1" --seed "$2"; talk "$1" --seed "$3" --events 40; stop; }
first_talk one 5 1
first_talk same 5 1
first_talk other_server 6 1
first_talk other_client 5 2
cmp "$work/one.log" "$work/same.log" || fail 'the same seeds give two conversations'
! cmp -s "$work/one.log" "$work/other_server.log" || fail 'the seed of the server decides nothing'
! cmp -s "$work/one.log" "$work/other_client.log" || fail 'the seed of the client decides nothing'

# --- Whatever the order and the cuts, every event comes once and every answer is found.
start server --seed 5
for seed in 1 2 3 4 5 6 7 8; do talk "seed$seed" --seed "$seed" --events 30; done
talk whole --no-split --events 30
talk wrap --first-seqnum 4294967290 --events 30
talk admin --user admin --password "&<K>\"f'7" --events 60
mkdir "$work/saved"
talk saved --seed 3 --events 25 --save "$work/saved"
! timeout 120 "$client" --port "$port" --user guest --password guest >"$work/guest.log" 2>&1 || fail 'the guest sees events'
same 'the guest' 'events_client: not as it should be: a user who may see channels' "$(tail -n 1 "$work/guest.log")"

# The report counts what is there: one saved file for each event, the fields of an alarm 1 + 20, of a recording
# status 1 + 8, of the other kinds 1 + 3.
events=("$work"/saved/*-NotificationContent-event.xml)
kind() { grep -lF "MessageType=\"$1\"" "${events[@]}" | wc -l; }
fields=0
while read -r type each name; do
    count=$(kind "$type")
    [ "$count" -ge 5 ] || fail "only $count of the kind $name"
    says saved "    $type, $name: $count"
    fields=$((fields + each * count))
done <<'END'
23 4 channel disabled
24 4 channel deleted
300 21 alarm
301 9 recording status
302 4 online status
END
says saved "    compared: $fields fields of ${#events[@]} events"

# Requests went out before the answers to the ones before them were there, events came before, between and behind
# answers, and several messages in one go.
sed -n -e 's/^\[12\] --> \([0-9]*\) messages,.*/\1/p' "$work/server.log" | sort -n | tail -n 1 >"$work/most"
[ "$(cat "$work/most")" -ge 4 ] || fail 'no four messages in one go'
sed -n -e 's/^--> .*/Q/p' -e 's/^    event: .*/E/p' -e 's/^    decoded: status .*/A/p' "$work/saved.log" | tr -d '\n' >"$work/order"
for order in QQ EA AE AEA EEE; do grep -qF "$order" "$work/order" || fail "nowhere $order in $(cat "$work/order")"; done

# --- xmllint: what the operator's channels are is known; so are the first five events.
xmllint --noout "$work"/saved/*.xml || fail 'a body is not well-formed'
reads() { same "$1" "$2" "$(xmllint --xpath "$3" "$4")"; }
m=/servercommandservice/response/Notifications/MessageNotification
while IFS='|' read -r number what expected path; do
    reads "event $number, $what" "$expected" "$path" "${events[number]}"
done <<END
0|kind|302|string($m/@MessageType)
0|seqnum|1|string(/servercommandservice/seqnum)
0|token|0|count(//Token)
0|channel|c0000000-0000-4000-8000-000000000001|string($m/OnlineStatus/ChannelGuid)
0|sub-kind|-3|string($m/OnlineStatus/MessageType)
1|kind|300|string($m/@MessageType)
1|source|Müllplatz & Rampe|string($m/AlarmData/AlarmSource)
1|content|移动侦测 <Bewegung> & "mehr" 🚨|string($m/AlarmData/AlarmContent)
1|sub-type|<&1>|string($m/AlarmData/AlarmSubTypeCode)
1|end|20250101000202|string($m/AlarmData/EndTime)
1|confirmer|值班员|string($m/AlarmData/Confirmer)
1|history|0|count($m/AlarmData/ConfirmState)
2|kind|301|string($m/@MessageType)
2|error|-2|string($m/RecordingStatus/ErrorCode)
2|description|录像停止 & 'Platte <2> voll' 💾|string($m/RecordingStatus/MessageDesc)
3|kind|23|string($m/@MessageType)
3|device|d0000000-0000-4000-8000-000000000001|string($m/ChannelDisabled/DeviceGuid)
4|kind|24|string($m/@MessageType)
4|channel|c0000000-0000-4000-8000-000000000005|string($m/ChannelDeleted/ChannelGuid)
6|device|d0000000-0000-4000-8000-000000000004|string($m/AlarmData/DeviceGuid)
END

# --- The history: the operator's eight channels have five alarms each; curl turns the pages.
searches=("$work"/saved/*-SearchHistoryAlarm-request.xml) # the last ones are for all channels
url=http://127.0.0.1:$port/servercommandservice
quick=(--silent --noproxy '*' --max-time 60 --header 'Content-Type: text/xml')
curl "${quick[@]}" --user 'operator:correct horse' --data-binary "@$work/saved/001-Login-request.xml" --output "$work/login.xml" "$url"
token=$(xmllint --xpath 'string(//Token)' "$work/login.xml")
# history TOKEN SED: asks for the alarms 0 to 9 of all channels, but for what SED changes.
history() {
    sed -e "s|<Token>[^<]*</Token>|<Token>$1</Token>|" -e 's/BeginIndex="[0-9]*" EndIndex="[0-9]*"/BeginIndex="0" EndIndex="9"/' \
        -e "$2" "${searches[-1]}" >"$work/request.xml"
    curl "${quick[@]}" --data-binary "@$work/request.xml" --output "$work/answer.xml" "$url"
}
channels() { printf 's|<SearchParam|<Channels count="%s">' "$1"; shift; printf '<ChannelGuid>%s</ChannelGuid>' "$@"; printf '</Channels>&|'; }
infos=/servercommandservice/response/AlarmInfos
history "$token" ''
reads 'all hits' 40 "string($infos/@SearchCount)" "$work/answer.xml"
reads 'the first page' 10 "count($infos/AlarmData)" "$work/answer.xml"
reads 'alarm 4' '4 c0000000-0000-4000-8000-000000000005 20250101000404 geprüft: O'"'"'Brien' \
    "concat($infos/AlarmData[5]/@AlarmNo, ' ', $infos/AlarmData[5]/@ChannelGuid, ' ', $infos/AlarmData[5]/@BeginTime, ' ', $infos/AlarmData[6]/@ConfirmMessage)" \
    "$work/answer.xml"
history "$token" 's/BeginIndex="0" EndIndex="9"/BeginIndex="38" EndIndex="2147483647"/'
reads 'the last page' '2 39' "concat($infos/@CurCount, ' ', $infos/AlarmData[2]/@AlarmNo)" "$work/answer.xml"
history "$token" "$(channels 2 c0000000-0000-4000-8000-000000000002 c0000000-0000-4000-8000-000000000016)"
reads 'of two channels' '10 1 7' "concat($infos/@SearchCount, ' ', $infos/AlarmData[1]/@AlarmNo, ' ', $infos/AlarmData[2]/@AlarmNo)" "$work/answer.xml"
history "$token" "$(channels 1 c0000000-0000-4000-8000-000000000007)" # the channel of others
reads 'of others' '0 0' "concat(/servercommandservice/response/Result, ' ', count($infos))" "$work/answer.xml"
history "$token" 's/BeginTime="[0-9]*" EndTime="[0-9]*"/BeginTime="20250101000303" EndTime="20250101000505"/'
reads 'of two minutes' '3 3' "concat($infos/@SearchCount, ' ', $infos/AlarmData[1]/@AlarmNo)" "$work/answer.xml"
history "$token" 's/AlarmLevel="0"/AlarmLevel="3"/'
reads 'of level 3' 13 "string($infos/@SearchCount)" "$work/answer.xml"
history none ''
reads 'for nobody' '3 0' "concat(/servercommandservice/response/Result, ' ', count($infos))" "$work/answer.xml"

# --- A client notices what is not as it was sent.
tampered field '<ErrorCode>-7<' '<ErrorCode>-8<' "events_client: not as it should be: event 7, ErrorCode: '-8' instead of '-7'" --seed 1
no_errors
stop

# --- A server that also pushes by itself, every millisecond: there the events come between any two bytes that the
# client sends, and several clients take them at once.
start busy --seed 9 --events-every 1
declare -a clients=()
for seed in 11 12 13 14; do
    timeout 120 "$client" --port "$port" --seed "$seed" --events 200 --idle 100 --heartbeat-every 20 >"$work/at_once$seed.log" 2>&1 &
    clients+=($!)
done
for one in "${clients[@]}"; do wait "$one" || fail 'one of several clients'; done
for seed in 11 12 13 14; do same "client $seed" 'Everything was as it should be.' "$(tail -n 1 "$work/at_once$seed.log")"; done

# A client that is killed while it is pushed to, and peers that reset their connections, harm nobody else.
gone() { grep -cF 'the client is gone' "$work/busy.log" || true; }
# A shell of its own, which is the one to tell of its death.
("$client" --port "$port" --events 10 --idle 1000000 & echo $! >"$work/killed.pid"; wait $!) >"$work/killed.log" 2>&1 &
killed=$!
for ((tries = 0; tries < 600; tries++)); do
    ! grep -qF 'event: seqnum 50,' "$work/killed.log" || break
    sleep 0.1
done
grep -qF 'event: seqnum 50,' "$work/killed.log" || fail 'no fifty events'
same 'clients that were gone before' 0 "$(gone)"
kill -KILL "$(cat "$work/killed.pid")"
! wait "$killed" || fail 'the client is not killed'
logged "$work/busy.log" 'the client is gone'
for ((i = 0; i < 5; i++)); do
    same "peer $i" 'the peer has hung up' "$(timeout 60 python3 "$peer" "$port" hangs-up 2>&1)"
done
for ((tries = 0; tries < 200; tries++)); do
    [ "$(gone)" -lt 6 ] || break
    sleep 0.1
done
same 'clients that are gone' 6 "$(gone)"

# A subscription ends with its session.
same 'peer' 'no events after the logout' "$(timeout 60 python3 "$peer" "$port" logged-out 2>&1)"
talk afterwards --seed 99
no_errors

# The server goes while a client listens: the client says so, and does not wait.
"$client" --port "$port" --events 10 --idle 1000000 >"$work/left.log" 2>&1 &
left=$!
for ((tries = 0; tries < 600; tries++)); do
    ! grep -qF 'event: seqnum 50,' "$work/left.log" || break
    sleep 0.1
done
stop
! wait "$left" || fail 'a client without a server is content'
tail -n 1 "$work/left.log" | grep -qE '^events_client: (not as it should be: an (event|answer to Heartbeat) was to come, but the server has ended the connection|the connection ended in the middle of a message|receiving: |sending: )' ||
    fail "a client without a server says '$(tail -n 1 "$work/left.log")'"

# --- Patience: heartbeats keep a client that only listens. Events do not keep one that is silent, and one that
# takes nothing loses its connection however much it says.
start patient --patience 4 --events-every 100
talk listener --events 5 --idle 60 --heartbeat-every 300
same 'hung up on' 0 "$(grep -cF 'hanging up' "$work/patient.log" || true)"
same 'peer' 'the silent peer has lost its connection' "$(timeout 60 python3 "$peer" "$port" silent 2>&1)"
logged "$work/patient.log" 'hanging up: it takes too long'
no_errors
stop
start deaf --patience 2 --events-every 1 --no-split
same 'peer' 'the deaf peer has lost its connection' "$(timeout 60 python3 "$peer" "$port" deaf 2>&1)"
logged "$work/deaf.log" 'hanging up: it takes too long'
no_errors
stop
echo 'All is well.'
