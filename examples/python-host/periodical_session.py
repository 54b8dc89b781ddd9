#!/usr/bin/env python3
"""A host in Python: shows the Periodical frame of libKelmora.so on its own
form, loads a stored journal article, types a DOI into the website field as
a user would, and prints every call the library makes on its callback.

    python3 periodical_session.py --library build/default/automation/libKelmora.so

With --expect FILE it compares the calls with the lines of FILE and fails on
any difference. It fails as well when the library reported a failure to the
tracing bridge, still holds one of the host's objects at the end, or cannot
unload.
"""

import argparse
import sys

from kelmora import HostObject, KelmoraError, Library, by_reference

BRIDGE = "TessalyDot.BridgeToVB"


class TracingService(HostObject):
    """The bridge's ErrorParams: entry and exit of every procedure of the
    library arrive here; a failure is written to standard error and
    answered with 5, go on with the next statement."""

    def __init__(self):
        self.failures = []

    def vbwProcIn(self, name, parameters):
        pass

    def vbwProcOut(self):
        pass

    def vbwReportParameter(self, name, value):
        return f"{name}={value}"

    def vbwReportVariable(self, name, value, flag):
        pass

    def vbwReportObject(self, name, value, flag):
        pass

    def vbwReportToFile(self, text):
        pass

    def vbwBeforeDump(self, project, module, procedure, line, number, description, last_error):
        self.failures.append(f"{module}.{procedure} {number} {description}")
        print(f"failure: {self.failures[-1]}", file=sys.stderr)

    def vbwOpenDumpFile(self):
        pass

    def vbwCloseDumpFile(self):
        pass

    def vbwAfterDump(self):
        return 5

    def vbwExitThread(self, flag):
        pass


class TracingBridge(HostObject):
    def __init__(self, service):
        self.ErrorParams = service


def describe(value):
    """A widget as the host names it: Name, with (Index) in a control array."""
    if value is None:
        return "Nothing"
    if isinstance(value, HostObject):
        return type(value).__name__
    name = value.get("Name")
    try:
        return f"{name}({value.get('Index')})"
    except KelmoraError as failure:
        if failure.number != 438:
            raise
        return name


def yes_no(value):
    return "True" if value else "False"


class Callback(HostObject):
    """The callback of the frame container: it writes each call down and
    answers the two title lookups with the text it was given."""

    def __init__(self):
        self.calls = []

    def record(self, member, *arguments):
        line = f"{member}({', '.join(str(a) for a in arguments)})"
        self.calls.append(line)
        print(line)

    def widgetChangeHandler(self, is_key, index, value, control, second, secondary, suppress,
                            toggle_second_index):
        self.record("widgetChangeHandler", yes_no(is_key), index, value, describe(control),
                    describe(second), secondary, yes_no(suppress), toggle_second_index)

    def CaptionToTitleType(self, which_type, text):
        self.record("CaptionToTitleType", which_type, text)
        return text

    def TitleTypeToCaption(self, which_type, text):
        self.record("TitleTypeToCaption", which_type, text)
        return text

    def OptionButtonChanged(self, which_type, index):
        self.record("OptionButtonChanged", which_type, index)

    def HandleMouseMove(self, field, is_newspaper_section):
        self.record("HandleMouseMove", describe(field), yes_no(is_newspaper_section))

    @by_reference
    def HandleDragDrop(self, arguments):
        self.record("HandleDragDrop", describe(arguments[0]))

    def HideSubform(self):
        self.record("HideSubform")

    def ProcessTextField(self, field, which_type, already_preprocessed, suppress_hiding,
                         secondary):
        self.record("ProcessTextField", describe(field), which_type, yes_no(already_preprocessed),
                    yes_no(suppress_hiding), secondary)

    def HandleDateExit(self, field, is_access_date):
        self.record("HandleDateExit", describe(field), yes_no(is_access_date))


class ControlWrapper(HostObject):
    def __init__(self, control):
        self.Object = control


class Controls(HostObject):
    """The form's widget collection: Add makes a control of the library
    from its class object and places it on the form."""

    def __init__(self, library):
        self.library = library
        self.sited = []

    def Add(self, identifier, name):
        control = self.library.create(identifier)
        self.library.site(control, name)
        self.sited.append(control)
        return ControlWrapper(control)

    def close_all(self):
        for control in self.sited:
            self.library.close(control)
            control.release()
        self.sited.clear()


class HostForm(HostObject):
    def __init__(self, library):
        self.controls = Controls(library)


class OutputTemplate(HostObject):
    def isURL(self, text):
        return False


class FormatterSettings(HostObject):
    """Format family 2 with page numbers and an access date format; every
    other member zero, False or empty."""

    Format = 2
    hasPeriodicalPageNumbers = True
    tooltipTextJournal = ""
    tooltipTextPeriodical = ""
    accessDateFormat = "d mmmm yyyy"
    alwaysEnableAccessDate = False
    WebsiteImpliesDate = False
    esourceShowsAuthorPopup = False
    esourceHasTitle = False
    esourceHasTo = False
    emailListTitleVisible = False
    supportsWebtitle = False
    SupportsURL = False
    supportsAccessDate = False
    supportsSocialMedia = False
    DegreeSupport = 0
    esourceType = 0

    def outputTemplates(self, index):
        return OutputTemplate()


def stored_journal():
    values = [""] * 26
    for i in (7, 13, 15, 16, 20):
        values[i] = "False"
    values[0], values[1], values[12], values[14] = "On tides", "Ada Lovelace", "Nature", "True"
    values[21], values[23], values[24] = "Issue type", "Article title", "Refers to"
    return values


def session(library):
    service = TracingService()
    bridge = TracingBridge(service)
    library.register_running_object(BRIDGE, bridge)
    callback, form, settings = Callback(), HostForm(library), FormatterSettings()

    main = library.create("Main2")
    container = main.BuildFrameContainer(form, "Container").Object
    container.initialize(callback)
    container.SetVisibleFrame(1)
    container.ToggleFormatDependentWidgets(1, settings)
    container.SynchronizeFieldsWithModel(1, stored_journal())
    container.UpdateFrame(-1, True)

    website = container.getControls().get("Item", "TextBox", 8)
    library.user("focus", website)
    library.user("type", website, "10.1/x")
    container.ExecuteDependentWidgetToggler(1, 5)
    container.UpdateFrame(2, True)
    library.user("focus", container.getControls().get("Item", "TextBox", 13))
    library.user("focus_away")

    # The end: the form takes the container off, the host lets go.
    del website, container
    form.controls.close_all()
    main.release()
    library.revoke_running_object(BRIDGE)
    return callback.calls, service.failures


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("--library", required=True, help="path of libKelmora.so")
    parser.add_argument("--expect", help="file with the expected host calls, one a line")
    options = parser.parse_args()

    library = Library(options.library)
    calls, failures = session(library)
    ok = not failures
    if options.expect:
        with open(options.expect, encoding="utf-8") as file:
            expected = file.read().splitlines()
        if calls != expected:
            print("the calls differ from " + options.expect, file=sys.stderr)
            for index in range(max(len(calls), len(expected))):
                got = calls[index] if index < len(calls) else "(none)"
                want = expected[index] if index < len(expected) else "(none)"
                if got != want:
                    print(f"  call {index}: expected {want!r}, got {got!r}", file=sys.stderr)
            ok = False
    if library.host_objects:
        print(f"the library still holds {len(library.host_objects)} host objects",
              file=sys.stderr)
        ok = False
    if not library.can_unload_now():
        print("the library cannot unload: objects are alive", file=sys.stderr)
        ok = False
    return 0 if ok else 1


if __name__ == "__main__":
    sys.exit(main())
