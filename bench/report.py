"""Figures of one run of the measures: collected, judged, printed, kept as JSON, and two runs held against each other."""
import json
import statistics

from bars import BY_NAME, MEASURES

LOUD = 0.05  # from which change on a comparison calls a measure better or worse


def number(value, digits):
    return f"{value:,.{digits}f}"


def spread(values, digits):
    if not values:
        return "-"
    return f"{number(statistics.median(values), digits)} ({number(min(values), digits)}-{number(max(values), digits)})"


class Result:
    """What one measure brought: ours and each peer's figures, run by run, or why there are none."""

    def __init__(self, measure, ours=(), peers=None, failed="", note=""):
        self.measure = measure
        self.ours = list(ours)
        self.peers = {name: list(values) for name, values in (peers or {}).items()}
        self.failed = failed
        self.note = note
        if not failed and not self.ours:
            self.failed = "no run of ours came to an end"

    @property
    def figure(self):
        return max(self.ours) if self.measure.of == "max" else statistics.median(self.ours)

    @property
    def ratio(self):
        """Ours beside the best of the peers that the bar names; None without such a peer."""
        medians = [statistics.median(self.peers[name]) for name in self.measure.ratio_to if self.peers.get(name)]
        if self.failed or not medians:
            return None
        best = max(medians) if self.measure.more_is_better else min(medians)
        return self.figure / best if best else None

    @property
    def verdict(self):
        if self.failed:
            return "failed"
        measure = self.measure
        if measure.bar is None:
            return "-"
        judged = self.ratio if measure.ratio_to else self.figure
        if judged is None:
            return "failed"
        if measure.passes(judged, measure.bar):
            return "pass"
        return "near" if measure.near is not None and measure.passes(judged, measure.near) else "short"

    def cells(self):
        measure = self.measure
        if self.failed:
            return [measure.row, measure.text, "-", "-", "-", bar_text(measure), f"failed: {self.failed}"]
        ours = f"{spread(self.ours, measure.digits)} {measure.unit}"
        peers = ", ".join(f"{name} {spread(values, measure.digits)}" for name, values in self.peers.items()) or "-"
        ratio = "-" if self.ratio is None else f"{self.ratio:.2f}" if self.ratio >= 0.1 else f"{self.ratio:.4f}"
        return [measure.row, measure.text + (f" ({self.note})" if self.note else ""), ours, peers, ratio, bar_text(measure),
                self.verdict]

    def kept(self):
        return {"ours": self.ours, "peers": self.peers, "failed": self.failed, "note": self.note, "ratio": self.ratio,
                "verdict": self.verdict}


def bar_text(measure):
    if measure.bar is None:
        return "-"
    sign = "at least" if measure.more_is_better else "at most"
    if not measure.ratio_to:
        return f"{sign} {measure.bar:g} {measure.unit}"
    near = f", short below {measure.near:g}" if measure.near is not None else ""
    return f"{sign} {measure.bar:.3g} x{near}"


def table(header, rows):
    print("| " + " | ".join(header) + " |")
    print("|" + "---|" * len(header))
    for row in rows:
        print("| " + " | ".join(row) + " |")


class Report:
    def __init__(self, facts):
        self.facts = facts  # of the machine and the run, in words
        self.results = {}
        self.left_out = set()

    def add(self, name, ours=(), peers=None, failed="", note=""):
        self.results[name] = Result(BY_NAME[name], ours, peers, failed, note)

    def leave_out(self, name):
        """Not measured because the options say so."""
        self.left_out.add(name)

    def print(self):
        for name, value in self.facts.items():
            print(f"{name}: {value}")
        print()
        ordered = [self.results[measure.name] for measure in MEASURES if measure.name in self.results]
        table(["Row", "Measure", "Ours: median (min-max)", "Peers", "Ratio", "Bar", "Result"], [each.cells() for each in ordered])
        verdicts = [each.verdict for each in ordered]
        print("\n" + ", ".join(f"{verdicts.count(word)} {word}" for word in ("pass", "near", "short", "failed")))

    @property
    def ok(self):
        return all(each.verdict not in ("short", "failed") for each in self.results.values())

    def keep(self, path):
        with open(path, "w", encoding="utf-8") as file:
            json.dump({"facts": self.facts, "results": {name: each.kept() for name, each in self.results.items()}}, file, indent=1)


def change(measure, before, after):
    if not before or not after:
        return "-", ""
    old, new = statistics.median(before), statistics.median(after)
    if not old:
        return "-", ""
    share = new / old - 1
    better = share > 0 if measure.more_is_better else share < 0
    # Runs that overlap say nothing, however far their medians lie apart.
    apart = min(after) > max(before) or max(after) < min(before)
    word = "same" if abs(share) < LOUD or not apart else "better" if better else "worse"
    return f"{100 * share:+.1f} %", word


def compare(before_path, after_path):
    """Prints what two kept runs say about each measure that both have; true when none is worse."""
    runs = []
    for path in (before_path, after_path):
        with open(path, encoding="utf-8") as file:
            runs.append(json.load(file))
    for label, run in zip(("before", "after"), runs):
        print(label + ": " + ", ".join(f"{name} {value}" for name, value in run["facts"].items()))
    rows, words = [], []
    for measure in MEASURES:
        before, after = (run["results"].get(measure.name, {}) for run in runs)
        if not before or not after:
            continue
        share, word = change(measure, before["ours"], after["ours"])
        words.append(word)
        ratios = ["-" if each["ratio"] is None else f"{each['ratio']:.3g}" for each in (before, after)]
        rows.append([measure.row, measure.text, spread(before["ours"], measure.digits), spread(after["ours"], measure.digits), share, word,
                     " -> ".join(ratios), f"{before['verdict']} -> {after['verdict']}"])
    table(["Row", "Measure", "Before", "After", "Change", "Which is", "Ratio", "Result"], rows)
    return "worse" not in words
