#include "com/adapter/item_walk.h"

#include <array>
#include <utility>

#include "basic/failure.h"
#include "com/automation/failure_crossing.h"
#include "host/error_styles.h"

namespace velmar::com {
namespace {

using basic::Value;

constexpr std::string_view step = "Walking a collection";

class ItemWalk : public host::Enumerator {
 public:
  ItemWalk(ComPtr<IEnumVARIANT> items, std::shared_ptr<Connection> connection, ULONG block_size)
      : items_(std::move(items)), connection_(std::move(connection)), block_size_(block_size) {}

  static constexpr ULONG largest_block = 64;

  bool next(Value& item) override {
    for (;;) {
      if (at_ == fetched_ && !fetch()) return false;
      const Variant variant = std::move(block_[at_++]);
      item = to_value(variant.get(), *connection_);
      if (erasures_ == connection_->erasures || is_alive(item)) return true;
    }
  }

 private:
  bool fetch();
  static bool is_alive(const Value& item);

  ComPtr<IEnumVARIANT> items_;
  std::shared_ptr<Connection> connection_;
  std::array<Variant, largest_block> block_;
  ULONG block_size_, at_ = 0, fetched_ = 0;
  bool ended_ = false;
  unsigned erasures_ = 0;
};

bool ItemWalk::fetch() {
  at_ = fetched_ = 0;
  if (ended_) return false;
  std::array<VARIANT, largest_block> items{};
  forget_reported_failure();
  const HRESULT code =
      connection_->patiently([&] { return items_->Next(block_size_, items.data(), &fetched_); });
  if (FAILED(code)) {
    fetched_ = 0;
    throw to_reported_failure(code, step);
  }
  for (ULONG i = 0; i < fetched_; ++i) {
    block_[i] = Variant();
    block_[i].fresh() = items[i];
  }
  ended_ = fetched_ == 0;  // a failure behind the last item comes only if it is asked for
  erasures_ = connection_->erasures;
  return fetched_ > 0;
}

/// Only entities are erased, and they tell their class as long as they are there.
bool ItemWalk::is_alive(const Value& item) {
  const auto* reference = item.if_is<basic::Reference>();
  const auto object = reference ? std::dynamic_pointer_cast<host::Object>(*reference) : nullptr;
  return !object || host::attempt([&] { object->get(host::Member::ObjectName); });
}

}  // namespace

bool is_afar(IUnknown& object) {
  ComPtr<IClientSecurity> of_proxies;
  return SUCCEEDED(
      object.QueryInterface(__uuidof(IClientSecurity), reinterpret_cast<void**>(of_proxies.put())));
}

std::unique_ptr<host::Enumerator> walk(IDispatch& collection,
                                       std::shared_ptr<Connection> connection, bool from_afar) {
  DISPPARAMS none{};
  Variant found;
  EXCEPINFO exception{};
  const HRESULT code = connection->patiently([&] {
    return collection.Invoke(DISPID_NEWENUM, IID_NULL, LOCALE_USER_DEFAULT,
                             DISPATCH_METHOD | DISPATCH_PROPERTYGET, &none, &found.fresh(),
                             &exception, nullptr);
  });
  if (code == DISP_E_EXCEPTION) throw to_failure(exception, step);
  if (FAILED(code)) throw to_failure(code, step);

  const VARIANT& variant = found.get();
  const bool object = variant.vt == VT_UNKNOWN || variant.vt == VT_DISPATCH;
  const auto items = ComPtr<IUnknown>::sharing(object ? variant.punkVal : nullptr);
  auto enumerator = items.as<IEnumVARIANT>();
  if (!enumerator) throw basic::Failure(basic::not_a_collection);
  return std::make_unique<ItemWalk>(std::move(enumerator), std::move(connection),
                                    from_afar ? ItemWalk::largest_block : 1);
}

}  // namespace velmar::com
