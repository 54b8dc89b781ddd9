"""The loaded library, its objects as Python objects, and host objects."""

from __future__ import annotations

import ctypes
import os
import sys
from dataclasses import dataclass
from typing import TYPE_CHECKING, Any, Callable, Iterator, Optional, Sequence

from . import _native as native
from ._native import Error, Variant

if TYPE_CHECKING:
    from .host import Callback, Container

BRIDGE = "TessalyDot.BridgeToVB"

# Each function the library may call back stays alive as long as the
# process: the library may call a host object's release while Python shuts
# down.
_KEPT_ALIVE: list[Any] = []


class KelmoraError(Exception):
    """A failed call, with the run time's error number and description."""

    def __init__(self, number: int, description: str = "") -> None:
        super().__init__(f"{number} {description}".rstrip())
        self.number = number
        self.description = description


class _Missing:
    def __repr__(self) -> str:
        return "Missing"


Missing: Any = _Missing()
"""An omitted argument: it takes its default."""


# -- the type library ---------------------------------------------------------

CREATABLE, CONTROL, NOT_CREATABLE = 0, 1, 2


@dataclass(frozen=True)
class ArgumentInfo:
    name: str
    type: str
    optional: bool
    default: Any


@dataclass(frozen=True)
class MemberInfo:
    name: str
    dispid: int
    kind: int
    arguments: tuple[ArgumentInfo, ...]
    result: str

    @property
    def is_method(self) -> bool:
        return self.kind == native.METHOD

    @property
    def is_property_get(self) -> bool:
        return self.kind == native.PROPERTY_GET

    @property
    def is_property_put(self) -> bool:
        return self.kind == native.PROPERTY_PUT


@dataclass(frozen=True)
class InterfaceInfo:
    name: str
    identifier: str
    members: tuple[MemberInfo, ...]

    def named(self, name: str) -> list[MemberInfo]:
        """The members answering a name, compared without regard to case."""
        wanted = name.lower()
        return [m for m in self.members if m.name.lower() == wanted]


@dataclass(frozen=True)
class ClassInfo:
    name: str
    identifier: str
    kind: int
    default_interface: str


@dataclass(frozen=True)
class TypeInfo:
    """The library's type library as it reports it."""

    name: str
    identifier: str
    version: tuple[int, int]
    classes: dict[str, ClassInfo]
    interfaces: dict[str, InterfaceInfo]

    @classmethod
    def parse(cls, raw: list[Any]) -> "TypeInfo":
        def member(row: list[Any]) -> MemberInfo:
            arguments = tuple(ArgumentInfo(a[0], a[1], bool(a[2]), a[3]) for a in row[3])
            return MemberInfo(row[0], row[1], row[2], arguments, row[4])

        interfaces = {
            row[0]: InterfaceInfo(row[0], row[1], tuple(member(m) for m in row[2]))
            for row in list(raw[5]) + list(raw[6])
        }
        classes = {row[0]: ClassInfo(row[0], row[1], row[2], row[3]) for row in raw[4]}
        return cls(raw[0], raw[1], (raw[2], raw[3]), classes, interfaces)


# -- host objects -------------------------------------------------------------


def by_reference(method: Callable[..., Any]) -> Callable[..., Any]:
    """Marks a host member that receives its argument list itself, so that
    it can change the arguments the library passed by reference."""
    setattr(method, "by_reference", True)
    return method


class HostObject:
    """Base of an object of the host that the library calls by member name.

    A member is a method or attribute of the same name, whatever its letter
    case; a property read of an attribute gives its value. A member the
    object lacks fails with 438, which the library treats as a missing
    member."""

    def _member(self, member: str) -> Any:
        if member.startswith("_"):
            return None
        found = getattr(self, member, None)
        if found is not None:
            return found
        wanted = member.lower()
        for name in dir(self):
            if name.lower() == wanted and not name.startswith("_"):
                return getattr(self, name)
        return None

    def _call(self, member: str, kind: int, arguments: list[Any]) -> Any:
        target = self._member(member)
        if target is None:
            raise KelmoraError(native.MEMBER_NOT_SUPPORTED,
                               "Object doesn't support this property or method")
        if callable(target):
            if getattr(target, "by_reference", False):
                return target(arguments)
            return target(*arguments)
        if arguments:
            raise KelmoraError(native.MEMBER_NOT_SUPPORTED,
                               "Object doesn't support this property or method")
        return target


# -- the library --------------------------------------------------------------


@dataclass(frozen=True)
class Explanation:
    """Why one widget of a frame stands as it does. `source` is "frame"
    when no rule row has acted on it, "rule" when the last row that did
    decided its state, "rule, then frame" when the frame's own code moved
    it on since; the row's parts are empty, False or -1 for "frame".
    `because` says the whole in plain words."""

    widget: str
    class_name: str
    key: str
    index: int
    caption: str
    shown: bool
    enabled: bool
    source: str
    enable_key: str
    dependent_widgets: str
    hides: bool
    format_family: int
    earlier_format: bool
    trigger: str
    condition: str
    value: str
    condition_held: bool
    command: str
    caption_when_enabled: str
    caption_when_disabled: str
    applied: bool
    because: str


class Library:
    """libKelmora.so, loaded: its type information, its class objects, the
    host objects it holds, and what a user does on its forms.

    `path` defaults to KELMORA_LIBRARY, else the copy installed with the
    package. Unless `bridge` is False a tracing bridge (see TracingBridge)
    is registered at once and revoked by close(). `message_box` receives
    the text of every message box; without it they go to standard error.
    Use it as a context manager: leaving the `with` calls close()."""

    def __init__(self, path: Optional[str | os.PathLike[str]] = None, *,
                 bridge: bool | HostObject = True,
                 on_failure: Optional[Callable[[str], None]] = None,
                 message_box: Optional[Callable[[str], None]] = None) -> None:
        self.path = native.library_path(path)
        self.dll = native.load(self.path)
        self._host_objects: dict[int, HostObject] = {}
        self._keys = 0
        self._vtable = native.HostVtable(native.INVOKE(self._invoke),
                                         native.RELEASE(self._release))
        _KEPT_ALIVE.append(self._vtable)
        self._message_box: Any = None
        self._main: Optional[LibraryObject] = None
        self._bridge: Optional[HostObject] = None
        self.user = UserActions(self)
        self.type_info = TypeInfo.parse(self._type_info())
        if message_box is not None:
            self.set_message_box(message_box)
        if bridge is not False:
            from .host import TracingBridge

            self._bridge = bridge if isinstance(bridge, HostObject) else \
                TracingBridge(on_failure=on_failure)
            self.register_running_object(BRIDGE, self._bridge)

    def __enter__(self) -> "Library":
        return self

    def __exit__(self, *exc: object) -> None:
        self.close()

    def close(self) -> None:
        """Lets go of Main2 and revokes the bridge."""
        if self._main is not None:
            self._main.release()
            self._main = None
        if self._bridge is not None:
            self.revoke_running_object(BRIDGE)
            self._bridge = None

    @property
    def host_objects(self) -> dict[int, HostObject]:
        """The host objects the library still holds, by their key."""
        return self._host_objects

    @property
    def bridge(self) -> Optional[HostObject]:
        return self._bridge

    @property
    def main(self) -> "LibraryObject":
        """The one Main2 of this host, made when first asked for."""
        if self._main is None:
            self._main = self.create("Main2")
        return self._main

    def container(self, callback: Optional["Callback"] = None,
                  name: str = "Container") -> "Container":
        """A frame container on a form of the host's, built by Main2, with
        `callback` (a Callback by default) initialized."""
        from .host import Container

        return Container(self, callback, name)

    # -- calls into the library -----------------------------------------

    def check(self, failed: int, error: Error) -> None:
        if failed != 0:
            text = error.description.decode() if error.description else ""
            self.dll.kelmora_error_clear(ctypes.byref(error))
            raise KelmoraError(failed, text)

    def _type_info(self) -> Any:
        out, error = Variant(), Error()
        try:
            self.check(self.dll.kelmora_type_info(ctypes.byref(out), ctypes.byref(error)), error)
            return self.from_variant(out)
        finally:
            self.dll.kelmora_variant_clear(ctypes.byref(out))

    def explain(self, container: "LibraryObject | Container",
                which_type: int = -1) -> list[Explanation]:
        """Why each widget of the frame of `which_type` (the one shown by
        default) stands as it does, in the order of its registry: the
        rules' own record, read without changing anything."""
        control = getattr(container, "control", container)
        out, error = Variant(), Error()
        try:
            self.check(self.dll.kelmora_explain(control._live(), which_type, ctypes.byref(out),
                                                ctypes.byref(error)), error)
            return [Explanation(*row) for row in self.from_variant(out)]
        finally:
            self.dll.kelmora_variant_clear(ctypes.byref(out))

    def _csl(self, function: str, text: str) -> str:
        out, error = Variant(), Error()
        try:
            self.check(getattr(self.dll, function)(self.main._live(), text.encode(),
                                                   ctypes.byref(out), ctypes.byref(error)), error)
            return str(self.from_variant(out))
        finally:
            self.dll.kelmora_variant_clear(ctypes.byref(out))

    def class_info(self, name: str) -> ClassInfo:
        """A class by its name or its program name ("Kelmora.Periodical")."""
        prefix = self.type_info.name + "."
        short = name[len(prefix):] if name.startswith(prefix) else name
        found = self.type_info.classes.get(short)
        if found is None:
            raise KelmoraError(429, f"the library has no class {name}")
        return found

    def create(self, name: str) -> "LibraryObject":
        """Makes an object of a creatable class or control through its class
        object."""
        info = self.class_info(name)
        factory = ctypes.c_void_p()
        answer = self.dll.DllGetClassObject(ctypes.byref(native.Guid.of(info.identifier)),
                                            ctypes.byref(native.Guid.of(native.CLASS_FACTORY)),
                                            ctypes.byref(factory))
        if answer != 0:
            raise KelmoraError(429, f"{name} has no class object")
        made, error = ctypes.c_void_p(), Error()
        try:
            self.check(self.dll.kelmora_create_instance(factory, ctypes.byref(made),
                                                        ctypes.byref(error)), error)
        finally:
            self.dll.kelmora_release(factory)
        return LibraryObject(self, made.value)

    def can_unload_now(self) -> bool:
        return bool(self.dll.DllCanUnloadNow() == 0)

    def register_running_object(self, name: str, host_object: HostObject) -> None:
        error, handle = Error(), self.wrap(host_object)
        try:
            self.check(self.dll.kelmora_register_running_object(name.encode(), handle,
                                                                ctypes.byref(error)), error)
        finally:
            self.dll.kelmora_release(handle)

    def revoke_running_object(self, name: str) -> None:
        error = Error()
        self.check(self.dll.kelmora_revoke_running_object(name.encode(), ctypes.byref(error)),
                   error)

    def site(self, control: "LibraryObject", name: str) -> None:
        """Places a control on the host's form under a name, shown."""
        error = Error()
        self.check(self.dll.kelmora_control_site(control.handle, name.encode(),
                                                 ctypes.byref(error)), error)

    def close_control(self, control: "LibraryObject") -> None:
        """Takes a control off the host's form, which ends it."""
        error = Error()
        self.check(self.dll.kelmora_control_close(control.handle, ctypes.byref(error)), error)

    def set_message_box(self, show: Optional[Callable[[str], None]]) -> None:
        """Message boxes of this thread go to `show`; None puts back standard
        error."""
        error = Error()
        if show is None:
            function = ctypes.cast(None, native.MESSAGE_BOX)
        else:
            def deliver(context: Any, text: bytes) -> None:
                try:
                    show(text.decode("utf-8", "replace"))
                except Exception as failure:  # nothing may unwind into the library
                    print(f"kelmora: the message box failed: {failure!r}", file=sys.stderr)

            function = native.MESSAGE_BOX(deliver)
            _KEPT_ALIVE.append(function)
        self.check(self.dll.kelmora_set_message_box(function, None, ctypes.byref(error)), error)
        self._message_box = function

    # -- conversions -----------------------------------------------------

    def to_variant(self, value: Any, out: Variant) -> None:
        """Writes a Python value into a variant."""
        dll = self.dll
        dll.kelmora_variant_clear(ctypes.byref(out))
        if value is Missing:
            out.type = native.VT_MISSING
        elif value is None:
            out.type = native.VT_OBJECT
        elif isinstance(value, bool):
            out.type, out.value.boolean = native.VT_BOOLEAN, -1 if value else 0
        elif isinstance(value, int):
            if -32768 <= value <= 32767:
                out.type, out.value.integer = native.VT_INTEGER, value
            else:
                out.type, out.value.long_value = native.VT_LONG, value
        elif isinstance(value, float):
            out.type, out.value.single = native.VT_SINGLE, value
        elif isinstance(value, str):
            dll.kelmora_variant_set_string(ctypes.byref(out), value.encode())
        elif isinstance(value, (list, tuple)):
            dll.kelmora_variant_set_array(ctypes.byref(out), len(value))
            for index, item in enumerate(value):
                self.to_variant(item, out.value.array.items[index])
        elif isinstance(value, LibraryObject):
            dll.kelmora_variant_set_object(ctypes.byref(out), value.handle)
        elif isinstance(value, HostObject):
            handle = self.wrap(value)
            dll.kelmora_variant_set_object(ctypes.byref(out), handle)
            dll.kelmora_release(handle)
        elif hasattr(value, "to_values"):
            self.to_variant(value.to_values(), out)
        else:
            raise KelmoraError(13, f"no variant for {type(value).__name__}")

    def from_variant(self, variant: Variant) -> Any:
        kind = variant.type
        if kind == native.VT_EMPTY:
            return None
        if kind == native.VT_BOOLEAN:
            return variant.value.boolean != 0
        if kind == native.VT_INTEGER:
            return variant.value.integer
        if kind == native.VT_LONG:
            return variant.value.long_value
        if kind == native.VT_SINGLE:
            return variant.value.single
        if kind == native.VT_STRING:
            return variant.value.string.decode() if variant.value.string else ""
        if kind == native.VT_OBJECT:
            handle = variant.value.object
            if not handle:
                return None
            own = self.dll.kelmora_host_self(handle)
            if own and own in self._host_objects:
                return self._host_objects[own]
            self.dll.kelmora_add_ref(handle)
            return LibraryObject(self, handle)
        if kind == native.VT_ARRAY:
            items = variant.value.array
            return [self.from_variant(items.items[i]) for i in range(items.count)]
        if kind == native.VT_MISSING:
            return Missing
        raise KelmoraError(13, f"unknown variant type {kind}")

    # -- calls from the library into host objects ------------------------

    def wrap(self, host_object: HostObject) -> int:
        """A new reference of the library to a host object, with a handle of
        its own that lives as long as the library holds it."""
        self._keys += 1
        key = self._keys
        self._host_objects[key] = host_object
        return int(self.dll.kelmora_host_object(ctypes.byref(self._vtable), key))

    def _invoke(self, key: int, name: bytes, kind: int, arguments: Any, count: int,
                result: Any, error: Any) -> int:
        try:
            target = self._host_objects[key]
            values = [self.from_variant(arguments[i]) for i in range(count)]
            given = list(values)
            answer = target._call(name.decode(), kind, values)
            for i in range(count):
                if values[i] is not given[i]:
                    self.to_variant(values[i], arguments[i])
            if answer is not None:
                self.to_variant(answer, result[0])
            return 0
        except KelmoraError as failure:
            self.dll.kelmora_error_set(error, failure.number, failure.description.encode())
            return failure.number
        except Exception as failure:  # a fault of the host reaches the library as 5
            self.dll.kelmora_error_set(error, 5, f"{type(failure).__name__}: {failure}".encode())
            return 5

    def _release(self, key: int) -> None:
        self._host_objects.pop(key, None)


class LibraryObject:
    """One reference to an object of the library.

    Its members are those of the interfaces it answers, as the type library
    declares them: a method is called (`container.SetVisibleFrame(1)`), a
    property read without arguments reads as an attribute (`model.KeyIndex`),
    one with arguments is called (`main.Model(4)`), and a property write is
    an attribute assignment (`model.initializedToFormat = True`). Names
    compare without regard to case."""

    __slots__ = ("_library", "handle", "_interfaces", "__weakref__")

    def __init__(self, library: Library, handle: int) -> None:
        self._library = library
        self.handle: Optional[int] = handle
        self._interfaces: Optional[list[InterfaceInfo]] = None

    def release(self) -> None:
        """Gives the reference back; the object is unusable afterwards."""
        handle, self.handle = self.handle, None
        if handle and not sys.is_finalizing():
            self._library.dll.kelmora_release(handle)

    def __del__(self) -> None:
        try:
            self.release()
        except Exception:
            pass

    def __enter__(self) -> "LibraryObject":
        return self

    def __exit__(self, *exc: object) -> None:
        self.release()

    @property
    def interfaces(self) -> list[InterfaceInfo]:
        """The interfaces this object answers through, its own first."""
        if self._interfaces is None:
            library, out, error = self._library, Variant(), Error()
            try:
                library.check(library.dll.kelmora_interfaces_of(
                    self._live(), ctypes.byref(out), ctypes.byref(error)), error)
                names = library.from_variant(out)
            finally:
                library.dll.kelmora_variant_clear(ctypes.byref(out))
            self._interfaces = [library.type_info.interfaces[n] for n in names]
        return self._interfaces

    def members(self, name: str) -> list[MemberInfo]:
        """The members answering a name: those of the first interface that
        has it."""
        for interface in self.interfaces:
            found = interface.named(name)
            if found:
                return found
        return []

    def _live(self) -> int:
        if not self.handle:
            raise KelmoraError(91, "Object variable or With block variable not set")
        return self.handle

    def invoke(self, member: MemberInfo, kind: int, *arguments: Any) -> Any:
        library, dll = self._library, self._library.dll
        error = Error()
        variants = (Variant * max(len(arguments), 1))()
        result = Variant()
        try:
            for index, value in enumerate(arguments):
                library.to_variant(value, variants[index])
            library.check(dll.kelmora_invoke(self._live(), member.dispid, kind, variants,
                                             len(arguments), ctypes.byref(result),
                                             ctypes.byref(error)), error)
            return library.from_variant(result)
        finally:
            for index in range(len(arguments)):
                dll.kelmora_variant_clear(ctypes.byref(variants[index]))
            dll.kelmora_variant_clear(ctypes.byref(result))

    def _member(self, name: str, kind: int) -> MemberInfo:
        for member in self.members(name):
            if member.kind == kind:
                return member
        raise AttributeError(f"{self._describe()} has no {name!r} of that kind "
                             "(methods and reads of an argument are called, reads without "
                             "one are attributes, writes are assignments)")

    def call(self, name: str, *arguments: Any) -> Any:
        return self.invoke(self._member(name, native.METHOD), native.METHOD, *arguments)

    def get(self, name: str, *arguments: Any) -> Any:
        return self.invoke(self._member(name, native.PROPERTY_GET), native.PROPERTY_GET,
                           *arguments)

    def put(self, name: str, value: Any) -> None:
        self.invoke(self._member(name, native.PROPERTY_PUT), native.PROPERTY_PUT, value)

    def __getattr__(self, name: str) -> Any:
        if name.startswith("_"):
            raise AttributeError(name)
        found = self.members(name)
        if not found:
            raise AttributeError(f"{self._describe()} has no member {name!r}")
        for member in found:
            if member.is_property_get and not member.arguments:
                return self.invoke(member, native.PROPERTY_GET)
        for member in found:
            if member.is_method or member.is_property_get:
                bound = member
                return lambda *arguments: self.invoke(bound, bound.kind, *arguments)
        raise AttributeError(f"{name!r} of {self._describe()} can only be written")

    def __setattr__(self, name: str, value: Any) -> None:
        if name in LibraryObject.__slots__:
            object.__setattr__(self, name, value)
            return
        self.invoke(self._member(name, native.PROPERTY_PUT), native.PROPERTY_PUT, value)

    def __dir__(self) -> list[str]:
        names = {m.name for i in self.interfaces for m in i.members}
        return sorted(names | set(object.__dir__(self)))

    def _describe(self) -> str:
        try:
            return "/".join(i.name for i in self.interfaces) or "the object"
        except KelmoraError:
            return "the object"

    def __repr__(self) -> str:
        return f"<kelmora object {self._describe()}>" if self.handle else \
            "<kelmora object, released>"


class UserActions:
    """What a user does on the library's forms. Each action takes the focus
    first, as a click or a keystroke would; acting on a hidden or disabled
    widget fails with 5 and changes nothing."""

    def __init__(self, library: Library) -> None:
        self._library = library

    def _do(self, function: str, *arguments: Any) -> None:
        error = Error()
        self._library.check(getattr(self._library.dll, function)(*arguments,
                                                                 ctypes.byref(error)), error)

    def focus(self, widget: LibraryObject) -> None:
        self._do("kelmora_user_focus", widget._live())

    def focus_away(self) -> None:
        """The focus goes to something outside the library's forms."""
        self._do("kelmora_user_focus_away")

    def type(self, text_box: LibraryObject, text: str) -> None:
        """Types key by key, one whole character a key: one change each."""
        self._do("kelmora_user_type", text_box._live(), text.encode())

    def clear(self, text_box: LibraryObject) -> None:
        self._do("kelmora_user_clear", text_box._live())

    def select(self, combo_box: LibraryObject, item: int | str) -> None:
        """Picks an entry by its index or its exact text."""
        if isinstance(item, str):
            self._do("kelmora_user_select_text", combo_box._live(), item.encode())
        else:
            self._do("kelmora_user_select_index", combo_box._live(), item)

    def click(self, widget: LibraryObject) -> None:
        """Clicks an option button or a check box."""
        self._do("kelmora_user_click", widget._live())

    def check(self, check_box: LibraryObject, checked: bool = True) -> None:
        """Clicks a check box until it is checked (or unchecked)."""
        self._do("kelmora_user_check", check_box._live(), 1 if checked else 0)

    def mouse_move(self, widget: LibraryObject) -> None:
        self._do("kelmora_user_mouse_move", widget._live())

    def drop(self, widget: LibraryObject, data: HostObject) -> Any:
        """Drops the host's drag data on a widget; returns the data as the
        handlers left it."""
        library, left = self._library, ctypes.c_void_p()
        handle = library.wrap(data)
        try:
            self._do("kelmora_user_drop", widget._live(), handle, ctypes.byref(left))
        finally:
            library.dll.kelmora_release(handle)
        if not left.value:
            return None
        variant = Variant()
        variant.type, variant.value.object = native.VT_OBJECT, left.value
        try:
            return library.from_variant(variant)
        finally:
            library.dll.kelmora_variant_clear(ctypes.byref(variant))


def describe(value: Any) -> str:
    """A widget as a host names it: Name, with (Index) in a control array;
    a host object by its class; nothing as Nothing."""
    if value is None:
        return "Nothing"
    if isinstance(value, HostObject):
        return type(value).__name__
    if isinstance(value, LibraryObject):
        name = value.Name
        try:
            return f"{name}({value.Index})"
        except KelmoraError as failure:
            if failure.number != native.MEMBER_NOT_SUPPORTED:
                raise
            return str(name)
    return str(value)


def iterate(collection: LibraryObject) -> Iterator[LibraryObject]:
    """The widgets of a control's widget collection, in order."""
    for index in range(collection.Count):
        yield collection.Item(index)


__all__: Sequence[str] = ()
