#!/usr/bin/env python3
"""Writes performance.md and its plots from what scripts/bench has measured.

    bench/report.py RESULTS FOLDER      build/bench/results and docs, as a rule
"""
import datetime
import pathlib
import sys

import svg
from results import Times, digits, duration, load

names = {"library": "this library", "library_roomy": "this library (roomy)", "tinyxml": "TinyXML",
         "pugixml": "pugixml", "tinyxml2": "TinyXML-2", "protobuf": "protobuf",
         "protobuf_reused": "protobuf (reused)", "memcpy": "memcpy"}
others = ["tinyxml", "pugixml", "tinyxml2", "protobuf", "protobuf_reused"]
messages = {"result": "refused result", "alarm": "alarm push",
            "device_list_1024": "64 devices, 1,024 channels",
            "device_list_1024_escaped": "the same, a quarter of the names to escape",
            "layout": "layout of 320 panes"}
channels = [64, 256, 1024, 4096, 16384]


def table(heads, rows):
    return "\n".join([f"| {' | '.join(heads)} |", "|---" + "|---:" * (len(heads) - 1) + "|",
                      *(f"| {' | '.join(row)} |" for row in rows)]) + "\n"


def processor():
    for line in pathlib.Path("/proc/cpuinfo").read_text().splitlines():
        if line.startswith("model name"):
            return line.split(":", 1)[1].strip()
    return "unknown"


class Report:
    def __init__(self, results, folder):
        self.times = Times(results)
        self.heap = load(results, "allocations.json")
        self.instructions = load(results, "instructions.json")
        self.folder = pathlib.Path(folder)
        self.parts = []

    def say(self, *paragraphs):
        self.parts += [paragraph.strip() + "\n" for paragraph in paragraphs]

    def plot(self, name, title, drawing):
        (self.folder / "performance").mkdir(parents=True, exist_ok=True)
        (self.folder / "performance" / f"{name}.svg").write_text(drawing, encoding="utf-8")
        self.say(f"![{title}](performance/{name}.svg)")

    def has(self, *path):
        return "/".join(path) in self.times

    def time(self, *path):
        return duration(self.times["/".join(path)]) if self.has(*path) else ""

    def ratio(self, kind, message, x, y):
        """x of y, or None where one of the two was not measured."""
        if not self.has(kind, message, x) or not self.has(kind, message, y):
            return None
        return self.times.ratio(f"{kind}/{message}/{x}", f"{kind}/{message}/{y}")

    def ratios(self, kind, message, pairs):
        found = [self.ratio(kind, message, x, y) for x, y in pairs]
        return ["" if one is None else digits(one) for one in found]

    def bytes(self, kind, message):
        return f"{self.times.bytes[f'{kind}/{message}/library']:,}"

    def machine(self):
        context = self.times.context
        date = datetime.datetime.fromisoformat(context["date"]).strftime("%Y-%m-%d %H:%M")
        spreads = sorted(self.times.spread(name) for name in self.times.median)
        repetitions = len(next(iter(self.times.samples.values())))
        self.say("# Performance", "Written by `bench/report.py` from one run of `scripts/bench`.")
        self.parts.append(table(["", "this run"], [
            ["Date", date],
            ["Processor", f"{processor()}, {context['num_cpus']} cores, load {context['load_avg'][0]:.1f} at the start"],
            ["Compiler", f"{context['compiler']}, `{context['flags']}`"],
            ["Compared with", ", ".join(f"{name} {context[name]}" for name in
                                        ("TinyXML", "pugixml", "TinyXML-2", "protobuf", "zlib"))],
            ["Repetitions", f"{repetitions}, those of one message by everybody mixed"],
            ["Spread", f"the middle half of a benchmark's repetitions is {spreads[len(spreads) // 2]:.1%} of its "
                       f"median wide (typical), {spreads[-1]:.0%} (worst)"]]).replace("|---:", "|---"))
        self.say("Times are medians of the processor time of one call. A ratio **x of y** is the time of x divided "
                 "by the time of y, both from one process; where y is this library, above 1 means that x is slower.")

    def encode(self):
        variants = ["library", "library_roomy", *others, "memcpy"]
        pairs = [*((other, "library") for other in others), ("library", "memcpy"), ("library_roomy", "library")]
        rows = [message for message in messages if self.has("encode", message, "library")]
        self.say("## Writing a message", """From the same records to finished bytes. TinyXML and pugixml build a tree
and print it, TinyXML-2 prints without one; each then writes the HTTP head, and their texts are checked to be the same
message. protobuf fills a message with the same fields and serialises it, without a head; (reused) is
with one message for all calls. memcpy copies the finished bytes. The buffer is exactly as long as the message, or roomy: four times as long.""")
        self.parts.append(table(["message", "bytes", *(names[variant] for variant in variants)],
                                [[messages[m], self.bytes("encode", m), *(self.time("encode", m, v) for v in variants)]
                                 for m in rows]))
        self.parts.append(table(["message", *(f"{names[x]} of {names[y]}" for x, y in pairs)],
                                [[messages[m], *self.ratios("encode", m, pairs)] for m in rows]))
        self.plot("encode", "Writing", svg.bars(
            "Writing: time of each, in times of this library's",
            [(messages[m] if len(messages[m]) < 30 else "names to escape",
              [(f"{names[x]} of this library", self.ratio("encode", m, x, "library")) for x in others])
             for m in rows]))
        self.video()
        self.growth()

    def video(self):
        self.say("A frame of video is 64 KiB behind a head and 32 bytes; there is nothing to do but to copy it:")
        self.parts.append(table(["message", "bytes", "this library", "memcpy", "this library of memcpy"], [
            ["video frame", self.bytes("encode", "video"), self.time("encode", "video", "library"),
             self.time("encode", "video", "memcpy"), *self.ratios("encode", "video", [("library", "memcpy")])]]))

    def growth(self):
        self.say("### Against the length of the message", "Device lists of 64 to 16,384 channels, 16 to a device.")
        variants = ["library", *others, "memcpy"]
        lists = [f"device_list_{count}" for count in channels]
        series = [(names[v], [(self.times.bytes[f"encode/{m}/{v}"], self.times[f"encode/{m}/{v}"]) for m in lists])
                  for v in variants]
        self.plot("growth", "Time against length", svg.lines("Writing a device list: time against its length",
                                                              "bytes of the message", series))
        self.parts.append(table(
            ["time for each channel", *(f"{count:,} channels" for count in channels)],
            [[names[v], *(duration(self.times[f"encode/{m}/{v}"] / count) for m, count in zip(lists, channels))]
             for v in variants]))
        self.say("Room that a message does not need costs nothing:")
        self.parts.append(table(
            ["message", "`size` 64 KiB", "`size` 64 MiB", "64 MiB of 64 KiB"],
            [[label, self.time("size", message, "64KiB"), self.time("size", message, "64MiB"),
              *self.ratios("size", message, [("64MiB", "64KiB")])]
             for message, label in (("device_list", "list of 64 channels"), ("record_list", "list of 500 records"))]))

    def decode(self):
        variants = ["library", *others]
        rows = [message for message in messages if self.has("decode", message, "library")]
        self.say("## Parsing", """`Decode` and the release of its document against a parse of the same text and its
release; protobuf parses its own bytes of the same records. `Decode` gives TinyXML's tree.""")
        self.parts.append(table(["document", "bytes", *(names[v] for v in variants)],
                                [[messages[m], self.bytes("decode", m), *(self.time("decode", m, v) for v in variants)]
                                 for m in rows]))
        self.parts.append(table(["document", *(f"{names[x]} of this library" for x in others)],
                                [[messages[m], *self.ratios("decode", m, [(x, "library") for x in others])]
                                 for m in rows]))
        self.plot("decode", "Parsing", svg.bars(
            "Parsing and release: time of each, in times of this library's",
            [(messages[m], [(f"{names[x]} of this library", self.ratio("decode", m, x, "library")) for x in others])
             for m in rows]))

    def read(self):
        self.say("## Reading records from a tree",
                 "The readers against a search for each name by hand (`TiXmlElement::Attribute`, `FirstChildElement`).")
        rows = [("devices_64", "64 devices"), ("channels_1024", "1,024 channels"), ("alarm", "one alarm"),
                ("layout", "layout of 320 panes, and its release")]
        self.parts.append(table(["records", "this library", "by hand", "by hand of this library"],
                                [[label, self.time("read", m, "library"), self.time("read", m, "by_hand"),
                                  *self.ratios("read", m, [("by_hand", "library")])] for m, label in rows]))

    def framing(self):
        self.say("## Finding a message in a stream",
                 "`CheckHttp` and `GetHttpPacketLength` against a scan of the same rules byte by byte.")
        rows = [("complete_4KiB", "complete message of 4 KiB"), ("no_length_1MiB", "1 MiB without a length"),
                ("no_blank_line_1MiB", "1 MiB without a blank line"),
                ("no_blank_line_CRLF_1MiB", "1 MiB of header lines without an end")]
        self.parts.append(table(["buffer", "this library", "bytewise", "bytewise of this library"],
                                [[label, self.time("framing", m, "library"), self.time("framing", m, "bytewise"),
                                  *self.ratios("framing", m, [("bytewise", "library")])] for m, label in rows]))
        self.plot("framing", "Framing", svg.bars("Framing: time of a bytewise scan, in times of this library's", [
            (label, [("bytewise of this library", self.ratio("framing", m, "bytewise", "library"))])
            for m, label in rows]))

    def record_list(self):
        self.say("## Record lists", """10,000 records, sent compressed. Writing against a bare `compress` of the plain
block, ready made; reading against a bare `uncompress` into room of the right size.""")
        rows = [("encode", "compress", "writing"), ("decode", "uncompress", "reading and release")]
        self.parts.append(table(
            ["", "bytes sent", "this library", "zlib alone", "this library of zlib alone", "heap at most"],
            [[label, self.bytes("encode", "record_list"), self.time(kind, "record_list", "library"),
              self.time(kind, "record_list", zlib), *self.ratios(kind, "record_list", [("library", zlib)]),
              f"{self.heap[kind + '/record_list']['peak']:,} bytes"] for kind, zlib, label in rows]))

    def counts(self):
        self.say("## Heap", "What one call allocates, zlib included, and the most that it holds at a time.")
        self.parts.append(table(["call", "allocations", "bytes at most"],
                                [[f"`{name}`", f"{counted['calls']:,}", f"{counted['peak']:,}"]
                                 for name, counted in self.heap.items()]))
        self.say("## Instructions", """Counted by callgrind, so without noise; buffers exactly as long as the message.
Encoders per byte of output, `Decode` per byte of text. `scripts/test` fails if one grows by more than 5 %.""")
        self.parts.append(table(["case", "bytes", "instructions", "per byte"],
                                [[f"`{case}`", f"{one['bytes']:,}", f"{one['instructions']:,}",
                                  digits(one["per_byte"])] for case, one in self.instructions["cases"].items()]))

    def write(self):
        for part in (self.machine, self.encode, self.decode, self.read, self.framing, self.record_list, self.counts):
            part()
        (self.folder / "performance.md").write_text("\n".join(self.parts), encoding="utf-8")


if len(sys.argv) != 3:
    sys.exit(__doc__)
Report(sys.argv[1], sys.argv[2]).write()
