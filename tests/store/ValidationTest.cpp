#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "foundation/NotificationCenter.h"
#include "store/LibraryModel.h"

namespace zenivo::testing {
namespace {

using ::testing::HasSubstr;

/// A class of its own: names itself, and refuses to be saved as "cursed" or deleted
/// while it is "kept".
class Talisman : public ManagedObject {
 public:
  void awakeFromInsert() override {
    if (stringForKey("name").empty()) setValue("unnamed", "name");
  }
  void awakeFromFetch() override { ++fetches; }
  bool validateForInsert(Error* error) const override {
    return allows("cursed", error) && ManagedObject::validateForInsert(error);
  }
  bool validateForUpdate(Error* error) const override {
    return allows("cursed", error) && ManagedObject::validateForUpdate(error);
  }
  bool validateForDelete(Error* error) const override { return allows("kept", error); }

  int fetches = 0;

 private:
  bool allows(const char* name, Error* error) const {
    if (stringForKey("name") != name) return true;
    return fail(error, {.domain = "Talisman", .code = 7, .description = name});
  }
};

std::shared_ptr<const ManagedObjectModel> talismanModel() {
  using enum AttributeType;
  return ManagedObjectModel::make(
      {{.name = "Talisman",
        .attributes = {{.name = "name", .type = string, .isOptional = false},
                       {.name = "small", .type = integer16},
                       {.name = "middle", .type = integer32}},
        .relationships = {{.name = "owner",
                           .destination = "Owner",
                           .inverse = "talismans",
                           .isOptional = false}},
        .factory = makesObjectsOf<Talisman>()},
       {.name = "Owner",
        .relationships = {{.name = "talismans",
                           .destination = "Talisman",
                           .inverse = "owner",
                           .kind = RelationshipKind::toMany,
                           .isOptional = false}}}});
}

class Validation : public ::testing::Test {
 protected:
  Validation() : context_(contextOn(openStore(folder_ / "a.sqlite", talismanModel()))) {
    owner_ = context_->insertNewObjectForEntityForName("Owner");
    talisman_ =
        std::static_pointer_cast<Talisman>(context_->insertNewObjectForEntityForName("Talisman"));
    talisman_->setRelatedObject(owner_, "owner");
  }

  Error saveError() {
    Error error;
    EXPECT_FALSE(context_->save(&error));
    EXPECT_TRUE(context_->hasChanges());
    return error;
  }

  const TemporaryFolder folder_;
  std::shared_ptr<ManagedObjectContext> context_;
  ManagedObjectPtr owner_;
  std::shared_ptr<Talisman> talisman_;
};

TEST_F(Validation, ObjectsWakeUpInTheirClass) {
  EXPECT_EQ(talisman_->valueForKey("name"), Value("unnamed"));
  saveOrFail(*context_);
  context_->refreshObject(talisman_, false);
  EXPECT_EQ(talisman_->fetches, 0);
  EXPECT_EQ(talisman_->valueForKey("name"), Value("unnamed"));
  EXPECT_EQ(talisman_->fetches, 1);
}

TEST_F(Validation, NamesTheMandatoryPropertyThatIsMissing) {
  talisman_->setValue(nullptr, "name");
  const Error error = saveError();
  EXPECT_EQ(error.domain, kStoreErrorDomain);
  EXPECT_EQ(error.code, static_cast<int>(StoreErrorCode::missingMandatoryProperty));
  EXPECT_EQ(error.userInfo.at("key"), "name");
}

TEST_F(Validation, RelationshipsMayBeMandatoryToo) {
  talisman_->setRelatedObject(nullptr, "owner");
  const Error error = saveError();
  EXPECT_EQ(error.code, static_cast<int>(StoreErrorCode::validationMultiple));
  ASSERT_EQ(error.underlying.size(), 2U);
  EXPECT_EQ(error.underlying[0].userInfo.at("key"), "talismans");
  EXPECT_EQ(error.underlying[1].userInfo.at("key"), "owner");
}

TEST_F(Validation, NumbersMustFitTheirWidth) {
  talisman_->setValue(32767, "small");
  talisman_->setValue(2147483647, "middle");
  saveOrFail(*context_);
  talisman_->setValue(32768, "small");
  EXPECT_EQ(saveError().code, static_cast<int>(StoreErrorCode::numberOutOfRange));
  talisman_->setValue(0, "small");
  talisman_->setValue(std::int64_t{-2147483649}, "middle");
  EXPECT_EQ(saveError().code, static_cast<int>(StoreErrorCode::numberOutOfRange));
}

TEST_F(Validation, TheClassHasAWordInEachOfTheThree) {
  talisman_->setValue("cursed", "name");
  EXPECT_EQ(saveError().code, 7);
  talisman_->setValue("kept", "name");
  saveOrFail(*context_);
  talisman_->setValue("cursed", "name");
  EXPECT_EQ(saveError().code, 7);
  context_->rollback();
  context_->deleteObject(talisman_);
  const Error error = saveError();  // and the owner would be left with none
  ASSERT_EQ(error.underlying.size(), 2U);
  EXPECT_EQ(error.underlying[0].code, 7);
  EXPECT_THAT(error.underlying[1].description, HasSubstr("Owner.talismans"));
  context_->rollback();
  EXPECT_EQ(talisman_->relatedObjectForKey("owner"), owner_);
}

TEST_F(Validation, AnObserverOfWillSaveMayStillPutItRight) {
  talisman_->setValue(nullptr, "name");
  const auto observer = defaultCenter().addObserver(
      kManagedObjectContextWillSaveNotification, context_.get(),
      [&](const Notification&) { talisman_->setValue("late", "name"); });
  saveOrFail(*context_);
  EXPECT_EQ(talisman_->committedValues().at("name"), Value("late"));
}

TEST(Model, RefusesWhatDoesNotFitTogether) {
  const auto refusal = [](std::vector<EntityDeclaration> declarations) -> std::string {
    try {
      ManagedObjectModel::make(std::move(declarations));
    } catch (const std::invalid_argument& failure) {
      return failure.what();
    }
    return "nothing";
  };
  const RelationshipDeclaration toB{.name = "b", .destination = "B", .inverse = "a"};
  const RelationshipDeclaration toA{.name = "a", .destination = "A", .inverse = "b"};
  EXPECT_THAT(refusal({{.name = "A"}, {.name = "a"}}), HasSubstr("declared twice"));
  EXPECT_THAT(refusal({{.name = "_A"}}), HasSubstr("no name"));
  EXPECT_THAT(refusal({{.name = "A", .attributes = {{.name = "x y"}}}}), HasSubstr("no name"));
  EXPECT_THAT(refusal({{.name = "A", .attributes = {{.name = "x"}, {.name = "X"}}}}),
              HasSubstr("two properties"));
  EXPECT_THAT(refusal({{.name = "A", .superentity = "B"}}), HasSubstr("no entity 'B'"));
  EXPECT_THAT(refusal({{.name = "A", .superentity = "B"}, {.name = "B", .superentity = "A"}}),
              HasSubstr("above itself"));
  EXPECT_THAT(refusal({{.name = "A", .relationships = {toB}}}), HasSubstr("no entity 'B'"));
  EXPECT_THAT(refusal({{.name = "A", .relationships = {toB}}, {.name = "B"}}),
              HasSubstr("no relationship 'a'"));
  EXPECT_THAT(refusal({{.name = "A", .attributes = {{.name = "n", .defaultValue = 5}}}}),
              HasSubstr("default"));
  EXPECT_EQ(refusal({{.name = "A", .relationships = {toB}}, {.name = "B", .relationships = {toA}}}),
            "nothing");
}

TEST(Model, VersionHashesFollowTheStoredFormAlone) {
  const auto hashOf = [](const EntityDeclaration& declaration) {
    return ManagedObjectModel::make({declaration})->entityVersionHashesByName().at("Plan");
  };
  const EntityDeclaration plan{.name = "Plan", .attributes = {{.name = "name"}, {.name = "notes"}}};
  EntityDeclaration other = plan;
  std::swap(other.attributes[0], other.attributes[1]);
  other.userInfo["remark"] = 1;
  other.attributes[0].defaultValue = "x";
  EXPECT_EQ(hashOf(plan), hashOf(other));
  other.attributes[0].isOptional = false;
  EXPECT_NE(hashOf(plan), hashOf(other));
  other = plan;
  other.attributes[1].type = AttributeType::binary;
  EXPECT_NE(hashOf(plan), hashOf(other));
}

}  // namespace
}  // namespace zenivo::testing
