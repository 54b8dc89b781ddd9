"""The C interface of libKelmora.so (kelmora.h) as ctypes declarations."""

from __future__ import annotations

import ctypes
import os
from pathlib import Path
from typing import Any, Optional

VT_EMPTY, VT_INTEGER, VT_LONG, VT_SINGLE = 0, 2, 3, 4
VT_STRING, VT_OBJECT, VT_MISSING, VT_BOOLEAN, VT_ARRAY = 8, 9, 10, 11, 0x200C
METHOD, PROPERTY_GET, PROPERTY_PUT = 1, 2, 4
MEMBER_NOT_SUPPORTED = 438

CLASS_FACTORY = "{00000001-0000-0000-C000-000000000046}"
LIBRARY_FILE = "libKelmora.so"


class Variant(ctypes.Structure):
    pass


class _Array(ctypes.Structure):
    _fields_ = [("count", ctypes.c_int32), ("items", ctypes.POINTER(Variant))]


class _Value(ctypes.Union):
    _fields_ = [
        ("integer", ctypes.c_int16),
        ("long_value", ctypes.c_int32),
        ("single", ctypes.c_float),
        ("boolean", ctypes.c_int16),
        ("string", ctypes.c_char_p),
        ("object", ctypes.c_void_p),
        ("array", _Array),
    ]


Variant._fields_ = [("type", ctypes.c_int32), ("value", _Value)]


class Error(ctypes.Structure):
    _fields_ = [("number", ctypes.c_int32), ("description", ctypes.c_char_p)]


class Guid(ctypes.Structure):
    _fields_ = [
        ("data1", ctypes.c_uint32),
        ("data2", ctypes.c_uint16),
        ("data3", ctypes.c_uint16),
        ("data4", ctypes.c_uint8 * 8),
    ]

    @classmethod
    def of(cls, text: str) -> "Guid":
        import uuid

        parsed = uuid.UUID(text)
        fields = parsed.fields
        return cls(fields[0], fields[1], fields[2], (ctypes.c_uint8 * 8)(*parsed.bytes[8:]))


INVOKE = ctypes.CFUNCTYPE(
    ctypes.c_int32, ctypes.c_void_p, ctypes.c_char_p, ctypes.c_int32,
    ctypes.POINTER(Variant), ctypes.c_int32, ctypes.POINTER(Variant), ctypes.POINTER(Error))
RELEASE = ctypes.CFUNCTYPE(None, ctypes.c_void_p)
MESSAGE_BOX = ctypes.CFUNCTYPE(None, ctypes.c_void_p, ctypes.c_char_p)


class HostVtable(ctypes.Structure):
    _fields_ = [("invoke", INVOKE), ("release", RELEASE)]


def _signatures() -> dict[str, tuple[Any, list[Any]]]:
    p, v, i16, i32 = ctypes.c_void_p, ctypes.POINTER(Variant), ctypes.c_int16, ctypes.c_int32
    e, s = ctypes.POINTER(Error), ctypes.c_char_p
    return {
        "DllCanUnloadNow": (i32, []),
        "DllGetClassObject": (i32, [ctypes.POINTER(Guid), ctypes.POINTER(Guid),
                                    ctypes.POINTER(p)]),
        "kelmora_create_instance": (i32, [p, ctypes.POINTER(p), e]),
        "kelmora_invoke": (i32, [p, i32, i32, v, i32, v, e]),
        "kelmora_add_ref": (ctypes.c_uint32, [p]),
        "kelmora_release": (ctypes.c_uint32, [p]),
        "kelmora_host_object": (p, [ctypes.POINTER(HostVtable), p]),
        "kelmora_host_self": (p, [p]),
        "kelmora_register_running_object": (i32, [s, p, e]),
        "kelmora_revoke_running_object": (i32, [s, e]),
        "kelmora_control_site": (i32, [p, s, e]),
        "kelmora_control_close": (i32, [p, e]),
        "kelmora_user_focus": (i32, [p, e]),
        "kelmora_user_type": (i32, [p, s, e]),
        "kelmora_user_focus_away": (i32, [e]),
        "kelmora_user_clear": (i32, [p, e]),
        "kelmora_user_select_index": (i32, [p, i16, e]),
        "kelmora_user_select_text": (i32, [p, s, e]),
        "kelmora_user_click": (i32, [p, e]),
        "kelmora_user_check": (i32, [p, i16, e]),
        "kelmora_user_mouse_move": (i32, [p, e]),
        "kelmora_user_drop": (i32, [p, p, ctypes.POINTER(p), e]),
        "kelmora_set_message_box": (i32, [MESSAGE_BOX, p, e]),
        "kelmora_type_info": (i32, [v, e]),
        "kelmora_explain": (i32, [p, i16, v, e]),
        "kelmora_csl_read": (i32, [p, s, v, e]),
        "kelmora_csl_write": (i32, [p, s, v, e]),
        "kelmora_interfaces_of": (i32, [p, v, e]),
        "kelmora_variant_clear": (None, [v]),
        "kelmora_variant_set_string": (None, [v, s]),
        "kelmora_variant_set_array": (None, [v, i32]),
        "kelmora_variant_set_object": (None, [v, p]),
        "kelmora_error_set": (None, [e, i32, s]),
        "kelmora_error_clear": (None, [e]),
    }


def library_path(path: Optional[str | os.PathLike[str]] = None) -> Path:
    """Where libKelmora.so is: the path given, else KELMORA_LIBRARY, else the
    copy installed with this package."""
    if path is not None:
        return Path(path)
    named = os.environ.get("KELMORA_LIBRARY")
    if named:
        return Path(named)
    bundled = Path(__file__).with_name(LIBRARY_FILE)
    if bundled.exists():
        return bundled
    raise FileNotFoundError(
        f"no {LIBRARY_FILE}: this kelmora package was not installed with one; "
        "set KELMORA_LIBRARY to its path (build/<preset>/automation/libKelmora.so)")


def load(path: Path) -> ctypes.CDLL:
    dll = ctypes.CDLL(str(path))
    for name, (result, arguments) in _signatures().items():
        function = getattr(dll, name)
        function.restype = result
        function.argtypes = arguments
    return dll
