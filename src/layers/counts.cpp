#include <map>
#include <string>

#include "basic/rounding.h"
#include "basic/strings.h"
#include "component/session.h"
#include "component/velmar16.h"
#include "layers/kind_name.h"

namespace velmar {
namespace {

using host::Entity;

template <class Test>
std::int16_t count_in_model_space(Test counts) {
  basic::Count count;
  for (const Entity& candidate : model_space()) {
    if (counts(candidate)) ++count;
  }
  return count.value();
}

/// Whether a name contains a text, in any letter case. A drawing has few layers beside its
/// entities: each is looked at once.
class NamesWith {
 public:
  explicit NamesWith(std::string part) : part_(std::move(part)) {}

  bool has(const std::string& name) {
    const auto [known, is_new] = known_.try_emplace(name);
    if (is_new) known->second = basic::contains_ignoring_case(name, part_);
    return known->second;
  }

 private:
  std::string part_;
  std::map<std::string, bool> known_;
};

}  // namespace

std::int16_t Velmar16::GetNOLayer(std::string LayerName) {
  return count_in_model_space([&](const Entity& candidate) { return candidate.is_on(LayerName); });
}

std::int16_t Velmar16::GetNType(std::string ObjectName) {
  const std::string kind = class_named(ObjectName);
  return count_in_model_space([&](const Entity& candidate) { return candidate.has_class(kind); });
}

std::int16_t Velmar16::GetNTypeLayer(std::string ObjectName, std::string LayerName) {
  const std::string kind = class_named(ObjectName);
  NamesWith layers(LayerName);
  return count_in_model_space([&](const Entity& candidate) {
    if (!candidate.has_class(kind) || !layers.has(candidate.Layer())) return false;
    candidate.Handle();  // Kept: read for nothing, but a host may refuse it.
    return true;
  });
}

}  // namespace velmar
