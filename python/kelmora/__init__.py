"""Kelmora from Python.

    import kelmora

    with kelmora.Library() as library, library.container() as container:
        container.SetVisibleFrame(kelmora.PERIODICAL)
        ...

The shared library is reached through its C interface; its objects are
Python objects whose members are those its type library declares.
"""

from __future__ import annotations

from ._library import (BRIDGE, CONTROL, CREATABLE, NOT_CREATABLE, ArgumentInfo, ClassInfo,
                       Explanation,
                       HostObject, InterfaceInfo, KelmoraError, Library, LibraryObject,
                       MemberInfo, Missing, TypeInfo, UserActions, by_reference, describe,
                       iterate)
from .host import (ESOURCE, NON_PERIODICAL, PERIODICAL, Callback, Container, ControlWrapper,
                   Controls, FormatSettings, HostForm, OutputTemplate, Record, TracingBridge,
                   TracingService, formats_folder)


__all__ = [
    "BRIDGE", "CONTROL", "CREATABLE", "NOT_CREATABLE", "ESOURCE", "NON_PERIODICAL",
    "PERIODICAL", "ArgumentInfo", "Callback", "ClassInfo", "Container", "ControlWrapper",
    "Controls", "Explanation", "FormatSettings", "HostForm", "HostObject", "InterfaceInfo", "KelmoraError",
    "Library", "LibraryObject", "MemberInfo", "Missing", "OutputTemplate", "Record",
    "TracingBridge", "TracingService", "TypeInfo", "UserActions", "by_reference", "describe",
    "formats_folder", "iterate",
]
