#include "component/method_table.h"

#include <gtest/gtest.h>

#include "failure_of.h"
#include "fake_host.h"

namespace velmar {
namespace {

using basic::LeftOut;

Value run(Velmar16& velmar, std::string_view name, std::span<Value> arguments) {
  return call(velmar, *find_method(name), arguments);
}

TEST(MethodTable, NumbersMethodsByPositionWithAGap) {
  EXPECT_EQ(methods().front().dispatch_id, 0x60030000u);
  EXPECT_EQ(find_method("ReverseCase")->dispatch_id, 0x60030048u);
  EXPECT_EQ(find_method("ExplodeBlock")->dispatch_id, 0x6003004Bu);
  EXPECT_EQ(methods().back().dispatch_id, 0x6003004Fu);
  EXPECT_EQ(methods().back().name, "SlowDown");
}

TEST(MethodTable, ReadsTypesOffTheSignature) {
  const Method& rotate = *find_method("ROTATEalltext");
  ASSERT_EQ(rotate.parameters().size(), 3u);
  const Parameter &layer = rotate.parameters()[0], &all = rotate.parameters()[2];
  EXPECT_EQ(layer.name, "LayerName");
  EXPECT_EQ(layer.type, ValueType::text);
  EXPECT_TRUE(layer.optional);
  EXPECT_FALSE(layer.by_reference);
  EXPECT_EQ(all.type, ValueType::boolean);
  EXPECT_TRUE(all.by_reference);
  EXPECT_EQ(rotate.result, ValueType::variant);
  EXPECT_EQ(find_method("Delete_OLE")->result, ValueType::none);
  EXPECT_EQ(find_method("Bt")->result, ValueType::int16);
  EXPECT_FALSE(find_method("GetBRec")->parameters()[0].optional);
  EXPECT_EQ(find_method("GetBRe"), nullptr);
}

TEST(Call, ChecksTheNumberOfArguments) {
  FakeHost host;
  Velmar16 velmar;
  const auto number_for = [&](std::vector<Value> arguments) {
    return failure_number([&] { run(velmar, "GetBRec", arguments); });
  };
  EXPECT_EQ(number_for({"10"}), basic::argument_not_optional);
  EXPECT_EQ(number_for({LeftOut(), "no code"}), basic::argument_not_optional);
  EXPECT_EQ(number_for({"10", "no code", "3"}), basic::wrong_argument_count);
  EXPECT_EQ(number_for({"10", "no code"}), 0);
}

TEST(Call, ConvertsToTheDeclaredTypesAndHandsThemBackAlsoWhenTheMethodFails) {
  FakeHost host;
  Velmar16 velmar;
  std::vector<Value> arguments = {std::int32_t{999}};
  EXPECT_EQ(failure_number([&] { run(velmar, "GetC", arguments); }), unknown_handle);
  EXPECT_EQ(arguments[0], Value("999")) << "GetC declares a text";

  host.document.next_handle = 0x999;
  host.document.add_boxed("AcDbPolyline", {}, {3.7, 1, 0});
  arguments = {std::int32_t{999}};
  EXPECT_EQ(run(velmar, "getc", arguments), Value(6.0));
}

TEST(Call, FailsBeforeTheMethodWhenAnArgumentCannotBeConverted) {
  Velmar16 velmar;
  std::vector<Value> arguments = {std::int32_t{1}, "far"};
  EXPECT_EQ(failure_number([&] { run(velmar, "OMove", arguments); }), basic::type_mismatch);
  EXPECT_EQ(arguments[0], Value(std::int32_t{1}));
}

TEST(Call, KeepsAnArgumentLeftOut) {
  Velmar16 velmar;
  std::vector<Value> arguments = {"10", LeftOut(), LeftOut(), 1.5};
  failure_of([&] { run(velmar, "OMove", arguments); });
  EXPECT_EQ(arguments[1], Value(LeftOut()));
  EXPECT_EQ(arguments[3], Value(1.5));
}

}  // namespace
}  // namespace velmar
