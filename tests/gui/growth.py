"""What a process holds over a long run: whether that levels."""

# What is counted, by its name in the probe's answer, and by how much the last third of a run may be
# above its middle third: pages keep the memory of their longest number and output, and when that
# comes, chance says.
ALLOWED = {"handles": 8, "gdi": 8, "windows": 4, "threads": 2, "committed": 8 << 20,
           "resident": 8 << 20}


def growing(samples):
    """What grows without levelling, one text for each: the largest of the last third of the samples
    is above the largest of the middle third by more than ALLOWED. The first third is left out: it
    shows every window and message for the first time. There are three samples or more, in their
    order."""
    third = len(samples) // 3
    found = []
    for name, allowed in ALLOWED.items():
        middle, last = (max(sample[name] for sample in part)
                        for part in (samples[third:-third], samples[-third:]))
        if last - middle > allowed:
            found.append(f"{name} grows: {middle} at most in the middle third, {last} in the last")
    return found
