#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <tuple>
#include <type_traits>
#include <utility>

#include "basic/conversion.h"
#include "component/method.h"
#include "component/velmar16.h"
#include "host/at_exit.h"

/// Makes a row of the method table from a member of Velmar16: types, what is by reference and the
/// result come from its signature, the rest is given.
namespace velmar {

template <class T>
consteval ValueType value_type() {
  using Plain = std::remove_cvref_t<T>;
  if constexpr (std::is_void_v<Plain>) return ValueType::none;
  if constexpr (std::is_same_v<Plain, Empty>) return ValueType::variant;
  if constexpr (std::is_same_v<Plain, Value>) return ValueType::variant;
  if constexpr (std::is_same_v<Plain, bool>) return ValueType::boolean;
  if constexpr (std::is_same_v<Plain, std::int16_t>) return ValueType::int16;
  if constexpr (std::is_same_v<Plain, std::int32_t>) return ValueType::int32;
  if constexpr (std::is_same_v<Plain, double>) return ValueType::number;
  if constexpr (std::is_same_v<Plain, std::string>) return ValueType::text;
}

/// The published name; a question mark at its end marks an optional parameter.
template <class T>
constexpr Parameter parameter(std::string_view name) {
  const bool optional = name.ends_with('?');
  if (optional) name.remove_suffix(1);
  return {name, value_type<T>(), std::is_lvalue_reference_v<T>, optional};
}

/// Marks the name of a parameter that takes a colour of the host's enumeration.
struct Colour {
  consteval explicit Colour(std::string_view parameter_name) : name(parameter_name) {}
  std::string_view name;
};

template <class T>
constexpr Parameter parameter(Colour marked) {
  static_assert(value_type<T>() == ValueType::int32, "an enumeration has 32 bits");
  Parameter of_colour = parameter<T>(marked.name);
  of_colour.is_colour = true;
  return of_colour;
}

template <class Member>
struct Signature;

template <class Result, class... Parameters>
struct Signature<Result (Velmar16::*)(Parameters...)> {
  static constexpr std::size_t arity = sizeof...(Parameters);
  static constexpr ValueType result = value_type<Result>();

  template <class... Names>
  static consteval std::array<Parameter, Method::most_parameters> parameters(Names... names) {
    return {parameter<Parameters>(names)...};
  }

  template <auto member>
  static Value invoke(Velmar16& velmar, std::span<Value> arguments) {
    return invoke<member>(velmar, arguments, std::index_sequence_for<Parameters...>());
  }

 private:
  template <auto member, std::size_t... i>
  static Value invoke(Velmar16& velmar, std::span<Value> arguments, std::index_sequence<i...>) {
    [[maybe_unused]] const basic::Separators separators = velmar.system().separators();
    std::tuple<std::remove_reference_t<Parameters>...> declared{
        argument<std::remove_reference_t<Parameters>>(arguments, i, separators)...};
    const host::AtExit hand_back(
        [&] { (write_back<Parameters>(arguments, i, std::get<i>(declared)), ...); });
    if constexpr (std::is_void_v<Result>) {
      (velmar.*member)(std::get<i>(declared)...);
      return Empty{};
    } else {
      return (velmar.*member)(std::get<i>(declared)...);
    }
  }

  static bool is_given(std::span<const Value> arguments, std::size_t i) {
    return i < arguments.size() && !arguments[i].template is<basic::LeftOut>();
  }

  template <class T>
  static T argument(std::span<const Value> arguments, std::size_t i, basic::Separators separators) {
    return is_given(arguments, i) ? basic::convert<T>(arguments[i], separators) : T{};
  }

  template <class T>
  static void write_back(std::span<Value> arguments, std::size_t i,
                         std::remove_reference_t<T>& written) {
    if (std::is_lvalue_reference_v<T> && is_given(arguments, i)) arguments[i] = std::move(written);
  }
};

template <auto member, class... Names>
consteval Method method(std::string_view name, Subject subject, OnFailure on_failure,
                        std::string_view help, Names... names) {
  using Declared = Signature<decltype(member)>;
  static_assert(sizeof...(Names) == Declared::arity, "one published name for each parameter");
  return {.name = name,
          .subject = subject,
          .on_failure = on_failure,
          .help = help,
          .result = Declared::result,
          .parameter_count = Declared::arity,
          .parameter_list = Declared::parameters(names...),
          .invoke = &Declared::template invoke<member>};
}

}  // namespace velmar
