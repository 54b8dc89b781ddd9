"""Editing sessions as a Python host plays them, and what the host hears."""

import json
from pathlib import Path

import kelmora
from conftest import REPOSITORY, Heard

# The settings the other hosts of the Periodical session use: format family
# 2 with page numbers and an access date format, nothing a URL.
PERIODICAL_FORMAT = {
    "Format": 2, "hasPeriodicalPageNumbers": True, "tooltipTextJournal": "",
    "tooltipTextPeriodical": "", "accessDateFormat": "d mmmm yyyy",
    "alwaysEnableAccessDate": False, "WebsiteImpliesDate": False,
    "esourceShowsAuthorPopup": False, "esourceHasTitle": False, "esourceHasTo": False,
    "emailListTitleVisible": False, "supportsWebtitle": False, "SupportsURL": False,
    "supportsAccessDate": False, "supportsSocialMedia": False, "DegreeSupport": 0,
    "esourceType": 0, "outputTemplates": {"13": {"urlPrefixes": []}},
}


def test_periodical_session_is_heard_as_every_host_hears_it(library):
    expected = (REPOSITORY / "tests/automation/PeriodicalSession.txt").read_text().splitlines()
    # The listed session is that of a host that leaves changes unanswered.
    heard = Heard(answer_changes=False)
    with library.container(heard) as container:
        container.SetVisibleFrame(kelmora.PERIODICAL)
        container.ToggleFormatDependentWidgets(1, kelmora.FormatSettings(PERIODICAL_FORMAT))
        # A stored journal article: the combo labels keep their default
        # captions.
        container.SynchronizeFieldsWithModel(1, {
            "PeriodicalArticleTitle": "On tides", "PeriodicalAuthor": "Ada Lovelace",
            "PeriodicalTitle": "Nature", "PeriodicalJournalOption": True})
        container.UpdateFrame(-1, True)
        website = container.widget("TextBox", 8)
        library.user.focus(website)
        library.user.type(website, "10.1/x")
        container.ExecuteDependentWidgetToggler(1, 5)
        container.UpdateFrame(2, True)
        library.user.focus(container.widget("TextBox", 13))
        library.user.focus_away()
        del website
    assert heard.calls == expected


def test_nonperiodical_website_typed_as_a_user_types_it(library):
    heard = Heard()
    with library.container(heard) as container:
        container.SetVisibleFrame(kelmora.NON_PERIODICAL)
        container.ToggleFormatDependentWidgets(0, kelmora.FormatSettings.family(2))
        container.SynchronizeFieldsWithModel(0, {
            "Title": "Tides and Their Keepers", "v6_BookOption": False,
            "v6_WebsiteOption": True})
        heard.calls.clear()
        container.UpdateFrame(1, True)
        online = container.field("Online")
        library.user.type(online, "https://t.example.org")
        assert online.Text == "https://t.example.org"
        library.user.focus(container.field("Title"))
    typed = [c for c in heard.calls if c.startswith("widgetChangeHandler(False, 5, ")]
    assert len(typed) == len("https://t.example.org")
    assert typed[-1].startswith("widgetChangeHandler(False, 5, https://t.example.org, ")
    assert heard.calls[-1].startswith("ProcessTextField(")


def test_esource_forum_post_renames_the_website_title(library):
    heard = Heard()
    with library.container(heard) as container:
        container.SetVisibleFrame(kelmora.ESOURCE)
        container.ToggleFormatDependentWidgets(4, kelmora.FormatSettings.family(2))
        container.SynchronizeFieldsWithModel(4, {
            "EsourceAuthor": "Achterberg, L.", "EsourceType": "Blog comment",
            "EsourceWebsiteTitle": "Estuary Notes"})
        label = container.widget("WebsiteTitleLabel")
        assert label.Caption == "Blog name"
        library.user.select(container.field("EsourceType"), "Forum post")
        assert label.Caption == "Forum name"
        assert container.field("EsourceTitle").Visible
    assert any("Forum post" in call for call in heard.calls)


def test_a_hidden_field_says_which_row_hid_it(library):
    with library.container() as container:
        container.SetVisibleFrame(kelmora.NON_PERIODICAL)
        container.ToggleFormatDependentWidgets(0, kelmora.FormatSettings.family(1))
        container.UpdateFrame(1, True)
        rows = {row.widget: row for row in container.explain()}
    access = rows["TextBox(11)"]
    assert (access.key, access.shown, access.source) == ("AccessDate", False, "rule")
    assert access.enable_key == "AccessDate=__ALWAYS_DISABLE__"
    assert (access.command, access.format_family) == ("hide", 1)
    assert "the format never uses it" in access.because
    assert rows["TextBox(1)"].source == "frame"


def test_a_csl_item_goes_into_its_form_and_comes_back(library):
    item = json.loads((REPOSITORY / "tests/hostkit/csl/corpus.json").read_text())[0]
    record = kelmora.Record.from_csl(library, item)
    assert (record.which_type, record.option) == (kelmora.PERIODICAL, 0)
    assert record["PeriodicalAuthor"] == "Okafor, N."
    assert record.extras["URL"] == item["URL"], "the URL beside the DOI is kept"
    with library.container() as container:
        container.SetVisibleFrame(record.which_type)
        container.SynchronizeFieldsWithModel(record.which_type, record)
        container.UpdateFrame(record.option, True)
        assert container.field("PeriodicalOnline").Text == item["DOI"]
    assert record.to_csl(library) == item
    try:
        kelmora.Record.from_csl(library, {"id": "x", "type": "patent"})
        raise AssertionError("a patent has no form")
    except kelmora.KelmoraError as error:
        assert error.number == 5
        assert "CSL item 'x'" in str(error)
