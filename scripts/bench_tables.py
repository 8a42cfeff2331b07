#!/usr/bin/env python3
"""Prints the rival benchmarks' JSON (Google Benchmark, with repetitions) as
one Markdown table per capability: a row per operation, shape and size, the
median CPU time of each library, polyarc's time over the fastest rival's,
polyarc's growth exponent log10(t(10^5) / t(10^4)), and whether polyarc's
result area agrees with each rival's within what the chords explain.

    scripts/bench_tables.py results.json [more.json ...]
    scripts/bench_tables.py --versus OLD.json,OLD.json,... NEW.json,NEW.json,...

Later files replace the runs of earlier ones (say, polyarc's runs against
an older build of the library). A rival left out of a row has no time;
"area agrees with" lists the rivals whose area polyarc's matches.

--versus compares two builds of polyarc: each list holds runs of the same
benchmarks (taken alternately, the old build then the new, so that a
change in the machine's load hits both alike); the table gives the median
CPU time of each build's runs, their ratio and both growth exponents.
"""
import json
import math
import sys
from collections import OrderedDict

LIBRARIES = ["polyarc", "boost", "geos", "clipper"]
RIVALS = LIBRARIES[1:]


def load(paths):
    """{(capability, operation, shape, n): {library: run}}, medians only; a
    later file's runs replace an earlier one's."""
    rows = OrderedDict()
    for path in paths:
        with open(path) as f:
            load_runs(json.load(f), rows)
    # Runs taken with random interleaving come in any order: rows follow
    # the order the benchmarks were registered in.
    def registered(item):
        (_, _, _, n), runs = item
        return (min(r.get("family_index", math.inf) for r in runs.values()), n)
    return OrderedDict(sorted(rows.items(), key=registered))


def load_runs(data, rows):
    for b in data["benchmarks"]:
        if b.get("run_type") == "aggregate" and b.get("aggregate_name") != "median":
            continue
        name = b["run_name"] if "run_name" in b else b["name"]
        parts = name.split("/")
        if len(parts) != 5:
            continue
        capability, operation, shape, library, n = parts
        rows.setdefault((capability, operation, shape, int(n)), {})[library] = b


def ms(run):
    """CPU time in milliseconds."""
    scale = {"ns": 1e-6, "us": 1e-3, "ms": 1.0, "s": 1e3}[run["time_unit"]]
    return run["cpu_time"] * scale


def fmt_time(t):
    return f"{t:.3g}" if t < 100 else f"{t:.0f}"


def size(n):
    exponent = round(math.log10(n))
    return f"10^{exponent}" if 10 ** exponent == n else str(n)


def agreement(run):
    if int(run.get("status", 0)) != 0:
        return f"status {int(run['status'])}"
    compared = [r for r in RIVALS if "dev_" + r in run]
    good = [r for r in compared if run["dev_" + r] <= 1]
    if len(good) == len(compared):
        text = "all" if len(compared) == len(RIVALS) else ", ".join(compared)
    else:
        text = ("only " + ", ".join(good)) if good else "none"
    if run.get("closed", 1) != 1:
        text += ", NOT closed"
    return text


def table(rows, capability):
    out = [
        "| operation | shape | N | " + " | ".join(LIBRARIES) + " | polyarc / fastest rival | growth | area agrees with |",
        "|---|---|---|" + "---:|" * len(LIBRARIES) + "---:|---:|---|",
    ]
    for (cap, operation, shape, n), runs in rows.items():
        if cap != capability or "polyarc" not in runs:
            continue
        times = {lib: ms(runs[lib]) for lib in LIBRARIES if lib in runs}
        rival_times = [times[r] for r in RIVALS if r in times]
        ok = int(runs["polyarc"].get("status", 0)) == 0
        ratio = f"{times['polyarc'] / min(rival_times):.2f}" if rival_times and ok else ""
        growth = ""
        previous = rows.get((cap, operation, shape, n // 10), {}).get("polyarc")
        failed = any(int(r.get("status", 0)) != 0 for r in (runs["polyarc"], previous or {}))
        if n == 100000 and previous and not failed:
            growth = f"{math.log10(times['polyarc'] / ms(previous)):.2f}"
        cells = [fmt_time(times[lib]) if lib in times else "" for lib in LIBRARIES]
        out.append(f"| {operation} | {shape} | {size(n)} | " + " | ".join(cells) +
                   f" | {ratio} | {growth} | {agreement(runs['polyarc'])} |")
    return "\n".join(out)


def medians(paths):
    """{(capability, operation, shape, n): median CPU ms of polyarc's runs}."""
    times = {}
    for path in paths:
        with open(path) as f:
            for b in json.load(f)["benchmarks"]:
                parts = b["name"].split("/")
                if len(parts) == 5 and parts[3] == "polyarc" and b.get("run_type") != "aggregate":
                    key = (parts[0], parts[1], parts[2], int(parts[4]))
                    times.setdefault(key, []).append(ms(b))
    return OrderedDict((k, sorted(v)[len(v) // 2]) for k, v in times.items())


def versus(old_paths, new_paths):
    old, new = medians(old_paths), medians(new_paths)
    capability = None
    for key in old:
        if key not in new:
            continue
        if key[0] != capability:
            capability = key[0]
            print(f"\n### {capability}: polyarc before and after (median CPU time in ms)\n")
            print("| operation | shape | N | before | after | after / before | growth before | growth after |")
            print("|---|---|---|---:|---:|---:|---:|---:|")
        _, operation, shape, n = key
        growth = ["", ""]
        smaller = (key[0], operation, shape, n // 10)
        if n == 100000 and smaller in old and smaller in new:
            growth = [f"{math.log10(t[key] / t[smaller]):.2f}" for t in (old, new)]
        print(f"| {operation} | {shape} | {size(n)} | {fmt_time(old[key])} | {fmt_time(new[key])} | "
              f"{new[key] / old[key]:.2f} | {growth[0]} | {growth[1]} |")


def main():
    if len(sys.argv) == 4 and sys.argv[1] == "--versus":
        versus(sys.argv[2].split(","), sys.argv[3].split(","))
        return
    if len(sys.argv) < 2:
        sys.exit(__doc__)
    rows = load(sys.argv[1:])
    capabilities = list(OrderedDict.fromkeys(key[0] for key in rows))
    for capability in capabilities:
        print(f"### {capability} (median CPU time in ms)\n")
        print(table(rows, capability))
        print()


if __name__ == "__main__":
    main()
