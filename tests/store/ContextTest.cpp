#include <gtest/gtest.h>

#include "store/LibraryModel.h"

namespace zenivo::testing {
namespace {

TEST(Context, WhatIsSavedIsThereWhenTheStoreIsOpenedAgain) {
  const TemporaryFolder folder;
  std::string uri;
  {
    const auto context = contextOn(openStore(folder / "a.sqlite"));
    const auto shelf = insertNamed(*context, "Shelf", "Travel");
    const auto book = insertNamed(*context, "Book", "Cairo");
    book->setValue(1984, "year");
    book->setRelatedObject(shelf, "shelf");
    EXPECT_TRUE(book->objectID().isTemporaryID());
    saveOrFail(*context);
    EXPECT_FALSE(book->objectID().isTemporaryID());
    uri = book->objectID().URIRepresentation();
  }
  const auto coordinator = openStore(folder / "a.sqlite");
  const auto context = contextOn(coordinator);
  const auto id = coordinator->managedObjectIDForURIRepresentation(uri);
  ASSERT_TRUE(id.has_value());
  const auto book = context->existingObjectWithID(*id);
  ASSERT_NE(book, nullptr);
  EXPECT_EQ(book->valueForKey("year").integer(), 1984);
  const auto shelf = book->relatedObjectForKey("shelf");
  ASSERT_NE(shelf, nullptr);
  EXPECT_EQ(shelf->valueForKey("name").string(), "Travel");
  ASSERT_EQ(shelf->relatedCountForKey("books"), 1U);
  EXPECT_EQ(shelf->relatedObjectsForKey("books").front(), book);
  EXPECT_EQ(integrityOf(folder / "a.sqlite"), "");
}

}  // namespace
}  // namespace zenivo::testing
