#pragma once

#include <ole2.h>

#include <utility>

#include "basic/separators.h"
#include "basic/value.h"
#include "com/automation/com_ptr.h"

namespace velmar::com {

/// Owns what an automation variant holds.
class Variant {
 public:
  Variant() { VariantInit(&content_); }
  Variant(Variant&& other) noexcept : Variant() { std::swap(content_, other.content_); }
  Variant& operator=(Variant&& other) noexcept {
    std::swap(content_, other.content_);
    return *this;
  }
  ~Variant() { VariantClear(&content_); }

  const VARIANT& get() const { return content_; }
  /// For a call that fills or converts it; what it holds is not freed first.
  VARIANT& fresh() { return content_; }
  /// The content is the caller's from now on.
  VARIANT release() {
    const VARIANT content = content_;
    VariantInit(&content_);
    return content;
  }

 private:
  VARIANT content_;
};

/// How objects cross between a Value's references and automation.
class ObjectBorder {
 public:
  virtual ~ObjectBorder() = default;
  /// `object` is not null.
  virtual basic::Reference inward(IDispatch& object) const = 0;
  /// `object` is not null. Fails with error 13 for one that cannot be handed out.
  virtual ComPtr<IDispatch> outward(const basic::Reference& object) const = 0;
};

/// No object crosses: error 13.
const ObjectBorder& no_objects();

/// What a variant holds or points to. Small integers become 16 bits, others 32 or, where that is
/// not enough, a double; so do currency, dates and decimals. An array of doubles becomes Doubles,
/// any other a List. Null objects stay objects. Error 13 for the rest: other error codes than "left
/// out", records, arrays of several dimensions.
basic::Value to_value(const VARIANT& variant, const ObjectBorder& border = no_objects());

/// A list of objects alone becomes an array of objects, one of 16-bit integers alone an array of
/// these, any other an array of variants.
Variant to_variant(const basic::Value& value, const ObjectBorder& border = no_objects());

/// Writes a result back into an argument: where that is a reference, converted to the type that it
/// refers to, what was there being freed; nothing for an argument by value. Errors 6 and 13 where
/// it cannot be converted; then what was there stays.
void store(const basic::Value& value, VARIANT& argument, const ObjectBorder& border = no_objects(),
           basic::Separators separators = {});

}  // namespace velmar::com
