#!/usr/bin/env python3
"""Turns the figures of ./run bench into Markdown and a plot.

report.py table|shapes|scaling|concurrent|frames|memory FILE.json    prints one section
report.py write FOLDER DOCUMENT PLOT.svg    rewrites every section between its markers, and the plot
"""

import json
import pathlib
import sys

import plot

ROADS = ["sse2", "avx2", "avx512"]
ROAD_NAMES = {"sse2": "SSE2", "avx2": "AVX2", "avx512": "AVX-512"}


def duration(nanoseconds):
    for unit, size in (("s", 1e9), ("ms", 1e6), ("µs", 1e3)):
        if nanoseconds >= size:
            return f"{nanoseconds / size:.3g} {unit}"
    return f"{nanoseconds:.3g} ns"


def table_of(head, rows):
    lines = ["| " + " | ".join(head) + " |", "|" + "---|" * len(head)]
    return "\n".join(lines + ["| " + " | ".join(row) + " |" for row in rows])


def machine_line(data):
    machine = data["machine"]
    return f"{machine['processor']}, {machine['threads']} threads, compiler {machine['compiler']}."


# ---- The stages beside plain code ----


def cells_by_stage(data):
    stages = {}
    for record in data["records"]:
        stages.setdefault(record["stage"], {})[(record["road"], record["threads"])] = record
    return stages


def goal_text(record):
    goal, avx2 = record["goal_avx512"], record["goal_avx2"]
    if goal == 0:
        return ""
    return f"{goal:g}x" if goal == avx2 else f"{goal:g}x / {avx2:g}x AVX2"


def is_reached(cells):
    plain = cells[("plain", 1)]
    for road, goal in (("avx512", plain["goal_avx512"]), ("avx2", plain["goal_avx2"])):
        cell = cells.get((road, 1))
        if goal and cell and plain["least_ns"] / cell["least_ns"] < goal:
            return False
    return True


# A whole frame on two threads against one, at the best level; by the stage's name.
TWO_THREADS = {"default frame, 8 bit": 1.4, "heavy frame, 8 bit": 1.7}


def two_threads_text(stage, cells):
    if stage not in TWO_THREADS:
        return ""
    one, two = cells.get(("avx512", 1)) or cells.get(("avx2", 1)), cells.get(("avx512", 2)) or cells.get(("avx2", 2))
    missed = two is None or one["least_ns"] / two["least_ns"] < TWO_THREADS[stage]
    return f"; two threads {TWO_THREADS[stage]:g}x one" + (" **missed**" if missed else "")


def road_text(cells, road, threads):
    plain, cell = cells[("plain", 1)], cells.get((road, threads))
    if cell is None:
        return "not on this machine"
    text = f"{duration(cell['least_ns'] / cell['items'])} ({plain['least_ns'] / cell['least_ns']:.1f}x)"
    double = cells.get((road, 2))
    if double is not None:
        text += f"; 2: {duration(double['least_ns'] / double['items'])}"
        text += f" ({cell['least_ns'] / double['least_ns']:.2f}x one)"
    return text


def table(data):
    rows = []
    for stage, cells in cells_by_stage(data).items():
        plain = cells[("plain", 1)]
        name = stage + (f", a {plain['item']}" if plain["item"] else "")
        goal = goal_text(plain) + ("" if is_reached(cells) else " **missed**") + two_threads_text(stage, cells)
        spread = max(cell["median_ns"] / cell["least_ns"] for cell in cells.values())
        rows.append([name, goal, duration(plain["least_ns"] / plain["items"])]
                    + [road_text(cells, road, 1) for road in ROADS] + [f"{spread:.2f}"])
    rounds = data["records"][0]["rounds"]
    note = (f"{machine_line(data)} Least of {rounds:g} rounds over all cells in turn; in brackets the ratio to plain "
            "code on one thread; after \"2:\" the same on two threads, with the ratio to one. Spread: the greatest "
            "ratio of median to least in the row.")
    head = ["stage", "goal", "plain"] + [ROAD_NAMES[road] for road in ROADS] + ["spread"]
    return note + "\n\n" + table_of(head, rows)


# ---- Shapes, modes and depths ----


def shape_rows(records, size, bits, base):
    rows = []
    chosen = [r for r in records if r["size"] == size and r["bits"] == bits]
    for shape in dict.fromkeys(r["shape"] for r in chosen):
        modes = [r for r in chosen if r["shape"] == shape]
        normal = next(r for r in modes if r["mode"] == "Normal")
        worst = max(modes, key=lambda r: r["ns_per_pixel"])
        rows.append((shape, normal, worst, worst["ns_per_pixel"] / base))
    return rows


def soft_circle(records, size, bits):
    return next(r for r in records if r["shape"] == "soft circle" and r["mode"] == "Normal"
                and r["size"] == size and r["bits"] == bits)


def shapes(data):
    records = data["records"]
    sizes = sorted({r["size"] for r in records})
    depths = sorted({r["bits"] for r in records})
    parts, worst = [], None
    for size in sizes:
        rows = {}
        for bits in depths:
            base = soft_circle(records, size, bits)
            for shape, normal, most, ratio in shape_rows(records, size, bits, base["ns_per_pixel"]):
                row = rows.setdefault(shape, [shape, f"{normal['pixels_per_particle']:.0f}"])
                row.append(f"{normal['ns_per_pixel'] / base['ns_per_pixel']:.2f} / {ratio:.2f} ({most['mode']})"
                           f" / {most['ns_per_particle'] / base['ns_per_particle']:.2f}")
                if worst is None or ratio > worst[0]:
                    worst = (ratio, shape, most["mode"], bits, size)
        head = ["shape", "pixels touched"] + [f"{bits:g} bit" for bits in depths]
        parts.append(f"Size {size:g}:\n\n" + table_of(head, list(rows.values())))
    depth_text = ", ".join(
        f"{bits:g} bit {soft_circle(records, size, bits)['ns_per_pixel']:.2f} ns (size {size:g})"
        for size in sizes for bits in depths)
    note = (f"The worst ratio to soft circle in Normal, by the pixel touched: **{worst[0]:.1f}x**, {worst[1]} in "
            f"{worst[2]} at {worst[3]:g} bit, size {worst[4]:g}. Soft circle in Normal itself: {depth_text} a pixel. "
            "In each cell: Normal / the worst mode / the worst mode by the particle instead of by the pixel, each "
            "against soft circle in Normal of the same size and depth. One thread.")
    return note + "\n\n" + "\n\n".join(parts)


# ---- Scaling ----


def series_of(data):
    series = {}
    for record in data["records"]:
        series.setdefault(record["series"], []).append(record)
    return series


def steeper_steps(points):
    """Steps at which the time grows more than 1.15 times as fast as the work."""
    found = []
    for before, after in zip(points, points[1:]):
        growth = after["least_ns"] / before["least_ns"]
        work = after["work"] / before["work"]
        if work >= 1 and growth > 1.15 * work:
            found.append(f"from {before['x']:g} to {after['x']:g} the time grows {growth:.2f} times, "
                         f"the work {work:.2f} times")
        if work < 1 and growth > 1.15:
            found.append(f"from {before['x']:g} to {after['x']:g} threads the time grows {growth:.2f} times")
    return found


def series_table(name, points):
    head = [f"**{name}**"] + [f"{point['x']:g}" for point in points]
    rows = [["time"] + [duration(point["least_ns"]) for point in points]]
    if not name.startswith("threads"):
        unit = {"particles": "a particle", "size": "a pixel touched", "layers": "a pixel"}[name.split(":")[0]]
        rows.append([unit] + [duration(point["least_ns"] / point["work"]) for point in points])
    return table_of(head, rows)


def scaling(data):
    tables, cliffs = [], []
    for name, points in series_of(data).items():
        tables.append(series_table(name, points))
        cliffs += [f"- {name}: {step}" for step in steeper_steps(points)]
    note = (f"{machine_line(data)} Default frame, 8 bit, the best level, one thread where nothing else is said; "
            "\"layers\" counts the pixels of both.")
    verdict = ("Nowhere does the time grow more than 1.15 times as fast as the work." if not cliffs else
               "Where the time grows more than 1.15 times as fast as the work:\n\n" + "\n".join(cliffs))
    return "\n\n".join([note] + tables + [verdict])


# ---- Whole frames through the effect's entry point ----


def concurrent(data):
    rows = []
    for r in data["concurrent"]:
        way = "one after the other" if r["at_once"] == 1 else f"{r['at_once']} at once"
        rows.append([r["frame"], way, str(r["loop_threads"]), f"{r['frames_per_second']:.1f}", f"{r['frame_ms']:.1f} ms"])
    return table_of(["frame", "frames", "threads offered to each", "frames a second", "one frame takes"], rows)


def frames(data):
    stages = {s["frame"]: s["stages"] for s in data["stages_one_thread"]}
    rows = []
    for name in stages:
        times = [f for f in data["frames"] if f["frame"] == name]
        shares = " / ".join(f"{s['min_ms']:.2f}" for s in stages[name])
        rows.append([name] + [f"{times[k]['min_ms']:.1f} ms" if k < len(times) else "" for k in (0, 1)]
                    + [shares + " ms", f"{data['peak_memory_bytes'][name] / 1e6:.0f} MB"])
    head = ["frame", "one thread", "all threads", "layers / simulation / sort / raster", "peak of the program"]
    return machine_line(data) + "\n\n" + table_of(head, rows)


def memory(data):
    limits = {"default": 64, "heavy": 96, "trails": 128}
    most = {}
    for suite in data["testsuites"]:
        for case in suite["testsuite"]:
            for name in limits:
                if name in case:
                    most[name] = max(most.get(name, 0.0), float(case[name]))
    titles = {"default": "default frame", "heavy": "heavy frame", "trails": "200,000 trails"}
    return table_of(["frame", "limit", "peak beside the worlds"],
                    [[titles[n], f"{limits[n]} MB", f"{most[n]:.1f} MB"] for n in limits if n in most])


SECTIONS = {"table": table, "shapes": shapes, "scaling": scaling, "concurrent": concurrent, "frames": frames,
            "memory": memory}


def replace_section(text, name, content):
    begin, end = f"<!-- {name}: begin -->", f"<!-- {name}: end -->"
    if text.count(begin) != 1 or text.count(end) != 1:
        sys.exit(f"report: the markers of '{name}' are not in the document once each")
    before, rest = text.split(begin)
    return f"{before}{begin}\n{content}\n{end}{rest.split(end)[1]}"


def write(folder, document, picture):
    text = pathlib.Path(document).read_text()
    for name, section in SECTIONS.items():
        data = json.loads((pathlib.Path(folder) / f"{name}.json").read_text())
        text = replace_section(text, name, section(data))
        if name == "scaling":
            pathlib.Path(picture).write_text(plot.draw(series_of(data)))
    pathlib.Path(document).write_text(text)


def main(arguments):
    if len(arguments) == 4 and arguments[0] == "write":
        write(*arguments[1:])
    elif len(arguments) == 2 and arguments[0] in SECTIONS:
        print(SECTIONS[arguments[0]](json.loads(pathlib.Path(arguments[1]).read_text())))
    else:
        sys.exit(__doc__)


if __name__ == "__main__":
    main(sys.argv[1:])
