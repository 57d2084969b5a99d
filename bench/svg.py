"""Two kinds of plots as SVG text: ratios as bars, and lines over logarithmic axes."""
import html
import math

from results import digits, duration

colours = ["#0072B2", "#D55E00", "#009E73", "#CC79A7", "#E69F00", "#56B4E9", "#555555"]


def text(x, y, words, anchor="start", colour="#222", size=12):
    return (f'<text x="{x:.1f}" y="{y:.1f}" text-anchor="{anchor}" fill="{colour}" font-size="{size}">'
            f"{html.escape(words)}</text>")


def page(width, height, title, parts):
    # A white ground, so that a plot can be read on a dark page too.
    return "\n".join([
        f'<svg xmlns="http://www.w3.org/2000/svg" width="{width}" height="{height}" viewBox="0 0 {width} {height}"'
        ' font-family="sans-serif" role="img">',
        f"<title>{html.escape(title)}</title>",
        f'<rect width="{width}" height="{height}" fill="#fff"/>', text(16, 24, title, size=15), *parts, "</svg>", ""])


def bars(title, groups):
    """groups: pairs of a group's name and its bars, each a label and a value."""
    left, right, step = 240, 740, 20
    longest = max(value for _, values in groups for _, value in values)
    labels = list(dict.fromkeys(label for _, values in groups for label, _ in values))
    y, parts = 40, []
    for name, values in groups:
        parts.append(text(16, y + 14, name))
        for label, value in values:
            colour = colours[labels.index(label) % len(colours)]
            width = max(1, value / longest * (right - left - 60))
            parts.append(f'<rect x="{left}" y="{y + 3}" width="{width:.1f}" height="14" fill="{colour}"/>')
            parts.append(text(left + width + 6, y + 14, f"{digits(value)}  {label}", size=11))
            y += step
        y += 10
    return page(right + 120, y + 6, title, parts)


def ticks(low, high):
    return [10.0 ** power for power in range(math.floor(math.log10(low)), math.ceil(math.log10(high)) + 1)]


def lines(title, across, series):
    """series: pairs of a name and its points (bytes, nanoseconds); `across` names the horizontal axis."""
    left, right, top, bottom = 80, 620, 44, 420
    points = [point for _, line in series for point in line]
    x_ticks = ticks(min(x for x, _ in points), max(x for x, _ in points))
    y_ticks = ticks(min(y for _, y in points), max(y for _, y in points))

    def place(value, marks, start, end):
        part = math.log10(value / marks[0]) / math.log10(marks[-1] / marks[0])
        return start + part * (end - start)

    parts = []
    for mark in x_ticks:
        x = place(mark, x_ticks, left, right)
        parts.append(f'<path d="M{x:.1f} {top}V{bottom}" stroke="#ddd"/>')
        parts.append(text(x, bottom + 18, digits(mark).removesuffix(".0"), "middle", size=11))
    for mark in y_ticks:
        y = place(mark, y_ticks, bottom, top)
        parts.append(f'<path d="M{left} {y:.1f}H{right}" stroke="#ddd"/>')
        parts.append(text(left - 8, y + 4, duration(mark).replace(".00", "").replace(".0", ""), "end", size=11))
    parts.append(text((left + right) / 2, bottom + 38, across, "middle"))
    free = bottom + 20.0  # names stand at the ends of their lines, and none over another
    for number, (name, line) in sorted(enumerate(series), key=lambda one: one[1][1][-1][1]):
        colour = colours[number % len(colours)]
        placed = [(place(x, x_ticks, left, right), place(y, y_ticks, bottom, top)) for x, y in line]
        path = "L".join(f"{x:.1f} {y:.1f}" for x, y in placed)
        parts.append(f'<path d="M{path}" fill="none" stroke="{colour}" stroke-width="2"/>')
        parts += [f'<circle cx="{x:.1f}" cy="{y:.1f}" r="3" fill="{colour}"/>' for x, y in placed]
        free = min(placed[-1][1] + 4, free - 14)
        parts.append(text(right + 8, free, name, colour=colour))
    return page(right + 160, bottom + 52, title, parts)
