"""Draws how times grow, as SVG: a panel for each kind of growth, both axes logarithmic."""

import math

WIDTH, HEIGHT, MARGIN = 420, 300, 52
COLORS = ["#1f6f8b", "#c8553d", "#588b3a"]
TITLES = {
    "particles": "particles",
    "size": "size of 20,000 soft circles, pixels",
    "layers": "width of two 16:9 layers, pixels",
    "threads": "threads",
}


def panels_of(series):
    panels = {}
    for name, points in series.items():
        kind, title = name.split(": ")
        panels.setdefault(kind, {})[title] = [(p["x"], p["least_ns"] * 1e-6) for p in points]
    return panels


def tick_text(value):
    return f"{value:,.10g}"


def ticks(low, high):
    """Powers of ten, and 2 and 5 times them where the range is short."""
    steps = (1,) if high / low > 200 else (1, 2, 5)
    first, last = math.floor(math.log10(low)), math.ceil(math.log10(high))
    values = [step * 10.0**k for k in range(first, last + 1) for step in steps]
    return [value for value in values if low * 0.999 <= value <= high * 1.001]


def text(x, y, content, anchor="middle", color="#333"):
    return f'<text x="{x:.1f}" y="{y:.1f}" text-anchor="{anchor}" fill="{color}">{content}</text>'


def panel(kind, lines, left, top):
    every = [point for points in lines.values() for point in points]
    low_x, high_x = min(p[0] for p in every), max(p[0] for p in every)
    low_y, high_y = min(p[1] for p in every) / 1.3, max(p[1] for p in every) * 1.3
    plot_width, plot_height = WIDTH - MARGIN - 20, HEIGHT - 2 * MARGIN

    def place(x, y):
        along = math.log(x / low_x) / math.log(high_x / low_x)
        up = math.log(y / low_y) / math.log(high_y / low_y)
        return left + MARGIN + along * plot_width, top + HEIGHT - MARGIN - up * plot_height

    parts = [f'<rect x="{left + MARGIN}" y="{top + MARGIN}" width="{plot_width}" height="{plot_height}" '
             'fill="none" stroke="#999"/>']
    for value in ticks(low_x, high_x):
        x, y = place(value, low_y)
        parts += [f'<path d="M{x:.1f} {y:.1f}v-{plot_height}" stroke="#e4e4e4"/>', text(x, y + 16, tick_text(value))]
    for value in ticks(low_y, high_y):
        x, y = place(low_x, value)
        parts += [f'<path d="M{x:.1f} {y:.1f}h{plot_width}" stroke="#e4e4e4"/>',
                  text(x - 6, y + 4, tick_text(value), "end")]
    parts += [text(left + MARGIN + plot_width / 2, top + HEIGHT - 14, TITLES[kind]),
              text(left + MARGIN, top + MARGIN - 8, "ms", "end")]
    for number, (title, points) in enumerate(lines.items()):
        color = COLORS[number % len(COLORS)]
        places = [place(*point) for point in points]
        path = " ".join(f"{x:.1f},{y:.1f}" for x, y in places)
        parts.append(f'<polyline points="{path}" fill="none" stroke="{color}" stroke-width="2"/>')
        parts += [f'<circle cx="{x:.1f}" cy="{y:.1f}" r="3" fill="{color}"/>' for x, y in places]
        parts.append(text(left + MARGIN + 20 + 140 * number, top + MARGIN - 8, title, "start", color))
    return parts


def draw(series):
    panels = panels_of(series)
    rows = (len(panels) + 1) // 2
    parts = [f'<svg xmlns="http://www.w3.org/2000/svg" width="{2 * WIDTH}" height="{rows * HEIGHT}" '
             f'viewBox="0 0 {2 * WIDTH} {rows * HEIGHT}" font-family="sans-serif" font-size="11">',
             '<rect width="100%" height="100%" fill="white"/>']
    for number, (kind, lines) in enumerate(panels.items()):
        parts += panel(kind, lines, (number % 2) * WIDTH, (number // 2) * HEIGHT)
    return "\n".join(parts + ["</svg>"]) + "\n"
