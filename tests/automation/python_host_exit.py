#!/usr/bin/env python3
"""How a Python host may end: its process must end with status 0 however it
leaves the library, and a host that released everything may unload it.

    python_host_exit.py --library libKelmora.so --case CASE

bridge-left   plays with Main2 and exits with its tracing bridge still
              registered and a Model still held.
main2-only    uses Main2 alone, releases every handle, revokes its bridge and
              requires "can unload now".
main2-after-container
              ends a container, then uses Main2 once more, releases
              everything, revokes its bridge and requires "can unload now".
"""

import argparse
import os
import sys

sys.path.insert(0, os.path.join(os.path.dirname(__file__), "..", "..", "examples", "python-host"))

from kelmora import HostObject, Library  # noqa: E402
from periodical_session import (BRIDGE, Callback, FormatterSettings, HostForm,  # noqa: E402
                                TracingBridge, TracingService)

KEPT = []


def bridge_left(library):
    library.register_running_object(BRIDGE, TracingBridge(TracingService()))
    main = library.create("Main2")
    # Held to the end: the interpreter lets go of it while it shuts down.
    KEPT.append(main.get("Model", 1))
    KEPT.append(main)
    return True


def unloads(library):
    library.revoke_running_object(BRIDGE)
    if library.host_objects:
        print(f"the library still holds {len(library.host_objects)} host objects",
              file=sys.stderr)
    return library.can_unload_now()


def main2_only(library):
    library.register_running_object(BRIDGE, TracingBridge(TracingService()))
    main = library.create("Main2")
    model = main.get("Model", 4)
    main.ChangeFormatType(4)
    model.release()
    main.release()
    return unloads(library)


def main2_after_container(library):
    library.register_running_object(BRIDGE, TracingBridge(TracingService()))
    main = library.create("Main2")
    form = HostForm(library)
    container = main.BuildFrameContainer(form, "Container").Object
    container.initialize(Callback())
    container.SetVisibleFrame(1)
    container.ToggleFormatDependentWidgets(1, FormatterSettings())
    del container
    form.controls.close_all()
    main.ChangeFormatType(1)
    main.release()
    return unloads(library)


CASES = {"bridge-left": bridge_left, "main2-only": main2_only,
         "main2-after-container": main2_after_container}


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("--library", required=True, help="path of libKelmora.so")
    parser.add_argument("--case", required=True, choices=sorted(CASES))
    options = parser.parse_args()
    library = Library(options.library)
    KEPT.append(library)
    if not CASES[options.case](library):
        print(f"{options.case}: the library cannot unload", file=sys.stderr)
        return 1
    return 0


if __name__ == "__main__":
    sys.exit(main())
