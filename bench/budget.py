"""How a measurement from outside tells its budget, as bench/Budget.h does for those in C++."""


def report(name, ours, yardstick, aim, unit):
    ratio = ours / yardstick if yardstick else float("inf") if ours else 0.0
    print(f"{name}, {unit}", f"{ours:.1f}", f"{yardstick:.1f}", f"{ratio:.2f}", f"{aim:.2f}",
          "met" if ratio <= aim else "over", sep="\t", flush=True)
