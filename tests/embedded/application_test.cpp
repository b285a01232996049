#include "embedded/application.h"

#include "embedded/host_scene.h"

namespace velmar::embedded {
namespace {

TEST(Application, AnswersAreQueuedLineByLineAndTheTranscriptTellsWhatBecameOfThem) {
  HostScene scene;
  const host::Application app = scene.app();
  app.call(Member::QueueInput, "7\r\n");
  EXPECT_EQ(scene.utility().GetReal("\r\nHeight: "), 7);
  EXPECT_EQ(scene.utility().GetString(true, "\r\nName: "), "");
  EXPECT_EQ(failure_of([&] { scene.utility().GetReal("\r\nMore: "); }), cancelled_number);
  scene.utility().Prompt("\r\nDone.");
  EXPECT_EQ(app.get<std::string>(Member::Transcript),
            "\r\nHeight: 7\r\n\r\nName: \r\n\r\nMore: *Cancel*\r\n\r\nDone.");
  app.put(Member::Transcript, "");
  EXPECT_EQ(app.get<std::string>(Member::Transcript), "");
}

TEST(Application, QuitClosesWithoutSavingWhereTheProgramCanBeEnded) {
  HostScene scene;
  EXPECT_EQ(failure_of([&] { scene.app().call(Member::Quit); }), basic::action_not_supported);
  bool ended = false;
  scene.application->on_quit([&] { ended = true; });
  const std::string before = scene.content("plan.dxf");
  const host::Entity line = scene.document().HandleToObject("30");
  line.Delete();
  scene.app().call(Member::Quit);
  EXPECT_TRUE(ended);
  EXPECT_EQ(scene.app().Documents().Count(), 0);
  EXPECT_EQ(scene.content("plan.dxf"), before);
}

}  // namespace
}  // namespace velmar::embedded
