#!/bin/bash
# media_test.sh SERVER CLIENT DATA: live video, pictures and record search between the two example programs, and
# what witnesses that know nothing of the library (ffprobe, Python's zlib, curl) make of the bytes.
set -euo pipefail

server=$1
client=$2
data=$3
for tool in curl ffprobe python3 timeout xmllint; do
    command -v "$tool" >/dev/null || { echo "$tool is missing (packages curl, ffmpeg, python3, coreutils, libxml2-utils)"; exit 1; }
done

. "$(dirname "${BASH_SOURCE[0]}")/support.sh"

clip=$data/clip.h264
start server --seed 5 --media "$data"
mkdir "$work/saved"
talk media --save "$work/saved"
says() { grep -qxF -e "$2" "$work/$1.log" || fail "$1 does not say '$2'"; }

# --- Live video: every byte comes, and ffprobe reads what came without a complaint.
probe() { ffprobe -v warning -of default=noprint_wrappers=1:nokey=1 "$@" 2>"$work/probe.log" || fail "ffprobe $*"; }
cmp "$work/saved/live.h264" "$clip" || fail 'the stream differs from the clip'
frames=$(probe -count_frames -show_entries stream=nb_read_frames "$work/saved/live.h264")
same 'complaints of ffprobe' '' "$(cat "$work/probe.log")"
same 'frames of the clip' 75 "$frames"
same 'messages with frames, and one for the end' $((frames + 1)) "$(grep -c 'Content-Type: video/h264' "$work/server.log")"
size=$(probe -show_entries stream=width,height "$work/saved/live.h264" | paste -sd x)
alone=$(probe -show_entries packet=flags "$work/saved/live.h264" | grep -c K)
says media "    decoded: $frames frames of $size, $alone of them decodable alone, $(wc -c <"$clip") bytes of H.264"

# Each message holds what ffprobe takes for one frame.
probe -show_entries packet=size "$clip" | awk '{ print $1 + 32 }' >"$work/sizes"
sed -n '/Content-Type: video/{n;s/.*Content-Length: //p}' "$work/server.log" | head -n "$frames" >"$work/sent_sizes"
cmp "$work/sizes" "$work/sent_sizes" || fail 'the frames are cut in other places'

# --- The picture comes, and goes back.
cmp "$work/saved/snapshot.jpg" "$data/snapshot.jpg" || fail 'the picture differs'
same 'codec and size of the picture' 'mjpeg 320 180' \
    "$(probe -show_entries stream=codec_name,width,height "$work/saved/snapshot.jpg" | paste -sd ' ')"
same 'complaints of ffprobe' '' "$(cat "$work/probe.log")"
says media '    decoded: status 200, UploadPicture, seqnum 7'

# --- PTZ and playback control.
says server '[1]     decoded: PtzControl, seqnum 3, control 1, command 2, speed 5'
says media '    decoded: command 3, speed 1/2, position 4000000000'

# --- Record search. Python inflates the library's block and reads it by the bytes.
for count in 10000 1 0; do
    mkdir "$work/records$count"
    talk "records$count" --records "$count" --save "$work/records$count"
    python3 - "$work/records$count/008-SearchRecord-response.xml" "$count" <<'END_OF_PYTHON' || fail "the block of $count recordings"
import struct, sys, zlib
body, count = open(sys.argv[1], "rb").read(), int(sys.argv[2])
xml, end, block = body.partition(b"</servercommandservice>\n")
list_ = zlib.decompress(block)
assert len(list_) == 56 + 88 * count, len(list_)
assert struct.unpack_from("<48sii", list_) == (b"c0000000-0000-4000-8000-000000000001".ljust(48, b"\0"), 0, count)
for i in range(count):
    record = struct.unpack_from("<5i64si", list_, 56 + 88 * i)
    start = 1735689600 + 300 * i
    assert record == (1, 0, start, start + 300, 20000000 + i * 7919 % 1000003,
                      (b"/pictures/%05d.jpg" % i).ljust(64, b"\0"),
                      9000 + i * 31 % 4001), (i, record)
END_OF_PYTHON
done
says records10000 '      10000  2025-02-04 17:15:00   300 s   20181844 bytes  /pictures/09999.jpg'
says records0 '    decoded: 0 recordings of channel c0000000-0000-4000-8000-000000000001'

# The library reads what Python has compressed, and refuses what nobody can inflate.
python3 - "$work" <<'END_OF_PYTHON'
import struct, sys, zlib
def block(channel, records):
    packed = struct.pack("<48sii", channel, 0, len(records))
    for start, seconds, size, url in records:
        packed += struct.pack("<5i64si", 1, 0, start, start + seconds, size, url, 17)
    return packed
write = lambda name, data: open(sys.argv[1] + "/" + name, "wb").write(data)
hand_made = block(b"by hand", [(0, 59, 1, b"first"), (951782400, 3600, 2147483647, b"x" * 64)])
for level in (0, 1, 9):
    write("block%d" % level, zlib.compress(hand_made, level))
write("broken", zlib.compress(hand_made)[:-5])
END_OF_PYTHON
cat >"$work/expected" <<END
decoded: 2 recordings of channel by hand
      1  1970-01-01 00:00:00    59 s          1 bytes  first
      2  2000-02-29 00:00:00  3600 s  2147483647 bytes  $(printf "x%.0s" {1..64})
END
for level in 0 1 9; do
    "$client" --read-block "$work/block$level" >"$work/read.log" || fail "a block of level $level"
    diff "$work/expected" "$work/read.log" || fail "a block of level $level is read otherwise"
done
! "$client" --read-block "$work/broken" >"$work/read.log" 2>&1 || fail 'a broken block is read'

# --- Who may: a token, the channel among one's own, and for a picture, which has no token, a login before it.
# refused NAME ARGUMENTS...: a client whose first request for media gets result 5.
refused() {
    local name=$1
    shift
    ! timeout 120 "$client" --port "$port" "$@" >"$work/$name.log" 2>&1 || fail "$name is served"
    says "$name" '    decoded: result 5'
    says "$name" 'media_client: not as it should be: result 0'
}
refused stranger --user guest --password guest

url=http://127.0.0.1:$port/servercommandservice
quick=(--silent --noproxy '*' --max-time 60)
xml=(--header 'Content-Type: text/xml')
jpg=(--header 'Content-Type: image/jpg')
result() { xmllint --xpath 'string(/servercommandservice/response/Result)' -; }
for request in 003-StartRealplay 005-PtzControl 007-SearchRecord 009-PlaybackControl 011-DownloadPicture; do
    same "result of $request after the logout" 3 \
        "$(curl "${quick[@]}" "${xml[@]}" --data-binary "@$work/saved/$request-request.xml" "$url" | result)"
done

# login USER: sets token.
login() {
    curl "${quick[@]}" "${xml[@]}" --user "$1" --data-binary "@$work/saved/001-Login-request.xml" "$url" >"$work/login.xml"
    token=$(xmllint --xpath 'string(//Token)' "$work/login.xml")
}
# ask BODY SED: sends a saved request with the token of now and changed by SED; the answer is in $work/answer.
ask() {
    sed -e "s|<Token>[^<]*</Token>|<Token>$token</Token>|" -e "$2" "$work/saved/$1-request.xml" >"$work/request.xml"
    curl "${quick[@]}" "${xml[@]}" --data-binary "@$work/request.xml" --output "$work/answer" "$url"
}
# The result alone: a block may follow the XML.
answered() { sed -n 's|^ *<Result>\(.*\)</Result>$|\1|p' "$work/answer"; }
login guest:guest
for request in 003-StartRealplay 005-PtzControl 007-SearchRecord 009-PlaybackControl 011-DownloadPicture; do
    ask "$request" ''
    same "result of $request for a channel of others" 5 "$(answered)"
done
login 'operator:correct horse'
while read -r expected request change; do
    ask "$request" "$change"
    same "result of $request with $change" "$expected" "$(answered)"
done <<'END'
0 007-SearchRecord s/StartTime="[0-9]*"/StartTime="-2147483648"/;s/EndTime="[0-9]*"/EndTime="2147483647"/
0 007-SearchRecord s/StartTime="[0-9]*"/StartTime="2147483647"/;s/EndTime="[0-9]*"/EndTime="-2147483648"/
5 007-SearchRecord /<SearchParam/d
5 005-PtzControl /<Ptz/d
5 003-StartRealplay /<ChannelGuid/d
0 011-DownloadPicture s/guid="e/guid="f/
5 011-DownloadPicture s/guid="e/guid="/
5 011-DownloadPicture /<PictureParam/d
5 011-DownloadPicture /<PictureItem>/,/PictureItem>/d
END

picture=$work/saved/013-UploadPicture-request.bin
same 'result of a picture from nobody' 3 \
    "$(curl "${quick[@]}" "${jpg[@]}" --data-binary "@$picture" "$url" | result)"
# as_operator FILE: the result of an upload after a login on the same connection.
as_operator() {
    curl "${quick[@]}" "${xml[@]}" --user 'operator:correct horse' --output "$work/login.xml" \
        --data-binary "@$work/saved/001-Login-request.xml" "$url" \
        --next "${quick[@]}" "${jpg[@]}" --data-binary "@$1" "$url" | result
}
{ head -c -1 "$picture"; printf '?'; } >"$work/other"
head -c 43 "$picture" >"$work/short"
same 'result of the right picture' 0 "$(as_operator "$picture")"
same 'result of another picture' 5 "$(as_operator "$work/other")"
same 'result of less than a picture' 5 "$(as_operator "$work/short")"

# --- The server keeps its secrets, and ends in order. Without a folder there is nothing to see.
token=$(xmllint --xpath 'string(//Token)' "$work/saved/002-Login-response.xml")
[[ $token =~ ^[0-9a-f]{32}$ ]] || fail "the token is '$token'"
! grep -qF -e "$token" "$work/server.log" || fail 'the server tells the token'
talk afterwards --no-split
! grep -qE 'ERROR: |runtime error: |given up' "$work"/*.log || fail 'an error on the way'
kill -TERM "$pid"
ended
start without
refused nothing_there
kill -TERM "$pid"
ended
echo 'All is well.'
