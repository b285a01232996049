#include <string>

#include "basic/comparison.h"
#include "component/conventions.h"
#include "component/session.h"
#include "component/velmar16.h"
#include "layers/kind_name.h"

namespace velmar {
namespace {

using host::Entity;

/// The part that all these commands have in common: does `act` to each entity of that class.
template <class Act>
void for_each_of(const std::string& class_name, Act act) {
  for (const Entity& candidate : model_space()) {
    if (candidate.has_class(class_name)) act(candidate);
  }
  utility().Prompt(new_line(autocad_ready));
}

void zero_is_by_layer(std::int16_t& colour) {
  constexpr std::int16_t by_layer = 256;
  if (colour == 0) colour = by_layer;
}

}  // namespace

Empty Velmar16::ColLayerObj(std::int16_t& Color, std::string& LayerName, std::string& ObjectName) {
  ObjectName = class_named(ObjectName, coloured_kinds);
  std::int32_t no_colour = 0;
  MLayer(LayerName, no_colour);
  for_each_of(ObjectName, [&](const Entity& it) {
    if (it.is_on(LayerName)) it.Color(Color);
  });
  return {};
}

Empty Velmar16::ColDel(std::int16_t& Color, std::string& ObjectName) {
  ObjectName = class_named(ObjectName, coloured_kinds);
  zero_is_by_layer(Color);
  for_each_of(ObjectName, [&](const Entity& it) {
    if (it.Color() == Color) it.Delete();
  });
  return {};
}

Empty Velmar16::ColDelLayer(std::int16_t& Color, Value& LayerName, std::string& ObjectName) {
  ObjectName = class_named(ObjectName, coloured_kinds);
  zero_is_by_layer(Color);
  for_each_of(ObjectName, [&](const Entity& it) {
    if (it.Color() == Color && basic::compare(it.Layer(), LayerName) == 0) it.Delete();
  });
  return {};
}

Empty Velmar16::ColorToLayer(std::int32_t& Color, std::string& LayerName, std::string& ObjectName) {
  ObjectName = class_named(ObjectName, colour_to_layer_kinds);
  MLayer(LayerName, Color);
  for_each_of(ObjectName, [&](const Entity& it) {
    if (it.Color() == Color) it.Layer(LayerName);
  });
  return {};
}

}  // namespace velmar
