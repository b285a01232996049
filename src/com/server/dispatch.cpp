#include "com/server/dispatch.h"

#include <oleauto.h>

#include <algorithm>
#include <array>
#include <string>

#include "basic/failure.h"
#include "basic/strings.h"
#include "com/automation/bstr.h"
#include "com/automation/failure_crossing.h"
#include "com/automation/variant.h"
#include "com/server/declared_type.h"
#include "com/server/method_call.h"
#include "component/method_table.h"

namespace velmar::com {
namespace {

using basic::Value;

/// What was given for each parameter, and with which number the caller knows it.
class PlacedArguments {
 public:
  PlacedArguments(const Method& method, const DISPPARAMS& given) : method_(method), given_(given) {}

  /// S_OK, or what is wrong with the number of arguments or with their names.
  HRESULT place(UINT& wrong_argument);

  /// Null where none was given.
  VARIANT* operator[](std::size_t parameter) const {
    return places_[parameter] == none ? nullptr : &given_.rgvarg[places_[parameter]];
  }
  /// The caller's number of an argument that was given.
  UINT number(std::size_t parameter) const { return places_[parameter]; }

 private:
  static constexpr UINT none = ~0U;

  HRESULT place_named(UINT& wrong_argument);

  const Method& method_;
  const DISPPARAMS& given_;
  std::array<UINT, Method::most_parameters> places_ = [] {
    std::array<UINT, Method::most_parameters> empty{};
    empty.fill(none);
    return empty;
  }();
};

/// Arguments come last first; those with names stand before all others.
HRESULT PlacedArguments::place(UINT& wrong_argument) {
  if (given_.cArgs > method_.parameter_count) return DISP_E_BADPARAMCOUNT;
  if (given_.cNamedArgs > given_.cArgs) return E_INVALIDARG;
  const UINT by_position = given_.cArgs - given_.cNamedArgs;
  for (UINT i = 0; i < by_position; ++i) places_[i] = given_.cArgs - 1 - i;
  return place_named(wrong_argument);
}

HRESULT PlacedArguments::place_named(UINT& wrong_argument) {
  for (UINT i = 0; i < given_.cNamedArgs; ++i) {
    const auto parameter = static_cast<std::size_t>(given_.rgdispidNamedArgs[i]);
    wrong_argument = i;
    if (parameter >= method_.parameter_count) return DISP_E_PARAMNOTFOUND;
    if (places_[parameter] != none) return DISP_E_BADPARAMCOUNT;
    places_[parameter] = i;
  }
  return S_OK;
}

using Arguments = std::array<Value, Method::most_parameters>;

/// What is given, as the declared types; for what is not, LeftOut.
HRESULT read(const Method& method, const PlacedArguments& placed, basic::Separators separators,
             Arguments& arguments, UINT& wrong_argument) {
  for (std::size_t i = 0; i < method.parameter_count; ++i) {
    const Parameter& parameter = method.parameter_list[i];
    arguments[i] = basic::LeftOut{};
    if (placed[i]) {
      wrong_argument = placed.number(i);
      try {
        arguments[i] = to_value(*placed[i]);
        if (!arguments[i].is<basic::LeftOut>()) {
          arguments[i] = as_declared(arguments[i], parameter.type, separators);
        }
      } catch (const basic::Failure& failure) {
        return argument_code(failure);
      }
    }
    if (!parameter.optional && arguments[i].is<basic::LeftOut>()) return DISP_E_PARAMNOTOPTIONAL;
  }
  return S_OK;
}

/// A variant that the method left as it was stays the caller's, in whatever type it had.
bool is_to_store(const Parameter& parameter, const Value& before, const Value& after) {
  if (!parameter.by_reference || after.is<basic::LeftOut>()) return false;
  return parameter.type != ValueType::variant || !(before == after);
}

HRESULT write_back(const Method& method, const PlacedArguments& placed,
                   basic::Separators separators, const Arguments& before, const Arguments& after,
                   UINT& wrong_argument) {
  HRESULT result = S_OK;
  for (std::size_t i = 0; i < method.parameter_count; ++i) {
    if (!placed[i] || !is_to_store(method.parameter_list[i], before[i], after[i])) continue;
    try {
      store(after[i], *placed[i], no_objects(), separators);
    } catch (const basic::Failure& failure) {
      wrong_argument = placed.number(i);
      result = argument_code(failure);
    }
  }
  return result;
}

HRESULT call_placed(VelmarObject& object, const Method& method, const PlacedArguments& placed,
                    const Answers& answers, UINT& wrong_argument) {
  const basic::Separators separators = object.velmar().system().separators();
  Arguments arguments;
  const HRESULT read_result = read(method, placed, separators, arguments, wrong_argument);
  if (FAILED(read_result)) return read_result;

  const Arguments before = arguments;
  const Outcome outcome =
      call_method(object, method, std::span(arguments).first(method.parameter_count));
  const HRESULT written = write_back(method, placed, separators, before, arguments, wrong_argument);
  if (outcome.failure) return describe(*outcome.failure, answers.exception);
  if (FAILED(written)) return written;
  if (answers.result) *answers.result = to_variant(outcome.result).release();
  return S_OK;
}

}  // namespace

HRESULT ids_of_names(std::span<const LPOLESTR> names, std::span<DISPID> ids) {
  std::ranges::fill(ids, DISPID_UNKNOWN);
  const Method* const method = find_method(to_utf8(std::wstring_view(names[0])));
  if (!method) return DISP_E_UNKNOWNNAME;
  ids[0] = static_cast<DISPID>(method->dispatch_id);
  HRESULT result = S_OK;
  for (std::size_t n = 1; n < names.size(); ++n) {
    const std::string name = to_utf8(std::wstring_view(names[n]));
    const auto found = std::ranges::find_if(method->parameters(), [&](const Parameter& parameter) {
      return basic::equal_ignoring_case(parameter.name, name);
    });
    if (found == method->parameters().end()) {
      result = DISP_E_UNKNOWNNAME;
    } else {
      ids[n] = static_cast<DISPID>(found - method->parameters().begin());
    }
  }
  return result;
}

HRESULT call_by_id(VelmarObject& object, DISPID id, const DISPPARAMS& given,
                   const Answers& answers) {
  if (answers.result) VariantInit(answers.result);
  const Method* const method = method_of(id);
  if (!method) return DISP_E_MEMBERNOTFOUND;
  UINT unwanted = 0;
  UINT& wrong_argument = answers.wrong_argument ? *answers.wrong_argument : unwanted;
  PlacedArguments placed(*method, given);
  const HRESULT result = placed.place(wrong_argument);
  return FAILED(result) ? result : call_placed(object, *method, placed, answers, wrong_argument);
}

}  // namespace velmar::com
