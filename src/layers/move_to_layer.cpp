#include <string>

#include "basic/number_text.h"
#include "component/session.h"
#include "component/velmar16.h"
#include "host/error_styles.h"
#include "layers/kind_name.h"

namespace velmar {
namespace {

using host::Entity;

constexpr std::int32_t by_layer = 256;

// Kept: a rotated dimension is moved whatever kind was asked for.
bool is_meant(const std::string& class_name, const std::string& wanted) {
  return wanted.empty() || class_name == wanted || class_name == host::RotatedDimension::class_name;
}

}  // namespace

Empty Velmar16::Mo2Lr(double& ObjHndl, std::string& LayerName, std::string& ObjectName) {
  ObjectName = class_named(ObjectName, relayered_kinds);
  host::attempt([&] {
    // Kept: the handle is a number, so that one with letters cannot be reached.
    const std::string handle = basic::general(ObjHndl, system().separators());
    const Entity found = active_document().HandleToObject(handle);
    if (!is_meant(found.ObjectName(), ObjectName)) return;
    found.Layer(LayerName);
    found.Color(by_layer);
  });
  return {};
}

}  // namespace velmar
