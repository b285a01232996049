#pragma once

#include <functional>
#include <map>
#include <memory>
#include <span>
#include <utility>
#include <vector>

#include "basic/failure.h"
#include "host/object.h"

namespace velmar {

/// A host object for tests: a bag of properties, methods and items. Error 438 for what is not in
/// it.
class BagObject : public host::Object {
 public:
  using Method = std::function<basic::Value(std::span<basic::Value>)>;

  basic::Value get(host::Member member) override { return existing(properties, member); }
  void put(host::Member member, const basic::Value& value) override {
    existing(properties, member) = value;
  }
  basic::Value call(host::Member member, std::span<basic::Value> arguments) override {
    return existing(methods, member)(arguments);
  }
  std::unique_ptr<host::Enumerator> enumerate() override {
    struct Items : host::Enumerator {
      explicit Items(std::vector<basic::Value> all) : items(std::move(all)) {}
      bool next(basic::Value& item) override {
        if (position == items.size()) return false;
        item = items[position++];
        return true;
      }
      std::vector<basic::Value> items;
      std::size_t position = 0;
    };
    return std::make_unique<Items>(items);
  }

  std::map<host::Member, basic::Value> properties;
  std::map<host::Member, Method> methods;
  std::vector<basic::Value> items;

 private:
  template <class Map>
  static typename Map::mapped_type& existing(Map& map, host::Member member) {
    const auto found = map.find(member);
    if (found == map.end()) throw basic::Failure(basic::no_such_member);
    return found->second;
  }
};

using Bag = std::shared_ptr<BagObject>;

}  // namespace velmar
