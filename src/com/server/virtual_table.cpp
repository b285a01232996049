#include "com/server/virtual_table.h"

#include <array>
#include <cstddef>
#include <type_traits>
#include <utility>

#include "com/automation/failure_crossing.h"
#include "com/server/boundary.h"
#include "com/server/early_types.h"
#include "com/server/method_call.h"
#include "component/method_rows.h"

namespace velmar::com {
namespace {

HRESULT STDMETHODCALLTYPE query_interface(DualInterface* self, REFIID id, void** found) {
  return self->object->QueryInterface(id, found);
}
ULONG STDMETHODCALLTYPE add_ref(DualInterface* self) { return self->object->AddRef(); }
ULONG STDMETHODCALLTYPE release(DualInterface* self) { return self->object->Release(); }
HRESULT STDMETHODCALLTYPE get_type_info_count(DualInterface* self, UINT* count) {
  return self->object->GetTypeInfoCount(count);
}
HRESULT STDMETHODCALLTYPE get_type_info(DualInterface* self, UINT i, LCID locale,
                                        ITypeInfo** info) {
  return self->object->GetTypeInfo(i, locale, info);
}
HRESULT STDMETHODCALLTYPE get_ids_of_names(DualInterface* self, REFIID reserved, LPOLESTR* names,
                                           UINT count, LCID locale, DISPID* ids) {
  return self->object->GetIDsOfNames(reserved, names, count, locale, ids);
}
HRESULT STDMETHODCALLTYPE invoke(DualInterface* self, DISPID id, REFIID reserved, LCID locale,
                                 WORD flags, DISPPARAMS* given, VARIANT* result,
                                 EXCEPINFO* exception, UINT* wrong_argument) {
  return self->object->Invoke(id, reserved, locale, flags, given, result, exception,
                              wrong_argument);
}

template <std::size_t row, std::size_t parameter>
constexpr Parameter declared = published::methods[row].parameter_list[parameter];

/// What the caller passes for a parameter.
template <std::size_t row, std::size_t parameter>
using Early = EarlyType<declared<row, parameter>.type>;
template <std::size_t row, std::size_t parameter>
using Given =
    std::conditional_t<declared<row, parameter>.by_reference, typename Early<row, parameter>::Type*,
                       typename Early<row, parameter>::Type>;

/// A call with the values of its arguments, whatever their types.
HRESULT run(DualInterface* self, const Method& method, std::span<basic::Value> arguments,
            basic::Value& result) {
  Outcome outcome = call_method(*self->object, method, arguments);
  if (outcome.failure) return report(*outcome.failure);
  result = std::move(outcome.result);
  return S_OK;
}

/// The function for one row of the method table.
template <std::size_t row,
          class Parameters = std::make_index_sequence<published::methods[row].parameter_count>>
struct MethodSlot;

template <std::size_t row, std::size_t... parameter>
struct MethodSlot<row, std::index_sequence<parameter...>> {
  using Result = EarlyType<published::methods[row].result>;

  static HRESULT STDMETHODCALLTYPE without_result(DualInterface* self,
                                                  Given<row, parameter>... given) {
    basic::Value unused;
    return call(self, unused, given...);
  }

  static HRESULT STDMETHODCALLTYPE with_result(DualInterface* self, Given<row, parameter>... given,
                                               typename Result::Type* result) {
    if (!result) return E_POINTER;
    Result::clear(*result);
    return guarded([&] {
      basic::Value value;
      const HRESULT done = call(self, value, given...);
      if (SUCCEEDED(done)) Result::out(value, *result);
      return done;
    });
  }

 private:
  using Arguments = std::array<basic::Value, sizeof...(parameter)>;

  static HRESULT call(DualInterface* self, basic::Value& result, Given<row, parameter>... given) {
    if ((lacks<parameter>(given) || ...)) return E_POINTER;
    return guarded([&] {
      Arguments arguments{in<parameter>(given)...};
      [[maybe_unused]] const Arguments before = arguments;
      const HRESULT done = run(self, published::methods[row], arguments, result);
      (out<parameter>(before[parameter], arguments[parameter], given), ...);
      return done;
    });
  }

  template <std::size_t i>
  static bool lacks([[maybe_unused]] Given<row, i> given) {
    if constexpr (declared<row, i>.by_reference) return !given && !declared<row, i>.optional;
    return false;
  }

  template <std::size_t i>
  static basic::Value in(Given<row, i> given) {
    if constexpr (declared<row, i>.by_reference) {
      return given ? Early<row, i>::in(*given) : basic::LeftOut{};
    } else {
      return Early<row, i>::in(given);
    }
  }

  /// What the method left as it was is not touched.
  template <std::size_t i>
  static void out([[maybe_unused]] const basic::Value& before,
                  [[maybe_unused]] const basic::Value& after,
                  [[maybe_unused]] Given<row, i> given) {
    if constexpr (declared<row, i>.by_reference) {
      if (given && !(before == after)) Early<row, i>::out(after, *given);
    }
  }
};

template <std::size_t row>
Slot method_slot() {
  if constexpr (published::methods[row].result == ValueType::none) {
    return reinterpret_cast<Slot>(&MethodSlot<row>::without_result);
  } else {
    return reinterpret_cast<Slot>(&MethodSlot<row>::with_result);
  }
}

template <std::size_t... row>
auto all_slots(std::index_sequence<row...>) {
  return std::array{
      reinterpret_cast<Slot>(&query_interface), reinterpret_cast<Slot>(&add_ref),
      reinterpret_cast<Slot>(&release),         reinterpret_cast<Slot>(&get_type_info_count),
      reinterpret_cast<Slot>(&get_type_info),   reinterpret_cast<Slot>(&get_ids_of_names),
      reinterpret_cast<Slot>(&invoke),          method_slot<row>()...};
}

}  // namespace

const Slot* virtual_table() {
  static const auto slots = all_slots(std::make_index_sequence<published::method_count>());
  return slots.data();
}

}  // namespace velmar::com
