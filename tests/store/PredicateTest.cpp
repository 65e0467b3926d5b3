#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <random>

#include "store/LibraryModel.h"

namespace zenivo::testing {
namespace {

using ::testing::HasSubstr;

ObjectIDs idsOf(const ManagedObjects& objects) {
  ObjectIDs ids;
  for (const auto& object : objects) ids.push_back(object->objectID());
  return ids;
}

const char* const kTexts[] = {"",       "a",       "Ä",    "A\u0308", "abc",   "ÁBC",
                              "Straße", "STRASSE", "b%_c", "x\ty",    "zenit", "ZÉNIT"};

/// Draws the arguments of predicates.
class Drawer {
 public:
  Drawer(std::mt19937& random, ObjectIDs books, ObjectIDs shelves)
      : random_(random), books_(std::move(books)), shelves_(std::move(shelves)) {}

  std::string text() { return kTexts[random_() % std::size(kTexts)]; }
  int small() { return static_cast<int>(random_() % 4) - 1; }
  Date date() { return Date::withTimeIntervalSinceReferenceDate(small() - 0.5); }
  Value number() {
    const Value values[] = {0,
                            1,
                            2.5,
                            -0.0,
                            1e300,
                            std::nan(""),
                            std::numeric_limits<double>::infinity(),
                            std::numeric_limits<std::int64_t>::max(),
                            9007199254740993,    // 2^53 + 1, which no double holds
                            9007199254740992.0,  // 2^53
                            Value()};
    return values[random_() % std::size(values)];
  }

  /// One argument for each letter: t text, i small integer, n number, d date, s shelf,
  /// b book; capitals: a list of them.
  std::vector<PredicateArgument> arguments(std::string_view letters) {
    std::vector<PredicateArgument> drawn;
    for (const char letter : letters) {
      if (letter == 'T') drawn.emplace_back(std::vector<std::string>{text(), text()});
      if (letter == 'N') drawn.emplace_back(std::vector<Value>{number(), small(), Value()});
      if (letter == 'B') drawn.emplace_back(ObjectIDs{one(books_), one(books_)});
      if (letter == 't') drawn.emplace_back(text());
      if (letter == 'i') drawn.emplace_back(small());
      if (letter == 'n') drawn.emplace_back(number());
      if (letter == 'd') drawn.emplace_back(date());
      if (letter == 's') drawn.emplace_back(one(shelves_));
      if (letter == 'b') drawn.emplace_back(one(books_));
    }
    return drawn;
  }

 private:
  ObjectID one(const ObjectIDs& ids) {
    return ids.empty() || random_() % 4 == 0 ? ObjectID() : ids[random_() % ids.size()];
  }

  std::mt19937& random_;
  const ObjectIDs books_;
  const ObjectIDs shelves_;
};

/// The forms of condition that the program uses, on the library's entities.
struct Form {
  const char* entity;
  const char* text;
  const char* arguments;  ///< letters of Drawer
};

constexpr Form kForms[] = {
    {"Book", "added >= %@ AND added <= %@", "dd"},
    {"Book", "year = %d", "i"},
    {"Book", "year != %d", "i"},
    {"Book", "year != %d AND isbn != %@", "in"},
    {"Book", "weight = %@", "n"},
    {"Book", "weight != %@", "n"},
    {"Book", "isbn < %@ || price > %@", "nn"},
    {"Book", "isbn <= %@ && weight >= %@", "nn"},
    {"Book", "isbn IN %@ OR weight IN %@", "NN"},
    {"Book", "(shelf.name contains[cd] %@) OR (title contains[cd] %@)", "tt"},
    {"Book", "title contains %@ OR title CONTAINS[c] %@ OR title contains[d] %@", "ttt"},
    {"Book", "title = %@ AND isRare != TRUE", "t"},
    {"Book", "title BEGINSWITH[cd] %@", "t"},
    {"Book", "title IN %@", "T"},
    {"Publication", "title = NIL", ""},
    {"Publication", "title != nil AND title < %@", "t"},
    {"Book", "shelf.name = %@ AND shelf.rank > %lld AND year IN %@", "tiN"},
    {"Book", "shelf.name = %@ AND year != %d AND year != %d", "tii"},
    {"Book", "shelf.name BEGINSWITH %@", "t"},
    {"Book", "shelf = %@", "s"},
    {"Book", "shelf != %@ AND title = %@", "st"},
    {"Shelf", "books.@count == 0", ""},
    {"Author", "books.@count > %d", "i"},
    {"Shelf", "ANY books IN %@", "B"},
    {"Author", "ANY books IN %@", "B"},
    {"Author", "ANY books.shelf.rank >= %d", "i"},
    {"Shelf", "ANY books.title != %@", "t"},
    {"Book", "SELF IN %@", "B"},
    {"Book", "SELF = %@", "b"},
    {"Jacket", "book.title = %@", "t"},
    {"Jacket", "book = %@", "b"},
    {"Jacket", "book.shelf.books.@count = %d OR book.shelf = nil", "i"},
    {"Jacket", "book.authors.@count = %d", "i"},
};

void fill(ManagedObjectContext& context, std::mt19937& random) {
  Drawer draw(random, {}, {});
  ManagedObjects books;
  ManagedObjects shelves;
  ManagedObjects authors;
  const auto some = [&random](const ManagedObjects& from) {
    return from.empty() || random() % 4 == 0 ? nullptr : from[random() % from.size()];
  };
  for (int i = 0; i < 4; ++i) shelves.push_back(insertNamed(context, "Shelf", draw.text()));
  for (int i = 0; i < 4; ++i) authors.push_back(insertNamed(context, "Author", draw.text()));
  for (const auto& shelf : shelves) {
    if (random() % 4 != 0) shelf->setValue(draw.small(), "rank");
  }
  for (int i = 0; i < 25; ++i) {
    const auto book = insertNamed(context, "Book", draw.text());
    if (random() % 5 == 0) book->setValue(nullptr, "title");
    if (random() % 5 != 0) book->setValue(draw.small(), "year");
    book->setValue(draw.number(), "isbn");
    book->setValue(draw.number(), "weight");
    book->setValue(draw.number(), "price");
    book->setValue(draw.date(), "added");
    book->setValue(random() % 2 == 0, "isRare");
    book->setRelatedObject(some(shelves), "shelf");
    for (int n = 0; n < 2; ++n) {
      if (const auto author = some(authors)) book->addRelatedObject(author, "authors");
    }
    if (random() % 2 == 0) {
      book->setRelatedObject(insertNamed(context, "Jacket", draw.text()), "jacket");
    }
    books.push_back(book);
  }
  for (int i = 0; i < 5; ++i) insertNamed(context, "Magazine", draw.text());
}

TEST(Predicate, MeansTheSameInTheFileAndInMemory) {
  std::mt19937 random(20260812);
  for (int round = 0; round < 12; ++round) {
    const TemporaryFolder folder;
    const auto coordinator = openStore(folder / "library.sqlite");
    const auto context = contextOn(coordinator);
    fill(*context, random);
    const bool unsaved = round % 3 == 2;
    if (!unsaved) saveOrFail(*context);
    // Half-saved: the rest of the changes lies in memory alone.
    if (round % 3 == 1) fill(*context, random);
    Drawer draw(random, idsOf(fetchAll(*context, {.entityName = "Book"})),
                idsOf(fetchAll(*context, {.entityName = "Shelf"})));
    for (const Form& form : kForms) {
      const ManagedObjects all = fetchAll(*context, {.entityName = form.entity});
      for (int i = 0; i < 8; ++i) {
        SCOPED_TRACE(form.text);
        const Predicate predicate = Predicate::parse(form.text, draw.arguments(form.arguments));
        ManagedObjects wanted;
        for (const auto& object : all) {
          if (predicate.evaluateWithObject(*object)) wanted.push_back(object);
        }
        const FetchRequest request{.entityName = form.entity, .predicate = predicate};
        EXPECT_EQ(fetchAll(*context, request), wanted);
        EXPECT_EQ(context->countForFetchRequest(request), wanted.size());
        // The file alone, asked by a context that knows nothing.
        const auto other = contextOn(coordinator);
        std::erase_if(wanted,
                      [](const auto& object) { return object->objectID().isTemporaryID(); });
        EXPECT_EQ(other->executeFetchRequestForObjectIDs(request), idsOf(wanted));
      }
    }
  }
}

TEST(Predicate, ReadsTheWordsOfEitherCase) {
  const TemporaryFolder folder;
  const auto context = contextOn(openStore(folder / "library.sqlite"));
  const auto shelf = insertNamed(*context, "Shelf", "it's \"so\"");
  shelf->setValue(-3, "rank");
  const char* const texts[] = {
      "rank = -3",
      "rank == -3.0 and name != null",
      "name = \"it's \\\"so\\\"\"",
      "name = 'it\\'s \"so\"'",
      "(name beginswith 'x') OR name = nil or SELF.rank < 0",
  };
  for (const char* text : texts) {
    EXPECT_TRUE(Predicate::predicateWithFormat(text).evaluateWithObject(*shelf)) << text;
  }
}

TEST(Predicate, TextThatDoesNotParseSaysWhere) {
  const auto reasonOf = [](const char* text,
                           const std::vector<PredicateArgument>& arguments = {}) -> std::string {
    try {
      Predicate::parse(text, arguments);
    } catch (const std::invalid_argument& failure) {
      return failure.what();
    }
    return "it parsed";
  };
  EXPECT_THAT(reasonOf(""), HasSubstr("expected a key at character 1"));
  EXPECT_THAT(reasonOf("a = "), HasSubstr("expected a value"));
  EXPECT_THAT(reasonOf("a ~ 1"), HasSubstr("expected a comparison at character 3"));
  EXPECT_THAT(reasonOf("a = 1 b"), HasSubstr("expected AND, OR or the end at character 7"));
  EXPECT_THAT(reasonOf("(a = 1"), HasSubstr("expected ')'"));
  EXPECT_THAT(reasonOf("a = %@"), HasSubstr("more placeholders than arguments"));
  EXPECT_THAT(reasonOf("a = 1", {1}), HasSubstr("more arguments than placeholders"));
  EXPECT_THAT(reasonOf("a = %d", {"x"}), HasSubstr("the argument is no number"));
  EXPECT_THAT(reasonOf("a IN %@", {1}), HasSubstr("IN takes a list"));
  EXPECT_THAT(reasonOf("a = %@", {std::vector<Value>{1}}), HasSubstr("only IN takes a list"));
  EXPECT_THAT(reasonOf("a = 'x"), HasSubstr("has no end"));
  EXPECT_THAT(reasonOf("a contains[x] 'x'"), HasSubstr("expected 'c' or 'd'"));
  EXPECT_THAT(reasonOf("a = %"), HasSubstr("placeholder"));
  EXPECT_THAT(reasonOf(std::string(5000, '(').c_str()), HasSubstr("too many parentheses"));
}

TEST(Predicate, WhatCannotBeComparedIsAnInvalidRequest) {
  const TemporaryFolder folder;
  const auto context = contextOn(openStore(folder / "library.sqlite"));
  const FetchRequest requests[] = {
      {.entityName = "Cupboard"},
      {.entityName = "Shelf", .predicate = Predicate::predicateWithFormat("width = 1")},
      {.entityName = "Shelf", .predicate = Predicate::predicateWithFormat("rank = 'high'")},
      {.entityName = "Shelf", .predicate = Predicate::predicateWithFormat("name = 5")},
      {.entityName = "Shelf", .predicate = Predicate::predicateWithFormat("rank contains 'x'")},
      {.entityName = "Shelf", .predicate = Predicate::predicateWithFormat("books.title = 'x'")},
      {.entityName = "Shelf", .predicate = Predicate::predicateWithFormat("ANY name = 'x'")},
      {.entityName = "Shelf", .predicate = Predicate::predicateWithFormat("name.@count = 1")},
      {.entityName = "Book", .predicate = Predicate::predicateWithFormat("shelf = 'x'")},
      {.entityName = "Book", .predicate = Predicate::predicateWithFormat("isOpen = TRUE")},
      {.entityName = "Book", .sortDescriptors = {{"shelf"}}},
      {.entityName = "Shelf", .sortDescriptors = {{"books.title"}}},
  };
  for (const FetchRequest& request : requests) {
    Error error;
    EXPECT_FALSE(context->executeFetchRequest(request, &error).has_value());
    EXPECT_EQ(error.code, static_cast<int>(StoreErrorCode::invalidRequest)) << error.description;
  }
}

/// Bytes at random must parse or be refused, never more.
TEST(Predicate, RandomTextIsParsedOrRefused) {
  std::mt19937 random(7);
  const std::string_view pieces[] = {"name", "=",   "%@",   "%d", "(",        ")",        "AND",
                                     "ANY",  "IN",  "SELF", ".",  "@count",   "'",        "\"",
                                     "[cd]", "1e9", "NIL",  " ",  "\xff\xfe", "contains", "!="};
  for (int i = 0; i < 20'000; ++i) {
    std::string text;
    for (auto n = random() % 9; n > 0; --n) text += pieces[random() % std::size(pieces)];
    try {
      Predicate::predicateWithFormat(text, 1);
    } catch (const std::invalid_argument&) {
    }
  }
}

TEST(Predicate, ThousandsOfPartsRunAgainstTheFileAsInMemory) {
  const TemporaryFolder folder;
  const auto context = contextOn(openStore(folder / "library.sqlite"));
  for (int i = 0; i < 3; ++i) insertNamed(*context, "Shelf", "s" + std::to_string(i));
  std::string text = "name = 's0'";
  for (int i = 1; i < 5000; ++i) text += " OR name = 's" + std::to_string(2 * i) + "'";
  const FetchRequest request{.entityName = "Shelf",
                             .predicate = Predicate::predicateWithFormat(text)};
  EXPECT_EQ(fetchAll(*context, request).size(), 2U);
  saveOrFail(*context);
  EXPECT_EQ(fetchAll(*context, request).size(), 2U);
}

}  // namespace
}  // namespace zenivo::testing
