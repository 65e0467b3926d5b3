#include "answers/library/Cameras.h"

#include <gmock/gmock.h>

#include <fstream>

#include "support/TestHome.h"

namespace zenivo {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

class CameraAnswers : public TestHome {
 protected:
  /// Each question is asked anew of the files, as by a process of its own.
  template <class Question>
  auto ask(const Question& question) const {
    Home own = home();
    CalculatorSession session(own);
    return answer(question, session);
  }
  template <class Question>
  std::string refusalOf(const Question& question) const {
    return thrownBy<InputError>([&] { ask(question); });
  }
  std::string nameOf(const CameraQuestion& question) const {
    return ask(question).camera.modelString();
  }
  std::vector<std::string> names(const std::string& text) const {
    std::vector<std::string> found;
    for (const AbstractCamera& camera : ask(CamerasQuestion{text}).cameras) {
      found.push_back(camera.modelString());
    }
    return found;
  }
  std::string setting(std::string_view key) const {
    return home().zenivoUserDefaults().stringForKey(key);
  }

  static CameraDescription described(const std::string& name) {
    return {.name = name, .sensor = SensorSize{23.5F, 15.6F}, .megapixels = 26.0F};
  }
  void add(const std::string& name) const { ask(AddCamera{described(name)}); }
};

TEST_F(CameraAnswers, ReadingMakesNoStore) {
  EXPECT_GT(names("").size(), 600U);
  EXPECT_EQ(nameOf({}), "Canon EOS R6 Mark II") << "the first of the catalogue";
  EXPECT_THAT(refusalOf(RemoveCamera{"pinhole"}),
              "no camera named \"pinhole\"; see zenivo cameras");
  EXPECT_THAT(refusalOf(AddCamera{{.name = "Kit", .sensor = SensorSize{0, 24}}}),
              HasSubstr("width of the sensor"));
  EXPECT_TRUE(isUntouched());
}

// Makers' data sheets.
TEST_F(CameraAnswers, TellSensorAndLens) {
  const Json d850 = json(ask(CameraQuestion{"Nikon D850"}));
  EXPECT_EQ(d850["sensorWidth"].dump(), "35.9") << "not the digits of a float as a double";
  EXPECT_EQ(d850["megapixels"].dump(), "45.7");
  EXPECT_NEAR(d850["coc"].get<double>(), 0.030, 0.0005);
  EXPECT_EQ(d850["focalLength"], nullptr);
  const Json x100 = json(ask(CameraQuestion{"X100V"}));
  EXPECT_EQ(x100["focalLength"], 23.0);
  EXPECT_EQ(x100["aperture"], nullptr) << "its lens stops down from f/2";
  const Json film = json(ask(CameraQuestion{"film 6x6"}));
  EXPECT_EQ(film["film"], true);
  EXPECT_EQ(film["megapixels"], nullptr);
}

TEST_F(CameraAnswers, FindWhatPeopleType) {
  const std::pair<const char*, const char*> cases[] = {
      {"nikon-d850", "Nikon D850"},
      {"d850", "Nikon D850"},
      {"NIKON  D 850", "Nikon D850"},
      {"a7 iii", "Sony Alpha 7 III"},
      {"α7III", "Sony Alpha 7 III"},
      {"r6 ii", "Canon EOS R6 Mark II"},
      {"eos r6", "Canon EOS R6"},
      {"x100", "Fujifilm X100"},
      {"'iii' r6", "Canon EOS R6 Mark III"},
      {"Canon R6", "Canon EOS R6"},
      {"R5", "Canon EOS R5"},
      {"Fuji X-T5", "Fujifilm X-T5"},
      {"fuji xt5", "Fujifilm X-T5"},
      {"GH5", "Panasonic Lumix DC-GH5"},
  };
  for (const auto& [typed, name] : cases) EXPECT_EQ(nameOf({typed}), name) << typed;

  const std::pair<const char*, const char*> refusals[] = {
      {"nikon", "more"},
      {"nikn d850", "did you mean \"Nikon D850\"?"},
      {"zzzzz", "no camera named \"zzzzz\"; see zenivo cameras"},
      {".,", "no camera named"},
      {"", "no camera named"},
      {"\xff", "broken UTF-8"},
  };
  for (const auto& [typed, reason] : refusals) {
    EXPECT_THAT(refusalOf(CameraQuestion{typed}), HasSubstr(reason)) << typed;
  }
}

TEST_F(CameraAnswers, ListTheOwnFirst) {
  EXPECT_THAT(names("d850"), ElementsAre("Nikon D850"));
  EXPECT_THAT(names("NIKON d850"), ElementsAre("Nikon D850")) << "brand and model";
  EXPECT_TRUE(names("zzz").empty());
  add("d850 of mine");
  EXPECT_THAT(names("D850"), ElementsAre("d850 of mine", "Nikon D850"));
  ask(UseCamera{"nikon d850"});
  const Json cameras = json(ask(CamerasQuestion{"d850"}))["cameras"];
  EXPECT_EQ(cameras[0]["chosen"], true) << "what was chosen lately comes before";
  EXPECT_EQ(cameras[1]["chosen"], false);
  EXPECT_EQ(cameras[1]["cameraId"], nullptr);
}

TEST_F(CameraAnswers, KeepWhatIsDescribedAndLeaveTheRest) {
  const Json added = json(ask(AddCamera{{.name = " Pinhole ",
                                         .sensor = SensorSize{60, 45},
                                         .isFilm = true,
                                         .coc = 0.06F,
                                         .focalLength = 40.5F,
                                         .fstop = 138.0F}}));
  EXPECT_EQ(added["name"], "Pinhole");
  EXPECT_EQ(added["cocDerived"], false);
  EXPECT_EQ(added["focalLength"], 40.5);
  EXPECT_EQ(added, json(ask(CameraQuestion{"pinhole"})));

  const Json edited = json(ask(EditCamera{"pinhole",
                                          {.name = "Obscura",
                                           .isFilm = false,
                                           .megapixels = 12.0F,
                                           .coc = std::optional<float>(),
                                           .focalLength = std::optional<float>(),
                                           .fstop = std::optional<float>()}}));
  EXPECT_EQ(edited, json(ask(CameraQuestion{"Obscura"})));
  EXPECT_EQ(edited["sensorWidth"], 60.0);
  EXPECT_EQ(edited["film"], false);
  EXPECT_EQ(edited["cocDerived"], true);
  EXPECT_EQ(edited["focalLength"], nullptr);
  EXPECT_EQ(edited["aperture"], nullptr);
  EXPECT_THAT(refusalOf(CameraQuestion{"pinhole"}), HasSubstr("no camera named"));
}

TEST_F(CameraAnswers, RefusalsChangeNothing) {
  add("Kit");
  add("Other");
  const Json before = json(ask(CamerasQuestion()));
  const auto with = [](auto change) {
    AddCamera question{described("New")};
    change(question.description);
    return question;
  };
  const std::pair<AddCamera, const char*> additions[] = {
      {{described(" ")}, "Give the camera a name"},
      {{described("Kit")}, "You already have a camera of that name"},
      {{described("\xff")}, "control characters or broken UTF-8"},
      {with([](auto& d) { d.sensor.reset(); }), "Enter the width of the sensor"},
      {with([](auto& d) { d.sensor->height = 0; }), "Enter the height of the sensor"},
      {with([](auto& d) { d.megapixels.reset(); }), "Enter the resolution in megapixels"},
      {with([](auto& d) { d.coc = 0.0F; }), "Enter the circle of confusion"},
      {with([](auto& d) { d.focalLength = 0.0F; }), "Enter the focal length of the fixed lens"},
  };
  for (const auto& [question, reason] : additions) {
    EXPECT_THAT(refusalOf(question), HasSubstr(reason));
  }
  EXPECT_THAT(refusalOf(EditCamera{"Other", {.name = "Kit"}}), HasSubstr("of that name"));
  EXPECT_THAT(refusalOf(EditCamera{"Nikon D850", {}}), HasSubstr("only your own cameras"));
  EXPECT_THAT(refusalOf(RemoveCamera{"Nikon D850"}), HasSubstr("only your own cameras"));
  EXPECT_EQ(json(ask(CamerasQuestion())), before);
}

TEST_F(CameraAnswers, TheChoiceIsKeptAndFollowsAName) {
  add("Kit");
  EXPECT_TRUE(ask(UseCamera{"kit"}).isChosen);
  EXPECT_EQ(setting("global_camera"), "Kit");
  ask(EditCamera{"kit", {.name = "Body"}});
  EXPECT_EQ(setting("global_camera_model"), "Body");
  EXPECT_EQ(nameOf({}), "Body");
  const Json d850 = json(ask(UseCamera{"nikon d850"}));
  EXPECT_EQ(setting("global_camera_model"), "Nikon D850");
  EXPECT_EQ(setting("global_camera"), d850["cameraId"].dump());
}

TEST_F(CameraAnswers, RemovingTheChosenOneChoosesAnother) {
  for (const char* name : {"C", "A", "B"}) add(name);
  ask(UseCamera{"B"});
  EXPECT_FALSE(ask(RemoveCamera{"C"}).wasChosen);
  const RemovedCameraReport removed = ask(RemoveCamera{"B"});
  EXPECT_TRUE(removed.wasChosen);
  EXPECT_EQ(removed.chosen->modelString(), "A");
  const Json last = json(ask(RemoveCamera{"A"}));
  EXPECT_EQ(last["removed"]["name"], "A");
  EXPECT_EQ(last["chosen"]["name"], "Canon EOS R6 Mark II");
}

TEST_F(CameraAnswers, AChosenCameraThatHasGoneIsTold) {
  Home own = home();
  own.zenivoUserDefaults().setObject(PropertyList("Sold"), "global_camera");
  own.zenivoUserDefaults().setObject(PropertyList("Sold"), "global_camera_model");
  ASSERT_TRUE(own.zenivoUserDefaults().synchronize());
  EXPECT_THAT(thrownBy<std::runtime_error>([&] { ask(CameraQuestion()); }),
              HasSubstr("the chosen camera \"Sold\" is there no more"));
  EXPECT_THAT(names("d850"), ElementsAre("Nikon D850"));
}

TEST_F(CameraAnswers, ABrokenStoreIsTold) {
  std::filesystem::create_directory(folder());
  std::ofstream(folder() / "Zenivo.sqlite") << std::string(5000, 'x');
  const auto expectTold = [&](const auto& question) {
    EXPECT_THAT(thrownBy<std::runtime_error>([&] { ask(question); }),
                HasSubstr("cannot be opened: "));
  };
  expectTold(CamerasQuestion());
  expectTold(CameraQuestion{"d850"});
  expectTold(AddCamera{described("A")});
  expectTold(RemoveCamera{"A"});
  EXPECT_EQ(std::filesystem::file_size(folder() / "Zenivo.sqlite"), 5000U);
  EXPECT_EQ(nameOf({}), "Canon EOS R6 Mark II") << "one of the catalogue needs no other store";
}

}  // namespace
}  // namespace zenivo
