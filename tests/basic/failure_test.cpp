#include "basic/failure.h"

#include <gtest/gtest.h>

namespace velmar::basic {
namespace {

TEST(Failure, CarriesNumberTextAndHresult) {
  const Failure mismatch(type_mismatch);
  EXPECT_EQ(mismatch.hresult(), 0x800A000DU);
  EXPECT_EQ(mismatch.source, "VelmarMenu");
  EXPECT_STREQ(mismatch.what(), "Type mismatch");
  EXPECT_EQ(Failure(object_required).hresult(), 0x800A01A8U);

  const Failure special(application_defined);
  EXPECT_EQ(special.hresult(), 0x800A0201U);
  EXPECT_EQ(special.description, "Application-defined or object-defined error");

  const Failure host(-2145386476, "Host", "Key not found");
  EXPECT_EQ(host.hresult(), 0x80200014U);
  EXPECT_STREQ(host.what(), "Key not found");
}

}  // namespace
}  // namespace velmar::basic
