#include "embedded/layers_object.h"

#include <algorithm>

#include "embedded/layer_object.h"
#include "embedded/names.h"

namespace velmar::embedded {

using drawing::Drawing;
using drawing::LayerId;

std::vector<LayerId> LayerRows::ids(const Drawing& drawing) {
  std::vector<LayerId> ids;
  for (std::uint32_t i = 0; i < drawing.layers().size(); ++i) {
    if (exists(drawing, static_cast<LayerId>(i))) ids.push_back(static_cast<LayerId>(i));
  }
  std::stable_partition(ids.begin(), ids.end(),
                        [&](LayerId id) { return drawing.layer(id).name == "0"; });
  return ids;
}

bool LayerRows::exists(const Drawing& drawing, LayerId id) { return embedded::exists(drawing, id); }

Value LayerRows::object(const DocumentPointer& document, LayerId id) {
  return std::make_shared<LayerObject>(document, id);
}

LayerId LayerRows::named(const Drawing& drawing, const std::string& name) {
  return require_layer(drawing, name);
}

LayerId LayerRows::add(Drawing& drawing, const std::string& name) {
  if (const auto present = find_layer(drawing, name)) return *present;
  require_valid_name(name);
  drawing::LayerRow row;
  row.name = name;
  return drawing.add_layer(row);
}

}  // namespace velmar::embedded
