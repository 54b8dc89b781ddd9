#include "hostkit/Csl.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <map>

#include "hosting/Main2.h"
#include "hostkit/BadInput.h"
#include "hostkit/CslDates.h"
#include "hostkit/CslNames.h"
#include "hostkit/FormatSettings.h"
#include "hostkit/Host.h"
#include "hostkit/JsonReader.h"
#include "hostkit/Tracing.h"
#include "support/FreshThread.h"

namespace kelmora::host {
namespace {

using kelmora::testing::onFreshThread;

// Order of keys aside, as CSL-JSON means it.
nlohmann::json unordered(const Json& value) {
  return nlohmann::json::parse(value.dump());
}

TEST(CslTest, NamesBecomeTheFormsTextAndComeBack) {
  struct Row {
    const char* names;
    const char* text;
  };
  const Row rows[] = {
      {R"([{"family":"Okafor","given":"N."},{"family":"Lindqvist","given":"Marta"}])",
       "Okafor, N.; Lindqvist, Marta"},
      {R"([{"non-dropping-particle":"van den","family":"Bergh","given":"Anna"}])",
       "van den Bergh, Anna"},
      {R"([{"family":"Humboldt","given":"Alexander","dropping-particle":"von"}])",
       "Humboldt, Alexander von"},
      {R"([{"family":"King","given":"Martin Luther","suffix":"Jr."}])", "King, Martin Luther, Jr."},
      {R"([{"literal":"World Meteorological Organization, Commission for Hydrology"}])",
       "{World Meteorological Organization, Commission for Hydrology}"},
      {R"([{"family":"Plato"}])", "Plato"},
      {R"([{"family":"Ó Briain","given":"Siobhán"},{"family":"Nguyễn","given":"Thị Lan"}])",
       "Ó Briain, Siobhán; Nguyễn, Thị Lan"},
      {R"([{"family":"hooks","given":"bell"}])", "hooks, bell"},
  };
  for (const Row& row : rows) {
    const Json names = Json::parse(row.names);
    EXPECT_EQ(CslNames::toText(names, "test"), row.text);
    EXPECT_EQ(unordered(CslNames::fromText(row.text)), unordered(names)) << row.text;
  }
  EXPECT_THROW(CslNames::toText(Json::parse(R"({"family":"x"})"), "item 'a': variable 'author'"),
               BadInput);
  EXPECT_THROW(CslNames::toText(Json::parse(R"([{"family":["x"]}])"), "x"), BadInput);
}

TEST(CslTest, DatesBecomeTheFormsTextAndComeBack) {
  struct Row {
    const char* date;
    const char* text;
  };
  const Row rows[] = {
      {R"({"date-parts":[[2021]]})", "2021"},
      {R"({"date-parts":[[2022,3,3]]})", "2022, March 3"},
      {R"({"date-parts":[[2022,11]]})", "2022, November"},
      {R"({"date-parts":[[2016]],"season":4})", "2016, Winter"},
      {R"({"date-parts":[[2019,5,3],[2019,5,5]]})", "2019, May 3 - 2019, May 5"},
      {R"({"raw":"Michaelmas term 1887"})", "Michaelmas term 1887"},
      {R"({"raw":"2019-05-03T12:00"})", "2019-05-03T12:00"},
  };
  for (const Row& row : rows) {
    const Json date = Json::parse(row.date);
    EXPECT_EQ(CslDates::toText(date, "test"), row.text);
    EXPECT_EQ(unordered(CslDates::fromText(row.text)), unordered(date)) << row.text;
  }
  // Read, though written otherwise: numbers as texts, a literal, a month
  // that is a season.
  EXPECT_EQ(CslDates::toText(Json::parse(R"({"date-parts":[["2012","4","9"]]})"), "t"),
            "2012, April 9");
  EXPECT_EQ(CslDates::toText(Json::parse(R"({"literal":"n.d."})"), "t"), "n.d.");
  EXPECT_EQ(CslDates::toText(Json::parse(R"({"date-parts":[[2001,14]]})"), "t"), "2001, Summer");
  for (const char* bad : {R"({"date-parts":[["spring"]]})", R"({"date-parts":[]})", "[2020]",
                          R"({"season":2})", R"({"date-parts":[[2019],[20E19]]})"})
    EXPECT_THROW(CslDates::toText(Json::parse(bad), "t"), BadInput) << bad;
}

Json corpus() {
  return JsonReader::read(KELMORA_CSL_CORPUS, "the CSL corpus");
}

// Loads every item into its form as a host loads a reference, reads it back
// from the widgets and writes it out again; `check` sees each pair.
template <typename Check>
void throughTheForm(const std::vector<Json>& items, std::vector<std::string>& failures,
                    Check&& check) {
  auto tracing = std::make_shared<Tracing>();
  tracing->onFailure = [&](const Failure& failure) {
    failures.push_back(failure.procedure + ": " + failure.description);
  };
  Host host({.tracing = tracing});
  std::map<int16_t, bool> formatted;
  for (const Json& item : items) {
    Record record = Csl::read(host.main(), item);
    host.show(record.whichType());
    if (!formatted[record.whichType()]) {
      // The family with every e-source kind on its list.
      host.applyFormat(FormatSettings::family(3));
      formatted[record.whichType()] = true;
    }
    host.load(record, Csl::optionOf(record), true);
    check(item, Csl::write(host.read()));
  }
  host.end();
}

// The project's own corpus: every item through the form and back, with
// every variable as it was.
TEST(CslTest, EveryItemOfTheCorpusComesBackFromTheFormUnchanged) {
  onFreshThread([] {
    const auto items = Csl::items(corpus(), "corpus");
    ASSERT_GE(items.size(), 60u);
    std::vector<std::string> failures;
    int same = 0;
    throughTheForm(items, failures, [&](const Json& item, const Json& back) {
      EXPECT_EQ(unordered(back), unordered(item)) << Csl::idOf(item);
      same += unordered(back) == unordered(item) ? 1 : 0;
    });
    EXPECT_EQ(failures, std::vector<std::string>{});
    EXPECT_EQ(same, static_cast<int>(items.size()));
  });
}

// Each kind of item goes to its form, with the option or list entry of its
// kind, and what the form has no field for waits in the extras.
TEST(CslTest, EachKindGoesToItsFormAndOption) {
  onFreshThread([] {
    Host host;
    Main2& main = host.main();
    const auto items = Csl::items(corpus(), "corpus");
    struct Row {
      const char* id;
      int16_t whichType;
      int16_t option;
      const char* key;
      const char* value;
    };
    const Row rows[] = {
        {"art-j-1", 1, 0, "PeriodicalOnline", "10.5555/kelmora.1000"},
        {"art-m-2", 1, 1, "PeriodicalTitle", "Science Weekly"},
        {"art-n-1", 1, 2, "PeriodicalPageRange", "Local"},
        {"chap-1", 0, 0, "Subwork", "Chapter 1: reed beds and their birds"},
        {"web-1", 0, 1, "Online", "https://tides.example.gov/stations/1"},
        {"rep-1", 0, 0, "Publisher", "Estuary Monitoring Office"},
        {"blog-comment", 4, -1, "EsourceType", "Blog comment"},
        {"tweet-1", 4, -1, "EsourceType", "Twitter post"},
        {"mail-2", 4, -1, "EsourceType", "Email list entry"},
        {"mail-1", 4, -1, "EsourceTitle", "Nakamura, Hiroshi"},
        {"art-j-particles", 1, 0, "PeriodicalAuthor",
         "van Gogh, Vincent; Humboldt, Alexander von; King, Martin Luther, Jr.; van den Bergh, "
         "Anna"},
    };
    for (const Row& row : rows) {
      const Record record = Csl::read(main, Csl::find(items, row.id, "corpus"));
      EXPECT_EQ(record.whichType(), row.whichType) << row.id;
      EXPECT_EQ(Csl::optionOf(record), row.option) << row.id;
      EXPECT_EQ(record.get(row.key), row.value) << row.id;
    }
    const Record both = Csl::read(main, Csl::find(items, "art-j-1", "corpus"));
    EXPECT_EQ(both.extras()["URL"], "https://journals.example.org/articles/0")
        << "the URL beside a DOI waits in the extras";
    const Record extra = Csl::read(main, Csl::find(items, "book-extra-fields", "corpus"));
    EXPECT_EQ(extra.extras()["ISBN"], "978-3-00-000000-0");
    host.end();
  });
}

// What the form makes of an item's oddities, and what comes back out: a
// book's full date shows its year, a site whose name ends in x is no
// Twitter, and the exact values are the record's own note, not input's.
TEST(CslTest, OdditiesOfRealItemsKeepTheirValuesAndTheirKinds) {
  onFreshThread([] {
    Host host;
    const Json book =
        Json::parse(R"({"id":"b","type":"book","title":"T","issued":{"date-parts":[[2022,3,3]]}})");
    const Record read = Csl::read(host.main(), book);
    EXPECT_EQ(read.get("Year"), "2022");
    EXPECT_EQ(unordered(Csl::write(read)), unordered(book));

    const Json post = Json::parse(
        R"({"id":"p","type":"post","title":"On kernels","URL":"https://www.linux.com/t/1"})");
    EXPECT_EQ(Csl::read(host.main(), post).get("EsourceType"), "Forum post");

    for (const char* forged : {R"({"title":{"text":"T"}})", R"({"title":5})", "7"}) {
      Json item = Json::parse(R"({"id":"f","type":"book","title":"T"})");
      item["kelmora:exact"] = Json::parse(forged);
      Record record = Csl::read(host.main(), item);
      EXPECT_FALSE(record.extras().contains("kelmora:exact")) << forged;
      record.extras()["kelmora:exact"] = Json::parse(forged);
      EXPECT_EQ(Csl::write(record)["title"], "T") << forged;
    }
    host.end();
  });
}

// A bad item is refused with one line naming the item and the variable;
// nothing else escapes, whatever JSON comes in.
TEST(CslTest, ABadItemIsRefusedNamingTheItemAndTheVariable) {
  onFreshThread([] {
    Host host;
    Main2& main = host.main();
    struct Row {
      const char* item;
      const char* message;
    };
    const Row rows[] = {
        {R"("just text")", "a CSL item must be an object"},
        {R"({"id":"a"})", "CSL item 'a': it has no type"},
        {R"({"id":"b","type":"patent"})", "CSL item 'b': no form takes the CSL type 'patent'"},
        {R"({"id":"c","type":"book","author":"Smith"})",
         "CSL item 'c': variable 'author' is not a list of names"},
        {R"({"id":7,"type":"article-journal","issued":{"date-parts":[["x"]]}})",
         "CSL item '7': variable 'issued' has a date part that is not a number"},
        {R"({"id":"d","type":"webpage","title":{"a":1}})",
         "CSL item 'd': variable 'title' is not a text or a number"},
    };
    for (const Row& row : rows) {
      try {
        Csl::read(main, Json::parse(row.item));
        ADD_FAILURE() << row.item << " was taken";
      } catch (const BadInput& error) {
        EXPECT_EQ(std::string(error.what()).rfind(row.message, 0), 0u) << error.what();
      }
    }
    host.end();
  });
}

// The real references beside the project, where they are: every item goes
// into its form without a failure report, or is refused in one line.
TEST(CslTest, TheDevelopmentCorpusLoadsOrIsRefusedInOneLine) {
  if (!std::filesystem::exists(KELMORA_DEV_CORPUS))
    GTEST_SKIP() << KELMORA_DEV_CORPUS << " is not here";
  onFreshThread([] {
    const auto items = Csl::items(JsonReader::read(KELMORA_DEV_CORPUS, "dev corpus"), "dev");
    std::vector<Json> taken;
    std::map<std::string, int> loaded;
    std::map<std::string, int> refused;
    Host reader;
    for (const Json& item : items) {
      const std::string type = item.value("type", "?");
      try {
        Csl::read(reader.main(), item);
        taken.push_back(item);
      } catch (const BadInput& error) {
        const std::string line = error.what();
        EXPECT_EQ(line.find('\n'), std::string::npos) << line;
        EXPECT_NE(line.find(Csl::idOf(item)), std::string::npos) << line;
        ++refused[type];
      }
    }
    reader.end();
    std::vector<std::string> failures;
    throughTheForm(taken, failures,
                   [&](const Json& item, const Json&) { ++loaded[item.value("type", "?")]; });
    EXPECT_EQ(failures, std::vector<std::string>{});
    std::string counts;
    for (const auto& [type, n] : loaded) counts += type + " " + std::to_string(n) + ", ";
    for (const auto& [type, n] : refused) counts += type + " refused " + std::to_string(n) + ", ";
    std::cout << "dev corpus: " << counts << '\n';
    EXPECT_EQ(
        taken.size() +
            [&] {
              size_t n = 0;
              for (const auto& [type, count] : refused) n += static_cast<size_t>(count);
              return n;
            }(),
        items.size());
  });
}

}  // namespace
}  // namespace kelmora::host
