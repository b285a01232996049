#include "com/host_server/served_items.h"

#include <utility>

#include "com/automation/failure_crossing.h"

namespace velmar::com {

ServedItems::ServedItems(std::shared_ptr<host::Object> collection,
                         std::shared_ptr<ServedObjects> all)
    : collection_(std::move(collection)), all_(std::move(all)), items_(collection_->enumerate()) {}

HRESULT ServedItems::QueryInterface(REFIID id, void** found) {
  if (!found) return E_POINTER;
  *found = nullptr;
  if (id == __uuidof(IUnknown) || id == __uuidof(IEnumVARIANT)) {
    *found = static_cast<IEnumVARIANT*>(this);
  } else if (id == __uuidof(ISupportErrorInfo)) {
    *found = static_cast<ISupportErrorInfo*>(this);
  } else {
    return E_NOINTERFACE;
  }
  AddRef();
  return S_OK;
}

ULONG ServedItems::Release() {
  const ULONG left = --references_;
  if (left == 0) delete this;
  return left;
}

HRESULT ServedItems::Next(ULONG wanted, VARIANT* items, ULONG* fetched) {
  if (!items && wanted > 0) return E_POINTER;
  ULONG count = 0;
  HRESULT code = S_OK;
  try {
    if (late_failure_) throw *std::exchange(late_failure_, std::nullopt);
    basic::Value item;
    while (count < wanted && items_->next(item)) {
      items[count] = to_variant(item, *all_).release();
      ++count;
    }
  } catch (...) {
    if (count == 0) {
      code = report(caught());
    } else {
      late_failure_ = caught();
    }
  }
  if (fetched) *fetched = count;
  if (FAILED(code)) return code;
  return count == wanted ? S_OK : S_FALSE;
}

HRESULT ServedItems::Skip(ULONG count) {
  basic::Value item;
  try {
    while (count > 0 && items_->next(item)) --count;
  } catch (...) {
    return report(caught());
  }
  return count == 0 ? S_OK : S_FALSE;
}

HRESULT ServedItems::Reset() {
  try {
    items_ = collection_->enumerate();
    late_failure_.reset();
    return S_OK;
  } catch (...) {
    return report(caught());
  }
}

HRESULT ServedItems::InterfaceSupportsErrorInfo(REFIID id) {
  return id == __uuidof(IEnumVARIANT) ? S_OK : S_FALSE;
}

HRESULT ServedItems::Clone(IEnumVARIANT** copy) {
  if (copy) *copy = nullptr;
  return E_NOTIMPL;
}

}  // namespace velmar::com
