#include <cstring>
#include <limits>

#include "basic/failure.h"
#include "com/automation/bstr.h"
#include "com/automation/safe_array.h"
#include "com/automation/variant.h"

namespace velmar::com {
namespace {

using basic::Value;

basic::Failure mismatch(const std::string& why) {
  return {basic::type_mismatch, "VelmarMenu", "Type mismatch: " + why};
}

/// Reads one value of a type from where it lies: in a variant, behind a reference, in an array.
class Reader {
 public:
  explicit Reader(const ObjectBorder& border) : border_(border) {}

  Value read(const VARIANT& variant) {
    // References can lead in a circle.
    constexpr int deepest = 16;
    if (depth_ == deepest) throw mismatch("a variant refers to variants without end");
    ++depth_;
    Value value = read(variant.vt & ~VT_BYREF, place(variant));
    --depth_;
    return value;
  }

 private:
  static const void* place(const VARIANT& variant) {
    if (variant.vt & VT_BYREF) return variant.byref;
    if (variant.vt == VT_DECIMAL) return &variant.decVal;
    return &variant.llVal;
  }

  template <class T>
  static T at(const void* place) {
    T content;
    std::memcpy(&content, place, sizeof content);
    return content;
  }

  static Value whole(double number) {
    if (number < std::numeric_limits<std::int32_t>::min() ||
        number > std::numeric_limits<std::int32_t>::max()) {
      return number;
    }
    return static_cast<std::int32_t>(number);
  }

  Value read(int type, const void* place);
  Value number(int type, const void* place);
  Value object(IUnknown* unknown) const;
  Value array(int item_type, SAFEARRAY* array);

  const ObjectBorder& border_;
  int depth_ = 0;
};

Value Reader::read(int type, const void* place) {
  if (type == VT_EMPTY) return {};
  if (type == VT_NULL) return basic::Null{};
  if (!place) throw mismatch("a reference to nothing");
  if (type & VT_ARRAY) return array(type & VT_TYPEMASK, at<SAFEARRAY*>(place));
  switch (type) {
    case VT_BOOL:
      return at<VARIANT_BOOL>(place) != VARIANT_FALSE;
    case VT_BSTR:
      return to_utf8(at<BSTR>(place));
    case VT_DISPATCH:
    case VT_UNKNOWN:
      return object(at<IUnknown*>(place));
    case VT_VARIANT:
      return read(*static_cast<const VARIANT*>(place));
    case VT_ERROR:
      if (at<SCODE>(place) == DISP_E_PARAMNOTFOUND) return basic::LeftOut{};
      throw mismatch("an error code where a value belongs");
    default:
      return number(type, place);
  }
}

Value Reader::number(int type, const void* place) {
  switch (type) {
    case VT_I1:
      return std::int16_t{at<signed char>(place)};
    case VT_UI1:
      return std::int16_t{at<unsigned char>(place)};
    case VT_I2:
      return at<std::int16_t>(place);
    case VT_UI2:
      return std::int32_t{at<std::uint16_t>(place)};
    case VT_I4:
    case VT_INT:
      return at<std::int32_t>(place);
    case VT_UI4:
    case VT_UINT:
      return whole(at<std::uint32_t>(place));
    case VT_I8:
      return whole(static_cast<double>(at<std::int64_t>(place)));
    case VT_UI8:
      return whole(static_cast<double>(at<std::uint64_t>(place)));
    case VT_R4:
      return double{at<float>(place)};
    case VT_R8:
    case VT_DATE:
      return at<double>(place);
    case VT_CY:
      return static_cast<double>(at<std::int64_t>(place)) / 10000;
    case VT_DECIMAL: {
      auto decimal = at<DECIMAL>(place);
      double converted = 0;
      if (FAILED(VarR8FromDec(&decimal, &converted))) throw mismatch("a decimal out of range");
      return converted;
    }
    default:
      throw mismatch("values of automation type " + std::to_string(type) + " are not known");
  }
}

Value Reader::object(IUnknown* unknown) const {
  if (!unknown) return basic::Reference();
  const auto dispatch = ComPtr<IUnknown>::sharing(unknown).as<IDispatch>();
  if (!dispatch) throw basic::Failure(basic::no_automation);
  return border_.inward(*dispatch.get());
}

Value Reader::array(int item_type, SAFEARRAY* array) {
  if (!array) return item_type == VT_R8 ? Value(basic::Doubles()) : Value(basic::List());
  if (SafeArrayGetDim(array) != 1) {
    throw mismatch("an array of " + std::to_string(SafeArrayGetDim(array)) +
                   " dimensions where a list belongs");
  }
  const ArrayAccess access(array);
  if (item_type == VT_R8) {
    const auto* numbers = static_cast<const double*>(access.item(0));
    return basic::Doubles(numbers, numbers + access.size());
  }
  basic::List list;
  list.reserve(access.size());
  for (std::size_t i = 0; i < access.size(); ++i) list.push_back(read(item_type, access.item(i)));
  return list;
}

class NoObjects : public ObjectBorder {
 public:
  basic::Reference inward(IDispatch&) const override { throw mismatch("no object belongs here"); }
  ComPtr<IDispatch> outward(const basic::Reference&) const override {
    throw mismatch("no object belongs here");
  }
};

}  // namespace

const ObjectBorder& no_objects() {
  static const NoObjects border;
  return border;
}

Value to_value(const VARIANT& variant, const ObjectBorder& border) {
  return Reader(border).read(variant);
}

}  // namespace velmar::com
