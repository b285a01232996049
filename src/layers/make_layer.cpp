#include "component/session.h"
#include "component/velmar16.h"

namespace velmar {
namespace {

/// Kept: the first layer of the drawing is not compared, and letter case counts; the host decides
/// what becomes of such a name.
bool has_layer(const host::Layers& layers, const std::string& name) {
  bool is_first = true;
  for (const host::Layer& layer : layers) {
    if (!is_first && layer.Name() == name) return true;
    is_first = false;
  }
  return false;
}

}  // namespace

Empty Velmar16::MLayer(std::string& LayerName, std::int32_t& Color) {
  constexpr std::int32_t last_colour = 255;
  const host::Layers layers = active_document().Layers();
  if (LayerName.empty() || has_layer(layers, LayerName)) return {};
  const host::Layer layer = layers.Add(LayerName);
  if (Color >= 1 && Color <= last_colour) layer.Color(Color);
  return {};
}

}  // namespace velmar
