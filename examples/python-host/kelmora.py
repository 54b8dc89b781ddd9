"""Kelmora from Python, with nothing but the standard ctypes module.

The shared library is reached through its C interface (kelmora.h). Library
objects come back as LibraryObject, called late-bound: `obj.SetVisibleFrame(1)`
looks the name up and invokes it as a method, `obj.get("Name")` reads a
property. A host object is any Python object derived from HostObject: the
library calls its members by name, a missing one fails with 438, and a
member may change the list of arguments it is given, which the library then
sees, as arguments go by reference.
"""

import ctypes
import uuid

VT_EMPTY, VT_INTEGER, VT_LONG, VT_SINGLE = 0, 2, 3, 4
VT_STRING, VT_OBJECT, VT_MISSING, VT_BOOLEAN, VT_ARRAY = 8, 9, 10, 11, 0x200C
METHOD, PROPERTY_GET, PROPERTY_PUT = 1, 2, 4
MEMBER_NOT_SUPPORTED = 438

CLASS_FACTORY = "{00000001-0000-0000-C000-000000000046}"
CLASS_IDS = {
    "Main2": "{A9128F7F-8856-44FF-B123-747A84F4E685}",
    "Kelmora.FrameContainer": "{D68709B7-0D11-4865-8E29-04A0C3628482}",
    "Kelmora.Periodical": "{17EA2174-5DA8-4076-89DD-2AA3427B8EDC}",
    "Kelmora.NonPeriodical": "{B8F3DA51-0A2C-464D-8C69-ACDB21B05143}",
    "Kelmora.Esource": "{823618C1-BF34-48C9-A345-091F9521C21F}",
}


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
    def of(cls, text):
        fields = uuid.UUID(text).fields
        data4 = uuid.UUID(text).bytes[8:]
        return cls(fields[0], fields[1], fields[2], (ctypes.c_uint8 * 8)(*data4))


INVOKE = ctypes.CFUNCTYPE(
    ctypes.c_int32, ctypes.c_void_p, ctypes.c_char_p, ctypes.c_int32,
    ctypes.POINTER(Variant), ctypes.c_int32, ctypes.POINTER(Variant), ctypes.POINTER(Error))
RELEASE = ctypes.CFUNCTYPE(None, ctypes.c_void_p)


class HostVtable(ctypes.Structure):
    _fields_ = [("invoke", INVOKE), ("release", RELEASE)]


class KelmoraError(Exception):
    """A failed call, with the run time's error number and description."""

    def __init__(self, number, description=""):
        super().__init__(f"{number} {description}")
        self.number = number
        self.description = description


class Library:
    """The loaded shared library and the host objects it holds."""

    def __init__(self, path):
        self.dll = dll = ctypes.CDLL(path)
        p, v, i32 = ctypes.c_void_p, ctypes.POINTER(Variant), ctypes.c_int32
        e = ctypes.POINTER(Error)
        signatures = {
            "DllCanUnloadNow": (i32, []),
            "DllGetClassObject": (i32, [ctypes.POINTER(Guid), ctypes.POINTER(Guid),
                                        ctypes.POINTER(p)]),
            "DllRegisterServer": (i32, []),
            "kelmora_create_instance": (i32, [p, ctypes.POINTER(p), e]),
            "kelmora_ids_of_names": (i32, [p, ctypes.c_char_p, ctypes.POINTER(i32), e]),
            "kelmora_invoke": (i32, [p, i32, i32, v, i32, v, e]),
            "kelmora_add_ref": (ctypes.c_uint32, [p]),
            "kelmora_release": (ctypes.c_uint32, [p]),
            "kelmora_host_object": (p, [ctypes.POINTER(HostVtable), p]),
            "kelmora_host_self": (p, [p]),
            "kelmora_register_running_object": (i32, [ctypes.c_char_p, p, e]),
            "kelmora_revoke_running_object": (i32, [ctypes.c_char_p, e]),
            "kelmora_control_site": (i32, [p, ctypes.c_char_p, e]),
            "kelmora_control_close": (i32, [p, e]),
            "kelmora_user_focus": (i32, [p, e]),
            "kelmora_user_type": (i32, [p, ctypes.c_char_p, e]),
            "kelmora_user_focus_away": (i32, [e]),
            "kelmora_variant_init": (None, [v]),
            "kelmora_variant_clear": (None, [v]),
            "kelmora_variant_set_string": (None, [v, ctypes.c_char_p]),
            "kelmora_variant_set_array": (None, [v, i32]),
            "kelmora_variant_set_object": (None, [v, p]),
            "kelmora_error_set": (None, [e, i32, ctypes.c_char_p]),
            "kelmora_error_clear": (None, [e]),
        }
        for name, (result, arguments) in signatures.items():
            function = getattr(dll, name)
            function.restype = result
            function.argtypes = arguments
        # The host objects the library may still call, by their key.
        self.host_objects = {}
        self._keys = 0
        self._vtable = HostVtable(INVOKE(self._invoke), RELEASE(self._release))

    # -- calls into the library ------------------------------------------

    def check(self, failed, error):
        if failed != 0:
            text = error.description.decode() if error.description else ""
            self.dll.kelmora_error_clear(ctypes.byref(error))
            raise KelmoraError(failed, text)

    def class_object(self, name):
        factory = ctypes.c_void_p()
        answer = self.dll.DllGetClassObject(ctypes.byref(Guid.of(CLASS_IDS[name])),
                                            ctypes.byref(Guid.of(CLASS_FACTORY)),
                                            ctypes.byref(factory))
        if answer != 0:
            raise KelmoraError(429, f"no class object for {name}")
        return LibraryObject(self, factory.value, owned=True)

    def create(self, name):
        factory = self.class_object(name)
        made, error = ctypes.c_void_p(), Error()
        self.check(self.dll.kelmora_create_instance(factory.handle, ctypes.byref(made),
                                                    ctypes.byref(error)), error)
        factory.release()
        return LibraryObject(self, made.value, owned=True)

    def can_unload_now(self):
        return self.dll.DllCanUnloadNow() == 0

    def register_running_object(self, name, host_object):
        error, handle = Error(), self.wrap(host_object)
        try:
            self.check(self.dll.kelmora_register_running_object(name.encode(), handle,
                                                                ctypes.byref(error)), error)
        finally:
            self.dll.kelmora_release(handle)

    def revoke_running_object(self, name):
        error = Error()
        self.check(self.dll.kelmora_revoke_running_object(name.encode(), ctypes.byref(error)),
                   error)

    def site(self, control, name):
        """Places a control on the host's form under a name, shown."""
        error = Error()
        self.check(self.dll.kelmora_control_site(control.handle, name.encode(),
                                                 ctypes.byref(error)), error)

    def close(self, control):
        """Takes a control off the host's form, which ends it."""
        error = Error()
        self.check(self.dll.kelmora_control_close(control.handle, ctypes.byref(error)), error)

    def user(self, action, *arguments):
        """A user's action on the form: "focus", "type" or "focus_away"."""
        error = Error()
        function = getattr(self.dll, "kelmora_user_" + action)
        encoded = [a.handle if isinstance(a, LibraryObject) else a.encode() for a in arguments]
        self.check(function(*encoded, ctypes.byref(error)), error)

    # -- conversions -----------------------------------------------------

    def to_variant(self, value, out):
        """Writes a Python value into an initialised variant."""
        dll = self.dll
        dll.kelmora_variant_clear(ctypes.byref(out))
        if value is Missing:
            out.type = VT_MISSING
        elif value is None:
            out.type = VT_OBJECT
        elif isinstance(value, bool):
            out.type, out.value.boolean = VT_BOOLEAN, -1 if value else 0
        elif isinstance(value, int):
            if -32768 <= value <= 32767:
                out.type, out.value.integer = VT_INTEGER, value
            else:
                out.type, out.value.long_value = VT_LONG, value
        elif isinstance(value, float):
            out.type, out.value.single = VT_SINGLE, value
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
        else:
            raise KelmoraError(13, f"no variant for {type(value).__name__}")

    def from_variant(self, variant):
        kind = variant.type
        if kind == VT_EMPTY:
            return None
        if kind == VT_BOOLEAN:
            return variant.value.boolean != 0
        if kind == VT_INTEGER:
            return variant.value.integer
        if kind == VT_LONG:
            return variant.value.long_value
        if kind == VT_SINGLE:
            return variant.value.single
        if kind == VT_STRING:
            return variant.value.string.decode() if variant.value.string else ""
        if kind == VT_OBJECT:
            handle = variant.value.object
            if not handle:
                return None
            own = self.dll.kelmora_host_self(handle)
            if own and own in self.host_objects:
                return self.host_objects[own]
            self.dll.kelmora_add_ref(handle)
            return LibraryObject(self, handle, owned=True)
        if kind == VT_ARRAY:
            items = variant.value.array
            return [self.from_variant(items.items[i]) for i in range(items.count)]
        if kind == VT_MISSING:
            return Missing
        raise KelmoraError(13, f"unknown variant type {kind}")

    # -- calls from the library into host objects ------------------------

    def wrap(self, host_object):
        """A new reference of the library to a host object. Each time an
        object crosses it gets a handle of its own, which lives for as long
        as the library holds it: the host keeps no reference of its own."""
        self._keys += 1
        key = self._keys
        self.host_objects[key] = host_object
        return self.dll.kelmora_host_object(ctypes.byref(self._vtable), key)

    def _invoke(self, key, name, kind, arguments, count, result, error):
        try:
            target = self.host_objects[key]
            member = name.decode()
            values = [self.from_variant(arguments[i]) for i in range(count)]
            given = list(values)
            answer = target.call(member, kind, values)
            for i in range(count):
                if values[i] is not given[i]:
                    self.to_variant(values[i], arguments[i])
            if answer is not None:
                self.to_variant(answer, result[0])
            return 0
        except KelmoraError as failure:
            self.dll.kelmora_error_set(error, failure.number, failure.description.encode())
            return failure.number
        except Exception as failure:  # a fault of the host, reported to the library as 5
            self.dll.kelmora_error_set(error, 5, f"{type(failure).__name__}: {failure}".encode())
            return 5

    def _release(self, key):
        self.host_objects.pop(key, None)


class _Missing:
    def __repr__(self):
        return "Missing"


Missing = _Missing()


class LibraryObject:
    """One reference to an object of the library, called late-bound."""

    def __init__(self, library, handle, owned):
        self._library, self.handle = library, handle
        if not owned:
            library.dll.kelmora_add_ref(handle)

    def release(self):
        if self.handle:
            self._library.dll.kelmora_release(self.handle)
            self.handle = None

    def __del__(self):
        self.release()

    def invoke(self, name, kind, *arguments):
        library, dll = self._library, self._library.dll
        error, dispid = Error(), ctypes.c_int32()
        library.check(dll.kelmora_ids_of_names(self.handle, name.encode(), ctypes.byref(dispid),
                                               ctypes.byref(error)), error)
        variants = (Variant * max(len(arguments), 1))()
        result = Variant()
        try:
            for index, value in enumerate(arguments):
                library.to_variant(value, variants[index])
            library.check(dll.kelmora_invoke(self.handle, dispid.value, kind, variants,
                                             len(arguments), ctypes.byref(result),
                                             ctypes.byref(error)), error)
            return library.from_variant(result)
        finally:
            for index in range(len(arguments)):
                dll.kelmora_variant_clear(ctypes.byref(variants[index]))
            dll.kelmora_variant_clear(ctypes.byref(result))

    def get(self, name, *arguments):
        return self.invoke(name, PROPERTY_GET, *arguments)

    def put(self, name, *arguments):
        return self.invoke(name, PROPERTY_PUT, *arguments)

    def __getattr__(self, name):
        if name.startswith("_"):
            raise AttributeError(name)
        return lambda *arguments: self.invoke(name, METHOD, *arguments)


class HostObject:
    """Base of an object that the library calls by member name.

    A member is a method or attribute of the same name, whatever its letter
    case; a property read of an attribute gives its value. A missing member
    fails with 438."""

    def _member(self, member):
        # Late binding ignores case: "controls" finds Controls.
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

    def call(self, member, kind, arguments):
        target = self._member(member)
        if target is None:
            raise KelmoraError(MEMBER_NOT_SUPPORTED,
                               "Object doesn't support this property or method")
        if callable(target):
            return target(arguments) if getattr(target, "by_reference", False) else \
                target(*arguments)
        if arguments:
            raise KelmoraError(MEMBER_NOT_SUPPORTED,
                               "Object doesn't support this property or method")
        return target


def by_reference(method):
    """Marks a member that receives the argument list itself, to change it."""
    method.by_reference = True
    return method
