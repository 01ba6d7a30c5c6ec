"""Saves a picture of the display that DISPLAY names to the file given."""

import os
import sys
from pathlib import Path

if __name__ == "__main__":
    sys.path[0] = str(Path(__file__).resolve().parent.parent)
    from harness.screenshots import save
    from harness.x11 import X11

    print(save(X11(os.environ["DISPLAY"]).pixels(), Path(sys.argv[1])))
