#include "cli/json.h"

#include <cstdio>

namespace velmar::cli {
namespace {

struct ToJson {
  Json operator()(basic::Empty) const { return nullptr; }
  Json operator()(basic::Null) const { return nullptr; }
  Json operator()(basic::LeftOut) const { return nullptr; }
  Json operator()(const basic::Reference&) const { return nullptr; }
  Json operator()(const basic::List& list) const {
    Json items = Json::array();
    for (const basic::Value& item : list) items.push_back(to_json(item));
    return items;
  }
  template <class Plain>
  Json operator()(const Plain& plain) const {
    return plain;
  }
};

}  // namespace

Json to_json(const basic::Value& value) { return std::visit(ToJson{}, value.content()); }

Json to_json(const basic::Failure& failure) {
  char hresult[11];
  std::snprintf(hresult, sizeof hresult, "0x%08X", failure.hresult());
  return {{"number", failure.number},
          {"hresult", hresult},
          {"source", failure.source},
          {"description", failure.description}};
}

Json drawing_error(std::string_view description) {
  return {{"number", nullptr},
          {"hresult", nullptr},
          {"source", "velmar"},
          {"description", description}};
}

std::string to_text(const Json& json) {
  return json.dump(-1, ' ', false, Json::error_handler_t::replace) + "\n";
}

}  // namespace velmar::cli
