#!/bin/bash
# views_test.sh SERVER CLIENT: view groups and electronic maps between the two example programs, what witnesses
# that know nothing of the library (curl, xmllint) make of them, and what the server refuses to keep.
set -euo pipefail

server=$1
client=$2
for tool in curl python3 timeout xmllint; do
    command -v "$tool" >/dev/null || { echo "$tool is missing (packages curl, python3, coreutils, libxml2-utils)"; exit 1; }
done

. "$(dirname "${BASH_SOURCE[0]}")/support.sh"

start server --seed 5

# --- Stored and fetched back, whatever the cuts; the client compares every field.
mkdir "$work/saved"
talk views --save "$work/saved"
for seed in 2 3 4 5 6; do talk "seed$seed" --seed "$seed"; done
talk whole --seed 7 --no-split
talk wrap --seed 8 --first-seqnum 4294967292
talk again --seed 8 --full # what is there already is replaced as well
talk admin --seed 9 --user admin --password "&<K>\"f'7"

# The fields of head, groups, views, panes with their infos, and steps: 7 + 1 + 2*5 + 3*8 + 6*12 + 4*7; of the
# other layout: 7 + 1 + 5 + 8 + 12; of maps and items: 2 + 3*13 + 4*9.
while IFS= read -r line; do
    for log in views seed6 whole wrap again admin; do
        grep -qxF -e "$line" "$work/$log.log" || fail "$log does not say '$line'"
    done
done <<'END'
    decoded: result 5
    compared: 7 fields of the entry 早班 <Früh> & "Tag" 🌅
    compared: 142 fields of head and layout
    view group 早班 <Früh> & "Tag" 🌅
      group 一楼 & 大厅 🏢
        view Eingang 'Nord', 30 s
          pane 0, type 1: 北门入口, camera c0000000-0000-4000-8000-000000000007
          pane 1, type 5: 轮巡 <夜间> 🌙
            step 1, 10 s: 停车场 & 车库
            step 2, 15 s: Tür <3>
            step 3, 20 s: 🅿️ "Parkdeck"
        view Seiten
          pane 0, type 3: Wetter, page https://example.org/?ort=Süd&tag=1#<'heute'>
        group 二楼
          view 电梯 "Aufzüge" >1<
            pane 0, type 1: 📹📹📹📹📹📹📹📹📹📹📹📹📹📹📹📹, camera c0000000-0000-4000-8000-000000000010
            pane 1, type 5: leer
            pane 2, type 5: einer
              step 1, 2147483647 s: Straße
    compared: 33 fields of head and layout
    view group 晚班 <Spät>, read only
    compared: 77 fields of the maps
        火警 🔥 at 0.1e2 / 1,5
END

# --- Several at once: of one user and of two.
declare -a clients=()
for seed in 11 12 13 14; do
    timeout 120 "$client" --port "$port" --seed "$seed" >"$work/at_once$seed.log" 2>&1 &
    clients+=($!)
    timeout 120 "$client" --port "$port" --seed "1$seed" --user admin --password "&<K>\"f'7" >"$work/at_once1$seed.log" 2>&1 &
    clients+=($!)
done
for one in "${clients[@]}"; do wait "$one" || fail 'one of several clients'; done

# --- A client notices what is not as it was: in a carousel, in the catalogue, on a map.
tampered step 'ShowTime="15"' 'ShowTime="16"' \
    "views_client: not as it should be: group 1, view 1, pane 2, iteminfo, step 2, ShowTime: '16' instead of '15'" --seed 21
tampered entry '<LastModifiedTime>-1<' '<LastModifiedTime>+1<' \
    "views_client: not as it should be: entry, LastModifiedTime: '1' instead of '-1'" --seed 22
tampered owner 'View id="70000000-0000-4000-8000-000000000008"' 'View id="70000000-0000-4000-8000-000000000018"' \
    "views_client: not as it should be: group 1, view 1, id: '70000000-0000-4000-8000-000000000018' instead of '70000000-0000-4000-8000-000000000008'" --seed 23
tampered counter '<CarouselsCounter>3<' '<CarouselsCounter>4<' 'views_client: the layout is not whole' --seed 24

# --- Witnesses: xmllint reads what the library wrote, curl posts it and gets it back.
first=$work/saved/005-SetViewGroupData-request.xml
maps=$work/saved/017-SetEMapInfo-request.xml
xmllint --noout "$work"/saved/*.xml || fail 'a body is not well-formed'
reads() { same "$1" "$2" "$(xmllint --xpath "$3" "$4")"; }
url=http://127.0.0.1:$port/servercommandservice
quick=(--silent --noproxy '*' --max-time 60 --header 'Content-Type: text/xml')
# login USER: sets token.
login() {
    curl "${quick[@]}" --user "$1" --data-binary "@$work/saved/001-Login-request.xml" --output "$work/login.xml" "$url"
    token=$(xmllint --xpath 'string(//Token)' "$work/login.xml")
}
# ask FILE SED: posts a saved request with the token of now and changed by SED; the answer is in $work/answer.xml.
ask() {
    sed -e "s|<Token>[^<]*</Token>|<Token>$token</Token>|" -e "$2" "$1" >"$work/request.xml"
    curl "${quick[@]}" --data-binary "@$work/request.xml" --output "$work/answer.xml" "$url"
}
# result WHAT EXPECTED FILE SED
result() { ask "$3" "$4"; reads "$1" "$2" 'string(/servercommandservice/response/Result)' "$work/answer.xml"; }

login 'operator:correct horse'
result 'a layout from curl' 0 "$first" ''
result 'the layout for curl' 0 "$work/saved/009-GetViewGroupData-request.xml" ''
cp "$work/answer.xml" "$work/layout.xml"
for part in ViewGroupInfo ViewGroupDataXml; do
    for file in "$first" "$work/layout.xml"; do xmllint --xpath "//$part" "$file" | sed 's/^ *//' >"$file.part"; done
    cmp "$first.part" "$work/layout.xml.part" || fail "the $part that comes back differs"
done
while IFS='|' read -r what expected path; do
    reads "$what" "$expected" "$path" "$work/layout.xml"
done <<'END'
groups|2|count(//Groups/Group)
views|3|count(//Views/View)
panes|6|count(//Viewitems/Viewitem)
infos|6|count(//Viewitem/Iteminfo)
steps|4|count(//Iteminfo/Carousels/Carousel)
name|早班 <Früh> & "Tag" 🌅|string(//ViewGroupInfo/Name)
author|O'Brien & Söhne|string(//ViewGroupInfo/LastModifieduser)
time|-1|string(//LastModifiedTime)
first group|一楼 & 大厅 🏢|string((//Group)[1]/@displayname)
second under the first|true|boolean((//Group)[2]/@parentguid = (//Group)[1]/@id)
carousel|轮巡 <夜间> 🌙|string((//Viewitem[@type=5])[1]/@displayname)
its second step|Tür <3>|string((//Carousel)[2]/@DisplayName)
empty carousel|0|string((//Viewitem[@type=5])[2]/Iteminfo/CarouselsCounter)
page|https://example.org/?ort=Süd&tag=1#<'heute'>|string((//Iteminfo)[3]/@url)
END

# Every view group that was stored is there once, however often that was: seeds 1 to 8, 11 to 14, 21 to 24.
ask "$work/saved/007-GetViewGroups-request.xml" ''
reads 'catalogue' 16 'count(//ViewGroupInfo)' "$work/answer.xml"
reads 'counter of the catalogue' 16 'string(//ViewGroupInfoCounter)' "$work/answer.xml"

result 'maps from curl' 0 "$maps" 's|<GisZoom>-1<|<GisZoom>77<|'
result 'the maps for curl' 0 "$work/saved/019-GetEMapInfo-request.xml" ''
reads 'maps' 3 'count(//EMapInfos/EMapInfo)' "$work/answer.xml"
reads 'map items' 4 'count(//EMapItems/EMapItem)' "$work/answer.xml"
reads 'first map' '世界 & <城市>' 'string((//EMapInfo)[1]/MapName)' "$work/answer.xml"
reads 'its zoom' 77 'string((//EMapInfo)[1]/GisZoom)' "$work/answer.xml"
reads 'its time' 4294967294 'string((//EMapInfo)[1]/LastTime)' "$work/answer.xml"
reads 'last item' '说明: 电梯' 'string((//EMapItem)[4]/Discription)' "$work/answer.xml"

# --- What is not whole is not kept, and what is there stays.
while IFS='|' read -r expected file change; do
    result "$change" "$expected" "$file" "$change"
done <<END
6|$first|s/<GroupsCounter>2/<GroupsCounter>3/
6|$first|s/<GroupsCounter>2/<GroupsCounter>-2/
6|$first|s/<ViewsCounter>2/<ViewsCounter>200/
6|$first|s/<CarouselsCounter>3/<CarouselsCounter>4/
6|$first|s/<View id=/<View ix=/
6|$first|s/<ViewGroupGuid>.*</<ViewGroupGuid></
6|$first|/<ViewGroupInfo>/,/ViewGroupInfo>/d
6|$maps|s/EMapInfos count="3"/EMapInfos count="4"/
6|$maps|s/EMapItems count="4"/EMapItems count="-1"/
6|$maps|s/<MapItemGuid>.*</<MapItemGuid></
5|$first|s/<UserGuid>9/<UserGuid>8/
5|$maps|s/<UserGuid>9/<UserGuid>8/
END
result 'the layout after that' 0 "$work/saved/009-GetViewGroupData-request.xml" ''
xmllint --xpath '//ViewGroupDataXml' "$work/answer.xml" >"$work/after"
xmllint --xpath '//ViewGroupDataXml' "$work/layout.xml" | cmp - "$work/after" || fail 'something was kept that was refused'

# --- View groups and maps are for their user alone.
token=none
for request in 003-GetViewGroupData 005-SetViewGroupData 007-GetViewGroups 017-SetEMapInfo 019-GetEMapInfo; do
    result "$request from nobody" 3 "$work/saved/$request-request.xml" ''
done
login guest:guest
for request in 005-SetViewGroupData 007-GetViewGroups 009-GetViewGroupData 017-SetEMapInfo 019-GetEMapInfo; do
    result "$request of another user" 5 "$work/saved/$request-request.xml" ''
done
result 'the same GUID for another user' 5 "$first" 's/<UserGuid>.*</<UserGuid>90000000-0000-4000-8000-000000000004</'
result 'no maps yet' 0 "$work/saved/019-GetEMapInfo-request.xml" 's/<UserGuid>.*</<UserGuid>90000000-0000-4000-8000-000000000004</'
reads 'no maps' 0 'count(//EMapInfos)' "$work/answer.xml"

# --- There is room for a hundred: 16 are there, and those of the other user.
login 'operator:correct horse'
for ((i = 0; i < 100; i++)); do
    ask "$work/saved/011-SetViewGroupData-request.xml" "s/<ViewGroupGuid>f/<ViewGroupGuid>more $i /"
    grep -qF '<Result>0</Result>' "$work/answer.xml" || break
done
reads 'one too many' 7 'string(//Result)' "$work/answer.xml"
same 'view groups that there is room for' 79 "$i"
talk full

! grep -qE 'ERROR: |runtime error: |given up' "$work"/*.log || fail 'an error on the way'
token=$(xmllint --xpath 'string(/servercommandservice/response/Token)' "$work/saved/002-Login-response.xml")
[[ $token =~ ^[0-9a-f]{32}$ ]] || fail "the token is '$token'"
! grep -qF -e "$token" "$work"/*.log || fail 'a transcript tells the token'
kill -TERM "$pid"
ended

# --- A counter that asks for more memory than any layout has costs the connection, not the server.
start counters
url=http://127.0.0.1:$port/servercommandservice
login 'operator:correct horse'
for change in "$first s/<GroupsCounter>2/<GroupsCounter>2000000000/" "$first s/<ViewsCounter>2/<ViewsCounter>2147483647/" \
    "$maps s/count=\"3\"/count=\"2147483647\"/"; do
    ! ask "${change%% *}" "${change#* }" || fail "the server answers to ${change#* }"
done
given_up() { grep -cF 'a connection is given up: std::bad_alloc' "$work/counters.log"; }
for ((i = 0; i < 200 && $(given_up) < 3; i++)); do sleep 0.1; done # it is written once the connection is closed
same 'connections that were given up' 3 "$(given_up)"
talk afterwards
kill -TERM "$pid"
ended
echo 'All is well.'
