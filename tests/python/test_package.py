"""What a host relies on besides sessions: members called as the type
library declares them, records by key, and a clean exit."""

import os
import subprocess
import sys
import textwrap

import pytest

import kelmora
from conftest import REPOSITORY


def test_members_are_called_read_and_written_as_declared(library):
    with library.main.Model(kelmora.PERIODICAL) as model:
        assert isinstance(model.KeyIndex, int)
        model.initializedToFormat = True
        assert model.initializedToFormat is True
        with pytest.raises(AttributeError):
            model.KeyIndex = 3  # read only
        with pytest.raises(kelmora.KelmoraError) as failure:
            library.main.Model()
        assert failure.value.number == 449


def test_main2_used_after_its_container_ended_still_lets_the_library_unload(library):
    # The fixture requires "can unload now" once Main2 is released and the
    # bridge revoked; here Main2 outlives the container it built.
    with library.container() as container:
        container.SetVisibleFrame(kelmora.PERIODICAL)
        container.ToggleFormatDependentWidgets(1, kelmora.FormatSettings.family(2))
    library.main.ChangeFormatType(kelmora.PERIODICAL)
    with library.main.Model(kelmora.ESOURCE) as model:
        assert isinstance(model.KeyIndex, int)


def test_a_record_keeps_catalogue_order_defaults_and_refuses_unknown_keys(library):
    with library.main.Model(kelmora.PERIODICAL) as model:
        record = kelmora.Record(model, {"PeriodicalTitle": "Nature"})
        keys = model.keyToInternalIndex
        assert list(record) == keys.Keys()
        assert record["v579_PeriodicalArticleComboLabel"] == "Article title"
        values = record.to_values()
        assert values[keys.Item("PeriodicalTitle")] == "Nature"
        assert dict(kelmora.Record.from_values(model, values)) == dict(record)
        with pytest.raises(KeyError, match="no field key"):
            record["Journal"] = "x"


def test_a_process_ending_with_its_bridge_registered_exits_with_0():
    script = textwrap.dedent("""
        import kelmora
        library = kelmora.Library()
        model = library.main.Model(1)
        container = library.container()
        container.SetVisibleFrame(1)
    """)
    environment = dict(os.environ, PYTHONPATH=str(REPOSITORY / "python"))
    ended = subprocess.run([sys.executable, "-c", script], env=environment,
                           capture_output=True, text=True, timeout=60)
    assert ended.returncode == 0, ended.stderr
