#pragma once

#include <deque>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "component/session.h"
#include "host/bag_object.h"

namespace velmar {

using host::Member;

// Numbers that the host reports.
inline constexpr std::int32_t pick_failed = -2147352567, unknown_handle = -2145386484,
                              set_exists = -2145320851, key_not_found = -2145386476;

/// One open drawing: entities as bags of members, scripted picks and answers, what was asked and
/// said. Lines added to model space are 5 long.
class FakeDocument {
 public:
  FakeDocument();
  FakeDocument(const FakeDocument&) = delete;
  FakeDocument& operator=(const FakeDocument&) = delete;

  /// Adds to model space an entity whose handle is the next number in hexadecimal.
  Bag add(std::string_view class_name, std::string_view layer,
          std::map<Member, basic::Value> members = {});
  /// A text of either kind; its box is 1 high, and 10 wide at a scale factor of 1.
  Bag add_text(std::string_view class_name, std::string_view content, std::string_view layer = "0");
  Bag add_layer(std::string_view name);
  /// The same as the first, with a bounding box.
  Bag add_boxed(std::string_view class_name, host::Point min, host::Point max);
  bool has(const Bag& entity) const;

  std::vector<std::string> asked, said;
  std::deque<Bag> picks;             // when they run out, the pick fails
  std::deque<basic::Value> answers;  // to other questions: the same
  bool refuses_additions = false;    // of tolerance frames
  std::map<std::string, Bag> selection_sets;
  std::vector<Bag> entities;
  int next_handle = 0x10;
  Bag object = std::make_shared<BagObject>();

 private:
  void add_additions();
  void add_utility();
  void add_questions(BagObject& utility);
  void add_selection_sets();
  Bag make_selection_set(const std::string& name);

  Bag model_space_ = std::make_shared<BagObject>(), layers_ = std::make_shared<BagObject>();
};

/// The host of this thread for as long as it lives.
class FakeHost {
 public:
  FakeHost();
  FakeHost(const FakeHost&) = delete;
  FakeHost& operator=(const FakeHost&) = delete;
  ~FakeHost();

  void activate(const FakeDocument& document);

  FakeDocument document;
  const Bag application = std::make_shared<BagObject>();
  int created = 0;  // how often the host application object was made
  /// What the factory hands out in place of the plain object.
  std::function<std::shared_ptr<host::Object>(Bag)> decorate = [](Bag plain) { return plain; };

 private:
  Bag session_ = std::make_shared<BagObject>();
};

std::string handle_of(const Bag& entity);

}  // namespace velmar
