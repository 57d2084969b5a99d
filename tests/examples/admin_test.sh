#!/bin/bash
# admin_test.sh SERVER CLIENT: an administrator's devices, servers and recordings between the two example programs,
# what witnesses that know nothing of the library (curl, xmllint) make of them, and what the server refuses to keep.
set -euo pipefail

server=$1
client=$2
for tool in curl python3 timeout xmllint; do
    command -v "$tool" >/dev/null || { echo "$tool is missing (packages curl, python3, coreutils, libxml2-utils)"; exit 1; }
done

. "$(dirname "${BASH_SOURCE[0]}")/support.sh"

start server --seed 5

# --- Added, changed and deleted, whatever the cuts; the client compares what it can read back.
mkdir "$work/saved"
talk admin --seed 3 --save "$work/saved"
for seed in 4 5 6 7 8; do talk "seed$seed" --seed "$seed"; done
talk whole --seed 9 --no-split
talk wrap --seed 10 --first-seqnum 4294967288
talk again --seed 3 --full # everything was deleted, so it can be added again

# The fields of two devices and four channels: 2 + 4 for how often they are there, 2*20 + 4*11; of servers 3 + 3*8;
# of a user and the channels 13 + 16*22 and, for those that were added, 4*22 more; of the operator 13 + 8*22.
while IFS= read -r line; do
    for log in admin seed8 whole wrap again; do
        grep -qxF -e "$line" "$work/$log.log" || fail "$log does not say '$line'"
    done
done <<'END'
    compared: 365 fields of a user and 16 channels
    compared: 453 fields of a user and 20 channels
    compared: 189 fields of a user and 8 channels
    compared: 21 fields of the device 新设备 <Rekorder> & "Keller" 📼
    compared: 21 fields of the device Kamera 'Hof'
    compared: 90 fields of 2 devices with 4 channels
    compared: 6 fields of 0 devices with 0 channels
    compared: 27 fields of 3 servers
    compared: 19 fields of 2 servers
    compared: 3 fields of 0 servers
    decoded: result 3
    decoded: result 8
    decoded: result 9
END
for line in '        <Seqnum>-1</Seqnum>' '        <Seqnum>-2</Seqnum>' '        <Seqnum>0</Seqnum>'; do
    grep -qxF -e "    | $line" "$work/wrap.log" || fail "no search of number '$line'"
done

# --- What cannot be read back is in the server's log, as it decoded it.
while IFS= read -r line; do
    grep -qF -e "$line" "$work/server.log" || fail "the server does not say '$line'"
done <<'END'
decoded: AddDevice, seqnum 18, result 0; d0000000-0000-4000-8000-000000001301 仓库录像机 📦📦📦📦📦📦📦📦📦📦📦📦 at '[2001:db8::7]'; d0000000-0000-4000-8000-000000001302 仓
c0000000-0000-4000-8000-000000001303 /录像/3, //archive/<1> & "2", /mnt/o', 3 12 13 14 15 1 0 18 19 20 21 22 23 0 1 600 -1, from 门开 <auf> to 门关 "zu", '24/7'; kept: 6 devices, 20 channels, 3 storage settings, 0 channel schedules, 0 named schedules, 0 archives, 1 server
c0000000-0000-4000-8000-000000001302 /录像/neu & alt, //archive/<1> & "2", /mnt/ö, 2 12 13 -14 15 0 1 18 19 20 21 22 2147483647 1 0 600 -1, from 门开 <auf> to 门关 "zu", 'Mo-Fr 08:00-18:00; Sa 'früh' & <spät>; ...' of 50 bytes;
decoded: DeleteStorage, seqnum 34, result 0; c0000000-0000-4000-8000-000000001301; kept: 6 devices, 20 channels, 2 storage settings,
decoded: AddSchedule, seqnum 39, result 0; c0000000-0000-4000-8000-000000001302 online 7 e0000000-0000-4000-8000-000000001302 Tag 'Mo 00:00-24:00 & Di', speedup -3 e0000000-0000-4000-8000-000000001312 加速 "schnell" 'Sa <4x>'; kept: 6 devices, 20 channels, 2 storage settings, 2 channel schedules,
decoded: UpdateSchedule, seqnum 44, result 0; c0000000-0000-4000-8000-000000001303 online 8 e0000000-0000-4000-8000-000000001303 夜班 & <Nacht> 'Mo 00:00-24:00 & Di', speedup -3 e0000000-0000-4000-8000-000000001313 加速 "schnell" ''; kept: 6 devices, 20 channels, 2 storage settings, 3 channel schedules,
e0000000-0000-4000-8000-000000001323 改 <neu> 3, type -3, '++++++++++++++++++++++++++++++++++++++++ ...' of 2048 bytes; kept: 6 devices, 20 channels, 2 storage settings, 2 channel schedules, 3 named schedules, 0 archives, 1 server
decoded: UpdateArchiveInfo, seqnum 58, result 0; 60000000-0000-4000-8000-000000001301 at 2031-01-02 03:04; 60000000-0000-4000-8000-000000001302 at 2031-01-02 03:04; 60000000-0000-4000-8000-000000001303 at 2031-01-02 03:04; kept:
kept: 6 devices, 20 channels, 2 storage settings, 2 channel schedules, 0 named schedules, 3 archives, 1 server
a0000000-0000-4000-8000-000000001303 Süd & <neu> 3 at 192.0.2.103:9003; kept: 6 devices, 20 channels, 2 storage settings, 2 channel schedules, 0 named schedules, 0 archives, 4 servers
decoded: DeleteDevice, seqnum 79, result 0; d0000000-0000-4000-8000-000000001301; d0000000-0000-4000-8000-000000001302; kept: 4 devices, 16 channels, 0 storage settings, 0 channel schedules, 0 named schedules, 0 archives, 1 server
decoded: StartSearchDevice, seqnum 4294967295, result 0, found 新设备 <Rekorder> & "Keller" 📼
decoded: StopSearchDevice, seqnum 2, of 4294967295, result 0
END

# --- Several at once, each with what is its own.
declare -a clients=()
for seed in 11 12 13 14 15 16; do
    timeout 120 "$client" --port "$port" --seed "$seed" >"$work/at_once$seed.log" 2>&1 &
    clients+=($!)
done
for one in "${clients[@]}"; do wait "$one" || fail 'one of several clients'; done

# --- Who is no administrator is told so, and the client notices.
! timeout 120 "$client" --port "$port" --user operator --password 'correct horse' >"$work/operator.log" 2>&1 ||
    fail 'an operator administers'
same 'an operator' 'admin_client: not as it should be: result 0' "$(tail -n 1 "$work/operator.log")"

# --- Witnesses: xmllint reads what the library wrote, but for the character of code 1 that XML does not know and
# that says that DHCP is on.
saved=$work/saved
declare -a bodies=()
for body in "$saved"/*.xml; do
    if grep -qF 'Dhcp="&#x01;"' "$body"; then
        dhcp=$body
    else
        bodies+=("$body")
    fi
done
same 'number of bodies' 168 "$((${#bodies[@]} + 1))"
same 'the body with DHCP' "$saved/020-StartSearchDevice-response.xml" "$dhcp"
xmllint --noout "${bodies[@]}" || fail 'a body is not well-formed'
reads() { same "$1" "$2" "$(xmllint --xpath "$3" "$4")"; }
while IFS='|' read -r expected path file; do reads "$file, $path" "$expected" "$path" "$saved/$file.xml"; done <<'END'
2|string(//DeviceCounter)|035-AddDevice-request
4|count(//Channels/Video/Channel)|035-AddDevice-request
d0000000-0000-4000-8000-000000001302|string((//Channels)[4]/DeviceGuid)|035-AddDevice-request
0|count(//Token)|035-AddDevice-request
2|count(//Devices/Device[count(@*) = 1])|157-DeleteDevice-request
4|count(//Video/Channel[count(@*) = 1])|157-DeleteDevice-request
75|count(//Storage/Channels/*)|061-AddStorage-request
1|count(//Storage/Channels/*)|067-DeleteStorage-request
3|count(//Schedules[Online/ChannelGuid = "c0000000-0000-4000-8000-000000001301"])|071-AddSchedule-request
3|count(//Schedules/ChannelGuid[. != preceding::ChannelGuid or not(preceding::ChannelGuid)])|091-DeleteSchedule-request
1 3|concat(//schedules/reqType, " ", //schedules/scheduleCouner)|095-SetSchedulesInfo-request
2048|string-length((//schedule)[3]/@Schedules)|095-SetSchedulesInfo-request
3|count(//Archives/Archive)|111-AddArchiveInfo-request
GetServerInfo|string(//response/@name)|128-GetServerInfo-response
4|count(//servers/server)|130-GetServerInfo-response
a-name-of-thirty-two.example.org|string((//server)[3]/@PublicAddress)|136-GetServerInfo-response
admin|string(//UserInfo/UserName)|004-GetUserInfo-response
HAUS\admin|string(//UserInfo/SamacCountName)|004-GetUserInfo-response
6|count(//UserRights/@*[. = "1"])|004-GetUserInfo-response
19|count((//Channel)[16]/ChannelRights/@*[. = "1"])|006-GetChannelRightsInfo-response
1 99|concat(//MultiNet, " ", //Device/@VenderType)|013-StartSearchDevice-request
1|string(//HasDevice)|016-StartSearchDevice-response
0|string(//HasDevice)|018-StartSearchDevice-response
8|string(//Seqnum)|021-StopSearchDevice-request
END

# --- And curl posts it. A token says nothing on the path for management; who has logged in on the connection does.
url=http://127.0.0.1:$port/servercommandservice
quick=(--silent --noproxy '*' --max-time 60 --header 'Content-Type: text/xml')
admin="admin:&<K>\"f'7"
# login USER: sets token.
login() {
    curl "${quick[@]}" --user "$1" --data-binary "@$saved/001-Login-request.xml" --output "$work/login.xml" "$url"
    token=$(xmllint --xpath 'string(//Token)' "$work/login.xml")
}
# changed FILE SED: the request, with the token of now.
changed() { sed -e "s|<Token>[^<]*</Token>|<Token>$token</Token>|" -e "$2" "$saved/$1-request.xml" >"$work/request.xml"; }
# ask URL: posts it; the answer is in $work/answer.xml.
ask() { curl "${quick[@]}" --data-binary "@$work/request.xml" --output "$work/answer.xml" "$1"; }
result() { reads "$1" "$2" 'string(/servercommandservice/response/Result)' "$work/answer.xml"; }
# manage USER FILE SED: a login, and the request behind it on the same connection.
manage() {
    changed "$2" "$3"
    curl "${quick[@]}" --user "$1" --data-binary "@$saved/001-Login-request.xml" --output "$work/login.xml" "$url" \
        --next "${quick[@]}" --data-binary "@$work/request.xml" --output "$work/answer.xml" "$url/manage"
}
managed() { manage "$admin" "$2" "$3"; result "$2 $3" "$1"; }
# listed WHAT DEVICES CHANNELS: what the server keeps.
listed() {
    changed 037-GetAllDeviceList ''
    ask "$url"
    cp "$work/answer.xml" "$work/list.xml"
    same "$1" "$2 $3" "$(xmllint --xpath 'concat(count(//Device), " ", count(//Video/Channel))' "$work/list.xml")"
}

login "$admin"
changed 035-AddDevice ''
ask "$url/manage"
result 'a device without a login' 3
ask "$url"
result 'a device on the other path' 9
changed 129-GetServerInfo ''
ask "$url/manage"
result 'servers on the other path' 9
ask "$url"
result 'servers' 0
reads 'the server itself' "127.0.0.1:$port" 'concat(//server/@PrivateAddress, ":", //server/@PrivatePort)' "$work/answer.xml"
manage 'operator:correct horse' 035-AddDevice ''
result 'a device by who is no administrator' 8
manage "admin:wrong" 035-AddDevice ''
result 'a device behind a wrong password' 3
managed 4 035-AddDevice 's/name="AddDevice"/name="AddWeather"/'
changed 127-SetServerInfo ''
ask "$url/manage"
result 'servers with a token alone' 0
changed 127-SetServerInfo 's|<Token>.*</Token>|<Token>0</Token>|'
ask "$url/manage"
result 'servers with a token that nobody has' 3
reads 'its name' GetServerInfo 'string(//response/@name)' "$work/answer.xml"

# --- What is not whole is not kept, and what is there stays. Expected results: 4 is unknown, 5 is not there,
# 6 is not whole, 10 is there already.
while IFS='|' read -r expected file change; do managed "$expected" "$file" "$change"; done <<'END'
6|035-AddDevice|s/<DeviceCounter>2/<DeviceCounter>3/
6|035-AddDevice|s/<DeviceCounter>2/<DeviceCounter>1/
6|035-AddDevice|s/<DeviceCounter>2/<DeviceCounter>-2/
6|035-AddDevice|s/<DeviceCounter>2/<DeviceCounter>2000000000/
6|035-AddDevice|/<DeviceCounter>/d
6|035-AddDevice|s/<ChannelCounter>4/<ChannelCounter>5/
6|035-AddDevice|s/<ChannelCounter>4/<ChannelCounter>3/
6|035-AddDevice|s/Channel Guid="c0000000-0000-4000-8000-000000001304"/Channel/
6|035-AddDevice|s/<DeviceGuid>d0000000-0000-4000-8000-000000001302/<DeviceGuid>/
6|035-AddDevice|s/<DeviceGuid>d0000000-0000-4000-8000-000000001302/<DeviceGuid>d0000000-0000-4000-8000-000000001301/
6|035-AddDevice|s/Device Guid="d0000000-0000-4000-8000-000000001302"/Device Guid="d0000000-0000-4000-8000-000000001301"/
6|035-AddDevice|s/ChannelCount="3"/ChannelCount="2"/
6|035-AddDevice|s/Video>/Radio>/
10|035-AddDevice|s/Device Guid="d0000000-0000-4000-8000-000000001302"/Device Guid="d0000000-0000-4000-8000-000000000004"/
10|035-AddDevice|s/Channel Guid="c0000000-0000-4000-8000-000000001304"/Channel Guid="c0000000-0000-4000-8000-000000000016"/
5|061-AddStorage|
6|095-SetSchedulesInfo|s/<scheduleCouner>3/<scheduleCouner>4/
6|095-SetSchedulesInfo|s/<schedules>/<schedules><scheduleCouner>2<\/scheduleCouner>/
4|095-SetSchedulesInfo|s/<reqType>1/<reqType>9/
4|095-SetSchedulesInfo|/<reqType>/d
6|111-AddArchiveInfo|s/<ArchiveCounter>3/<ArchiveCounter>2/
6|111-AddArchiveInfo|s/<Archive .*>//
6|127-SetServerInfo|s/<serverCouner>3/<serverCouner>0/
6|127-SetServerInfo|/<servers>/,/servers>/d
10|127-SetServerInfo|
6|013-StartSearchDevice|/<MultiNet>/d
6|013-StartSearchDevice|/<Device /d
6|021-StopSearchDevice|/<Seqnum>/d
5|021-StopSearchDevice|
END
listed 'devices after that' 4 16

# --- What is whole is kept as it came.
managed 0 035-AddDevice ''
listed 'devices' 6 20
for part in '//Device[contains(@Guid, "0000000013")]' '//Channels[contains(DeviceGuid, "0000000013")]'; do
    xmllint --xpath "$part" "$saved/035-AddDevice-request.xml" >"$work/sent"
    xmllint --xpath "$part" "$work/list.xml" >"$work/kept"
    cmp "$work/sent" "$work/kept" || fail "$part comes back in another way"
done
while IFS='|' read -r expected file change; do managed "$expected" "$file" "$change"; done <<'END'
6|061-AddStorage|s/<ChannelCounter>3/<ChannelCounter>4/
6|061-AddStorage|s/Storage>/Store>/
6|061-AddStorage|s/<ChannelGuid>c0000000-0000-4000-8000-000000001303/<ChannelGuid>c0000000-0000-4000-8000-000000001302/
5|061-AddStorage|s/<ChannelGuid>c0000000-0000-4000-8000-000000001303/<ChannelGuid>c0000000-0000-4000-8000-000000001399/
0|061-AddStorage|
10|061-AddStorage|
6|075-AddSchedule|s/<ScheduleCounter>1/<ScheduleCounter>2/
5|075-AddSchedule|/<Speedup/,/Speedup>/d
5|075-AddSchedule|/<Speedup/,/Speedup>/s/000000001301/000000001302/
6|071-AddSchedule|
0|075-AddSchedule|
6|157-DeleteDevice|s/<ChannelCounter>4/<ChannelCounter>1/
5|157-DeleteDevice|s/Channel Guid="c0000000-0000-4000-8000-000000001304"/Channel Guid="c0000000-0000-4000-8000-000000001399"/
6|157-DeleteDevice|s/Channel Guid="c0000000-0000-4000-8000-000000001304"/Channel Guid="c0000000-0000-4000-8000-000000000001"/
END
listed 'devices after that' 6 20
managed 0 157-DeleteDevice ''
listed 'devices at the end' 4 16
managed 5 067-DeleteStorage ''

# Empty elements by the ten thousand cost nothing.
{ printf '<servercommandservice><seqnum>1</seqnum><request name="AddStorage"><Storage><ChannelCounter>90000</ChannelCounter>'
    for ((i = 0; i < 90000; i++)); do printf '<Channels/>'; done
    printf '</Storage></request></servercommandservice>'; } >"$saved/many-request.xml"
managed 6 many ''

# A search belongs to its connection.
changed 015-StartSearchDevice ''
curl "${quick[@]}" --user "$admin" --data-binary "@$saved/001-Login-request.xml" --output "$work/login.xml" "$url" \
    --next "${quick[@]}" --data-binary "@$work/request.xml" --output "$work/found.xml" "$url/manage" \
    --next "${quick[@]}" --data-binary "@$saved/021-StopSearchDevice-request.xml" --output "$work/answer.xml" "$url/manage"
result 'the end of a search' 0
reads 'what it found' '192.0.2.99' 'string(//DeviceNet/@DeviceAddress)' "$work/found.xml"
managed 5 021-StopSearchDevice ''

# --- A client notices what is not as it was.
tampered counter '<DeviceCounter>6' '<DeviceCounter>7' 'admin_client: DeviceCounter is 7, but there are 6' --seed 21
tampered device 'DriverType="21"' 'DriverType="31"' \
    "admin_client: not as it should be: device d0000000-0000-4000-8000-000000003201, DriverType: '31' instead of '21'" --seed 22
tampered channel 'LiveStreamSettings="1003"' 'LiveStreamSettings="1004"' \
    "admin_client: not as it should be: channel c0000000-0000-4000-8000-000000003303, LiveStreamSettings: '1004' instead of '1003'" --seed 23
tampered servers 'PublicPort="443"' 'PublicPort="444"' \
    "admin_client: not as it should be: server a0000000-0000-4000-8000-000000003401, PublicPort: '444' instead of '443'" --seed 24
tampered user 'viewsetup="1"' 'viewsetup="0"' "admin_client: not as it should be: user, viewsetup: '0' instead of '1'" --seed 25
tampered rights 'subscriptionalarm="1"' 'subscriptionalarm="0"' \
    "admin_client: not as it should be: rights 1, subscriptionalarm: '0' instead of '1'" --seed 26
tampered dhcp 'Dhcp="&#x01;"' 'Dhcp="&#x02;"' "admin_client: not as it should be: found device, Dhcp: '2' instead of '1'" --seed 27
tampered search '<HasDevice>1' '<HasDevice>0' 'admin_client: not as it should be: a device if it says so, and none if not' --seed 28
tampered refusal '<Result>10<' '<Result>00<' 'admin_client: not as it should be: a result other than 0' --seed 29

# --- Secrets do not show.
! grep -qE 'ERROR: |runtime error: |given up' "$work"/*.log || fail 'an error on the way'
secret=$(xmllint --xpath 'string(/servercommandservice/response/Token)' "$saved/002-Login-response.xml")
[[ $secret =~ ^[0-9a-f]{32}$ ]] || fail "the token is '$secret'"
for hidden in "$secret" 'schlüssel=🔑' 'session-1' 'neu&apos;'; do
    ! grep -qF -e "$hidden" "$work"/*.log || fail "a transcript tells '$hidden'"
done
talk afterwards --seed 99
kill -TERM "$pid"
ended
echo 'All is well.'
