"""What a process costs, as the system tells it."""
import re
from pathlib import Path

MIB = 1024.0  # in the KiB that the system counts in


def memory(pid):
    """PSS and the pages that are its own, in MiB."""
    text = Path(f"/proc/{pid}/smaps_rollup").read_text()
    return {name: int(re.search(rf"^{name}:\s+(\d+)", text, re.M).group(1)) / MIB
            for name in ("Pss", "Anonymous")}


def activity(pid):
    """CPU ticks and voluntary context switches of all threads."""
    ticks = switches = 0
    for task in Path(f"/proc/{pid}/task").iterdir():
        fields = (task / "stat").read_text().rpartition(")")[2].split()
        ticks += int(fields[11]) + int(fields[12])
        switches += int(re.search(r"^voluntary_ctxt_switches:\s+(\d+)",
                                  (task / "status").read_text(), re.M).group(1))
    return ticks, switches
