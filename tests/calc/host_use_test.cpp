#include <numbers>

#include "called.h"
#include "component/session.h"
#include "embedded/host_scene.h"
#include "host/failing_object.h"

namespace velmar {
namespace {

using host::Line;

/// The host of this thread for as long as it lives.
struct InstalledHost {
  explicit InstalledHost(HostFactory factory) {
    install_host_factory(std::move(factory));
    release_host_application();
  }
  InstalledHost(const InstalledHost&) = delete;
  InstalledHost& operator=(const InstalledHost&) = delete;
  ~InstalledHost() {
    install_host_factory({});
    release_host_application();
  }
};

bool draws(const Method& method) { return method.name == "Angle2P" || method.name == "DisP"; }

TEST(Calculations, TouchNoHostUnlessTheyDraw) {
  int tried = 0;
  const InstalledHost host([] {
    ADD_FAILURE() << "the host was asked for";
    return nullptr;
  });
  for (const Method& method : methods()) {
    if (method.subject != Subject::calc || draws(method)) continue;
    SCOPED_TRACE(method.name);
    Arguments arguments;
    for (const Parameter& parameter : method.parameters()) {
      const bool is_text = parameter.type == ValueType::text;
      arguments.push_back(is_text ? Value("C:\\plan 12.dwg") : Value(0.75));
    }
    EXPECT_EQ(failure_number_of(method.name, arguments), 0);
    ++tried;
  }
  EXPECT_EQ(tried, 18);
}

class DrawnLine : public testing::Test {
 protected:
  static constexpr int until_line_is_drawn = 4;  // application, document, model space, AddLine

  bool is_unchanged() const { return scene.drawing().changes().empty(); }
  /// What model space has beyond the scene.
  std::vector<Line> added() const {
    std::vector<Line> lines;
    for (const auto handle : scene.drawing().changes().added) {
      lines.emplace_back(scene.document().HandleToObject(drawing::handle_text(handle)).object());
    }
    return lines;
  }

  embedded::HostScene scene;
  std::shared_ptr<host::Fault> fault;  // of the next session
  InstalledHost host{[this]() -> std::shared_ptr<host::Object> {
    return fault ? host::failing(scene.application, fault) : scene.application;
  }};
};

TEST_F(DrawnLine, Angle2PIsInRadiansAndLeavesNothing) {
  expect_answers("Angle2P", {{{0.0, 0.0, 0.0, 1.0}, std::numbers::pi / 2},
                             {{"1", Empty{}, std::int16_t{2}, 0.0}, 0.0},
                             {{0.0, 0.0, 1.0, -1.0}, std::numbers::pi * 7 / 4},
                             {{2.0, 2.0, 2.0, 2.0}, 0.0}});
  EXPECT_TRUE(is_unchanged());
}

TEST_F(DrawnLine, DisPStaysOnlyOnRequest) {
  const basic::Doubles from{0, 0, 0}, to{3, 4, 0}, above{3, 4, 12};
  expect_answers("DisP", {{{from, to}, 5.0}, {{from, above, false}, 13.0}, {{to, to}, 0.0}});
  EXPECT_TRUE(is_unchanged());

  expect_answers("DisP", {{{from, to, true}, 5.0}});
  const std::vector<Line> lines = added();
  ASSERT_EQ(lines.size(), 1u);
  EXPECT_EQ(lines[0].StartPoint(), host::Point());
  EXPECT_EQ(lines[0].EndPoint(), (host::Point{3, 4, 0}));
  EXPECT_TRUE(lines[0].Visible());
  EXPECT_EQ(lines[0].Layer(), "Walls") << "the current layer";
}

TEST_F(DrawnLine, RefusesWhatIsNoPointBeforeItDraws) {
  const basic::Doubles point{0, 0, 0}, flat{3, 4};
  expect_refusals("DisP", {{{point, flat, true}, basic::type_mismatch},
                           {{"3,4,0", point, true}, basic::type_mismatch},
                           {{point, 3.0, true}, basic::type_mismatch}});
  expect_refusals("Angle2P", {{{0.0, "x", 0.0, 1.0}, basic::type_mismatch},
                              {{0.0, 0.0, point, 1.0}, basic::type_mismatch}});
  EXPECT_TRUE(is_unchanged());
}

TEST_F(DrawnLine, StaysWhenTheHostFailsLater) {
  const std::pair<const char*, Arguments> calls[] = {
      {"Angle2P", {0.0, 0.0, 3.0, 4.0}},
      {"DisP", {basic::Doubles{0, 0, 0}, basic::Doubles{3, 4, 0}}}};
  for (const auto& [method, given] : calls) {
    std::size_t expected = added().size();
    for (int n = 1;; ++n) {
      SCOPED_TRACE(testing::Message() << method << ", step " << n);
      fault = std::make_shared<host::Fault>(host::Fault{n, basic::Failure(-n, "Host", "injected")});
      release_host_application();
      Arguments arguments = given;
      const int failure = failure_number_of(method, arguments);
      if (!fault->reached()) break;
      EXPECT_EQ(failure, -n);
      if (n > until_line_is_drawn) ++expected;
      EXPECT_EQ(added().size(), expected);
    }
  }
  ASSERT_FALSE(added().empty());
  EXPECT_FALSE(added().back().Visible()) << "DisP hides its line before it deletes it";
}

}  // namespace
}  // namespace velmar
