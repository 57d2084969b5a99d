"""What scripts/bench has measured, as report.py and compare.py read it."""
import json
import pathlib
import statistics


class Times:
    """Medians of the processor time over all repetitions, in nanoseconds, by the benchmarks' names."""

    scale = {"ns": 1, "us": 1e3, "ms": 1e6, "s": 1e9}

    def __init__(self, folder):
        files = sorted((pathlib.Path(folder) / "times").glob("*.json"))
        read = [json.loads(file.read_text()) for file in files]
        self.context = read[0]["context"]
        self.samples, self.bytes = {}, {}
        for run in (run for one in read for run in one["benchmarks"]):
            if run["run_type"] == "iteration":
                self.samples.setdefault(run["run_name"], []).append(run["cpu_time"] * self.scale[run["time_unit"]])
                self.bytes[run["run_name"]] = int(run["bytes"])
        self.median = {name: statistics.median(times) for name, times in self.samples.items()}

    def __getitem__(self, name):
        return self.median[name]

    def __contains__(self, name):
        return name in self.median

    def ratio(self, x, y):
        """How long x takes, as a multiple of y."""
        return self[x] / self[y]

    def spread(self, name):
        """Width of the middle half of the repetitions, as a part of the median."""
        low, _, high = statistics.quantiles(self.samples[name], n=4)
        return (high - low) / self[name]


def load(folder, name):
    return json.loads((pathlib.Path(folder) / name).read_text())


def digits(number):
    """Three significant digits, thousands apart."""
    if abs(number) >= 100:
        return f"{number:,.0f}"
    return f"{number:.{1 if abs(number) >= 10 else 2}f}"


def duration(nanoseconds):
    for unit, size in (("s", 1e9), ("ms", 1e6), ("µs", 1e3)):
        if nanoseconds >= size:
            return f"{digits(nanoseconds / size)} {unit}"
    return f"{digits(nanoseconds)} ns"
