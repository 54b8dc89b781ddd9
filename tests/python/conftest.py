"""The package from the source tree, against the library KELMORA_LIBRARY
names (CTest sets it to the build's libKelmora.so)."""

import os
import sys
from pathlib import Path

import pytest

REPOSITORY = Path(__file__).resolve().parents[2]
sys.path.insert(0, str(REPOSITORY / "python"))

import kelmora  # noqa: E402


@pytest.fixture
def library():
    if not os.environ.get("KELMORA_LIBRARY"):
        pytest.fail("KELMORA_LIBRARY must name the libKelmora.so under test")
    failures = []
    with kelmora.Library(on_failure=failures.append) as opened:
        yield opened
        assert failures == [], "the library reported failures to the tracing bridge"
    assert opened.host_objects == {}, "the library still holds host objects"
    assert opened.can_unload_now()


class Heard(kelmora.Callback):
    """A callback that writes each call down as the session files list them
    and keeps the default answers."""

    def __init__(self, answer_changes=True):
        super().__init__(answer_changes)
        self.calls = []

    def record(self, member, *arguments):
        self.calls.append(f"{member}({', '.join(str(a) for a in arguments)})")

    def widgetChangeHandler(self, is_key, index, value, control, second, secondary, suppress,
                            toggle):
        self.record("widgetChangeHandler", is_key, index, value, kelmora.describe(control),
                    kelmora.describe(second), secondary, suppress, toggle)
        super().widgetChangeHandler(is_key, index, value, control, second, secondary, suppress,
                                    toggle)

    def CaptionToTitleType(self, which_type, text):
        self.record("CaptionToTitleType", which_type, text)
        return text

    def TitleTypeToCaption(self, which_type, text):
        self.record("TitleTypeToCaption", which_type, text)
        return text

    def OptionButtonChanged(self, which_type, index):
        self.record("OptionButtonChanged", which_type, index)

    def HideSubform(self):
        self.record("HideSubform")

    def ProcessTextField(self, field, which_type, preprocessed, suppress, secondary):
        self.record("ProcessTextField", kelmora.describe(field), which_type, preprocessed,
                    suppress, secondary)

    def HandleDateExit(self, field, is_access_date):
        self.record("HandleDateExit", kelmora.describe(field), is_access_date)
