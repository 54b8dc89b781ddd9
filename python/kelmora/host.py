"""The host's side: its callback, tracing bridge, form, format settings and
records, and the frame container they serve."""

from __future__ import annotations

import json
import os
from collections.abc import MutableMapping
from pathlib import Path
from typing import Any, Callable, Iterator, Mapping, Optional, Sequence

from ._library import (Explanation, KelmoraError, HostObject, Library, LibraryObject, by_reference,
                       iterate)

# The reference types with a frame, as the library numbers them.
NON_PERIODICAL, PERIODICAL, ESOURCE = 0, 1, 4


class TracingService(HostObject):
    """The bridge's ErrorParams. Entry and exit of every procedure of the
    library arrive here; each failure is handed to `on_failure` as
    "Module.Procedure number description" (silent by default) and answered
    with 5: go on with the next statement."""

    def __init__(self, on_failure: Optional[Callable[[str], None]] = None) -> None:
        self.on_failure = on_failure
        self.failures: list[str] = []

    def vbwProcIn(self, name: str, parameters: Any) -> None:
        pass

    def vbwProcOut(self) -> None:
        pass

    def vbwReportParameter(self, name: str, value: Any) -> str:
        return f"{name}={value}"

    def vbwReportVariable(self, name: str, value: Any, flag: Any) -> None:
        pass

    def vbwReportObject(self, name: str, value: Any, flag: Any) -> None:
        pass

    def vbwReportToFile(self, text: str) -> None:
        pass

    def vbwBeforeDump(self, project: str, module: str, procedure: str, line: Any, number: int,
                      description: str, last_error: Any) -> None:
        failure = f"{module}.{procedure} {number} {description}"
        self.failures.append(failure)
        if self.on_failure is not None:
            self.on_failure(failure)

    def vbwOpenDumpFile(self) -> None:
        pass

    def vbwCloseDumpFile(self) -> None:
        pass

    def vbwAfterDump(self) -> int:
        return 5

    def vbwExitThread(self, flag: Any) -> None:
        pass


class TracingBridge(HostObject):
    """What the library finds in the running-object table: its ErrorParams
    is the tracing service."""

    def __init__(self, service: Optional[TracingService] = None, *,
                 on_failure: Optional[Callable[[str], None]] = None) -> None:
        self.ErrorParams = service if service is not None else TracingService(on_failure)

    @property
    def failures(self) -> list[str]:
        return list(self.ErrorParams.failures)


class Callback(HostObject):
    """The frame container's callback. Subclass it and override the members
    you want to hear; call the base's widgetChangeHandler to keep its
    answer: after each change of a field of the shown frame it calls
    ExecuteDependentWidgetToggler for that field, so the format's rules
    follow the author's typing. Changes while the container loads a record
    (SynchronizeFieldsWithModel) stay unanswered: the load ends with an
    evaluation of all rules anyway."""

    def __init__(self, answer_changes: bool = True) -> None:
        self.answer_changes = answer_changes
        self.container: Optional[Container] = None

    def widgetChangeHandler(self, is_key_field: bool, index: int, value: str, control: Any,
                            second_control: Any, secondary_text: str, suppress: bool,
                            toggle_second_index: int) -> None:
        container = self.container
        if (not self.answer_changes or container is None or container.loading or index < 0
                or container.visible_type is None or not isinstance(control, LibraryObject)):
            return
        container.control.ExecuteDependentWidgetToggler(container.visible_type, index)

    def CaptionToTitleType(self, which_type: int, text: str) -> str:
        return text

    def TitleTypeToCaption(self, which_type: int, text: str) -> str:
        return text

    def OptionButtonChanged(self, which_type: int, index: int) -> None:
        pass

    def HandleMouseMove(self, field: Any, is_newspaper_section: bool) -> None:
        pass

    @by_reference
    def HandleDragDrop(self, arguments: list[Any]) -> None:
        pass

    def HideSubform(self) -> None:
        pass

    def ProcessTextField(self, field: Any, which_type: int, already_preprocessed: bool,
                         suppress_hiding: bool, secondary_text: str) -> None:
        pass

    def HandleDateExit(self, field: Any, is_access_date: bool) -> None:
        pass


class ControlWrapper(HostObject):
    def __init__(self, control: LibraryObject) -> None:
        self.Object = control


class Controls(HostObject):
    """The form's widget collection: Add makes a control of the library
    from its class and places it on the form."""

    def __init__(self, library: Library) -> None:
        self._library = library
        self.sited: list[LibraryObject] = []

    def Add(self, identifier: str, name: str) -> ControlWrapper:
        control = self._library.create(identifier)
        self._library.site(control, name)
        self.sited.append(control)
        return ControlWrapper(control)

    def close_all(self) -> None:
        """Takes every control off the form, which ends it."""
        for control in self.sited:
            if control.handle:
                self._library.close_control(control)
            control.release()
        self.sited.clear()


class HostForm(HostObject):
    def __init__(self, library: Library) -> None:
        self.controls = Controls(library)


class OutputTemplate(HostObject):
    """A format's output template: a text is a URL when it starts with one
    of the prefixes."""

    def __init__(self, url_prefixes: Sequence[str] = ()) -> None:
        self.url_prefixes = list(url_prefixes)

    def isURL(self, text: str) -> bool:
        return any(text.startswith(prefix) for prefix in self.url_prefixes)


_SETTINGS: dict[str, type] = {
    "Format": int, "hasPeriodicalPageNumbers": bool, "tooltipTextJournal": str,
    "tooltipTextPeriodical": str, "accessDateFormat": str, "alwaysEnableAccessDate": bool,
    "WebsiteImpliesDate": bool, "outputTemplates": dict, "esourceShowsAuthorPopup": bool,
    "esourceHasTitle": bool, "esourceHasTo": bool, "emailListTitleVisible": bool,
    "supportsWebtitle": bool, "SupportsURL": bool, "supportsAccessDate": bool,
    "supportsSocialMedia": bool, "DegreeSupport": int, "esourceType": int,
}


def formats_folder() -> Path:
    """Where the format families are: next to the package when installed,
    else in the source tree's examples/formats."""
    here = Path(__file__).parent
    installed = here / "formats"
    return installed if installed.is_dir() else here.parent.parent / "examples" / "formats"


class FormatSettings(HostObject):
    """A citation format's settings, one member per key as the library reads
    them; a member left out fails with 438 when read. outputTemplates maps
    template numbers to {"urlPrefixes": [...]}. Unknown keys and values of
    the wrong kind are refused."""

    def __init__(self, members: Mapping[str, Any]) -> None:
        for key, value in members.items():
            kind = _SETTINGS.get(key)
            if kind is None:
                raise KeyError(f"unknown format setting {key!r}")
            if kind is int and isinstance(value, bool) or not isinstance(value, kind):
                raise TypeError(f"format setting {key!r} must be {kind.__name__}")
        self._members = dict(members)

    @classmethod
    def load(cls, path: str | os.PathLike[str]) -> "FormatSettings":
        with open(path, encoding="utf-8") as file:
            return cls(json.load(file))

    @classmethod
    def family(cls, number: int) -> "FormatSettings":
        """One of the format families shipped with the library, 0 to 3."""
        path = formats_folder() / f"family-{number}.json"
        if not path.exists():
            raise ValueError(f"there is no format family {number}")
        return cls.load(path)

    @property
    def members(self) -> dict[str, Any]:
        return dict(self._members)

    def _member(self, member: str) -> Any:
        for key, value in self._members.items():
            if key.lower() == member.lower():
                if key == "outputTemplates":
                    return self.outputTemplates
                return value
        return None

    def outputTemplates(self, index: int) -> OutputTemplate:
        templates = self._members.get("outputTemplates", {})
        entry = templates.get(str(index))
        if entry is None:
            raise KelmoraError(9, "Subscript out of range")
        return OutputTemplate(entry.get("urlPrefixes", []))


class Record(MutableMapping[str, str]):
    """One reference of a type as field values by key, the keys in the
    order of the type's catalogue. A key the catalogue lacks is refused with
    a KeyError. Values are texts as the form holds them: "True", "12"."""

    def __init__(self, model: LibraryObject, values: Optional[Mapping[str, str]] = None, *,
                 defaults: bool = True) -> None:
        keys = model.keyToInternalIndex
        names: list[str] = list(keys.Keys())
        self._index: dict[str, int] = {key: int(keys.Item(key)) for key in names}
        self._size = max(self._index.values(), default=-1) + 1
        self._values: list[str] = [""] * self._size
        if defaults:
            # A new reference starts from the type's defaults, pairs of
            # internal index and value, so that combo labels keep their
            # captions.
            pairs = str(model.setting(1)).split(",")
            for position in range(0, len(pairs) - 1, 2):
                try:
                    index = int(float(pairs[position]))
                except ValueError:
                    continue
                if 0 <= index < self._size:
                    self._values[index] = pairs[position + 1]
        for key, value in (values or {}).items():
            self[key] = value
        # The reference type, where the record knows it, and what another
        # format's reference held that the type has no field for.
        self.which_type: Optional[int] = None
        self.extras: dict[str, Any] = {}
        self.option = -1

    @classmethod
    def from_values(cls, model: LibraryObject, values: Sequence[str]) -> "Record":
        """The record of a whole stored list of values, by internal index."""
        record = cls(model, defaults=False)
        for index, value in enumerate(values):
            if index < record._size:
                record._values[index] = str(value)
        return record

    @classmethod
    def from_csl(cls, library: Library, item: Mapping[str, Any] | str) -> "Record":
        """The record of one CSL-JSON item (a dict, or its JSON text) by the
        host kit's mapping: the form its type goes to, the option of its
        kind in `option`, and what the form has no field for in `extras`.
        A bad item raises KelmoraError 5 naming the item and the variable."""
        text = item if isinstance(item, str) else json.dumps(item)
        answer = json.loads(library._csl("kelmora_csl_read", text))
        model = library.main.Model(answer["whichType"])
        try:
            record = cls(model, answer["values"], defaults=False)
        finally:
            model.release()
        record.which_type = int(answer["whichType"])
        record.extras = dict(answer.get("extras", {}))
        record.option = int(answer.get("option", -1))
        return record

    def to_csl(self, library: Library) -> dict[str, Any]:
        """The CSL-JSON item of this record, its extras included."""
        if self.which_type is None:
            raise KelmoraError(5, "the record does not know its reference type")
        text = json.dumps({"whichType": self.which_type, "values": dict(self),
                           "extras": self.extras})
        answer: dict[str, Any] = json.loads(library._csl("kelmora_csl_write", text))
        return answer

    def to_values(self) -> list[str]:
        """The list the library stores, by internal index."""
        return list(self._values)

    def _position(self, key: str) -> int:
        if key not in self._index:
            raise KeyError(f"{key!r} is no field key of this reference type; the keys are "
                           f"{', '.join(self._index)}")
        return self._index[key]

    def __getitem__(self, key: str) -> str:
        return self._values[self._position(key)]

    def __setitem__(self, key: str, value: str | bool | int) -> None:
        if isinstance(value, bool):
            value = "True" if value else "False"
        self._values[self._position(key)] = str(value)

    def __delitem__(self, key: str) -> None:
        self._values[self._position(key)] = ""

    def __iter__(self) -> Iterator[str]:
        return iter(self._index)

    def __len__(self) -> int:
        return len(self._index)

    def __repr__(self) -> str:
        return f"Record({dict(self)!r})"


class Container:
    """A frame container on the host's own form, with its callback. Members
    of the library's container are reached through it (`container.UpdateFrame
    (-1, True)`); SetVisibleFrame and SynchronizeFieldsWithModel are tracked
    so that the callback answers for the shown frame and stays quiet while
    a record loads. Leaving the `with` takes the control off its form and
    releases everything."""

    def __init__(self, library: Library, callback: Optional[Callback] = None,
                 name: str = "Container") -> None:
        self.library = library
        self.callback = callback if callback is not None else Callback()
        self.form = HostForm(library)
        self.visible_type: Optional[int] = None
        self.loading = False
        wrapper = library.main.BuildFrameContainer(self.form, name)
        self.control: LibraryObject = wrapper.Object
        self.callback.container = self
        self.control.initialize(self.callback)

    def __enter__(self) -> "Container":
        return self

    def explain(self, which_type: int = -1) -> "list[Explanation]":
        """Why each widget of a frame stands as it does: see
        Library.explain."""
        return self.library.explain(self.control, which_type)

    def __exit__(self, *exc: object) -> None:
        self.close()

    def close(self) -> None:
        if self.callback.container is self:
            self.callback.container = None
        self.control.release()
        self.form.controls.close_all()

    def __getattr__(self, name: str) -> Any:
        if name.startswith("_"):
            raise AttributeError(name)
        return getattr(self.control, name)

    def SetVisibleFrame(self, which_type: int) -> None:
        self.control.SetVisibleFrame(which_type)
        self.visible_type = which_type

    def SynchronizeFieldsWithModel(self, which_type: int,
                                   values: Record | Sequence[str] | Mapping[str, str]) -> None:
        if isinstance(values, Mapping) and not isinstance(values, Record):
            values = self.record(which_type, values)
        self.loading = True
        try:
            self.control.SynchronizeFieldsWithModel(which_type, values)
        finally:
            self.loading = False

    def record(self, which_type: int, values: Optional[Mapping[str, str]] = None) -> Record:
        """A new reference of a type, from its defaults and `values`."""
        model = self.library.main.Model(which_type)
        try:
            record = Record(model, values)
        finally:
            model.release()
        record.which_type = which_type
        return record

    def widget(self, name: str, index: int = -1) -> LibraryObject:
        """A widget of the shown frames by name, and index in a control array."""
        controls = self.control.getControls()
        return controls.Item(name, index) if index >= 0 else controls.Item(name)

    def field(self, key: str) -> LibraryObject:
        """The widget of the shown frame that holds a field key."""
        for widget in iterate(self.control.getControls()):
            tag = str(widget.Tag)
            if tag.split(",", 1)[0] == key:
                return widget
        raise KeyError(f"no widget holds the field {key!r}")
